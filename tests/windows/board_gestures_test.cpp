#include <QAbstractButton>
#include <QLineEdit>

#include "game/history.h"
#include "windows/shared/look.h"
#include "windows/window_test.h"

namespace dtb {
namespace {

class BoardGesturesTest : public WindowTest {
 protected:
  QPoint RowPlace(LineupView* list, int row) {
    list->scrollTo(list->model()->index(row, 0));
    return list->visualRect(list->model()->index(row, 0)).center();
  }

  void DragRow(LineupView* list, int from, int to, Qt::KeyboardModifiers modifiers) {
    QWidget* port = list->viewport();
    QWindow* window = form1().windowHandle();
    const auto at = [&](int row) { return port->mapTo(&form1(), RowPlace(list, row)); };
    QTest::mousePress(window, Qt::LeftButton, modifiers, at(from));
    QMouseEvent move(QEvent::MouseMove, RowPlace(list, to), port->mapToGlobal(RowPlace(list, to)),
                     Qt::NoButton, Qt::LeftButton, modifiers);
    QCoreApplication::sendEvent(port, &move);
    QTest::mouseRelease(window, Qt::LeftButton, modifiers, at(to));
  }
};

TEST_F(BoardGesturesTest, RowsAreDraggedOnlyInEditMode) {
  StartGame();
  auto* list = Find<LineupView>("List1");
  const auto entry = [&](int row) { return board().state.List1.entries().at(row); };
  DragRow(list, 4, 1, {});
  EXPECT_EQ(entry(1), "Ants 2");
  EXPECT_EQ(board().state.lbl_Selected.value(), "Ants 5");  // the press chose him, the way did not
  Click(Find("Check1"));
  DragRow(list, 10, 2, {});
  EXPECT_EQ(entry(2), "Ants 11");
  DragRow(list, 2, 5, Qt::ShiftModifier);
  EXPECT_EQ(entry(5), "Ants 11");
  EXPECT_EQ(board().state.List1.selected(), 5);
  EXPECT_EQ(board().state.lbl_Selected.value(), "Ants 5");
}

TEST_F(BoardGesturesTest, ARowOnItsWayToAPieceTellsWhatComesOfIt) {
  StartGame();
  auto* list = Find<LineupView>("List1");
  QWidget* port = list->viewport();
  QWindow* window = form1().windowHandle();
  const std::vector<std::string> order = board().state.List1.entries();
  const auto moveTo = [&](QWidget* control) {
    const QPoint place = control->mapToGlobal(control->rect().center());
    QMouseEvent move(QEvent::MouseMove, port->mapFromGlobal(place), place, Qt::NoButton,
                     Qt::LeftButton, {});
    QCoreApplication::sendEvent(port, &move);
    const auto* tag = form1().findChild<QLabel*>("RunnerTag");
    return tag == nullptr || !tag->isVisible() ? QString() : tag->text();
  };
  for (const auto& [row, words] :
       {std::pair{10, "Ants 11 bats for Ants 1"}, {4, "Ants 5 is in the batting order already."}}) {
    QTest::mousePress(window, Qt::LeftButton, {}, port->mapTo(&form1(), RowPlace(list, row)));
    board().state.lbl_Selected.Set("Ants 1");
    board().state.VisDue.Set(0);
    EXPECT_EQ(moveTo(Find("Picture1")), "");
    EXPECT_EQ(moveTo(Find("pb_Player1")), words);
    EXPECT_EQ(moveTo(Find("Picture1")), "") << "away from the piece it is gone";
    QWidget* park = Find("Picture1");
    QTest::mouseRelease(window, Qt::LeftButton, {}, park->mapTo(&form1(), park->rect().center()));
    EXPECT_EQ(board().state.List1.entries(), order);
  }
}

// A double steal is two clicks while Ctrl is held.
TEST_F(BoardGesturesTest, CtrlClicksRecordStolenBasesAsLongAsItIsHeld) {
  StartGame();
  board().state.List1.Select(1);
  const auto stolen = [&] {
    const StatGrid& grid = board().sheet.grd_VisStats;
    return std::string(grid.Text(1, stat_column::kStolenBases)) + "," +
           std::string(grid.Text(2, stat_column::kStolenBases));
  };
  Click(Find("pb_Player1"));
  EXPECT_EQ(stolen(), ",");
  QTest::keyPress(form1().windowHandle(), Qt::Key_Control);
  for (const char* runner : {"pb_Player1", "pb_Player2"}) {
    WhileWaiting([&] { Press(&form1(), Qt::Key_Return); });
    Click(Find(runner), Qt::ControlModifier);
  }
  EXPECT_EQ(stolen(), "1,1");
  QTest::keyRelease(form1().windowHandle(), Qt::Key_Control);
  Click(Find("pb_Player1"));
  EXPECT_EQ(stolen(), "1,1");
}

TEST_F(BoardGesturesTest, PieceFollowsThePointerInOneStepAndStaysThere) {
  StartGame();
  auto* piece = Find("pb_Player1");
  QWindow* window = form1().windowHandle();
  QTest::mousePress(window, Qt::LeftButton, {}, piece->mapTo(&form1(), QPoint(20, 20)));
  const QPointF far(piece->width() / 2.0 + 300, piece->height() / 2.0 - 200);
  QMouseEvent move(QEvent::MouseMove, far, piece->mapToGlobal(far), Qt::NoButton, Qt::LeftButton,
                   {});
  const double left = board().state.pieces.at(0).left.value();
  const std::size_t steps = board().history->steps();
  QCoreApplication::sendEvent(piece, &move);
  QTest::mouseRelease(window, Qt::LeftButton, {}, piece->mapTo(&form1(), piece->rect().center()));
  const double moved = board().state.pieces.at(0).left.value();
  EXPECT_GT(moved, left + 200);
  form1().resize(form1().width() - 200, form1().height() - 100);
  QCoreApplication::processEvents();
  EXPECT_EQ(board().state.pieces.at(0).left.value(), moved);
  EXPECT_EQ(board().state.pieces.at(0).tag.value(), "Ants 1");
  EXPECT_EQ(board().history->steps(), steps + 1);
  board().history->Undo(board());
  EXPECT_EQ(board().state.pieces.at(0).left.value(), left);
}

// A press on a control stays that control's, however far the pointer slides; a panel moves with a
// press on its own ground.
TEST_F(BoardGesturesTest, PanelsMoveOnlyWithAPressOfTheirOwn) {
  StartGame();
  board().state.pb_BaseTracker_visible.Set(true);
  desk_->aids().Check4.Set(true);
  desk_->aids().fra_BBgumBB_visible.Set(true);
  QCoreApplication::processEvents();
  QWindow* window = form1().windowHandle();
  const auto slide = [&](QPoint from, QPoint to, Qt::KeyboardModifiers held, Qt::MouseButton with) {
    QTest::mousePress(window, with, held, from);
    for (const QPoint& place : {from, (from + to) / 2, to}) {
      QTest::mouseEvent(QTest::MouseMove, window, Qt::NoButton, held, place);
    }
    QTest::mouseRelease(window, with, held, to);
  };
  const QPoint park(form1().width() / 2, form1().height() * 6 / 10);
  struct Row {
    const char* name;
    Qt::KeyboardModifiers held;
  };
  for (const Row& row : {Row{"Frame3", {}},
                         {"pb_Res", Qt::ControlModifier},
                         {"fra_SOMBBdice", Qt::ControlModifier},
                         {"fra_BBgumBB", {}},
                         {"pb_BaseTracker", Qt::ControlModifier}}) {
    auto* panel = Find(row.name);
    const QPoint before = panel->pos();
    int controls = 0;
    for (auto* control : panel->findChildren<QWidget*>()) {
      const bool takesPress = qobject_cast<QAbstractButton*>(control) != nullptr ||
                              qobject_cast<QLineEdit*>(control) != nullptr;
      if (!takesPress || !control->isVisible()) continue;
      ++controls;
      for (const auto with : {Qt::LeftButton, Qt::RightButton}) {
        slide(control->mapTo(&form1(), control->rect().center()), park, row.held, with);
      }
      ASSERT_EQ(panel->pos(), before) << row.name << ", " << FromQt(control->objectName());
    }
    EXPECT_GT(controls, 0) << row.name;
    const QPoint corner = panel->mapTo(&form1(), QPoint(4, 4));
    QTest::mouseClick(window, Qt::LeftButton, row.held, corner);
    EXPECT_EQ(panel->pos(), before) << row.name << ": a press alone moves nothing";
    slide(corner, corner + QPoint(90, 90), row.held, Qt::RightButton);
    EXPECT_EQ(panel->pos(), before) << row.name;
    slide(corner, corner + QPoint(90, 90), row.held, Qt::LeftButton);
    EXPECT_NE(panel->pos(), before) << row.name;
  }
  EXPECT_EQ(MessageBox::Open(), nullptr);
}

TEST_F(BoardGesturesTest, LabelsShowAPressOfAnyButtonAndRestAfterIt) {
  QWindow* window = form1().windowHandle();
  for (const char* name : {"lbl_Single", "lbl_chrt2"}) {
    auto* label = Find(name);
    const QPoint place = label->mapTo(&form1(), label->rect().center());
    const auto colour = [&](int x, int y) { return label->grab().toImage().pixelColor(x, y); };
    const auto ground = [&] { return colour(label->width() / 4, label->height() / 4); };
    QTest::mouseMove(window, QPoint(form1().width() / 2, form1().height() - 20));
    const QColor rest = ground();
    QTest::mouseMove(window, place);
    const QColor lit = ground();
    EXPECT_NE(lit, rest) << name;
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
      QTest::mousePress(window, button, {}, place);
      EXPECT_EQ(colour(label->width() / 2, 1), look::kCream) << name;
      QTest::mouseRelease(window, button, {}, place);
      EXPECT_NE(colour(label->width() / 2, 1), look::kCream) << name;
    }
    const bool chart = QByteArray(name) == "lbl_chrt2";
    EXPECT_EQ(ground(), chart ? rest : lit) << name;
    QTest::mouseMove(window, place + QPoint(2, 2));
    EXPECT_EQ(ground(), lit) << name;
  }
}

// Esc leaves each text field; what was typed in this visit is taken back with all that it did.
class EscapeTest : public BoardGesturesTest {
 protected:
  EscapeTest() { setup_.recovery = false; }  // so that hundreds of letters wait for no disk
};

TEST_F(EscapeTest, LeavesEveryTextFieldAsItWas) {
  StartGame();
  board().state.fra_Options_visible.Set(true);
  board().state.cb_Xinnings.Set(true);
  board().state.Check1.Set(true);
  board().state.Check2.Set(true);
  QTest::keyPress(form1().windowHandle(), Qt::Key_Control);
  Click(Find("lbl_chrt3"), Qt::ControlModifier);
  Click(Find("lbl_PhotoPath"), Qt::ControlModifier);
  QTest::keyRelease(form1().windowHandle(), Qt::Key_Control);
  const auto leave = [&](QWidget* window, QLineEdit* field) {
    SCOPED_TRACE(FromQt(field->objectName()));
    const QString text = field->text();
    for (const char* typed : {"", "2", "12"}) {
      field->setFocus(Qt::TabFocusReason);
      const std::string game = GameText(board());
      Type(window, typed);
      Press(window, Qt::Key_Escape);
      EXPECT_FALSE(field->hasFocus());
      EXPECT_EQ(field->text(), text) << typed;
      EXPECT_TRUE(GameText(board()) == game) << typed;
      if (!field->isVisible()) return;  // the editor of a name
    }
  };
  // What is no number may be refused in a box.
  QTimer closer;
  QObject::connect(&closer, &QTimer::timeout, [] {
    if (MessageBox* box = MessageBox::Open()) {
      QTest::keyClick(box->window()->windowHandle(), Qt::Key_Return);
    }
  });
  closer.start(0);
  int fields = 0;
  for (auto* field : form1().findChildren<QLineEdit*>()) {
    if (field->window() != &form1() || !field->isVisible() || field->isReadOnly()) continue;
    leave(&form1(), field);
    ++fields;
  }
  EXPECT_EQ(fields, 2 * 23 + 2 + 2 + 2 + 2);  // scores, teams, outs, new entries, edited names
  closer.stop();
  EXPECT_FALSE(Find("tb_chrt3")->isVisible() || Find("Text1")->isVisible());
  EXPECT_EQ(desk_->aids().lbl_chrt[2].value() + board().state.lbl_PhotoPath.value(), "");
  WhileWaiting([&] {
    auto* sheet = Find<SheetWindow>("Form2");
    leave(sheet, sheet->findChild<QLineEdit*>(QStringLiteral("tb_Comments")));
    EXPECT_TRUE(sheet->isVisible());
    sheet->close();
  });
  Click(Find("lbl_STATS"));
  // A run recorded from within the visit is no part of it.
  board().state.cb_Xinnings.Set(false);
  board().state.Check1.Set(false);
  auto* cell = Find<QLineEdit>("tb_BoxScore[3]");
  Click(cell);
  Type(&form1(), "3");
  WhileWaiting([&] { Press(&form1(), Qt::Key_Return); });
  Click(Find("lbl_RBI"));
  Press(&form1(), Qt::Key_Escape);
  EXPECT_EQ(cell->text(), QStringLiteral("3"));
  EXPECT_EQ(board().sheet.grd_VisStats.Text(1, stat_column::kRunsBattedIn), "1");
}

TEST_F(BoardGesturesTest, ScorePadWorksOnTheCellThatHadTheFocus) {
  auto* cell = Find<QLineEdit>("tb_BoxScore[2]");
  const auto text = [&] { return board().state.tb_BoxScore.at(2).text.value(); };
  Click(Find("lbl_5"));
  EXPECT_EQ(text(), "");
  board().state.tb_BoxScore.at(2).text.Set("12");
  Click(cell);
  Click(Find("lbl_5"));
  EXPECT_EQ(text(), "5");
  Click(Find("lbl_0"));
  EXPECT_EQ(text(), "50");
  EXPECT_EQ(board().sheet.grd_BoxScore.Text(1, 3), "12");  // as fresh as the focus
  Click(Find("tb_BoxScoreBottom[2]"));
  EXPECT_EQ(board().state.tb_BoxScore.at(kTotalRuns).text.value(), "50");
  Click(cell);
  Type(&form1(), "7");
  EXPECT_EQ(text(), "7");
  DoubleClick(cell);
  EXPECT_EQ(board().state.tb_BoxScore.at(2).colour.value(), kFinishedYellow);
}

TEST_F(BoardGesturesTest, SheetCellsAreEditedInPlace) {
  StartGame();
  WhileWaiting([&] {
    auto* sheet = Find<SheetWindow>("Form2");
    auto* table = Find<StatGridView>("grd_VisStats");
    auto* editor = sheet->findChild<QLineEdit*>(QStringLiteral("Text1"));
    const auto at = [&](int row, int column) { return table->CellRect(row, column).center(); };
    DoubleClick(table->viewport(), at(2, stat_column::kRunsBattedIn));
    EXPECT_EQ(editor->geometry(), table->CellRect(2, stat_column::kRunsBattedIn));
    Type(sheet, "4");
    Press(sheet, Qt::Key_Return);
    EXPECT_FALSE(editor->isVisible());
    EXPECT_EQ(table->currentRow(), 3);
    EXPECT_TRUE(table->hasFocus());
    Press(sheet, Qt::Key_Return);
    Type(sheet, "9");
    Click(table->viewport(), {}, Qt::LeftButton, at(5, stat_column::kAtBats));
    EXPECT_FALSE(editor->isVisible());
    Press(sheet, Qt::Key_Up);
    Press(sheet, Qt::Key_Escape);
  });
  Click(Find("lbl_STATS"));
  EXPECT_EQ(board().sheet.grd_VisStats.Text(2, stat_column::kRunsBattedIn), "4");
  EXPECT_EQ(board().sheet.grd_VisStats.Text(3, stat_column::kRunsBattedIn), "");
}

}  // namespace
}  // namespace dtb
