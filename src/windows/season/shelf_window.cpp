#include "windows/season/shelf_window.h"

#include "windows/application.h"
#include "windows/boxes/busy.h"
#include "windows/season/pages_writing.h"
#include "windows/shared/bind.h"
#include "windows/shared/buttons.h"
#include "windows/shared/controls.h"
#include "windows/shared/scene.h"

namespace dtb {
namespace {

constexpr double kWidth = 960;  // layout units
constexpr double kHeight = 520;
constexpr int kNameLength = 80;  // bytes that a part of a file's name may have

}  // namespace

bool ShelfWindow::Run(Platform& platform, QWidget* over) {
  ShelfWindow form(platform, over);
  CenterForm(&form, over);
  const Application::Net net;
  form.exec();
  return form.state_.changed;
}

ShelfWindow::ShelfWindow(Platform& platform, QWidget* parent)
    : QDialog(parent), desk_{state_, platform}, frame_(*this, kWidth, kHeight) {
  setObjectName(QStringLiteral("ShelfForm"));
  setWindowTitle(QLatin1String(kShelfTitle));
  {
    const BusyPointer busy;
    ListSeasons(desk_);
  }
  QLabel* what = MakeCaption(
      QStringLiteral("Each season is a database of its own, with its own copies. Games are saved "
                     "into the one in use, and the database shows it."),
      nullptr);
  what->setWordWrap(true);
  frame_.column()->addWidget(what);
  seasons_ = frame_.AddGrid(frame_.column(), "grd_Seasons", "Seasons", state_.grd_Seasons);
  seasons_->SetStretchColumns({1});
  connect(seasons_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& row) {
            if (row.isValid()) state_.row = row.row() + 1;
          });
  connect(seasons_, &QTableView::doubleClicked, this, [this] { Do(UseSelectedSeason); });
  BuildName();
  BuildButtons();
  frame_.Fit();
  seasons_->SetCurrentCell(state_.row, 1);
  seasons_->setFocus(Qt::OtherFocusReason);
}

void ShelfWindow::BuildName() {
  QHBoxLayout* strip = frame_.AddStrip();
  auto* name = new QLineEdit;
  Name(name, "tb_Name", QStringLiteral("Name of a season"));
  name->setMaxLength(kNameLength);
  name->setPlaceholderText(QStringLiteral("A name, for a new season or for the chosen one"));
  BindText(name, state_.tb_Name);
  strip->addWidget(name, 1);
  AddWish(strip, "cmd_NewSeason", "New season", "Begins a season of that name, without games",
          MakeSeason);
  AddWish(strip, "cmd_Rename", "Rename", "Gives the chosen season that name", RenameSelectedSeason);
  frame_.AddText("lbl_Shelf", state_.lbl_Shelf);
}

void ShelfWindow::BuildButtons() {
  QHBoxLayout* strip = frame_.AddStrip();
  AddWish(strip, "cmd_Use", "Use this season", "Games are saved into it from now on",
          UseSelectedSeason);
  AddWish(strip, "cmd_CopyOut", "Take a copy out...",
          "Writes the whole season into a file, for another computer or a friend",
          CopySelectedSeasonOut);
  AddWish(strip, "cmd_PutAway", "Put away...", "Takes it off the shelf; its file is kept",
          PutSelectedSeasonAway);
  connect(AddButton(strip, "cmd_Book", "The book of all seasons...",
                    "Writes champions, leaders, records and careers of all seasons as "
                    "web pages into Game Rpts"),
          &QPushButton::clicked, this, [this] { WriteBookOfSeasons(desk_.platform, this); });
  strip->addStretch();
  connect(AddButton(strip, "cmd_CloseShelf", "Close"), &QPushButton::clicked, this,
          &QDialog::accept);
}

void ShelfWindow::AddWish(QBoxLayout* strip, const char* name, const char* caption, const char* tip,
                          void (*wish)(ShelfDesk&)) {
  connect(AddButton(strip, name, caption, tip), &QPushButton::clicked, this,
          [this, wish] { Do(wish); });
}

void ShelfWindow::Do(void (*wish)(ShelfDesk&)) {
  const BusyPointer busy;
  wish(desk_);
  seasons_->SetCurrentCell(state_.row, 1);
}

void ShelfWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  frame_.Resize();
}

}  // namespace dtb
