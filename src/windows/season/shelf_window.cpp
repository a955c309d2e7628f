#include "windows/season/shelf_window.h"

#include <QLabel>

#include "windows/application.h"
#include "windows/boxes/busy.h"
#include "windows/season/pages_writing.h"
#include "windows/shared/bind.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"
#include "windows/shared/scene.h"

namespace dtb {
namespace {

using namespace look;

constexpr double kWidth = 960;  // layout units
constexpr double kHeight = 520;
constexpr double kControlHeight = 32;
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
    : QDialog(parent),
      desk_{state_, platform},
      resizer_(kWidth, kHeight),
      inside_(new QWidget(this)) {
  setObjectName(QStringLiteral("ShelfForm"));
  setWindowTitle(QLatin1String(kShelfTitle));
  {
    const BusyPointer busy;
    ListSeasons(desk_);
  }
  auto* around = new QVBoxLayout(this);
  around->setContentsMargins(0, 0, 0, 0);
  around->addWidget(inside_);
  auto* whole = new QVBoxLayout(inside_);
  whole->setContentsMargins(12, 12, 12, 12);
  whole->setSpacing(8);
  QLabel* what = MakeCaption(
      QStringLiteral("Each season is a database of its own, with its own copies. Games are saved "
                     "into the one in use, and the database shows it."),
      nullptr);
  what->setWordWrap(true);
  whole->addWidget(what);
  seasons_ = new StatGridView(state_.grd_Seasons, nullptr);
  Name(seasons_, "grd_Seasons", QStringLiteral("Seasons"));
  seasons_->ShowAsResult();
  seasons_->setSelectionBehavior(QTableView::SelectRows);
  seasons_->SetStretchColumns({1});
  whole->addWidget(seasons_, 1);
  connect(seasons_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& row) {
            if (row.isValid()) state_.row = row.row() + 1;
          });
  connect(seasons_, &QTableView::doubleClicked, this, [this] { Do(UseSelectedSeason); });
  BuildName(whole);
  BuildButtons(whole);
  FitAtLaunch(this, resizer_, 0);
  seasons_->SetCurrentCell(state_.row, 1);
  seasons_->setFocus(Qt::OtherFocusReason);
}

// The views go before the grid that they show.
ShelfWindow::~ShelfWindow() { delete inside_; }

void ShelfWindow::BuildName(QVBoxLayout* whole) {
  auto* strip = new QHBoxLayout;
  strip->setSpacing(8);
  whole->addLayout(strip);
  name_ = new QLineEdit;
  Name(name_, "tb_Name", QStringLiteral("Name of a season"));
  name_->setMaxLength(kNameLength);
  name_->setPlaceholderText(QStringLiteral("A name, for a new season or for the chosen one"));
  BindText(name_, state_.tb_Name);
  strip->addWidget(name_, 1);
  AddButton(strip, "cmd_NewSeason", "New season", "Begins a season of that name, without games",
            MakeSeason);
  AddButton(strip, "cmd_Rename", "Rename", "Gives the chosen season that name",
            RenameSelectedSeason);
  QLabel* told = MakeCaption({}, nullptr);
  Name(told, "lbl_Shelf");
  told->setWordWrap(true);
  Follow<std::string>(told, state_.lbl_Shelf,
                      [told](const std::string& text) { told->setText(ToQt(text)); });
  whole->addWidget(told);
}

void ShelfWindow::BuildButtons(QVBoxLayout* whole) {
  auto* strip = new QHBoxLayout;
  strip->setSpacing(8);
  whole->addLayout(strip);
  AddButton(strip, "cmd_Use", "Use this season", "Games are saved into it from now on",
            UseSelectedSeason);
  AddButton(strip, "cmd_CopyOut", "Take a copy out...",
            "Writes the whole season into a file, for another computer or a friend",
            CopySelectedSeasonOut);
  AddButton(strip, "cmd_PutAway", "Put away...", "Takes it off the shelf; its file is kept",
            PutSelectedSeasonAway);
  auto* book = new QPushButton(QStringLiteral("The book of all seasons..."));
  Name(book, "cmd_Book", book->text());
  book->setToolTip(
      QStringLiteral("Writes champions, leaders, records and careers of all seasons as "
                     "web pages into Game Rpts"));
  book->setAutoDefault(false);
  strip->addWidget(book);
  connect(book, &QPushButton::clicked, this, [this] { WriteBookOfSeasons(desk_.platform, this); });
  strip->addStretch();
  auto* close = new QPushButton(QStringLiteral("Close"));
  Name(close, "cmd_CloseShelf", close->text());
  close->setAutoDefault(false);
  strip->addWidget(close);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
}

QPushButton* ShelfWindow::AddButton(QBoxLayout* strip, const char* name, const char* caption,
                                    const char* tip, void (*wish)(ShelfDesk&)) {
  auto* button = new QPushButton(QLatin1String(caption));
  Name(button, name, QLatin1String(caption));
  button->setToolTip(QLatin1String(tip));
  button->setAutoDefault(false);
  strip->addWidget(button);
  connect(button, &QPushButton::clicked, this, [this, wish] { Do(wish); });
  return button;
}

void ShelfWindow::Do(void (*wish)(ShelfDesk&)) {
  const BusyPointer busy;
  wish(desk_);
  seasons_->SetCurrentCell(state_.row, 1);
}

void ShelfWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  resizer_.FormResized(width(), height());
  const double scale = resizer_.fontScale();
  setFont(Font(kBody * scale));
  seasons_->SetScale(kBody * scale, kTwip * scale);
  const int height = qRound(kControlHeight * scale);
  name_->setFixedHeight(height);
  for (auto* button : findChildren<QPushButton*>()) {
    button->setFixedSize(button->fontMetrics().horizontalAdvance(button->text()) + height, height);
  }
}

}  // namespace dtb
