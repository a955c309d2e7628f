#include "windows/scorecard/print_pages.h"

#include <QPrintDialog>
#include <QPrinter>
#include <algorithm>

#include "base/program_error.h"
#include "platform/qt/qt_text.h"
#include "platform/trapped.h"
#include "windows/application.h"
#include "windows/boxes/busy.h"
#include "windows/scorecard/paint_drawing.h"

namespace dtb {
namespace {

// Half of A4 is the smallest paper that has room for the card.
constexpr double kNarrowest = 420;
constexpr double kLowest = 298;

bool AskForPrinter(QPrinter& printer, QWidget* over) {
  QPrintDialog dialog(&printer, over);
  dialog.setObjectName(QStringLiteral("PrintDialog"));
  dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
  const Application::Net net;
  return dialog.exec() == QDialog::Accepted;
}

// The paper on its side, whatever the person has chosen: the card is wider than high.
PageSize PaperOf(const QPrinter& printer) {
  const QSizeF size = printer.pageLayout().pageSize().size(QPageSize::Point);
  return {std::max({size.width(), size.height(), kNarrowest}),
          std::max(std::min(size.width(), size.height()), kLowest)};
}

}  // namespace

void PrintPages(Platform& platform, QWidget* over, const QString& title,
                const std::function<std::vector<Drawing>(PageSize)>& draw) {
  Trapped(platform.boxes, [&] {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    const PageSize usual = UsualPage();
    const bool letter = usual.width == kLetterLandscape.width;
    printer.setPageSize(QPageSize(letter ? QPageSize::Letter : QPageSize::A4));
    printer.setPageOrientation(QPageLayout::Landscape);
    if (!AskForPrinter(printer, over)) return;
    const BusyPointer busy;
    printer.setFullPage(true);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setPageMargins(QMarginsF());
    const bool printed = PaintPages(printer, draw(PaperOf(printer)), Dress::Paper);
    if (printed && printer.printerState() != QPrinter::Error) return;
    throw ProgramError(
        error_number::kPathOrFileAccess,
        printer.outputFileName().isEmpty()
            ? "\"" + FromQt(title) + "\" could not be printed. Is the printer \"" +
                  FromQt(printer.printerName()) + "\" on?"
            : "The file \"" + FromQt(printer.outputFileName()) + "\" could not be written.");
  });
}

}  // namespace dtb
