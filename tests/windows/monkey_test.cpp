// A player who does anything but play: whatever he does, the program goes on.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QWheelEvent>
#include <QWindow>
#include <array>
#include <random>
#include <set>

#include "browser/browser_state.h"
#include "database/backups.h"
#include "game/bases.h"
#include "game/history.h"
#include "game/keep_bases.h"
#include "platform/sqlite/sqlite_copies.h"
#include "replay/driver.h"
#include "replay/gestures.h"
#include "replay/play_table.h"
#include "soak_settings.h"
#include "windows/board/base_targets.h"

namespace dtb::replay {
namespace {

const unsigned kSeed = FromOutside("DTB_SEED", 19601005);
const int kGestures = static_cast<int>(FromOutside("DTB_GESTURES", 1000));

// Controls and keys for a new game up to its first hit.
QList<std::pair<const char*, const char*>> NewGame() {
  return {{"Command6", "Space"},        {"Command7", "Space"}, {"List1", "Home"},
          {"lbl_VisPitcher", "Return"}, {"List2", "Home"},     {"lbl_HomePitcher", "Return"},
          {"Option5", "Space"},         {"List1", "Home"},     {"lbl_Single", "Return"}};
}

// A month of games of three teams, for the browser, its season, and a copy of it.
void SaveSeason(const std::filesystem::path& database) {
  SQLite::Database(database.string(), SQLite::OPEN_READWRITE)
      .exec(
          "CREATE TEMP TABLE Played AS WITH RECURSIVE day(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
          "FROM day LIMIT 28) SELECT printf('11%02d26201500', i) AS id, i * 5 % 7 AS v, i % 5 AS h,"
          " iif(i % 3 = 0, 'Bees', 'Ants') AS visitors, iif(i % 3 = 1, 'Bees', 'Cats') AS home "
          "FROM day;"
          "INSERT INTO BoxScores (Team, I1, Runs, Hits, Errors, Host, GameID) "
          "SELECT visitors, v, v, v + 3, 1, 'a_VIS', id FROM Played UNION ALL "
          "SELECT home, h, h, h + 3, 0, 'b_HOME', id FROM Played;"
          "INSERT INTO Batting SELECT 'Joe ' || n, n, 1, 1, n > 1, 0, n > 2, 0, n, 4, Team, GameID "
          "FROM BoxScores, (SELECT 1 AS n UNION SELECT 2 UNION SELECT 3);"
          "INSERT INTO Pitching SELECT 'Al', 5, 2, 6, 1, 3, 9, Team, GameID FROM BoxScores;"
          "INSERT INTO WinLoss SELECT visitors, v > h, v < h FROM Played UNION ALL "
          "SELECT home, h > v, h < v FROM Played;"
          "INSERT INTO Matchups SELECT visitors || '  vs  ' || home, 1 FROM Played;");
  SqliteCopies(database).MakeCopy(CopyName({2026, 11, 18}));
}

QWidget* FocusOf(QWidget* window) {
  return window->focusWidget() != nullptr ? window->focusWidget() : window;
}

class Monkey : public Driver {
 public:
  // `onBases`: with KEEP THE BASES on, and often with the runners.
  Monkey(PlayTable& table, bool onBases) : table_(table), onBases_(onBases) {
    const auto write = [&](const char* name, const QByteArray& bytes) {
      QFile file(table.folder.filePath(name));
      if (file.open(QIODevice::WriteOnly)) file.write(bytes);
      files_ += PathOfFile(file.fileName());
    };
    write("Good.txt", "Ann\rBob=LF\rCyd\rDee\rEve\rFay\rGus\rHal\rIda\rJoe=P\r");
    write("Short.txt", "\xff\xfe\x01==\r\n\r\n   \r\n");
    write("Long.txt", QByteArray("Name\r\n").repeated(60));
    write("Junk.txt", QByteArray(5000, '\0') + QByteArray(5000, 'x'));
    write(".txt", "Nameless\r\n");
    files_ += {files_[0], files_[0], PathOfFile(table.folder.filePath("Missing.txt")),
               PathOfFile(table.folder.path()), std::nullopt};
    SaveSeason(PathOfFile(table.folder.filePath("DTB.mdb")));
    // Some players have photos.
    for (const char* photo : {"Ann.jpg", "Cyd.jpg", "Name.jpg"}) {
      QFile::copy(table.folder.filePath("Logos/VisLogo.jpg"), table.folder.filePath(photo));
    }
    // A line-up is emptied by LOAD, by a step, and by a new game.
    for (const char* load : {"Command6", "Command7"}) {
      QObject::connect(form1_.findChild<QAbstractButton*>(load), &QAbstractButton::clicked,
                       [this] { mayEmpty_ = made_; });
    }
    History& history = *table.desk.board().history;
    history.Observe([this, &history] {
      // A step, or a game taken up again, may lead back to where there was none.
      if (history.stepped() || !history.CanUndo()) {
        mayEmpty_ = made_;
        outOfTurn_ = true;
      }
      NoteOutOfTurn();
    });
    // The guard before an outcome may put a runner at bat within the same step.
    state_.BatterOf.Observe([this] { NoteOutOfTurn(); });
    state_.lbl_Selected.Observe([this] { NoteOutOfTurn(); });
    table.dialogs.report = PathOfFile(table.folder.filePath("Report.html"));
    state_.lbl_PhotoPath.Set(FromQt(table.folder.path()));
    form1_.constantTimer().stop();
  }

 private:
  void MakeGesture() override;
  bool Answer(MessageBox& box) override;
  void Refuse(const QString& reason) override {
    ADD_FAILURE() << "seed " << kSeed << ", gesture " << made_ << ": " << reason.toStdString()
                  << '\n'
                  << Again();
    Finish(1);
  }

  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  template <class T>
  T OneOf(const QList<T>& things) {
    return things[Below(static_cast<int>(things.size()))];
  }

  void MakeAnyGesture(QWidget* front);
  void UseMouse(QWidget* front);
  void GoToARoom(QWidget* front);
  QPoint AnyPlace(QWidget* window);
  QPoint PlaceOfPiece(QPoint other);
  void FocusAnywhere();
  QString AnyText();
  void CheckFields();
  void NoteOutOfTurn();
  void CheckBases();
  void PlayOn();
  QPoint PlaceOfBase();
  void DragTo(QPoint from, QPoint to);
  void PlayOnTheBases();
  void KeepBases(bool on);

  PlayTable& table_;
  bool onBases_;
  bool outOfTurn_ = false;
  BoardState& state_ = table_.desk.board().state;
  BoardWindow& form1_ = table_.desk.form1();
  QList<std::optional<std::filesystem::path>> files_;
  std::mt19937 random_{kSeed};
  int made_ = 0;
  std::array<bool, 2> full_{};  // a side has a line-up
  int mayEmpty_ = 0;            // the last gesture that may empty one
  QList<std::pair<const char*, const char*>> keys_ = NewGame();  // to be pressed now
};

// Somewhere on one of the controls that show.
QPoint Monkey::AnyPlace(QWidget* window) {
  const bool button = Below(2) == 0;
  QList<QWidget*> controls{window};
  for (QWidget* control : window->findChildren<QWidget*>()) {
    if (control->window() != window || !control->isVisible()) continue;
    if (!button || qobject_cast<QAbstractButton*>(control)) controls += control;
  }
  const QWidget* control = OneOf(controls);
  const QRect shown = QRect(control->mapTo(window, QPoint()), control->size()) & window->rect();
  if (shown.isEmpty()) return window->rect().center();
  return shown.topLeft() + QPoint(Below(shown.width()), Below(shown.height()));
}

// On a game piece, where one shows and the board is in front.
QPoint Monkey::PlaceOfPiece(QPoint other) {
  const auto* piece = form1_.findChild<QWidget*>(QStringLiteral("pb_Player%1").arg(1 + Below(4)));
  if (FrontWindow() != &form1_ || !piece->isVisible()) return other;
  return piece->mapTo(&form1_, piece->rect().center());
}

// Leaves the focus on a piece, a cell, a list, a button, as the board may be closed with any.
void Monkey::FocusAnywhere() {
  QList<QWidget*> controls;
  for (QWidget* control : form1_.findChildren<QWidget*>()) {
    if (control->isVisible() && (control->focusPolicy() & Qt::TabFocus) != 0) controls += control;
  }
  OneOf(controls)->setFocus(Qt::TabFocusReason);
}

QString Monkey::AnyText() {
  static const QList<std::pair<int, int>> alphabets{
      {'0', 10}, {' ', 95}, {0xA0, 96}, {0x300, 80}, {0x5D0, 90}, {0x4E00, 9000}, {0x1F300, 700}};
  const auto [first, count] = Below(3) > 0 ? alphabets.first() : OneOf(alphabets);
  QString text;
  for (int left = Below(Below(30) == 0 ? 200 : 6); left > 0; --left) {
    const auto letter = static_cast<char32_t>(first + Below(count));
    text += QString::fromUcs4(&letter, 1);
  }
  return text;
}

void Monkey::UseMouse(QWidget* front) {
  const auto button =
      OneOf<Qt::MouseButton>({Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton});
  const auto held = OneOf<Qt::KeyboardModifier>(
      {Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier});
  const QPoint place = AnyPlace(front);
  QWindow* window = front->windowHandle();
  const int action = Below(6);
  if (action > 1) {
    Click({front, place}, button, held, action == 2 ? QTest::MouseDClick : QTest::MouseClick);
  } else if (action == 1) {
    QWheelEvent wheel(place, window->mapToGlobal(place), {}, {0, Below(2) * 240 - 120},
                      Qt::NoButton, held, Qt::NoScrollPhase, false);
    QApplication::sendEvent(window, &wheel);
  } else {
    // A drag may leave the window.
    const auto anywhere = [&] {
      const QPoint beyond(Below(1200) - 600, Below(1200) - 600);
      return AnyPlace(front) + (Below(3) == 0 ? beyond : QPoint());
    };
    QTest::mousePress(window, button, held, Below(3) == 0 ? PlaceOfPiece(place) : place);
    for (int moves = Below(4); moves >= 0; --moves) {
      QTest::mouseEvent(QTest::MouseMove, window, Qt::NoButton, held, anywhere());
    }
    QTest::mouseRelease(window, button, held, anywhere());
  }
}

// A base, home plate, or the field of a runner who is out, in pixels of the board.
QPoint Monkey::PlaceOfBase() {
  const int place = kFirstBase + Below(5);
  const QPointF spot = place > kHomePlate ? OutField().center() : SpotOf(table_.desk.aids(), place);
  const auto* park = form1_.centralWidget();
  const QPointF inPark(spot.x() * park->width() / kSceneWidth,
                       spot.y() * park->height() / kSceneHeight);
  return park->mapTo(&form1_, inPark.toPoint());
}

void Monkey::DragTo(QPoint from, QPoint to) {
  QWindow* window = form1_.windowHandle();
  const auto held = OneOf<Qt::KeyboardModifier>(
      {Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier});
  QTest::mousePress(window, Qt::LeftButton, held, from);
  // What is dragged may be let go over a box, after an undo, or under another window.
  for (const QPoint& place : {(from + to) / 2, to}) {
    QTest::mouseEvent(QTest::MouseMove, window, Qt::NoButton, held, place);
  }
  if (Below(6) == 0)
    QTest::keyClick(window, OneOf<Qt::Key>({Qt::Key_Escape, Qt::Key_B, Qt::Key_H}));
  if (Below(10) == 0) QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
  QTest::mouseRelease(window, Qt::LeftButton, held, to);
}

// A plate appearance, or a runner who is moved: by its key, by his piece, or from the line-up.
void Monkey::PlayOnTheBases() {
  static const QStringList plays{"1", "2", "3", "4", "B", "K", "G", "F", "D", "C", "H", "A", "N"};
  static const QStringList runners{"Shift+1", "Shift+2", "Shift+3", "Shift+4", "Ctrl+1",
                                   "Ctrl+2",  "Ctrl+3",  "Ctrl+4",  "S",       "T"};
  if (!state_.cb_KeepBases.value()) KeepBases(true);
  QWidget* park = form1_.centralWidget();
  switch (Below(5)) {
    case 0:
      return DragTo(PlaceOfPiece(AnyPlace(&form1_)), PlaceOfBase());
    case 1: {
      const QString list = OneOf<QString>({"List1", "List2"});
      const Target row = TargetAtRow(list, Below(12));
      return DragTo(row.control->mapTo(&form1_, row.place),
                    Below(3) == 0 ? PlaceOfPiece(PlaceOfBase()) : PlaceOfBase());
    }
    case 2: {
      const QString key = OneOf(runners);
      PressKey(park, key);
      if (key.size() == 1) PressKey(FocusOf(FrontWindow()), QString::number(1 + Below(4)));
      return;
    }
    default:
      PressKey(park, OneOf(plays));
  }
}

// The rooms that the mouse seldom finds.
void Monkey::GoToARoom(QWidget* front) {
  if (front == &form1_) {
    if (Below(8) == 0) Click(TargetAtMenu("EventLog"));
    if (Below(8) == 0) Click(TargetAtMenu("Plays"));
    if (Below(4) == 0) Click(TargetAtMenu("Database"));
    if (Below(8) == 0) PressKey(FindControl("lbl_STATS"), "Return");
  } else if (Below(2) == 0) {
    Click(TargetAtTab("SSTab1", browser_tab::kSeason));
  } else if (Below(3) == 0) {
    Click(TargetAt("cmd_BringBack"));
  }
}

void Monkey::MakeAnyGesture(QWidget* front) {
  static const QStringList keys{"Up",    "Down", "Left",     "Right",  "Home",   "End",
                                "Tab",   "Menu", "Return",   "Space",  "F12",    "Delete",
                                "Shift", "Esc",  "PageDown", "Ctrl+V", "Ctrl+Z", "Ctrl+Return",
                                "1",     "K",    "S",        "R",      "?",      "Ctrl+Shift+Z"};
  if (onBases_ && front == &form1_ && Below(2) == 0) return PlayOnTheBases();
  switch (Below(24)) {
    case 0:
    case 1: {
      const auto fields = front->findChildren<QLineEdit*>();
      if (!fields.isEmpty()) TypeText(OneOf(fields), AnyText());
      break;
    }
    case 2:
    case 3:
      PressKey(FocusOf(front), OneOf(keys));
      break;
    case 4:
      if (Below(8) == 0) form1_.resize(600 + Below(400), 300 + Below(300));
      break;
    case 5:
      if (front != &form1_ || Below(8) == 0) front->windowHandle()->close();
      break;
    case 6:
      QMetaObject::invokeMethod(&form1_.constantTimer(), "timeout");
      break;
    case 7:
      GoToARoom(front);
      break;
    case 8:  // where no one aimed
      for (const char* key : {"Space", "Return"}) PressKey(FocusOf(FrontWindow()), key);
      break;
    default:
      UseMouse(front);
  }
}

void Monkey::CheckFields() {
  EXPECT_FALSE(state_.Option5.value() && state_.Option6.value());
  EXPECT_EQ(state_.tb_ListBoxStatus.value(), "0");
  for (const Side side : {Side::Visitors, Side::Home}) {
    const LineupList& list = SideOf(table_.desk.board(), side).list;
    const auto* view = form1_.findChild<QListView*>(side == Side::Visitors ? "List1" : "List2");
    const QModelIndexList lit = view->selectionModel()->selectedRows();
    EXPECT_EQ(view->model()->rowCount(), list.size());
    constexpr int kWhileItsBoxesWait = 20;  // gestures
    bool& full = full_.at(side == Side::Visitors ? 0 : 1);
    EXPECT_FALSE(full && list.empty() && made_ - mayEmpty_ > kWhileItsBoxesWait) << "emptied";
    full = !list.empty();
    EXPECT_EQ(lit.isEmpty() ? LineupList::kNoRow : lit.first().row(), list.selected());
  }
  for (const GamePiece& piece : state_.pieces) {
    const QRectF shown(piece.left.value(), piece.top.value(), state_.pieceWidth.value(),
                       state_.pieceHeight.value());
    EXPECT_TRUE(shown.intersects({0, 0, kSceneWidth, kSceneHeight})) << "a piece is out of reach";
  }
  EXPECT_EQ(FromQt(form1_.findChild<QLineEdit*>("tb_OUT")->text()), state_.tb_OUT.value());
  EXPECT_EQ(form1_.findChild<QWidget*>("pb_Res")->isHidden(), state_.chk_Ctrls.value());
  EXPECT_TRUE(form1_.findChild<QWidget*>("Form2")->isVisible() ||
              !table_.desk.board().sheet.Text1_visible.value());
}

// Who is named out of turn may stand on a base, and reach another: that is no order any more.
void Monkey::NoteOutOfTurn() {
  if (!AnyoneOn(state_)) outOfTurn_ = false;
  const bool bats = !state_.BatterOf.value().empty();
  if (bats && BaseOf(state_, state_.lbl_Selected.value()) > 0) outOfTurn_ = true;
}

// Nobody stands on two bases, and each runner has one piece.
void Monkey::CheckBases() {
  NoteOutOfTurn();
  if (!KeepsBases(state_) || outOfTurn_) return;
  std::set<std::string> names;
  for (int base = kFirstBase; base <= kThirdBase; ++base) {
    const std::string& name = RunnerOn(state_, base).name;
    if (name.empty()) continue;
    EXPECT_TRUE(names.insert(name).second) << name << " stands on two bases";
    EXPECT_EQ(std::ranges::count_if(state_.pieces,
                                    [&name](const GamePiece& piece) {
                                      return !piece.free() && piece.tag.value() == name;
                                    }),
              1)
        << name << " on base " << base;
  }
}

void Monkey::MakeGesture() {
  CheckFields();
  CheckBases();
  if (testing::Test::HasFailure()) return Refuse("a field is wrong");
  QWidget* front = FrontWindow();
  if (made_ == kGestures && front != &form1_) {
    front->windowHandle()->close();
    return;
  }
  if (!keys_.isEmpty()) return PlayOn();
  if (made_ == kGestures) {
    FocusAnywhere();
    return Finish(0);
  }
  if (++made_ == kGestures) keys_ = NewGame();
  if (table_.dialogs.answers.isEmpty()) table_.dialogs.answers += OneOf(files_);
  if (front == QApplication::activePopupWidget()) {
    return PressKey(front, OneOf<QString>({"Down", "Return", "Escape"}));
  }
  // The system's dialog writes wherever it is told to.
  if (front->objectName() == "PrintDialog") return PressKey(front, "Escape");
  try {
    MakeAnyGesture(front);
  } catch (const Refused&) {
    // What is hidden or covered is out of everybody's reach.
  }
}

bool Monkey::Answer(MessageBox& box) {
  // While another button is held, whose press brought the box, Qt lets no button be clicked.
  if ((QGuiApplication::mouseButtons() & ~Qt::LeftButton) != 0)
    return PressKey(&box, "Return"), true;
  const Target beside{box.window(), {3, 30}};
  if (box.question()) {
    Click(beside);
    EXPECT_EQ(MessageBox::Open(), &box) << "only its answers close a question";
    // In the end a game is played on, whatever stood there before.
    if (made_ == kGestures && !box.answers().isEmpty()) return PressKey(&box, "Return"), true;
    const QString answer = OneOf(box.answers().isEmpty() ? QStringList("No") : box.answers());
    QPushButton* button = box.ButtonOf(answer);
    Click(Below(3) == 0 ? TargetAt("CloseBox") : Target{button, button->rect().center()});
  } else if (const int way = Below(5); way > 1) {
    PressKey(&box, OneOf<QString>({"Return", "Space", "Escape"}));
  } else {
    Click(way == 0 ? beside : TargetAt("CloseBox"));
  }
  return true;
}

void Monkey::KeepBases(bool on) {
  state_.cb_KeepBases.Set(on);
  KeepBasesClicked(table_.desk.board());
}

void Monkey::PlayOn() {
  for (Field<bool>* on : {&state_.Check1, &state_.Check2, &state_.chk_Ctrls}) on->Set(false);
  table_.dialogs.answers = {files_[0]};
  // A board that begins to keep them knows of nobody, so no run follows the last hit.
  if (AnyoneOn(state_)) KeepBases(false);
  if (onBases_ && !state_.cb_KeepBases.value()) KeepBases(true);
  const auto [control, key] = keys_.takeFirst();
  PressKey(FindControl(control), key);
}

void LetPlay(bool onBases) {
  PlayTable table;
  table.desk.Open();
  Monkey monkey(table, onBases);
  EXPECT_EQ(monkey.Run(), 0);
  EXPECT_EQ(MessageBox::Open(), nullptr);
  const std::string& log = table.desk.board().log.text();
  EXPECT_TRUE(log.ends_with("Ann_____1B\r\n"))
      << log.substr(log.size() - std::min<std::size_t>(log.size(), 200));
}

TEST(MonkeyTest, WhateverAPlayerDoesTheProgramGoesOn) { LetPlay(false); }

TEST(MonkeyTest, TheBasesStayInOrderWhateverAPlayerDoes) { LetPlay(true); }

}  // namespace
}  // namespace dtb::replay
