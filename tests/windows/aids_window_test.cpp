// Dice, charts, ballparks, sound and the about box, by real mouse and key events.
#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QtEndian>

#include "aids/dice.h"
#include "windows/window_test.h"

namespace dtb {
namespace {

class AidsWindowTest : public WindowTest {
 protected:
  // A picture of the given size and colour in the program's folder.
  QString AddPicture(const char* name, const QSize& size, const QColor& colour) {
    const QString file = folder_.filePath(QLatin1String(name));
    QDir().mkpath(QFileInfo(file).path());
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(colour);
    EXPECT_TRUE(picture.save(file));
    return file;
  }
  // Lets the roller's own timer tick until the roll is over.
  void FinishRoll(const char* timer, const Field<bool>& rolling) {
    constexpr int kMostTicks = 1000;
    for (int tick = 0; rolling.value() && tick < kMostTicks; ++tick) {
      QMetaObject::invokeMethod(Find<QTimer>(timer), "timeout");
    }
    EXPECT_FALSE(rolling.value());
  }
};

TEST_F(AidsWindowTest, DiceRollUntilTheyStand) {
  auto* panel = Find("fra_SOMBBdice");
  EXPECT_FALSE(panel->isVisible());
  board().state.fra_Options_visible.Set(true);
  Click(Find("Check4"));
  EXPECT_TRUE(panel->isVisible());
  Click(Find("cmd_Roll"));
  FinishRoll("tmr_sombb", desk_->aids().tmr_sombb);
  // What stands on the screen is what was thrown last.
  const QString twenty = QString::number(NumberOf(desk_->aids().lbl_20die.value()));
  EXPECT_EQ(Find<QLabel>("lbl_20die")->text(), twenty);
  EXPECT_GT(twenty.toInt(), 0);
  for (const auto& [name, face] : {std::pair{"Image100", 0}, {"Image200", 1}, {"Image300", 2}}) {
    const int value = desk_->aids().faces.at(face).value();
    EXPECT_TRUE(Find(name)->accessibleName().endsWith(QString::number(value)));
    QImage shown = Find(name)->grab().toImage();
    const QColor pip = face == 2 ? Qt::black : Qt::white;
    const bool centre = shown.pixelColor(shown.rect().center()) == pip;
    EXPECT_EQ(centre, value % 2 == 1) << name << " shows " << value;
  }
}

TEST_F(AidsWindowTest, NumberDiceComeWithTheirKeysAndFollowTheMouse) {
  auto* panel = Find("fra_BBgumBB");
  QTest::keyPress(form1().windowHandle(), Qt::Key_Control);
  QTest::keyPress(form1().windowHandle(), Qt::Key_F12, Qt::ControlModifier);
  QMetaObject::invokeMethod(Find<QTimer>("tmr_F12detect"), "timeout");
  QTest::keyRelease(form1().windowHandle(), Qt::Key_F12, Qt::ControlModifier);
  QTest::keyRelease(form1().windowHandle(), Qt::Key_Control);
  QMetaObject::invokeMethod(Find<QTimer>("tmr_F12detect"), "timeout");
  EXPECT_TRUE(panel->isVisible());
  Click(Find("Command1"));
  FinishRoll("tmrDice2", desk_->aids().tmrDice2);
  for (const NumberDie& die : kNumberDiceSet) {
    const int number = Find<QLabel>(die.label)->text().toInt();
    EXPECT_TRUE(number >= die.lowest && number < die.lowest + die.sides) << die.label;
  }
  const auto drag = [&](QWidget* dragged, Qt::KeyboardModifiers keys) {
    const QPoint before = dragged->pos();
    const QPoint corner = dragged->mapTo(&form1(), QPoint(3, 3));
    QTest::mousePress(form1().windowHandle(), Qt::LeftButton, keys, corner);
    EXPECT_EQ(dragged->pos(), before) << "a press alone moves nothing";
    // Qt's own helper cannot move with a button held.
    QMouseEvent move(QEvent::MouseMove, QPointF(30, 20), dragged->mapToGlobal(QPointF(30, 20)),
                     Qt::NoButton, Qt::LeftButton, keys);
    QApplication::sendEvent(dragged, &move);
    QTest::mouseRelease(form1().windowHandle(), Qt::LeftButton, keys, corner);
    return dragged->pos() != before;
  };
  desk_->aids().Check4.Set(true);
  EXPECT_TRUE(drag(panel, Qt::NoModifier));
  EXPECT_FALSE(drag(Find("fra_SOMBBdice"), Qt::NoModifier));
  EXPECT_TRUE(drag(Find("fra_SOMBBdice"), Qt::ControlModifier));
}

TEST_F(AidsWindowTest, ChartsAreNamedAndOpened) {
  QTest::keyPress(form1().windowHandle(), Qt::Key_Control);
  Click(Find("lbl_chrt3"), Qt::ControlModifier);
  QTest::keyRelease(form1().windowHandle(), Qt::Key_Control);
  auto* edit = Find<QLineEdit>("tb_chrt3");
  ASSERT_TRUE(edit->isVisible());
  Type(&form1(), "bunts");
  DoubleClick(edit);
  EXPECT_EQ(Find<QAbstractButton>("lbl_chrt3")->text(), QStringLiteral("bunts"));
  AddPicture("Charts/Chart03.jpg", {3000, 2000}, Qt::blue);
  int shown = 0;
  WhileWaiting([&] {
    auto* viewer = QApplication::activeModalWidget();
    auto* picture = viewer->findChild<QScrollArea*>(QStringLiteral("WebBrowser1"));
    ASSERT_NE(picture, nullptr);
    const auto width = [&] { return picture->widget()->width(); };
    EXPECT_LE(width(), viewer->width()) << "the whole chart is seen first";
    const int fitted = width();
    Click(picture);
    EXPECT_EQ(width(), 3000) << "a click shows it in full size";
    Press(viewer, Qt::Key_Down);
    EXPECT_GT(picture->verticalScrollBar()->value(), 0);
    Press(viewer, Qt::Key_0);
    EXPECT_EQ(width(), fitted);
    for (int i = 0; i < 40; ++i) Press(viewer, Qt::Key_Plus);
    EXPECT_EQ(width(), 12000) << "no larger than four times";
    for (int i = 0; i < 60; ++i) Press(viewer, Qt::Key_Minus);
    EXPECT_EQ(width(), fitted) << "no smaller than the window";
    ++shown;
    Press(viewer, Qt::Key_Escape);
  });
  Click(Find("lbl_chrt3"));
  WriteFile(folder_.filePath(QStringLiteral("Charts/Chart04.jpg")), "no picture");
  WhileWaiting([&] {
    auto* viewer = QApplication::activeModalWidget();
    const auto* page = viewer->findChild<QLabel*>(QStringLiteral("NoChart"));
    ASSERT_NE(page, nullptr);
    EXPECT_TRUE(page->text().contains(QStringLiteral("Chart04.jpg")));
    ++shown;
    Press(viewer, Qt::Key_Escape);
  });
  Click(Find("lbl_chrt4"));
  EXPECT_EQ(shown, 2);
  const auto heard = [&] {
    std::size_t observers = 0;
    for (const auto& name : desk_->aids().lbl_chrt) observers += name.observers();
    return observers;
  };
  const std::size_t before = heard();
  for (int time = 0; time < 3; ++time) {
    WhileWaiting([this] { Press(QApplication::activeModalWidget(), Qt::Key_Escape); });
    Click(Find("lbl_chrt4"));
  }
  EXPECT_EQ(heard(), before) << "viewers that are closed hear nothing any more";
}

TEST_F(AidsWindowTest, ParkStaysUntilAnotherPictureIsThere) {
  // In front of home plate, where nothing stands on the park.
  const auto park = [&] {
    const QImage shown = Find("Picture1")->grab().toImage();
    return shown.pixelColor(shown.width() / 2, shown.height() * 3 / 4);
  };
  const auto show = [&](const QString& file) {
    desk_->aids().Picture1.Set({FromQt(file), 1});
    return park();
  };
  EXPECT_EQ(show(AddPicture("Ballparks/Red.png", {20, 10}, Qt::red)), QColor(Qt::red));
  WriteFile(folder_.filePath(QStringLiteral("Ballparks/None.jpg")), "none");
  EXPECT_EQ(show(folder_.filePath(QStringLiteral("Ballparks/None.jpg"))), QColor(Qt::red));
  form1().resize(900, 560);
  EXPECT_EQ(park(), QColor(Qt::red));
}

TEST_F(AidsWindowTest, CrowdTellsWhatIsWrongWithItsFile) {
  board().state.fra_Options_visible.Set(true);
  QString told;
  const auto click = [&] {
    told.clear();
    WhileWaiting([&] {
      told = MessageBox::Open()->message();
      Press(&form1(), Qt::Key_Escape);
    });
    Click(Find("cb_Crowd"));
  };
  click();
  EXPECT_TRUE(told.contains(QStringLiteral("53, "))) << FromQt(told);
  Click(Find("cb_Crowd"));  // off again, in silence
  // A sound whose head is right, and its body broken in every way; found without a device, too.
  const QByteArray format("\x01\0\x01\0\x40\x1f\0\0\x40\x1f\0\0\x01\0\x08\0", 16);
  const auto chunk = [](const char* name, quint32 length, const QByteArray& bytes) {
    QByteArray size(4, '\0');
    qToLittleEndian(length, size.data());
    return name + size + bytes;
  };
  const auto changed = [&](int at, char byte) {
    QByteArray bytes = format;
    bytes[at] = byte;
    return chunk("fmt ", 16, bytes);
  };
  const QByteArray samples(64, '\x80');
  const QByteArray head("RIFF\x64\0\0\0WAVE", 12);
  const QByteArray good = chunk("fmt ", 16, format);
  const QByteArray sound = chunk("data", 64, samples);
  struct Case {
    const char* name;
    QByteArray bytes;
    bool playable = false;
  };
  const std::vector<Case> cases{
      {"whole", head + good + sound, true},
      {"with a further chunk", head + chunk("LIST", 3, "abc") + '\0' + good + sound, true},
      {"no wave", "RIFF but no wave"},
      {"head alone", head},
      {"garbage", head + QByteArray(200, 'x')},
      {"no format", head + sound},
      {"no samples", head + good},
      {"empty samples", head + good + chunk("data", 0, {})},
      {"cut samples", head + good + chunk("data", 4000, samples)},
      {"cut format", head + chunk("fmt ", 16, format.left(7))},
      {"short format", head + chunk("fmt ", 4, format.left(4)) + sound},
      {"compressed", head + changed(0, 2) + sound},
      {"no channel", head + changed(2, 0) + sound},
      {"no rate",
       head + chunk("fmt ", 16, QByteArray(format).replace("\x40\x1f", QByteArray(2, 0))) + sound},
      {"11 bits", head + changed(14, 11) + sound},
      {"blocks that do not fit", head + changed(12, 3) + sound},
  };
  for (const Case& given : cases) {
    SCOPED_TRACE(given.name);
    desk_->aids().cb_Crowd.Set(false);
    WriteFile(folder_.filePath(QStringLiteral("BaseballCrowd.wav")), given.bytes);
    const auto boxes = AnswerBoxes({Qt::Key_Escape});
    Click(Find("cb_Crowd"));
    QCoreApplication::processEvents();
    const QString what = boxes->join(QLatin1Char('/'));
    EXPECT_EQ(what.contains(QStringLiteral("321, ")), !given.playable) << FromQt(what);
    EXPECT_EQ(what.isEmpty(), given.playable) << FromQt(what);
    // The answer that waits for a box is given to one of the test's own.
    if (boxes->isEmpty()) board().platform.boxes.ShowRecorded("done", BoxAlignment::Centred);
  }
}

}  // namespace
}  // namespace dtb
