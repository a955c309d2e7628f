// A player who does anything but play: whatever he does, the program goes on.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <random>

#include "platform/paths.h"
#include "platform/qt/qt_text.h"
#include "replay/driver.h"
#include "replay/gestures.h"
#include "replay/play_table.h"

namespace dtb::replay {
namespace {

constexpr unsigned kSeed = 19601005;
constexpr int kGestures = 20000;

class Monkey : public Driver {
 public:
  explicit Monkey(PlayTable& table)
      : table_(table), board_(table.desk().board()), form1_(table.desk().form1()) {
    const QDir teams(table.Folder("Teams"));
    for (const QString& name : teams.entryList(QDir::Files)) files_ += teams.filePath(name);
    const auto write = [&](const char* name, const QByteArray& bytes) {
      QFile file(table.Folder(name));
      if (file.open(QIODevice::WriteOnly)) file.write(bytes);
      files_ += file.fileName();
    };
    write("Good.txt", "Ann\r\nBob=LF\r\nCyd\r\nDee\r\nEve\r\nFay\r\nGus\r\nHal\r\nIda\r\nJoe\r\n");
    write("Short.txt", "\xff\xfe\x01==\r\n\r\n   \r\n");
    write("Long.txt", QByteArray("Name\r\n").repeated(60));
    write("Junk.txt", QByteArray(5000, '\0') + QByteArray(5000, 'x'));
    write(".txt", "Nameless\r\n");
    files_ += {table.Folder("Missing.txt"), table.Folder("Teams"), {}};
    // Some men have photos.
    for (const char* name : {"Ann.jpg", "Cyd.jpg", "Name.jpg"}) {
      QFile::copy(table.Folder("Logos/VisLogo.jpg"), table.Folder(name));
    }
    board_.state.lbl_PhotoPath.Set(FromQt(table.Folder(".")));
    form1_.constantTimer().stop();
  }

  int made = 0;

 protected:
  void MakeGesture() override;
  bool Answer(MessageBox& box) override;
  void Refuse(const QString& reason) override {
    ADD_FAILURE() << "gesture " << made << ": " << reason.toStdString();
    Finish(1);
  }

 private:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  template <class T>
  T OneOf(const QList<T>& things) {
    return things[Below(static_cast<int>(things.size()))];
  }

  void MakeAnyGesture(QWidget* front);
  void UseMouse(QWidget* front);
  // Somewhere on one of the controls that show, in the window's pixels.
  QPoint AnyPlace(QWidget* window);
  QString AnyText();
  std::optional<std::filesystem::path> AnyFile();
  void CheckFields();
  void Recover();

  PlayTable& table_;
  Board& board_;
  Form1& form1_;
  QStringList files_;
  std::mt19937 random_{kSeed};
  QList<std::pair<const char*, const char*>> recovery_{
      {"Command6", "Space"},        {"Command7", "Space"}, {"List1", "End"},
      {"lbl_VisPitcher", "Return"}, {"List2", "End"},      {"lbl_HomePitcher", "Return"},
      {"Option5", "Space"},         {"List1", "Home"},     {"lbl_Single", "Return"}};
};

QPoint Monkey::AnyPlace(QWidget* window) {
  const bool button = Below(2) == 0;
  QList<QWidget*> controls{window};
  for (QWidget* control : window->findChildren<QWidget*>()) {
    if (control->window() != window || !control->isVisible()) continue;
    if (!button || qobject_cast<QAbstractButton*>(control) != nullptr) controls += control;
  }
  const QWidget* control = OneOf(controls);
  const QRect shown = QRect(control->mapTo(window, QPoint()), control->size()) & window->rect();
  if (shown.isEmpty()) return window->rect().center();
  return shown.topLeft() + QPoint(Below(shown.width()), Below(shown.height()));
}

QString Monkey::AnyText() {
  static const QList<std::pair<int, int>> alphabets{{'0', 10},    {' ', 95},      {0xA0, 96},
                                                    {0x300, 80},  {0x5D0, 90},    {0x4E00, 9000},
                                                    {0x2000, 60}, {0x1F300, 700}, {0, 32}};
  QString text;
  const auto [first, count] = Below(3) > 0 ? alphabets.first() : OneOf(alphabets);
  for (int left = Below(Below(30) == 0 ? 200 : 6); left > 0; --left) {
    const auto letter = static_cast<char32_t>(first + Below(count));
    text += QString::fromUcs4(&letter, 1);
  }
  return text;
}

std::optional<std::filesystem::path> Monkey::AnyFile() {
  const QString file = Below(2) == 0 ? table_.Folder("Good.txt") : OneOf(files_);
  if (file.isEmpty()) return std::nullopt;
  return PathOf(FromQt(file));
}

void Monkey::UseMouse(QWidget* front) {
  QWindow* window = front->windowHandle();
  const Qt::KeyboardModifiers modifiers =
      Below(5) > 0 ? Qt::NoModifier
                   : OneOf<Qt::KeyboardModifier>({Qt::ControlModifier, Qt::ShiftModifier});
  if (modifiers.testFlag(Qt::ControlModifier)) QTest::keyPress(window, Qt::Key_Control);
  const auto button =
      Below(8) > 0 ? Qt::LeftButton : OneOf<Qt::MouseButton>({Qt::RightButton, Qt::MiddleButton});
  const QPoint place = AnyPlace(front);
  switch (Below(6)) {
    case 0:
      QTest::mouseDClick(window, button, modifiers, place);
      break;
    case 1:
      QTest::mousePress(window, button, modifiers, place);
      for (int i = Below(4); i >= 0; --i) {
        QTest::mouseEvent(QTest::MouseMove, window, Qt::NoButton, modifiers, AnyPlace(front));
      }
      QTest::mouseRelease(window, button, modifiers, AnyPlace(front));
      break;
    case 2: {
      QWheelEvent wheel(place, window->mapToGlobal(place), {}, {0, Below(2) * 240 - 120},
                        Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(window, &wheel);
      break;
    }
    default:
      QTest::mouseClick(window, button, modifiers, place);
  }
  if (modifiers.testFlag(Qt::ControlModifier)) QTest::keyRelease(window, Qt::Key_Control);
}

void Monkey::MakeAnyGesture(QWidget* front) {
  static const QList<Qt::Key> keys{Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Left,  Qt::Key_Right,
                                   Qt::Key_Home,   Qt::Key_End,    Qt::Key_Tab,   Qt::Key_Backtab,
                                   Qt::Key_Return, Qt::Key_Delete, Qt::Key_Space, Qt::Key_PageDown,
                                   Qt::Key_Menu,   Qt::Key_V,      Qt::Key_Z,     Qt::Key_F12};
  switch (Below(24)) {
    case 0:
    case 1:
    case 2: {
      const auto fields = front->findChildren<QLineEdit*>();
      if (!fields.isEmpty()) TypeText(OneOf(fields), AnyText());
      break;
    }
    case 3:
    case 4:
      QTest::keyClick(front->windowHandle(), OneOf(keys),
                      Below(4) > 0 ? Qt::NoModifier : Qt::ControlModifier);
      break;
    case 5:
      if (Below(8) == 0) form1_.resize(600 + Below(400), 300 + Below(300));
      break;
    case 6:
      if (front != &form1_ || Below(8) == 0) CloseWindow(front);
      break;
    case 7:
      QMetaObject::invokeMethod(&form1_.constantTimer(), "timeout");
      break;
    case 8:
      if (Below(8) == 0) PressKey(FindControl("lbl_STATS"), "Return");
      if (Below(8) == 0) Click(TargetAtMenu("EventLog"));
      break;
    default:
      UseMouse(front);
  }
}

void Monkey::CheckFields() {
  const BoardState& state = board_.state;
  EXPECT_FALSE(state.Option5.value() && state.Option6.value());
  EXPECT_EQ(state.tb_ListBoxStatus.value(), "0");
  EXPECT_TRUE(state.StolenBasePiece >= 0 && state.StolenBasePiece <= kPieces);
  for (const char* name : {"List1", "List2"}) {
    const LineupList& list = name[4] == '1' ? state.List1 : state.List2;
    const auto* view = form1_.findChild<QListView*>(name);
    EXPECT_EQ(view->model()->rowCount(), list.size());
    const QModelIndexList lit = view->selectionModel()->selectedRows();
    EXPECT_EQ(lit.isEmpty() ? LineupList::kNoRow : lit.first().row(), list.selected());
    EXPECT_TRUE(list.selected() == LineupList::kNoRow || list.HasRow(list.selected()));
  }
  for (const GamePiece& piece : state.pieces) {
    EXPECT_TRUE(piece.left.value() < kSceneWidth && piece.top.value() < kSceneHeight);
    EXPECT_TRUE(piece.left.value() + state.pieceWidth.value() > 0);
    EXPECT_TRUE(piece.top.value() + state.pieceHeight.value() > 0);
  }
  EXPECT_EQ(FromQt(form1_.findChild<QLineEdit*>("tb_OUT")->text()), state.tb_OUT.value());
  EXPECT_EQ(form1_.findChild<QWidget*>("pb_Res")->isHidden(), state.chk_Ctrls.value());
  const bool sheetOpen = form1_.findChild<QWidget*>("Form2")->isVisible();
  EXPECT_TRUE(sheetOpen || !board_.sheet.Text1_visible.value());
}

void Monkey::MakeGesture() {
  CheckFields();
  if (testing::Test::HasFailure()) return Refuse("a field is wrong");
  QWidget* front = FrontWindow();
  if (made >= kGestures) return Recover();
  ++made;
  if (table_.dialogs().answers.isEmpty()) table_.dialogs().answers += AnyFile();
  if (front == QApplication::activePopupWidget()) {
    QTest::keyClick(front->windowHandle(),
                    OneOf<Qt::Key>({Qt::Key_Down, Qt::Key_Return, Qt::Key_Escape}));
    return;
  }
  try {
    MakeAnyGesture(front);
  } catch (const Refused&) {
    // What is hidden or covered can not be reached by anybody.
  }
}

bool Monkey::Answer(MessageBox& box) {
  if (box.question()) {
    Click({box.window(), {3, 30}});
    EXPECT_EQ(MessageBox::Open(), &box) << "only Yes and No close a question";
    Click(TargetAt(OneOf<QString>({"cmd_NO", "CloseBox"})));
    return true;
  }
  switch (Below(5)) {
    case 0:
      Click(TargetAt("CloseBox"));
      break;
    case 1:
      QTest::mouseClick(box.window()->windowHandle(), Qt::LeftButton, {}, {3, 30});
      break;
    default:
      PressKey(&box, OneOf<QString>({"Return", "Space", "Escape"}));
  }
  return true;
}

// With the keyboard, from whatever state the board is in, to a hit of a new game.
void Monkey::Recover() {
  if (QWidget* front = FrontWindow(); front != &form1_) {
    CloseWindow(front);
  } else if (recovery_.isEmpty()) {
    Finish(0);
  } else {
    for (Field<bool>* on : {&board_.state.Check1, &board_.state.Check2, &board_.state.chk_Ctrls}) {
      on->Set(false);
    }
    table_.dialogs().answers = {PathOf(FromQt(table_.Folder("Good.txt")))};
    const auto [name, key] = recovery_.takeFirst();
    PressKey(FindControl(name), key);
  }
}

TEST(MonkeyTest, NothingThatAPlayerDoesBreaksTheProgram) {
  PlayTable table;
  table.desk().Open();
  Monkey monkey(table);
  EXPECT_EQ(monkey.Run(), 0) << "seed " << kSeed << ", gesture " << monkey.made;
  EXPECT_EQ(MessageBox::Open(), nullptr);
  EXPECT_TRUE(table.desk().board().log.text().ends_with("Ann_____1B\r\n"));
}

}  // namespace
}  // namespace dtb::replay
