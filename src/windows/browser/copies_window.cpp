#include "windows/browser/copies_window.h"

#include "base/program_error.h"
#include "platform/trapped.h"
#include "windows/application.h"
#include "windows/boxes/busy.h"
#include "windows/shared/bind.h"
#include "windows/shared/buttons.h"
#include "windows/shared/controls.h"
#include "windows/shared/scene.h"

namespace dtb {
namespace {

constexpr double kCopiesWidth = 1120;  // layout units
constexpr double kCopiesHeight = 620;

}  // namespace

bool CopiesWindow::Run(Platform& platform, QWidget* over) {
  CopiesWindow form(platform, over);
  CenterForm(&form, over);
  const Application::Net net;
  form.exec();
  return form.state_.broughtBack;
}

CopiesWindow::CopiesWindow(Platform& platform, QWidget* parent)
    : QDialog(parent), desk_{state_, platform}, frame_(*this, kCopiesWidth, kCopiesHeight) {
  setObjectName(QStringLiteral("CopiesForm"));
  setWindowTitle(QLatin1String(kCopiesTitle));
  {
    const BusyPointer busy;
    ListCopies(desk_);
  }
  BuildTables();
  BuildButtons();
  frame_.Fit();
  copies_->SetCurrentCell(state_.row, 1);
}

void CopiesWindow::BuildTables() {
  frame_.AddText("lbl_Database", state_.lbl_Database);
  auto* tables = new QHBoxLayout;
  tables->setSpacing(12);
  frame_.column()->addLayout(tables, 1);
  copies_ = frame_.AddGrid(tables, "grd_Copies", "Copies of the database", state_.grd_Copies, 2);
  copies_->SetStretchColumns({1});
  StatGridView* changes =
      frame_.AddGrid(tables, "grd_Changes", "Games that would change", state_.grd_Changes, 3);
  changes->SetStretchColumns({2});
  connect(copies_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& row) {
            if (!row.isValid()) return;
            const BusyPointer busy;
            Trapped(desk_.platform.boxes, [&] { SelectCopy(desk_, row.row() + 1); });
          });
  frame_.AddText("lbl_Changes", state_.lbl_Changes);
}

void CopiesWindow::BuildButtons() {
  QHBoxLayout* strip = frame_.AddStrip();
  QPushButton* put = AddButton(strip, "cmd_PutInPlace", "Restore this copy");
  Follow<bool>(put, state_.canBringBack, [put](bool can) { put->setEnabled(can); });
  connect(put, &QPushButton::clicked, this, [this] {
    BringBackSelected(desk_);
    copies_->SetCurrentCell(state_.row, 1);
  });
  strip->addStretch();
  connect(AddButton(strip, "cmd_CloseCopies", "Close"), &QPushButton::clicked, this,
          &QDialog::accept);
}

void CopiesWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  frame_.Resize();
}

}  // namespace dtb
