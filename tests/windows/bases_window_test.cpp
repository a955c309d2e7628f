// The board that keeps the bases, by mouse and keys.
#include "game/bases.h"
#include "game/keep_bases.h"
#include "game/outcomes.h"
#include "window_test.h"
#include "windows/board/base_targets.h"

namespace dtb {
namespace {

class BasesWindowTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    desk_->aids().cb_QuickBoxes.Set(true);
    StartGame();
    board().state.cb_KeepBases.Set(true);
    KeepBasesClicked(board());
  }

  QWidget* park() { return Find("Picture1"); }

  // A place of the scene, in pixels of the window.
  QPoint At(QPointF place) {
    const double across = park()->width() / kSceneWidth;
    const double down = park()->height() / kSceneHeight;
    return park()->mapTo(&form1(), QPoint(qRound(place.x() * across), qRound(place.y() * down)));
  }
  QPoint SpotAt(int place) { return At(SpotOf(desk_->aids(), place)); }

  QWidget* PieceOfBatter(const char* name) {
    const int piece = PieceOf(board().state, name).value_or(-1);
    return Find(("pb_Player" + std::to_string(piece + 1)).c_str());
  }

  void Press(const QPoint& place) {
    QTest::mousePress(form1().windowHandle(), Qt::LeftButton, {}, place);
  }
  void Move(const QPoint& place) {
    QTest::mouseEvent(QTest::MouseMove, form1().windowHandle(), Qt::NoButton, {}, place);
  }
  void Release(const QPoint& place, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseRelease(form1().windowHandle(), Qt::LeftButton, modifiers, place);
  }
  void Drag(QWidget* piece, const QPoint& to, Qt::KeyboardModifiers modifiers = {}) {
    const QPoint from = piece->mapTo(&form1(), piece->rect().center());
    Press(from);
    Move((from + to) / 2);
    Move(to);
    Release(to, modifiers);
  }

  std::string Bases() {
    std::string bases;
    for (int base = 1; base <= kBases; ++base) {
      const Runner runner = RunnerOn(board().state, base);
      bases += (base > 1 ? ", " : "") + (runner.none() ? "-" : runner.name);
    }
    return bases;
  }

  void Outcomes(std::initializer_list<Outcome> outcomes) {
    for (const Outcome outcome : outcomes) RecordOutcome(board(), outcome);
  }
};

TEST_F(BasesWindowTest, PiecesAreDraggedToTheBasesAndNowhereElse) {
  Outcomes({Outcome::Walk});
  QWidget* piece = PieceOfBatter("Ants 1");
  const QPoint stand = piece->pos();
  Drag(piece, At({840, 560}));  // the mound
  EXPECT_EQ(piece->pos(), stand);
  EXPECT_EQ(Bases(), "Ants 1, -, -");
  EXPECT_FALSE(Find("BaseTargets")->isVisible());

  // A press that shakes is a click, and a drag that comes back moves nobody.
  const QPoint middle = piece->mapTo(&form1(), piece->rect().center());
  Press(middle);
  Move(middle + QPoint(1, 1));
  Release(middle + QPoint(1, 1));
  Press(middle);
  Move(SpotAt(kThirdBase));
  EXPECT_TRUE(Find("BaseTargets")->isVisible());
  Move(SpotAt(kFirstBase));
  Release(SpotAt(kFirstBase));
  EXPECT_EQ(Bases(), "Ants 1, -, -");
  EXPECT_EQ(piece->pos(), stand);

  // Esc, or another button, ends a drag without a move.
  for (const bool byKey : {true, false}) {
    Press(middle);
    Move(SpotAt(kThirdBase));
    if (byKey) {
      QTest::keyClick(&form1(), Qt::Key_Escape);
    } else {
      QTest::mousePress(form1().windowHandle(), Qt::RightButton, {}, SpotAt(kThirdBase));
      QTest::mouseRelease(form1().windowHandle(), Qt::RightButton, {}, SpotAt(kThirdBase));
    }
    EXPECT_FALSE(Find("BaseTargets")->isVisible());
    EXPECT_EQ(piece->pos(), stand);
    Release(SpotAt(kThirdBase));
    EXPECT_EQ(Bases(), "Ants 1, -, -");
  }

  Drag(piece, SpotAt(kThirdBase));
  EXPECT_EQ(Bases(), "-, -, Ants 1");
  const QPoint feet(piece->x() + piece->width() / 2, piece->geometry().bottom() + 1);
  EXPECT_LE((park()->mapTo(&form1(), feet) - SpotAt(kThirdBase)).manhattanLength(), 3);
  Drag(piece, SpotAt(kHomePlate), Qt::ControlModifier);
  EXPECT_EQ(Bases(), "-, -, -");
  EXPECT_FALSE(piece->isVisible() && !piece->accessibleName().contains(QStringLiteral("free")));
  EXPECT_EQ(board().state.tb_BoxScore[0].text.value(), "1");
  EXPECT_EQ(board().sheet.grd_VisStats.Text(1, stat_column::kRunsBattedIn), "");

  Drag(PieceOfBatter("Ants 2"), SpotAt(kFirstBase));
  Drag(PieceOfBatter("Ants 3"), At(OutField().center()));
  EXPECT_EQ(Bases(), "Ants 2, -, -");
  EXPECT_EQ(board().state.tb_OUT.value(), "1");
  Drag(PieceOfBatter("Ants 2"), QPoint(form1().width() / 2, form1().height() + 40));
  EXPECT_EQ(Bases(), "-, -, -");
  EXPECT_EQ(board().state.tb_OUT.value(), "2");
  board().history->Undo(board());
  EXPECT_EQ(Bases(), "Ants 2, -, -");
}

TEST_F(BasesWindowTest, KeysMoveRunnersAndAskWhoIsOut) {
  Outcomes({Outcome::Walk, Outcome::Walk});
  QWidget* question = Find("RunnerHint");
  struct Case {
    std::vector<std::pair<Qt::Key, Qt::KeyboardModifiers>> keys;
    const char* bases;
    const char* outs;
    bool asks;
  };
  for (const auto& [keys, bases, outs, asks] : std::vector<Case>{
           {{{Qt::Key_2, Qt::ShiftModifier}}, "Ants 2, -, Ants 1", "0", false},
           {{{Qt::Key_1, Qt::ShiftModifier}}, "-, Ants 2, Ants 1", "0", false},
           {{{Qt::Key_2, Qt::ShiftModifier}}, "-, Ants 2, Ants 1", "0", false},
           {{{Qt::Key_T, {}}}, "-, Ants 2, Ants 1", "0", true},
           {{{Qt::Key_1, {}}}, "-, Ants 2, Ants 1", "0", true},
           {{{Qt::Key_Escape, {}}}, "-, Ants 2, Ants 1", "0", false},
           {{{Qt::Key_T, {}}, {Qt::Key_2, {}}}, "-, -, Ants 1", "1", false},
           {{{Qt::Key_H, {}}}, "Ants 3, -, Ants 1", "1", false},
           {{{Qt::Key_S, {}}, {Qt::Key_1, {}}}, "-, Ants 3, Ants 1", "1", false},
           {{{Qt::Key_A, {}}}, "-, Ants 3, Ants 1", "2", false},
           {{{Qt::Key_3, Qt::ControlModifier}}, "-, Ants 3, -", "2", false},
           {{{Qt::Key_T, {}}}, "-, -, -", "0", false},
       }) {
    for (const auto& [key, modifiers] : keys) QTest::keyClick(&form1(), key, modifiers);
    EXPECT_EQ(Bases(), bases);
    EXPECT_EQ(board().state.tb_OUT.value(), outs);
    EXPECT_EQ(question->isVisible(), asks) << bases;
  }
  EXPECT_EQ(board().state.tb_BoxScore[0].text.value(), "1");

  // A key that is held moves a runner once.
  PutAtBat(board(), Side::Home);
  board().state.List2.Select(0);
  Outcomes({Outcome::Walk});
  QWidget* piece = PieceOfBatter("Bees 1");
  for (const bool held : {false, true, true}) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, {}, held);
    QCoreApplication::sendEvent(piece, &press);
  }
  EXPECT_EQ(Bases(), "-, Bees 1, -");
}

TEST_F(BasesWindowTest, AClickOnAPieceSaysWhoIsOut) {
  Outcomes({Outcome::Walk, Outcome::Walk});
  const std::size_t steps = board().history->steps();
  Click(Find("lbl_Pick"));
  EXPECT_TRUE(Find("RunnerHint")->isVisible());
  EXPECT_EQ(board().history->steps(), steps);
  // A press elsewhere takes the outcome back, and is what it is.
  Click(Find("lbl_BB"));
  EXPECT_EQ(Bases(), "Ants 3, Ants 2, Ants 1");
  Click(Find("lbl_Pick"));
  Click(PieceOfBatter("Ants 2"));
  EXPECT_EQ(Bases(), "Ants 3, -, Ants 1");
  EXPECT_FALSE(Find("RunnerHint")->isVisible());

  // The board chose; while its notice stands a click on another piece changes it.
  EXPECT_TRUE(Find("fra_AnotherOut")->isVisible());
  Click(PieceOfBatter("Ants 3"));
  EXPECT_EQ(Bases(), "-, Ants 2, Ants 1");
  EXPECT_EQ(board().state.tb_OUT.value(), "1");
  // The next outcome ends it, before its box.
  desk_->aids().cb_QuickBoxes.Set(false);
  bool stands = true;
  WhileWaiting([&] {
    stands = Find("fra_AnotherOut")->isVisible();
    QTest::keyClick(MessageBox::Open(), Qt::Key_Return);
  });
  Click(Find("lbl_FO"));
  EXPECT_FALSE(stands || Find("fra_AnotherOut")->isVisible());
  Click(PieceOfBatter("Ants 1"));
  EXPECT_EQ(Bases(), "-, Ants 2, Ants 1");
}

TEST_F(BasesWindowTest, AGameThatIsTakenUpHasThePiecesOnTheirBases) {
  const GameMemento before = Remember(board());
  Outcomes({Outcome::Strikeout, Outcome::Strikeout, Outcome::Strikeout});
  board().state.List2.Select(0);
  Outcomes({Outcome::Double});
  const GameMemento game = Remember(board());
  QWidget* piece = PieceOfBatter("Bees 1");
  const QPoint stand = piece->pos();
  Restore(board(), before);
  EXPECT_NE(piece->pos(), stand);
  Restore(board(), game);
  EXPECT_EQ(piece->pos(), stand);
  board().state.tb_OutsCount.Set("6");  // by hand: they belong to another half-inning now
  EXPECT_NE(piece->pos(), stand);
}

TEST_F(BasesWindowTest, TheEndOfTheGameIsTold) {
  BoardState& state = board().state;
  QWidget* notice = Find("fra_GameOver");
  state.tb_OutsCount.Set("51");
  PutAtBat(board(), Side::Home);
  state.List2.Select(0);
  Outcomes({Outcome::Walk, Outcome::Walk});
  EXPECT_FALSE(notice->isVisible());
  Outcomes({Outcome::Double});  // two on base: one comes home and ends it
  EXPECT_TRUE(notice->isVisible());
  EXPECT_TRUE(notice->accessibleName().startsWith(QStringLiteral("Final: Ants 0, Bees 1")));
  board().history->Undo(board());
  EXPECT_FALSE(notice->isVisible());
  board().history->Redo(board());
  Click(Find("cmd_FinalClose"));
  EXPECT_FALSE(notice->isVisible());
  // It stops nothing.
  Outcomes({Outcome::Homer});
  EXPECT_EQ(state.tb_BoxScoreBottom[8].text.value(), "4");
}

TEST_F(BasesWindowTest, ThePiecesAreOnlyPicturesWithTheOptionOff) {
  Outcomes({Outcome::Walk});
  board().state.cb_KeepBases.Set(false);
  KeepBasesClicked(board());
  QWidget* piece = PieceOfBatter("Ants 1");
  Drag(piece, SpotAt(kThirdBase));
  EXPECT_EQ(Bases(), "-, -, -");
  QTest::keyClick(&form1(), Qt::Key_H);
  Outcomes({Outcome::Single, Outcome::FieldersChoice});
  EXPECT_EQ(board().state.tb_BoxScore[0].text.value(), "");
  EXPECT_EQ(board().state.plays.size(), 3U);
}

class OfferWindowTest : public WindowTest {};

TEST_F(OfferWindowTest, ComesOnceAndTurnsTheOptionOn) {
  EXPECT_FALSE(Find("fra_Offer")->isVisible());
  StartGame();
  EXPECT_TRUE(Find("fra_Offer")->isVisible());
  Click(Find("cmd_TurnOn"));
  EXPECT_FALSE(Find("fra_Offer")->isVisible());
  EXPECT_TRUE(board().state.cb_KeepBases.value());
  // The choice is kept, and the offer is not made again.
  desk_ = nullptr;
  desk_ = std::make_unique<Desk>(setup_);
  desk_->Open();
  EXPECT_TRUE(board().state.cb_KeepBases.value());
  board().state.cb_KeepBases.Set(false);
  StartGame();
  EXPECT_FALSE(Find("fra_Offer")->isVisible());
}

}  // namespace
}  // namespace dtb
