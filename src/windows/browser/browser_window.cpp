#include "windows/browser/browser_window.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QTabBar>

#include "base/program_error.h"
#include "browser/box_score.h"
#include "browser/bracket.h"
#include "browser/chosen_game.h"
#include "browser/exports.h"
#include "browser/grid_format.h"
#include "database/backups.h"
#include "database/deletes.h"
#include "database/saved_games.h"
#include "database/season_shelf.h"
#include "platform/trapped.h"
#include "sheet/workbook_export.h"
#include "windows/application.h"
#include "windows/browser/copies_window.h"
#include "windows/shared/bind.h"
#include "windows/shared/buttons.h"
#include "windows/shared/controls.h"
#include "windows/shared/kept_place.h"
#include "windows/shared/look.h"
#include "windows/shared/scene.h"
#include "windows/shared/text_visit.h"
#include "windows/shared/tips.h"

namespace dtb {
namespace {

using namespace look;

constexpr double kWidth = 1520;  // layout units
constexpr double kHeight = 832;
constexpr double kControlHeight = 32;
constexpr double kBoxWidth = 168;
constexpr double kTeamWidth = 264;

// What the first tab may take before the window is shown without its table.
constexpr std::chrono::milliseconds kLongestWait{80};

constexpr QColor kPurgeRed{255, 0, 0};
constexpr QColor kDeleteRed{255, 128, 128};
constexpr QColor kResetBlue{192, 192, 255};
constexpr QColor kLightStrip{224, 224, 224};

constexpr const char* kPlayerHint = "Name or surname";
constexpr const char* kTeamHint = "Team begins with";
constexpr const char* kGameHint = "GameID contains";
constexpr const char* kSearchTip =
    "Shows the rows that match the box on its left; an empty box shows all";
constexpr const char* kBoxTip = "Type a text and press Enter; Esc empties the box";

void Tint(QPushButton* button, const QColor& ground, const QColor& ink) {
  QPalette palette = button->palette();
  palette.setColor(QPalette::Button, ground);
  palette.setColor(QPalette::ButtonText, ink);
  button->setPalette(palette);
}

// Blue text on a light strip that has the shape of the buttons beside it.
class BlueStrip : public QLabel {
 public:
  explicit BlueStrip(const QString& text) : QLabel(text) {
    setTextFormat(Qt::PlainText);
    setContentsMargins(8, 0, 8, 0);
    QPalette palette = this->palette();
    palette.setColor(QPalette::WindowText, Shade(kClickableBlue));
    setPalette(palette);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    {
      QPainter painter(this);
      DrawPlate(painter, rect(), kLightStrip, Qt::transparent, 0);
    }
    QLabel::paintEvent(event);
  }
};

QLabel* MakeBlueLabel(const char* name, const QString& text, Qt::Alignment alignment) {
  auto* label = new BlueStrip(text);
  Name(label, name, text);
  label->setAlignment(alignment);
  return label;
}

// The table that a search box is for: the one that shows beside it.
QWidget* TableBeside(const QLineEdit* box) {
  for (auto* table : box->parentWidget()->findChildren<StatGridView*>()) {
    if (table->isVisible()) return table;
  }
  return nullptr;
}

// Esc empties the box, and goes to its table when it is empty; the browser stays open meanwhile.
void LeaveOnSecondEscape(QLineEdit* box, Field<std::string>& text) {
  LeaveOnEscape(box, [box, &text] {
    const bool empty = text.value().empty();
    text.Set("");
    QWidget* table = empty ? TableBeside(box) : nullptr;
    if (table != nullptr) table->setFocus(Qt::OtherFocusReason);
    return empty;
  });
}

const QueryButton& ButtonOf(Query query) { return QueryButtons()[static_cast<std::size_t>(query)]; }

}  // namespace

void BrowserWindow::Run(Platform& platform, archive::KeptSeason& kept, QWidget* over) {
  BrowserWindow form(platform, kept, over);
  // A table that comes with the window needs no second painting.
  form.opening_.Await(browser_tab::kLineScores, kLongestWait);
  form.ShowTables();
  {
    const Application::Net net;
    RunInPlace(form, platform.settings, [&] { CenterForm(&form, over); });
  }
  StoreBracket(form.browser_);
  if (form.workbook_ && OpenWorkbook(platform, *form.workbook_, kBrowserTitle)) {
    over->window()->showMinimized();
  }
}

BrowserWindow::BrowserWindow(Platform& platform, archive::KeptSeason& kept, QWidget* parent)
    : QDialog(parent),
      browser_{state_, platform},
      kept_(kept),
      opening_(browser_),
      resizer_(kWidth, kHeight),
      SSTab1_(new QTabWidget(this)) {
  // Tables are read while the window is built.
  opening_.ReadBehind([this] { handOver_.Give([this] { Settle(); }); });
  setObjectName(QStringLiteral("Form4"));
  setWindowTitle(QLatin1String(kBrowserTitle) + ToQt(SeasonInTitle(platform)));
  Name(SSTab1_, "SSTab1", QStringLiteral("Tables of the database"));
  SSTab1_->tabBar()->setExpanding(false);
  SSTab1_->tabBar()->setAccessibleName(SSTab1_->accessibleName());
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(12, 8, 12, 0);
  whole->addWidget(SSTab1_);

  BuildLineScores();
  BuildStatTab("Batting by game", "MSHFlexGrid2", &BrowserState::MSHFlexGrid2,
               {{Query::Command5, "Text1", kPlayerHint},
                {Query::Command3, "Text2", kTeamHint},
                {Query::Command9, "Text7", kGameHint}});
  BuildStatTab("Pitching by game", "MSHFlexGrid3", &BrowserState::MSHFlexGrid3,
               {{Query::Command2, "Text3", kPlayerHint},
                {Query::Command1, "Text4", kTeamHint},
                {Query::Command10, "Text8", kGameHint}});
  BuildStatTab("Aggregate Batting", "MSHFlexGrid4", &BrowserState::MSHFlexGrid4,
               {{Query::Command7, "Text6", kPlayerHint}, {Query::Command8, "Text5", kTeamHint}},
               "Label1");
  BuildStatTab("Aggregate Pitching", "MSHFlexGrid5", &BrowserState::MSHFlexGrid5,
               {{Query::Command13, "Text10", kPlayerHint}, {Query::Command12, "Text11", kTeamHint}},
               "Label4");
  BuildWinLoss();
  BuildGameStats();
  BuildTournament();
  BuildSeason();

  Follow<int>(SSTab1_, state_.SSTab1, [this](int tab) { SSTab1_->setCurrentIndex(tab); });
  connect(SSTab1_, &QTabWidget::currentChanged, this, [this](int tab) {
    state_.SSTab1.Set(tab);
    opening_.Prefer(tab);
    ShowTables();
  });
  FitAtLaunch(this, resizer_, 0);
}

// The views go before the grids that they show.
BrowserWindow::~BrowserWindow() { delete SSTab1_; }

void BrowserWindow::ShowTables() {
  opening_.Show();
  if (opening_.Finished(SSTab1_->currentIndex())) {
    busy_.reset();
  } else if (!busy_) {
    busy_.emplace();
  }
}

void BrowserWindow::Settle() {
  ShowTables();
  if (!opening_.FinishedAll()) return;
  Trapped(browser_.platform.boxes, [this] {
    opening_.TellFaults();
    FindGameSavedTwice(browser_);
  });
  settled_ = true;
}

void BrowserWindow::Do(const std::function<void()>& operation) {
  const BusyPointer busy;
  Trapped(browser_.platform.boxes, operation);
}

void BrowserWindow::WithTab(const std::function<void()>& operation) {
  Do([&] {
    opening_.Finish(SSTab1_->currentIndex());
    operation();
  });
}

void BrowserWindow::WithAll(const std::function<void()>& operation) {
  Do([&] {
    opening_.FinishAll();
    operation();
  });
}

QVBoxLayout* BrowserWindow::AddTab(const char* caption) {
  auto* page = new QWidget;
  page->setAccessibleName(QLatin1String(caption));
  SSTab1_->addTab(page, QLatin1String(caption));
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 12, 0, 12);
  column->setSpacing(8);
  return column;
}

QHBoxLayout* BrowserWindow::AddStrip(QVBoxLayout* page) {
  auto* strip = new QHBoxLayout;
  strip->setSpacing(8);
  page->addLayout(strip);
  return strip;
}

void BrowserWindow::AddSearches(QHBoxLayout* strip, const std::vector<Search>& searches) {
  for (const Search& search : searches) {
    const QueryButton& query = ButtonOf(search.query);
    QLineEdit* box = nullptr;
    if (search.box != nullptr) {
      box = new QLineEdit;
      Name(box, search.box, QLatin1String(query.caption));
      box->setPlaceholderText(QLatin1String(search.hint));
      box->setAccessibleDescription(QLatin1String(search.hint));
      box->setToolTip(QLatin1String(kBoxTip));
      BindText(box, state_.*query.box);
      LeaveOnSecondEscape(box, state_.*query.box);
      strip->addWidget(box);
    }
    QPushButton* button =
        AddButton(strip, query.name, query.caption,
                  box != nullptr ? kSearchTip : "Shows the line scores of all saved games");
    if (box != nullptr)
      connect(box, &QLineEdit::returnPressed, button, [button] { button->click(); });
    connect(button, &QPushButton::clicked, this,
            [this, which = search.query] { RunSearch(which); });
    strip->addSpacing(16);
  }
  strip->addStretch();
}

// The search, and where it finds nothing the way back to all rows.
void BrowserWindow::RunSearch(Query which) {
  WithTab([this, which] { RunQuery(browser_, which); });
  const QueryButton& query = ButtonOf(which);
  const auto plate = noMatch_.find(&(state_.*query.grid));
  if (query.box == nullptr || plate == noMatch_.end()) return;
  plate->second->AfterSearch(ToQt((state_.*query.box).value()), [this, which, &query] {
    (state_.*query.box).Set("");
    RunSearch(which == Query::Command11 ? Query::Command4 : which);
  });
}

StatGridView* BrowserWindow::AddGrid(const char* name, const char* accessibleName, GridField grid,
                                     double typeSize) {
  BrowserGrid& shown = state_.*grid;
  auto* view = new StatGridView(shown.grid, nullptr);
  Name(view, name, QLatin1String(accessibleName));
  view->ShowAsResult();
  view->ShowWholeRows();
  // What is not visible yet keeps its place on the tab.
  QSizePolicy policy = view->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  view->setSizePolicy(policy);
  grids_.push_back({view, typeSize});
  noMatch_[&shown] = new NoMatch(view);
  return view;
}

void BrowserWindow::BuildLineScores() {
  QVBoxLayout* page = AddTab("Linescores");
  QHBoxLayout* searches = AddStrip(page);
  AddSearches(searches,
              {{Query::Command11, "Text9", kGameHint}, {Query::Command4, nullptr, nullptr}});
  QPushButton* out = AddButton(searches, "cmd_TakeOut", "Delete this game",
                               "Deletes only the selected game, after a question (Delete)");
  StatGridView* grid = AddGrid("MSHFlexGrid1", "Line scores", &BrowserState::MSHFlexGrid1, kSmall);
  grid->StretchAllColumns();
  grid->MarkTogether(line_score_column::kGameID);
  page->addWidget(grid);
  BindVisible(grid, state_.MSHFlexGrid1.visible);
  grid->horizontalHeader()->setToolTip(QStringLiteral("Click a GameID to see its box score"));
  connect(grid, &StatGridView::cellClicked, this,
          [this](int row, int column) { Do([&] { SelectGameID(browser_, row, column); }); });
  const auto takeOut = [this, grid] {
    WithAll([&] { TakeOutChosen(browser_, ChosenGame(state_, grid->currentRow())); });
  };
  connect(out, &QPushButton::clicked, this, takeOut);
  connect(grid, &StatGridView::clearWanted, this, takeOut);
  BuildSavedTwice(page);

  QHBoxLayout* strip = AddStrip(page);
  connect(AddButton(strip, "Command15", "Send Access DB to Excel",
                    "Writes all tables of the database into a workbook"),
          &QPushButton::clicked, this, [this] { SendTablesToExcel(); });
  connect(AddButton(strip, "Command16", "Send all DataGrids to Excel",
                    "Writes what the tabs show into a workbook, opens it and closes this window"),
          &QPushButton::clicked, this, [this] { SendGridsToExcel(); });
  strip->addStretch();
  connect(AddButton(strip, "cmd_BringBack", kBringBack,
                    "Shows the copies of the database and restores one"),
          &QPushButton::clicked, this, [this] { BringBack(); });
  strip->addSpacing(16);
  QPushButton* purge =
      AddButton(strip, "cmd_Purge", "PURGE ALL STATS", "Deletes every saved game, but asks first");
  Tint(purge, kPurgeRed, Qt::black);
  typed_.push_back({purge, kBody, true});
  connect(purge, &QPushButton::clicked, this,
          [this] { WithAll([this] { PurgeAll(browser_.platform, kBrowserTitle); }); });
}

// A quiet line, as long as a game stands twice among the line scores.
void BrowserWindow::BuildSavedTwice(QVBoxLayout* page) {
  QHBoxLayout* strip = AddStrip(page);
  QLabel* twice = MakeCaption({}, nullptr);
  Name(twice, "lbl_Twice");
  strip->addWidget(twice);
  QPushButton* out = AddButton(strip, "cmd_TakeOutSecond", "Delete the second",
                               "Deletes the second copy of a game saved twice, after a question");
  strip->addStretch();
  connect(out, &QPushButton::clicked, this,
          [this] { WithAll([this] { TakeOutChosen(browser_, GameChoice{state_.savedAgain}); }); });
  Follow<std::string>(twice, state_.lbl_Twice, [twice, out](const std::string& words) {
    twice->setText(ToQt(words));
    twice->setAccessibleName(ToQt(words));
    twice->setVisible(!words.empty());
    out->setVisible(!words.empty());
  });
}

void BrowserWindow::BringBack() {
  WithAll([] {});
  bool broughtBack = false;
  Trapped(browser_.platform.boxes,
          [&] { broughtBack = CopiesWindow::Run(browser_.platform, this); });
  if (!broughtBack) return;
  Do([this] {
    ReadAgain(browser_);
    FindGameSavedTwice(browser_);
  });
}

void BrowserWindow::SendTablesToExcel() {
  ProgressPanel panel(QStringLiteral("Writing the tables"), ProgressPanel::Work::Cancellable, this);
  Trapped(browser_.platform.boxes,
          [&] { ExportTables(browser_, [&panel](double share) { return panel.Hear(share); }); });
}

// The person goes on in the spreadsheet program, so the browser closes.
void BrowserWindow::SendGridsToExcel() {
  {
    ProgressPanel panel(QStringLiteral("Writing the workbook"), ProgressPanel::Work::Cancellable,
                        this);
    Trapped(browser_.platform.boxes, [&] {
      opening_.FinishAll();
      workbook_ = ExportGrids(browser_, [&panel](double share) { return panel.Hear(share); });
    });
  }
  if (workbook_) close();
}

void BrowserWindow::BuildStatTab(const char* caption, const char* gridName, GridField grid,
                                 const std::vector<Search>& searches, const char* noteName) {
  QVBoxLayout* page = AddTab(caption);
  QHBoxLayout* strip = AddStrip(page);
  AddSearches(strip, searches);
  if (noteName != nullptr) {
    strip->addWidget(MakeBlueLabel(noteName, QStringLiteral("CTRL + Dbl Click column to SORT"),
                                   Qt::AlignCenter));
  }
  StatGridView* view = AddGrid(gridName, caption, grid, kBody);
  view->StretchAllColumns();
  page->addWidget(view);
  BindVisible(view, (state_.*grid).visible);
  view->horizontalHeader()->setToolTip(QStringLiteral("Ctrl + double-click sorts on this column"));
  connect(
      view, &StatGridView::cellDoubleClicked, this, [this, grid, view](int /*row*/, int column) {
        Do([&] {
          if (!SortOnDoubleClick(browser_, state_.*grid, column)) return;
          view->ShowSorted(column, SortedDown(state_) ? Qt::DescendingOrder : Qt::AscendingOrder);
        });
      });
}

void BrowserWindow::BuildWinLoss() {
  QVBoxLayout* page = AddTab("Win/Loss");
  auto* tables = new QHBoxLayout;
  tables->setSpacing(12);
  page->addLayout(tables);
  const auto add = [&](const char* name, const char* accessibleName, GridField grid) {
    StatGridView* view = AddGrid(name, accessibleName, grid, kBody);
    view->StretchAllColumns();
    view->setSelectionBehavior(QTableView::SelectRows);
    tables->addWidget(view);
    BindVisible(view, (state_.*grid).visible);
    connect(view, &StatGridView::cellClicked, this, [this, grid](int row, int /*column*/) {
      Do([&] { SelectForDelete(browser_, state_.*grid, row); });
    });
  };
  add("MSHFlexGrid9", "Standings", &BrowserState::MSHFlexGrid9);
  add("MSHFlexGrid10", "Matchups", &BrowserState::MSHFlexGrid10);

  QHBoxLayout* strip = AddStrip(page);
  QLabel* selected = MakeBlueLabel("lbl_DEL2", {}, Qt::AlignLeft | Qt::AlignVCenter);
  selected->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  strip->addWidget(selected, 1);
  Follow<std::string>(selected, state_.lbl_DEL2, [selected](const std::string& name) {
    const QString shown = ToQt(name);
    selected->setText(shown.left(400));
    selected->setToolTip(shown.isEmpty() ? QStringLiteral("The team or matchup you clicked")
                                         : TipOfLines({shown}));
    selected->setAccessibleName(QStringLiteral("Selected: ") + shown);
  });
  QPushButton* one = AddButton(strip, "Command36", "DELETE Matchup or Win/Loss",
                               "Select a Team or Matchup to DELETE");
  Tint(one, kDeleteRed, kInk);
  connect(one, &QPushButton::clicked, this,
          [this] { WithAll([this] { DeleteSelected(browser_); }); });
  strip->addSpacing(16);
  connect(AddButton(strip, "Command33", "Clear all Win/Loss data",
                    "Deletes all standings and matchups, but asks first; the games stay"),
          &QPushButton::clicked, this,
          [this] { WithAll([this] { DeleteWinLoss(browser_.platform, kBrowserTitle); }); });
}

void BrowserWindow::BuildTournament() {
  QVBoxLayout* page = AddTab("Tournament");
  QHBoxLayout* strip = AddStrip(page);
  QLabel* instruction =
      MakeCaption(QStringLiteral(" Enter team name etc into the box at the top right; double-click "
                                 "the desired label to add the text."),
                  nullptr);
  Name(instruction, "lbl_instr", instruction->text());
  strip->addWidget(instruction);
  strip->addStretch();
  team_ = new QLineEdit;
  Name(team_, "tb_Team", QStringLiteral("Text to be placed"));
  team_->setPlaceholderText(QStringLiteral("Team name"));
  team_->setToolTip(QStringLiteral("The text that a click puts into the bracket"));
  BindText(team_, state_.tb_Team);
  LeaveOnSecondEscape(team_, state_.tb_Team);
  strip->addWidget(team_);

  auto* places = new QGridLayout;
  page->addLayout(places, 1);
  bracket_ = new BracketView(browser_, nullptr);
  places->addWidget(bracket_, 0, 0);
  auto* corner = new QHBoxLayout;
  places->addLayout(corner, 0, 0, Qt::AlignRight | Qt::AlignBottom);
  QPushButton* reset =
      AddButton(corner, "cmd_Reset", "RESET", "Erases the whole bracket, but asks first");
  Tint(reset, kResetBlue, kInk);
  connect(reset, &QPushButton::clicked, this, [this] { Do([this] { ResetBracket(browser_); }); });
}

void BrowserWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  resizer_.FormResized(width(), height());
  const double scale = resizer_.fontScale();
  setFont(Font(kBody * scale));
  for (const Typed& typed : typed_) typed.widget->setFont(Font(typed.size * scale, typed.bold));
  for (const SizedGrid& grid : grids_) {
    grid.view->SetScale(grid.size * scale, kTwip * scale * grid.size / kBody);
  }
  const int height = qRound(kControlHeight * scale);
  for (auto* button : findChildren<QPushButton*>()) {
    const int caption = button->fontMetrics().horizontalAdvance(button->text());
    button->setFixedSize(caption + height, height);
  }
  for (auto* box : findChildren<QLineEdit*>()) box->setFixedSize(qRound(kBoxWidth * scale), height);
  for (const char* strip : {"Label1", "Label4", "lbl_DEL2"}) {
    findChild<QLabel*>(QLatin1String(strip))->setFixedHeight(height);
  }
  team_->setFixedWidth(qRound(kTeamWidth * scale));
  SizeLineScore();
  bracket_->SetType(kBody * scale);
  season_->SetScale(scale);
}

}  // namespace dtb
