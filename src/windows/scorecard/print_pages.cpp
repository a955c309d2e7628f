#include "windows/scorecard/print_pages.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>

#include "base/file_names.h"
#include "base/paths.h"
#include "base/program_error.h"
#include "base/whole_file.h"
#include "platform/qt/qt_text.h"
#include "platform/trapped.h"
#include "sheet/report_files.h"
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
    const bool letter = UsualPage().width == kLetterLandscape.width;
    printer.setPageSize(QPageSize(letter ? QPageSize::Letter : QPageSize::A4));
    printer.setPageOrientation(QPageLayout::Landscape);
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
      const auto file = ReportsFolder(platform) / (SafeNamePart(FromQt(title)) + ".pdf");
      printer.setOutputFileName(ToQt(TextOf(file)));
    }
    if (!AskForPrinter(printer, over)) return;
    if (!printer.outputFileName().isEmpty()) {
      const std::filesystem::path file = PathOf(FromQt(printer.outputFileName()));
      const QByteArray pdf = PdfOf(draw(PaperOf(printer)), Dress::Paper, title);
      WriteWholeFile(file, pdf.toStdString());
      return TellWhereItLies(platform, "The pages are written.", file, FromQt(title));
    }
    const BusyPointer busy;
    printer.setFullPage(true);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setPageMargins(QMarginsF());
    const bool printed = PaintPages(printer, draw(PaperOf(printer)), Dress::Paper);
    if (printed && printer.printerState() != QPrinter::Error) return;
    throw ProgramError(error_number::kPathOrFileAccess,
                       "\"" + FromQt(title) + "\" could not be printed. Is the printer \"" +
                           FromQt(printer.printerName()) + "\" on?");
  });
}

}  // namespace dtb
