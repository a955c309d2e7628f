#include "windows/browser/copies_window.h"

#include "base/program_error.h"
#include "platform/trapped.h"
#include "windows/application.h"
#include "windows/boxes/busy.h"
#include "windows/shared/bind.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"
#include "windows/shared/scene.h"

namespace dtb {
namespace {

using namespace look;

constexpr double kWidth = 1120;  // layout units
constexpr double kHeight = 620;
constexpr double kControlHeight = 32;

}  // namespace

bool CopiesWindow::Run(Platform& platform, QWidget* over) {
  CopiesWindow form(platform, over);
  CenterForm(&form, over);
  const Application::Net net;
  form.exec();
  return form.state_.broughtBack;
}

CopiesWindow::CopiesWindow(Platform& platform, QWidget* parent)
    : QDialog(parent),
      desk_{state_, platform},
      resizer_(kWidth, kHeight),
      inside_(new QWidget(this)) {
  setObjectName(QStringLiteral("CopiesForm"));
  setWindowTitle(QLatin1String(kCopiesTitle));
  {
    const BusyPointer busy;
    ListCopies(desk_);
  }
  auto* around = new QVBoxLayout(this);
  around->setContentsMargins(0, 0, 0, 0);
  around->addWidget(inside_);
  auto* whole = new QVBoxLayout(inside_);
  whole->setContentsMargins(12, 12, 12, 12);
  whole->setSpacing(8);
  BuildTables(whole);
  BuildButtons(whole);
  FitAtLaunch(this, resizer_, 0);
  copies_->SetCurrentCell(state_.row, 1);
}

// The views go before the grids that they show.
CopiesWindow::~CopiesWindow() { delete inside_; }

StatGridView* CopiesWindow::AddGrid(QBoxLayout* place, const char* name, const char* accessibleName,
                                    StatGrid& grid, int share) {
  auto* view = new StatGridView(grid, nullptr);
  Name(view, name, QLatin1String(accessibleName));
  view->ShowAsResult();
  view->setSelectionBehavior(QTableView::SelectRows);
  place->addWidget(view, share);
  grids_.push_back(view);
  return view;
}

QLabel* CopiesWindow::AddText(QBoxLayout* place, const char* name, Field<std::string>& text) {
  QLabel* label = MakeCaption({}, nullptr);
  Name(label, name);
  label->setWordWrap(true);
  Follow<std::string>(label, text, [label](const std::string& shown) {
    label->setText(ToQt(shown));
    label->setAccessibleName(ToQt(shown));
  });
  place->addWidget(label);
  return label;
}

QPushButton* CopiesWindow::AddButton(QBoxLayout* strip, const char* name, const char* caption) {
  auto* button = new QPushButton(QLatin1String(caption));
  Name(button, name, QLatin1String(caption));
  button->setAutoDefault(false);
  button->setFocusPolicy(Qt::TabFocus);
  strip->addWidget(button);
  return button;
}

void CopiesWindow::BuildTables(QVBoxLayout* whole) {
  AddText(whole, "lbl_Database", state_.lbl_Database);
  auto* tables = new QHBoxLayout;
  tables->setSpacing(12);
  whole->addLayout(tables, 1);
  copies_ = AddGrid(tables, "grd_Copies", "Copies of the database", state_.grd_Copies, 2);
  copies_->SetStretchColumns({1});
  StatGridView* changes =
      AddGrid(tables, "grd_Changes", "Games that would change", state_.grd_Changes, 3);
  changes->SetStretchColumns({2});
  connect(copies_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& row) {
            if (!row.isValid()) return;
            const BusyPointer busy;
            Trapped(desk_.platform.boxes, [&] { SelectCopy(desk_, row.row() + 1); });
          });
  AddText(whole, "lbl_Changes", state_.lbl_Changes);
}

void CopiesWindow::BuildButtons(QVBoxLayout* whole) {
  auto* strip = new QHBoxLayout;
  strip->setSpacing(8);
  whole->addLayout(strip);
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
  resizer_.FormResized(width(), height());
  const double scale = resizer_.fontScale();
  setFont(Font(kBody * scale));
  for (StatGridView* grid : grids_) grid->SetScale(kBody * scale, kTwip * scale);
  const int height = qRound(kControlHeight * scale);
  for (auto* button : findChildren<QPushButton*>()) {
    button->setFixedSize(button->fontMetrics().horizontalAdvance(button->text()) + height, height);
  }
}

}  // namespace dtb
