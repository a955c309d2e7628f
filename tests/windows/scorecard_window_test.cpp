// The window "Scorecard": it follows the game, and what it writes is whole.
#include "windows/scorecard/scorecard_window.h"

#include <QFile>
#include <algorithm>

#include "game/history.h"
#include "game/outcomes.h"
#include "record/line_up_card.h"
#include "replay/play_table.h"
#include "windows/scorecard/paint_drawing.h"
#include "windows/shared/look.h"
#include "windows/window_test.h"

namespace dtb {
namespace {

class ScorecardWindowTest : public WindowTest {
 protected:
  void SetUp() override {
    setup_.dialogs = &dialogs_;
    WindowTest::SetUp();
    StartGame();
    desk_->aids().cb_QuickBoxes.Set(true);
    board().state.cb_KeepBases.Set(true);
  }
  void Open() {
    form1().activateWindow();  // no window manager gives it back
    while (!form1().isActiveWindow()) QCoreApplication::processEvents();
    Press(&form1(), Qt::Key_K, Qt::ControlModifier);
    while (QApplication::activeWindow() != Window()) QCoreApplication::processEvents();
  }
  ScorecardWindow* Window() { return form1().findChild<ScorecardWindow*>(); }
  CardView* View() { return Window()->findChild<CardView*>(); }
  replay::ScriptedDialogs dialogs_;
  // How often the card shows a text.
  int Count(const std::string& text) {
    for (int turn = 0; turn < 5; ++turn) QCoreApplication::processEvents();
    int count = 0;
    for (const Shape& shape : View()->pages().front().shapes) {
      const auto* shown = std::get_if<DrawnText>(&shape);
      count += shown != nullptr && shown->text == text ? 1 : 0;
    }
    return count;
  }
};

TEST_F(ScorecardWindowTest, FollowsTheGameBesideTheBoard) {
  Open();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "the game goes on beside it";
  EXPECT_EQ(Count("Ants 4"), 1) << "who has not come up yet has his place";
  RecordOutcome(board(), Outcome::Homer);
  EXPECT_EQ(Count("HR"), 1);
  EXPECT_TRUE(View()->accessibleDescription().contains("inning 1 HR, scored, 1 batted in"));
  Press(Window(), Qt::Key_H);
  EXPECT_EQ(Window()->side(), Side::Home);
  EXPECT_EQ(Count("HR"), 0);
  Press(Window(), Qt::Key_V);
  Press(Window(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Count("HR"), 0) << "taken back, from the card";
  Press(Window(), Qt::Key_Plus);
  EXPECT_GT(View()->zoom(), 1);
  Press(Window(), Qt::Key_0);
  EXPECT_EQ(View()->zoom(), 1);
  RecordOutcome(board(), Outcome::Triple);
  Window()->ShowRecord(RecordWithLineups(board()));
  RecordOutcome(board(), Outcome::Strikeout);
  EXPECT_EQ(Count("3B"), 1) << "a game that is shown stays as it is";
  EXPECT_EQ(Count("K"), 2) << "the heads of two columns";
  Press(Window(), Qt::Key_Escape);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(ScorecardWindowTest, WritesWholeFilesOrTellsWhyNot) {
  RecordOutcome(board(), Outcome::Single);
  Open();
  const auto save = [this](const char* button, const QString& file) {
    dialogs_.answers += replay::PathOfFile(file);
    const auto told = AnswerBoxes({Qt::Key_Escape});
    Click(Window()->findChild<QPushButton*>(QLatin1String(button)));
    EXPECT_EQ(told->size(), 1);
    QFile written(file);
    return written.open(QIODevice::ReadOnly) ? written.readAll() : told->value(0).toUtf8();
  };
  const QByteArray pdf = save("cmd_Pdf", folder_.filePath("card.pdf"));
  EXPECT_TRUE(pdf.startsWith("%PDF-") && pdf.trimmed().endsWith("%%EOF"));
  EXPECT_EQ(pdf.count("/Type /Page\n"), 2) << "both sides";
  const QByteArray look = save("cmd_Svg", folder_.filePath("look.svg"));
  Press(Window(), Qt::Key_B);
  const QByteArray paper = save("cmd_Svg", folder_.filePath("paper.svg"));
  EXPECT_TRUE(look.endsWith("</svg>\n") && look.contains("#16261f"));
  EXPECT_TRUE(paper.endsWith("</svg>\n") && !paper.contains("#16261f"));
  const QByteArray told = save("cmd_Svg", folder_.filePath("missing/card.svg"));
  EXPECT_TRUE(told.contains("scorecard \"") && told.contains("could not be written"))
      << told.data();
}

// No letter lies beside the page, and the page is as full as a card.
TEST_F(ScorecardWindowTest, IsPaintedWithinItsMargins) {
  const auto pages = DrawScorecard(ScorecardOf(RecordOf(board()), Side::Visitors), kA4Landscape);
  for (const Dress dress : {Dress::Look, Dress::Paper}) {
    const QColor ground = look::Shade(ColourOf(Ink::Ground, dress));
    QImage image(842, 595, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    PaintDrawing(painter, pages.front(), dress);
    painter.end();
    QRect painted;
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == ground) continue;
        painted |= QRect(x, y, 1, 1);
        ++pixels;
      }
    }
    EXPECT_GT(pixels, 8000);
    EXPECT_TRUE(QRect(24, 24, 794, 548).contains(painted)) << painted.top() << painted.bottom();
  }
}

TEST_F(ScorecardWindowTest, TheEmptyCardHasBothLineUps) {
  const Scorecard card = EmptyScorecard(board(), Side::Home);
  EXPECT_TRUE(card.boxes.empty());
  EXPECT_EQ(card.places.at(8).at(0).player.name, "Bees 9");
  EXPECT_EQ(card.bench.size(), 3U);
  ASSERT_EQ(card.pitchers.size(), 1U);
  EXPECT_EQ(card.pitchers.front().record.name, "Ants 10");
}

}  // namespace
}  // namespace dtb
