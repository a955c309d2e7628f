#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "teams/game_pieces.h"
#include "windows/window_test.h"

namespace dtb {
namespace {

class LayoutTest : public WindowTest {
 protected:
  // Everything that the board can show is shown.
  void ShowAll() {
    board().state.fra_Options_visible.Set(true);
    board().state.pb_BaseTracker_visible.Set(true);
    desk_->aids().Check4.Set(true);
    desk_->aids().fra_BBgumBB_visible.Set(true);
    desk_->aids().cb_RandParks_visible.Set(true);
    board().state.Check1.Set(true);
    board().state.Check2.Set(true);
  }

  static QString TextOf(const QWidget* widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) return button->text();
    if (const auto* label = qobject_cast<const QLabel*>(widget)) return label->text();
    return {};
  }
};

// The usual screens, less a title bar.
const std::vector<QSize> kScreens{{1280, 680}, {1366, 728}, {1920, 1040}, {2560, 1400}, {960, 560}};

TEST_F(LayoutTest, NothingIsCutOffOrOutsideItsPanel) {
  StartGame();
  ShowAll();
  for (const QSize& screen : kScreens) {
    form1().resize(screen.height() * 1679 / 1000, screen.height());
    QCoreApplication::processEvents();
    for (const auto* widget : form1().findChildren<QWidget*>()) {
      if (widget->window() != &form1() || !widget->isVisible()) continue;
      const QString what = QStringLiteral("%1 at %2").arg(widget->objectName()).arg(screen.width());
      const QString text = TextOf(widget);
      if (!text.isEmpty() && !widget->objectName().startsWith(QStringLiteral("lbl_Player"))) {
        const bool mark = qobject_cast<const QCheckBox*>(widget) != nullptr ||
                          qobject_cast<const QRadioButton*>(widget) != nullptr;
        const int needed =
            mark ? widget->sizeHint().width() : widget->fontMetrics().horizontalAdvance(text);
        EXPECT_LE(needed, widget->width()) << FromQt(what) << ": " << FromQt(text);
        EXPECT_LE(widget->fontMetrics().ascent(), widget->height()) << FromQt(what);
      }
      const bool placed = widget->parentWidget() != nullptr && !widget->objectName().isEmpty() &&
                          !widget->objectName().startsWith(QStringLiteral("qt_"));
      if (placed) {
        EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << FromQt(what);
      }
    }
  }
}

// What floats on the park at start leaves everything else free.
TEST_F(LayoutTest, PanelsDoNotCoverEachOther) {
  const std::vector<const char*> names{
      "VisitorsPanel", "HomePanel",  "Frame3",     "pb_Res",     "fra_SOMBBdice",  "fra_BBgumBB",
      "pb_Player1",    "pb_Player2", "pb_Player3", "pb_Player4", "pb_BaseTracker", "fra_Options"};
  for (std::size_t a = 0; a < names.size(); ++a) {
    for (std::size_t b = a + 1; b < names.size(); ++b) {
      EXPECT_FALSE(Find(names[a])->geometry().intersects(Find(names[b])->geometry()))
          << names[a] << " and " << names[b];
    }
  }
  for (const char* hit : {"lbl_Single", "lbl_BB", "lbl_Pick", "lbl_STATS"}) {
    EXPECT_GE(Find(hit)->width() * kSceneWidth / form1().width(), 44) << hit;
    EXPECT_GE(Find(hit)->height() * kSceneWidth / form1().width(), 32) << hit;
  }
}

// Counts the work that the toolkit does for the windows.
class WorkCounter : public QObject {
 public:
  WorkCounter() { qApp->installEventFilter(this); }
  int resizes = 0;
  int layouts = 0;
  int paints = 0;
  [[nodiscard]] int all() const { return resizes + layouts + paints; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (!watched->isWidgetType()) return false;
    resizes += event->type() == QEvent::Resize ? 1 : 0;
    layouts += event->type() == QEvent::LayoutRequest ? 1 : 0;
    paints += event->type() == QEvent::Paint || event->type() == QEvent::UpdateRequest ? 1 : 0;
    return false;
  }
};

// At every size, also of a board whose proportions are not held, the layout comes to rest at once,
// and an idle board does nothing.
TEST_F(LayoutTest, LayoutSettlesAtEveryHeight) {
  StartGame();
  for (const int width : {1366, 1920}) {
    for (int height = 600; height <= 1100; ++height) {
      form1().resize(width, height);
      for (int turn = 0; turn < 4; ++turn) QCoreApplication::processEvents();
      const WorkCounter work;
      QCoreApplication::processEvents();
      ASSERT_EQ(form1().size(), QSize(width, height));
      ASSERT_EQ(work.all(), 0) << width << " x " << height;
    }
  }
}

// Whoever makes the window half as high, the layout is not squeezed.
TEST_F(LayoutTest, AWindowThatIsMadeHalfAsHighKeepsItsRatio) {
  for (const QSize size : {QSize(1000, 300), QSize(1366, 384), QSize(1920, 540)}) {
    form1().resize(size);
    for (int turn = 0; turn < 4; ++turn) QCoreApplication::processEvents();
    const QSizeF park = Find("Picture1")->size();
    EXPECT_NEAR(park.height(), park.width() * kSceneHeight / kSceneWidth, 2) << size.width();
    EXPECT_LE(form1().height(), form1().screen()->availableSize().height()) << size.width();
  }
}

// Short names have the type of the figures beside them, and both have one.
TEST_F(LayoutTest, TeamNamesGrowWithTheBoard) {
  for (const QSize size : {form1().size(), QSize(1288, 748), QSize(2576, 1496), QSize(1400, 820)}) {
    form1().resize(size);
    QCoreApplication::processEvents();
    for (const char* team : {"tb_VisTeam", "tb_HomeTeam"}) {
      EXPECT_EQ(Find(team)->font().pixelSize(), Find("tb_BoxScore[20]")->font().pixelSize())
          << team;
    }
  }
}

TEST_F(LayoutTest, IdleBoardDoesNoWork) {
  StartGame();
  ShowAll();
  QCoreApplication::processEvents();
  QMetaObject::invokeMethod(Find<QTimer>("tmr_Constant"), "timeout");
  QCoreApplication::processEvents();
  const WorkCounter work;
  for (int tick = 0; tick < 30; ++tick) {
    for (const char* timer : {"tmr_Constant", "tmr_F12detect"}) {
      QMetaObject::invokeMethod(Find<QTimer>(timer), "timeout");
    }
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(work.all(), 0);
}

// Pieces on their start places leave every control free, however large they are.
TEST_F(LayoutTest, PiecesAtStartCoverNoControl) {
  StartGame();
  form1().resize(1288, 748);
  for (int times = 0; times < 12; ++times) {
    QCoreApplication::processEvents();
    for (auto* button : Find("pb_Res")->findChildren<QAbstractButton*>()) {
      for (const QPoint& place : {button->rect().topLeft(), button->rect().bottomRight()}) {
        EXPECT_EQ(form1().childAt(button->mapTo(&form1(), place)), button)
            << FromQt(button->objectName()) << " after BIG x " << times;
      }
    }
    EnlargePieces(board());
    ResetGamePieces(board());
  }
  // One that lies under a panel as a whole comes out of it.
  for (int times = 0; times < 30; ++times) ShrinkPieces(board());
  MovePiece(board(), 0, kSceneWidth - 160, 640);
  auto* piece = Find("pb_Player1");
  EXPECT_EQ(form1().childAt(piece->mapTo(&form1(), piece->rect().center())), piece);
}

// Every control is reached with Tab, says its name to a screen reader, and is reached once.
TEST_F(LayoutTest, EveryControlIsReachedByKeyboard) {
  StartGame();
  ShowAll();
  std::set<const QWidget*> reached;
  form1().activateWindow();
  for (int step = 0; step < 400; ++step) {
    Press(&form1(), Qt::Key_Tab);
    if (QApplication::focusWidget() != nullptr) reached.insert(QApplication::focusWidget());
  }
  for (const auto* widget : form1().findChildren<QWidget*>()) {
    const bool control = qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                         qobject_cast<const QLineEdit*>(widget) != nullptr ||
                         qobject_cast<const LineupView*>(widget) != nullptr;
    if (!control || widget->window() != &form1() || !widget->isVisible() || !widget->isEnabled()) {
      continue;
    }
    if (widget->objectName().startsWith(QStringLiteral("qt_"))) continue;
    EXPECT_TRUE(reached.contains(widget)) << FromQt(widget->objectName());
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << FromQt(widget->objectName());
  }
}

}  // namespace
}  // namespace dtb
