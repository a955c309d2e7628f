// Undo, redo and recovery in the windows, and a game by keyboard.
#include <QAction>
#include <QLineEdit>

#include "game/game_pieces.h"
#include "game/history.h"
#include "window_test.h"

namespace dtb {
namespace {

class HistoryWindowTest : public WindowTest {
 protected:
  // The program as it starts again beside the same settings, after whatever the last one left.
  void StartAnew() {
    Desk::Setup setup;
    setup.programFolder = FromQt(folder_.path());
    setup.settingsFile = folder_.filePath(QStringLiteral("settings.ini"));
    desk_ = std::make_unique<Desk>(setup);
    desk_->Open();
  }

  // A power cut: what was kept stays, though the program goes.
  void CutPower() {
    desk_->recovery()->Wait();
    const QString kept = folder_.filePath(QStringLiteral("kept"));
    ASSERT_TRUE(QFile::copy(Game(), kept));
    desk_.reset();
    EXPECT_FALSE(QFile::exists(Game())) << "a clean end leaves nothing";
    ASSERT_TRUE(QFile::rename(kept, Game()));
  }

  [[nodiscard]] QString Game() const { return folder_.filePath(QStringLiteral("DTB_v102.game")); }
  [[nodiscard]] QStringList Beside(const QString& pattern) const {
    return QDir(folder_.path()).entryList({pattern});
  }

  void PressAndClose(Qt::Key key) {
    WhileWaiting([this, key] { Press(&form1(), key); });
    Press(&form1(), key);
    EXPECT_EQ(MessageBox::Open(), nullptr) << "the key that opened the box closes it";
  }

  QString told_;  // by the last box of a start
  // Answers the next box, which comes while the program starts.
  void Answer(Qt::Key key) {
    WhileWaiting([this, key] {
      told_ = MessageBox::Open()->message();
      QTest::keyClick(MessageBox::Open()->window()->windowHandle(), key);
    });
  }
};

TEST_F(HistoryWindowTest, MenuAndKeysTakeBackAndNameIt) {
  StartGame();
  QAction* undo = form1().findChild<QAction*>("mnuUndo");
  QAction* redo = form1().findChild<QAction*>("mnuRedo");
  const std::string before = GameText(board());
  PressAndClose(Qt::Key_1);
  EXPECT_EQ(undo->text(), "Undo 1B, Ants 1");
  EXPECT_FALSE(redo->isEnabled());
  Press(&form1(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(GameText(board()), before);
  EXPECT_EQ(redo->text(), "Redo 1B, Ants 1");
  Press(&form1(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(board().state.lbl_Selected.value(), "Ants 2");
  EXPECT_TRUE(board().log.text().ends_with("Ants 1_____1B [UNDONE]\r\nAnts 1_____1B [REDONE]\r\n"));
}

TEST_F(HistoryWindowTest, KeysStealBasesAndShowThemselves) {
  StartGame();
  PressAndClose(Qt::Key_W);
  Press(&form1(), Qt::Key_S);
  EXPECT_TRUE(Find("RunnerHint")->isVisible());
  PressAndClose(Qt::Key_1);
  EXPECT_FALSE(Find("RunnerHint")->isVisible());
  EXPECT_EQ(board().sheet.grd_VisStats.Text(1, stat_column::kStolenBases), "1");
  Press(&form1(), Qt::Key_S);
  Press(&form1(), Qt::Key_4);  // nobody stands there
  EXPECT_TRUE(board().log.text().ends_with("Ants 1_____SB\r\n"));
  Press(&form1(), Qt::Key_Question);
  EXPECT_TRUE(Find("KeyPlate")->isVisible());
  Press(&form1(), Qt::Key_Escape);
  EXPECT_FALSE(Find("KeyPlate")->isVisible());
  Press(&form1(), Qt::Key_Down);
  EXPECT_EQ(board().state.lbl_Selected.value(), "Ants 3") << "arrows go through the line-up";
}

TEST_F(HistoryWindowTest, AGameIsPickedUpWithEverythingInItsPlace) {
  board().state.lbl_PhotoPath.Set(FromQt(folder_.path()));
  QImage(20, 30, QImage::Format_RGB32).save(folder_.filePath("Ants 2.jpg"));
  StartGame();
  PressAndClose(Qt::Key_4);
  Press(&form1(), Qt::Key_Question);
  MovePiece(board(), 1, 700, 500);
  const std::string game = GameText(board());
  const EventLog log = board().log;
  CutPower();
  Answer(Qt::Key_Y);
  StartAnew();
  EXPECT_EQ(told_, "A game was still in progress when the program ended. Go on with it?");
  EXPECT_EQ(qobject_cast<QAbstractButton*>(form1().focusWidget()), nullptr)
      << "Enter loads no team";
  EXPECT_EQ(GameText(board()), game);
  EXPECT_EQ(board().log, log);
  EXPECT_EQ(Find<QLineEdit>("tb_BoxScore[21]")->text(), "1");
  EXPECT_EQ(board().state.pieces[1].tag.value(), "Ants 2");
  EXPECT_NE(Find("pb_Player2")->grab().toImage(), Find("pb_Player3")->grab().toImage());
  EXPECT_FALSE(board().history->CanUndo());
  PressAndClose(Qt::Key_G);
  desk_->recovery()->Wait();
  EXPECT_TRUE(QFile::exists(Game()));
}

TEST_F(HistoryWindowTest, AnUnwantedGameIsKeptAside) {
  StartGame();
  CutPower();
  const auto messages = AnswerBoxes({Qt::Key_N, Qt::Key_Return});
  StartAnew();
  EXPECT_TRUE(board().state.List1.empty());
  EXPECT_TRUE(messages->value(1).contains("\"Resume a game set aside...\""));
  EXPECT_EQ(Beside("DTB_v102.game.2*Ants at Bees").size(), 1);
  EXPECT_FALSE(QFile::exists(Game())) << "it would be offered again";
}

TEST_F(HistoryWindowTest, ASecondBoardIsToldAndLeavesTheFirstOnesGameAlone) {
  StartGame();
  desk_->recovery()->Wait();
  const auto kept = desk_->recovery()->Load();
  std::unique_ptr<Desk> first = std::move(desk_);
  Answer(Qt::Key_Return);
  StartAnew();
  EXPECT_TRUE(told_.startsWith("Another board is open already")) << FromQt(told_);
  StartGame();
  desk_->recovery()->Wait();
  EXPECT_EQ(first->recovery()->Load(), kept);
  desk_.reset();
  EXPECT_TRUE(QFile::exists(Game())) << "the end of the second takes nothing from the first";
}

TEST_F(HistoryWindowTest, TheFirstStartOfAllKeepsItsGame) {
  desk_.reset();
  Desk::Setup setup;
  setup.programFolder = FromQt(folder_.path());
  setup.settingsFile = folder_.filePath(QStringLiteral("new/config/settings.ini"));
  desk_ = std::make_unique<Desk>(setup);
  desk_->Open();
  StartGame();
  desk_->recovery()->Wait();
  EXPECT_TRUE(QFile::exists(folder_.filePath(QStringLiteral("new/config/DTB_v102.game"))));
}

TEST_F(HistoryWindowTest, ADiskThatTakesNothingIsToldOnce) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir("DTB_v102.game"));
  StartGame();
  desk_->recovery()->Wait();
  Answer(Qt::Key_Return);
  PutAtBat(board(), Side::Home);
  board().state.List2.Select(0);
  while (told_.isEmpty()) QCoreApplication::processEvents();
  EXPECT_TRUE(told_.contains("cannot be kept beside the settings")) << FromQt(told_);
  PressAndClose(Qt::Key_E);
}

}  // namespace
}  // namespace dtb
