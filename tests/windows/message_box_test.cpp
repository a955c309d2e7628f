#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

#include <QAction>
#include <QPushButton>
#include <QScrollArea>

#include "base/program_error.h"
#include "game/history.h"
#include "game/outcomes.h"
#include "windows/window_test.h"

namespace dtb {
namespace {

class MessageBoxTest : public WindowTest {};

// Each way to close a box, and what it answers to a plain box and to a question.
struct CloseWay {
  const char* name;
  std::function<void(QWidget& form, MessageBox& box)> close;
  bool closesQuestion;
  bool answersYes;
};

const std::vector<CloseWay>& Ways() {
  const auto key = [](Qt::Key k) {
    return [k](QWidget& form, MessageBox&) { QTest::keyClick(form.windowHandle(), k); };
  };
  static const std::vector<CloseWay> ways{
      {"Enter", key(Qt::Key_Return), true, false},  // No has the focus: a game is not lost lightly
      {"Space", key(Qt::Key_Space), true, false},
      {"Esc", key(Qt::Key_Escape), true, false},
      {"Y", key(Qt::Key_Y), true, true},
      {"N", key(Qt::Key_N), true, false},
      {"click on the board",
       [](QWidget& form, MessageBox&) {
         QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, QPoint(form.width() / 2, 300));
       },
       false, false},
      {"click on the box",
       [](QWidget& form, MessageBox& box) {
         QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {},
                           box.mapTo(&form, QPoint(box.width() / 2, box.height() - 8)));
       },
       false, false},
      {"close box",
       [](QWidget& form, MessageBox& box) {
         auto* close = box.findChild<QPushButton*>(QStringLiteral("CloseBox"));
         QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {},
                           close->mapTo(&form, close->rect().center()));
       },
       true, false},
      {"close of the main window", [](QWidget& form, MessageBox&) { form.close(); }, true, false},
  };
  return ways;
}

TEST_F(MessageBoxTest, EachWayClosesAndAnswers) {
  for (const CloseWay& way : Ways()) {
    SCOPED_TRACE(way.name);
    bool waited = false;
    const bool letter = QByteArray(way.name).size() == 1;
    if (!letter) {
      WhileWaiting([&] {
        waited = MessageBox::Open() != nullptr;
        way.close(form1(), *MessageBox::Open());
      });
      board().platform.boxes.ShowRecorded("OUT recorded.", BoxAlignment::Centred);
      EXPECT_TRUE(waited);
    }
    bool stayed = false;
    WhileWaiting([&] {
      way.close(form1(), *MessageBox::Open());
      QTimer::singleShot(0, qApp, [&] {
        if (MessageBox::Open() == nullptr) return;
        stayed = true;
        QTest::keyClick(form1().windowHandle(), Qt::Key_Escape);
      });
    });
    EXPECT_EQ(board().platform.boxes.Ask({"Sure?", "Question"}), way.answersYes);
    QCoreApplication::processEvents();
    EXPECT_EQ(stayed, !way.closesQuestion);
    EXPECT_EQ(MessageBox::Open(), nullptr);
    EXPECT_TRUE(form1().isVisible());
  }
}

TEST_F(MessageBoxTest, HoldsTheOperationBackWhileTimersTick) {
  StartGame();
  WhileWaiting([&] {
    EXPECT_EQ(MessageBox::Open()->message(), QStringLiteral("HIT recorded."));
    EXPECT_EQ(board().sheet.grd_VisStats.Text(1, stat_column::kAtBats), "");
    // No other click reaches the board: this one only closes the box.
    Click(Find("lbl_Single"));
  });
  Click(Find("lbl_Homer"));
  EXPECT_EQ(board().sheet.grd_VisStats.Text(1, stat_column::kAtBats), "1");
  EXPECT_EQ(board().sheet.grd_VisStats.Text(2, stat_column::kSingles), "");
}

// A hand that closes a box by a double click means one click: the piece under the box stays.
TEST_F(MessageBoxTest, SecondHalfOfADoubleClickGoesNowhere) {
  StartGame();
  GamePiece& piece = board().state.pieces.at(0);
  auto* view = Find("pb_Player1");
  WhileWaiting([&] { DoubleClick(view); });
  board().platform.boxes.ShowRecorded("HIT recorded.", BoxAlignment::Centred);
  EXPECT_EQ(piece.tag.value(), "Ants 1");
  DoubleClick(view);
  EXPECT_EQ(piece.tag.value(), "");
}

// A key that is held down records one outcome and leaves its box open.
TEST_F(MessageBoxTest, HeldKeyDoesNotCloseTheBoxItOpened) {
  StartGame();
  auto* label = Find("lbl_GO");
  label->setFocus();
  bool open = false;
  WhileWaiting([&] {
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, QString(), true);
    QCoreApplication::sendEvent(label, &held);
    QTimer::singleShot(0, qApp, [&] {
      open = MessageBox::Open() != nullptr;
      Press(&form1(), Qt::Key_Return);
    });
  });
  Press(&form1(), Qt::Key_Return);
  EXPECT_TRUE(open);
  EXPECT_EQ(board().state.tb_OUT.value(), "1");
}

TEST_F(MessageBoxTest, ExitAnsweredNoKeepsTheGame) {
  StartGame();
  WhileWaiting([&] { Press(&form1(), Qt::Key_N); });
  EXPECT_FALSE(form1().close());
  EXPECT_TRUE(form1().isVisible());
  WhileWaiting([&] { Press(&form1(), Qt::Key_Y); });
  EXPECT_TRUE(form1().close());
}

// The screens of the usual sizes and scale factors, in units of Qt, less a title bar.
const std::vector<QSize> kBoards{{705, 429},  {853, 440},   {911, 472},  {1280, 680},
                                 {1366, 728}, {1920, 1040}, {2560, 1400}};

// Everything in the box shows: its whole text, its controls, the box on its window.
void ExpectWhole(const MessageBox& box) {
  EXPECT_EQ(box.findChild<QScrollArea*>(), nullptr);
  const auto* text = box.findChild<QWidget*>(QStringLiteral("Label1"));
  EXPECT_LE(text->heightForWidth(text->width()), text->height());
  for (const auto* part : box.findChildren<QWidget*>()) {
    const QRect place(part->mapTo(&box, QPoint()), part->size());
    EXPECT_TRUE(!part->isVisible() || box.rect().contains(place)) << FromQt(part->objectName());
  }
  const QRect window(QPoint(), box.window()->size());
  EXPECT_TRUE(window.contains(QRect(box.mapTo(box.window(), QPoint()), box.size())));
}

TEST_F(MessageBoxTest, EveryMessageShowsItsWholeText) {
  form1().setMinimumSize(1, 1);
  // The longest of the program, and what no message of the program exceeds, with paths without end.
  QString longest;
  for (int word = 0; longest.size() < 900; ++word) longest += QString(1 + word % 14, 'w') + ' ';
  const QStringList messages{QStringLiteral("HIT recorded."), longest,
                             QStringLiteral("The file \"/%1.mdb\" was not found.\n\nPlease.")
                                 .arg(QString("Folder Name/").repeated(30)),
                             QString(300, 'M')};
  const auto tell = [&](const QString& message, int kind) {
    SCOPED_TRACE(testing::Message() << form1().width() << " x " << form1().height() << ", kind "
                                    << kind << ", letters " << message.size());
    WhileWaiting([&] {
      ExpectWhole(*MessageBox::Open());
      Press(MessageBox::Open()->window(), Qt::Key_Escape);
    });
    MessageBoxes& boxes = board().platform.boxes;
    if (kind == 0) boxes.ShowRecorded(FromQt(message), BoxAlignment::Left);
    if (kind == 1) boxes.Show(FromQt(message), BoxIcon::Critical, "Program Error");
    if (kind == 2) {
      EXPECT_FALSE(boxes.Ask({FromQt(message), "Save"}));
    }
  };
  for (const QSize& size : kBoards) {
    form1().resize(size);
    QCoreApplication::processEvents();
    const auto tellAll = [&] {
      for (const QString& message : messages) {
        for (int kind = 0; kind < 3; ++kind) tell(message, kind);
      }
    };
    tellAll();
    // Over a small window the box has the board's type, too.
    WhenTrue([] { return QApplication::activeModalWidget() != nullptr; },
             [&] {
               QWidget* about = QApplication::activeModalWidget();
               tellAll();
               EXPECT_EQ(QApplication::activeModalWidget(), about);
               Press(about, Qt::Key_Escape);
             });
    Find<QAction>("About")->trigger();
    QCoreApplication::processEvents();  // the menu has its answer first
  }
}

// What happens while a confirmation closes is told in words of its own.
TEST_F(MessageBoxTest, ErrorWhileAConfirmationClosesIsTold) {
#ifdef __SANITIZE_ADDRESS__
  // Qt's own code is not made for errors that pass through it, and forgets a few bytes.
  const __lsan::ScopedDisabler forgetful;
#endif
  struct Thrower : QWidget {
    using QWidget::QWidget;
    void focusInEvent(QFocusEvent* event) override {
      if (event->reason() == Qt::OtherFocusReason && std::exchange(armed, false)) {
        throw ProgramError(error_number::kDiskFull, "The disk is full");
      }
    }
    bool armed = false;
  } thrower(form1().centralWidget());
  thrower.setFocusPolicy(Qt::StrongFocus);
  thrower.show();
  form1().activateWindow();
  QCoreApplication::processEvents();
  thrower.setFocus(Qt::TabFocusReason);
  ASSERT_TRUE(thrower.hasFocus());
  thrower.armed = true;
  const auto told = AnswerBoxes({Qt::Key_Return, Qt::Key_Return});
  // Out of an event, as all operations are.
  QTimer::singleShot(0, qApp, [this] {
    board().platform.boxes.ShowRecorded("HIT recorded.", BoxAlignment::Centred);
  });
  ASSERT_TRUE(
      QTest::qWaitFor([&told] { return told->size() == 2 && MessageBox::Open() == nullptr; }));
  EXPECT_TRUE(told->at(1).startsWith(
      "[ErrKLV013F-002] The following error has occurred: 61, The disk is full\n\n"))
      << FromQt(told->at(1));
  EXPECT_EQ(MessageBox::Open(), nullptr);
}

// What no operation has trapped is told in a box, and the board goes on.
TEST_F(MessageBoxTest, WhatFallsOutOfASlotIsTold) {
  StartGame();
  const auto messages = AnswerBoxes({Qt::Key_Return});
  const std::string before = GameText(board());
  QTimer::singleShot(0, qApp, [] { throw std::out_of_range("a slip"); });
  EXPECT_TRUE(QTest::qWaitFor([&messages] { return !messages->isEmpty(); }));
  EXPECT_EQ(messages->value(0), "The following error has occurred: 51, a slip");
  EXPECT_EQ(GameText(board()), before);
  EXPECT_TRUE(QTest::qWaitFor([] { return MessageBox::Open() == nullptr; }));
}

}  // namespace
}  // namespace dtb
