#include "windows/archive/archive_window.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QRadioButton>
#include <QShowEvent>
#include <QSignalBlocker>

#include "archive/archive_lists.h"
#include "archive/archive_teams.h"
#include "base/program_error.h"
#include "windows/boxes/busy.h"
#include "windows/shared/bind.h"
#include "windows/shared/buttons.h"
#include "windows/shared/controls.h"
#include "windows/shared/kept_place.h"
#include "windows/shared/look.h"
#include "windows/shared/scene.h"
#include "windows/shared/tips.h"

namespace dtb {
namespace {

using namespace look;

constexpr double kWidth = 1520;  // layout units
constexpr double kHeight = 832;
constexpr double kControlHeight = 32;

}  // namespace

void ArchiveWindow::Run(Board& board, archive::KeptSeason& kept, QWidget* over) {
  ArchiveWindow form(board, kept, over);
  // Once the window is there, so that the progress and a complaint stand over it.
  const auto last = archive::LastArchive(form.desk_);
  if (last) {
    QMetaObject::invokeMethod(
        &form, [&form, last] { form.Read(last); }, Qt::QueuedConnection);
  }
  RunInPlace(form, board.platform.settings, [&] { CenterForm(&form, over); });
  archive::KeepChoices(form.desk_);
}

ArchiveWindow::ArchiveWindow(Board& board, archive::KeptSeason& kept, QWidget* parent)
    : QDialog(parent),
      desk_{state_, kept, board},
      resizer_(kWidth, kHeight),
      inside_(new QWidget(this)) {
  setObjectName(QStringLiteral("SeasonForm"));
  setWindowTitle(QLatin1String(archive::kSeasonTitle));
  state_.useOf = [this](const std::string& team, const std::string& player) {
    return UseOf(team, player);
  };
  archive::OpenArchiveDesk(desk_);
  auto* around = new QVBoxLayout(this);
  around->setContentsMargins(0, 0, 0, 0);
  around->addWidget(inside_);
  auto* whole = new QVBoxLayout(inside_);
  whole->setContentsMargins(12, 12, 12, 12);
  whole->setSpacing(8);
  BuildArchive(whole);
  BuildTables(whole);
  BuildForms(whole);
  BuildButtons(whole);
  MarkChoice();
  FitAtLaunch(this, resizer_, 0);
}

// The views go before the grids that they show.
ArchiveWindow::~ArchiveWindow() { delete inside_; }

QLabel* ArchiveWindow::AddText(QBoxLayout* place, const char* name, Field<std::string>& text) {
  QLabel* label = MakeCaption({}, nullptr);
  Name(label, name);
  // A long text is cut, not the window made wider.
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  Follow<std::string>(label, text, [label](const std::string& shown) {
    label->setText(ToQt(shown));
    label->setToolTip(TipOfLines({ToQt(shown)}));
    label->setAccessibleName(ToQt(shown));
  });
  place->addWidget(label, 1);
  return label;
}

StatGridView* ArchiveWindow::AddGrid(QBoxLayout* place, const char* name,
                                     const char* accessibleName, StatGrid& grid) {
  auto* view = new StatGridView(grid, nullptr);
  Name(view, name, QLatin1String(accessibleName));
  view->ShowAsResult();
  view->ShowWholeRows();
  view->setSelectionBehavior(QTableView::SelectRows);
  view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view->SetStretchColumns({2});
  place->addWidget(view, 1);
  grids_.push_back(view);
  return view;
}

void ArchiveWindow::OnRow(StatGridView* grid, void (*select)(archive::ArchiveDesk&, int)) {
  connect(grid->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this, select](const QModelIndex& row) {
            if (row.isValid()) select(desk_, row.row() + 1);
          });
  // A second click on the row that is chosen takes a game up again.
  connect(grid, &StatGridView::cellClicked, this,
          [this, select](int row, int /*column*/) { select(desk_, row); });
}

void ArchiveWindow::BuildArchive(QVBoxLayout* whole) {
  auto* strip = new QHBoxLayout;
  strip->setSpacing(8);
  whole->addLayout(strip);
  connect(
      AddButton(strip, "cmd_Zip", "Choose a zip", "Reads a season's archive that is one zip file"),
      &QPushButton::clicked, this, [this] { Read(archive::ChooseZip(desk_)); });
  connect(AddButton(strip, "cmd_Folder", "Choose a folder",
                    "Reads a season's archive that was unpacked into a folder"),
          &QPushButton::clicked, this, [this] { Read(archive::ChooseFolder(desk_)); });
  strip->addSpacing(8);
  AddText(strip, "lbl_Archive", state_.lbl_Archive);
  QPushButton* faults = AddButton(strip, "cmd_Faults", "What was odd",
                                  "Lists what could not be read or does not agree");
  BindVisible(faults, state_.hasFaults);
  connect(faults, &QPushButton::clicked, this, [this] { archive::ShowFaults(desk_); });
}

void ArchiveWindow::BuildTables(QVBoxLayout* whole) {
  auto* tables = new QHBoxLayout;
  tables->setSpacing(12);
  whole->addLayout(tables, 1);
  const auto addColumn = [tables](int share) {
    auto* column = new QVBoxLayout;
    column->setSpacing(4);
    tables->addLayout(column, share);
    return column;
  };
  const auto addTitle = [this](QBoxLayout* column, const char* title) {
    QLabel* label = MakeCaption(QLatin1String(title), nullptr);
    titles_.push_back(label);
    column->addWidget(label);
  };
  QVBoxLayout* teams = addColumn(17);
  addTitle(teams, "Teams");
  teams_ = AddGrid(teams, "grd_Teams", "Teams of the season", state_.grd_Teams);
  teams_->SetStretchColumns({1});
  OnRow(teams_, archive::SelectTeam);
  QVBoxLayout* games = addColumn(32);
  addTitle(games, "Games");
  games_ = AddGrid(games, "grd_Games", "Games", state_.grd_Games);
  OnRow(games_, archive::SelectGame);
  // One file takes the room of both, so that the lists stay where they are.
  auto* both = new QHBoxLayout;
  both->setSpacing(12);
  tables->addLayout(both, 60);
  for (int side = 0; side < 2; ++side) {
    archive::SeasonState::File& file = state_.files.at(side);
    auto* place = new QWidget;
    both->addWidget(place, 1);
    auto* column = new QVBoxLayout(place);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    titles_.push_back(AddText(column, side == 0 ? "lbl_File1" : "lbl_File2", file.title));
    titles_.back()->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    AddGrid(column, side == 0 ? "grd_File1" : "grd_File2",
            side == 0 ? "Team file" : "Team file of the home team", file.grid);
    if (side == 1) {
      Follow<int>(place, state_.shownFiles, [place](int shown) { place->setVisible(shown == 2); });
    }
  }
}

void ArchiveWindow::BuildForms(QVBoxLayout* whole) {
  auto* strip = new QHBoxLayout;
  strip->setSpacing(8);
  whole->addLayout(strip);
  const auto addForm = [&](const char* name, const char* caption, Field<std::string>& form,
                           bool asPitcher) {
    strip->addWidget(MakeCaption(QLatin1String(caption), nullptr));
    auto* edit = new QLineEdit;
    Name(edit, name, QLatin1String("Remark of ") + QLatin1String(caption).toString().toLower());
    edit->setToolTip(ToQt("The remark after \"=\". Words: " + archive::KnownWords(asPitcher)));
    BindText(edit, form);
    connect(edit, &QLineEdit::textEdited, this, [this] { archive::ChangeForms(desk_); });
    strip->addWidget(edit, 1);
  };
  addForm("tb_Batters", "Batters", state_.tb_Batters, false);
  strip->addSpacing(8);
  addForm("tb_Pitchers", "Pitchers", state_.tb_Pitchers, true);
  strip->addSpacing(8);
  auto* lastFirst = new QCheckBox(QStringLiteral("Last, First"));
  Name(lastFirst, "opt_LastFirst", QStringLiteral("Names as Last, First"));
  lastFirst->setToolTip(QLatin1String("Writes a family name first, then a comma"));
  BindCheck(lastFirst, state_.opt_LastFirst, [this] { archive::ChangeForms(desk_); });
  strip->addWidget(lastFirst);
}

void ArchiveWindow::AddNine(QBoxLayout* strip, const char* name, const char* caption,
                            const char* tip, archive::SeasonNine nine) {
  QPushButton* button = AddButton(strip, name, caption, tip);
  button->setCheckable(true);
  Follow<bool>(button, state_.hasClub, [button](bool has) { button->setEnabled(has); });
  const auto mark = [this, button, nine] { button->setChecked(state_.shownNine.value() == nine); };
  FollowAll(button, mark, state_.shownNine);
  connect(button, &QPushButton::clicked, this, [this, mark, nine] {
    archive::SelectNine(desk_, nine);
    mark();  // a second press takes no mark away
    games_->clearSelection();
    games_->setCurrentIndex({});
  });
}

void ArchiveWindow::BuildButtons(QVBoxLayout* whole) {
  auto* strip = new QHBoxLayout;
  strip->setSpacing(8);
  whole->addLayout(strip);
  QPushButton* write = AddButton(strip, "cmd_Write", "Write team file",
                                 "Writes the line-up shown into the folder Teams");
  QPushButton* visitors = AddButton(strip, "cmd_LoadVisitors", "Load as visitors",
                                    "Writes the line-up and loads it as the visitors");
  QPushButton* home = AddButton(strip, "cmd_LoadHome", "Load as home",
                                "Writes the line-up and loads it as the home team");
  QPushButton* both = AddButton(strip, "cmd_LoadGame", "Load both teams",
                                "Loads both line-ups of the game onto the board, "
                                "with their starting pitchers");
  AddNine(strip, "cmd_UsedMost", "Line-up used most",
          "Shows the line-up that the team used most in the season", archive::SeasonNine::UsedMost);
  AddNine(strip, "cmd_UsualNine", "The usual nine",
          "Shows nine players: at each position the one who started most games there, "
          "in the order in which they most often batted",
          archive::SeasonNine::UsualNine);
  next_ = AddButton(strip, "cmd_NextGame", "Next game",
                    "Loads both teams of the next game in the list "
                    "that is not played yet");
  strip->addSpacing(8);
  QLabel* done = AddText(strip, "lbl_Done", state_.lbl_Done);
  QLabel* forms = AddText(strip, "lbl_Forms", state_.lbl_Forms);
  FollowAll(
      forms,
      [this, done, forms] {
        const bool wrong = !state_.lbl_Forms.value().empty();
        forms->setVisible(wrong);
        done->setVisible(!wrong);
      },
      state_.lbl_Forms);
  connect(write, &QPushButton::clicked, this, [this] { archive::WriteTeamFiles(desk_); });
  connect(visitors, &QPushButton::clicked, this,
          [this] { archive::LoadTeamAs(desk_, Side::Visitors); });
  connect(home, &QPushButton::clicked, this, [this] { archive::LoadTeamAs(desk_, Side::Home); });
  connect(both, &QPushButton::clicked, this, [this] { Finish(archive::LoadGame(desk_)); });
  connect(next_, &QPushButton::clicked, this, [this] { Finish(archive::LoadNextGame(desk_)); });
  Follow<int>(write, state_.shownFiles, [=](int shown) {
    write->setText(shown == 2 ? QStringLiteral("Write both files")
                              : QStringLiteral("Write team file"));
    write->setEnabled(shown > 0);
    for (QPushButton* one : {visitors, home}) {
      one->setVisible(shown < 2);
      one->setEnabled(shown == 1);
    }
    both->setVisible(shown == 2);
  });
  Follow<bool>(next_, state_.hasNext, [this](bool left) { next_->setEnabled(left); });

  QLabel* notice = MakeCaption(QLatin1String(archive::kOwnersNotice), nullptr);
  Name(notice, "lbl_Notice", notice->text());
  notice->setWordWrap(true);
  notes_.push_back(notice);
  whole->addWidget(notice);
}

std::string ArchiveWindow::UseOf(const std::string& team, const std::string& player) {
  if (!desk_.kept.season) return {};
  if (!marks_ || marksOf_ != desk_.kept.season) {
    marksOf_ = desk_.kept.season;
    marks_.emplace();
    try {
      marks_ = real::ReadUseMarks(desk_.board.platform.database, marksOf_);
    } catch (const ProgramError&) {
      // The list of games says that the database cannot be read.
    }
  }
  return marks_->WordOf(team, player);
}

void ArchiveWindow::Read(const std::optional<std::filesystem::path>& archive) {
  if (!archive) return;
  {
    ProgressPanel panel(QStringLiteral("Reading the season"), ProgressPanel::Work::Cancellable,
                        this);
    archive::ReadArchive(desk_, *archive, [&panel](double share) { return panel.Hear(share); });
  }
  MarkChoice();
  FocusNext();
}

void ArchiveWindow::FocusNext() {
  if (!desk_.kept.season) return;
  const bool goesOn = desk_.kept.club != archive::kAllClubs && next_->isEnabled();
  (goesOn ? static_cast<QWidget*>(next_) : teams_)->setFocus(Qt::TabFocusReason);
}

void ArchiveWindow::Finish(bool loaded) {
  if (loaded) return accept();
  MarkChoice();
}

void ArchiveWindow::MarkChoice() {
  const auto mark = [](StatGridView* view, int row) {
    const QSignalBlocker quiet(view->selectionModel());
    view->SetCurrentCell(row, 1);
    view->scrollTo(view->currentIndex(), QAbstractItemView::PositionAtCenter);
    view->viewport()->update();
  };
  if (!desk_.kept.season) return;
  const auto club = std::find(state_.clubs.begin(), state_.clubs.end(), desk_.kept.club);
  mark(teams_, club == state_.clubs.end() ? 1 : static_cast<int>(club - state_.clubs.begin()) + 2);
  if (!desk_.kept.game) return;
  const auto game = std::find(state_.games.begin(), state_.games.end(), *desk_.kept.game);
  if (game != state_.games.end()) mark(games_, static_cast<int>(game - state_.games.begin()) + 1);
}

// Only now have the lists their height, so that the choice comes into sight.
void ArchiveWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  QMetaObject::invokeMethod(
      this,
      [this, again = event->spontaneous()] {
        MarkChoice();
        if (!again) FocusNext();
      },
      Qt::QueuedConnection);
}

void ArchiveWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  resizer_.FormResized(width(), height());
  const double scale = resizer_.fontScale();
  setFont(Font(kBody * scale));
  for (StatGridView* grid : grids_) grid->SetScale(kSmall * scale, kTwip * scale);
  for (QLabel* title : titles_) {
    title->setFont(Font(kBody * scale, true));
    title->setFixedHeight(title->fontMetrics().height());  // also of an empty one
  }
  for (QLabel* note : notes_) note->setFont(Font(kSmall * scale));
  const int height = qRound(kControlHeight * scale);
  for (auto* button : findChildren<QPushButton*>()) {
    if (button->objectName() == QLatin1String("cmd_Cancel")) continue;
    button->setFixedHeight(height);
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(button->text()) + height);
  }
  for (auto* box : findChildren<QLineEdit*>()) box->setFixedHeight(height);
}

}  // namespace dtb
