#include "windows/board/base_tracker.h"

#include <QPainter>

#include "game/runners.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

constexpr Place kTrackerPanel{1043, 680, 128, 128};
constexpr double kBase = 38;  // from corner to corner

// The panel, with the lines from base to base and home plate.
class Diamond : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(width() / kTrackerPanel.width, height() / kTrackerPanel.height);
    painter.setPen(QPen(QColor(150, 150, 150), 2));
    painter.drawConvexPolygon(QPolygonF({{64, 27}, {101, 64}, {64, 101}, {27, 64}}));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawConvexPolygon(QPolygonF({{52, 90}, {76, 90}, {76, 102}, {64, 114}, {52, 102}}));
  }
};

// A base stands on its corner. All of its square box takes the click.
class Base : public ClickLabel {
 public:
  explicit Base(QWidget* parent) : ClickLabel({}, {}, parent) {}
  void SetShade(const QColor& shade) {
    shade_ = shade;
    update();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(rect()).adjusted(2, 2, -2, -2);
    const QPointF middle = box.center();
    painter.setPen(hasFocus() ? QPen(look::kAccent, 3)
                              : QPen(underMouse() ? look::kCream : look::kInk, 1.5));
    painter.setBrush(shade_);
    painter.drawConvexPolygon(QPolygonF({{middle.x(), box.top()},
                                         {box.right(), middle.y()},
                                         {middle.x(), box.bottom()},
                                         {box.left(), middle.y()}}));
  }

 private:
  QColor shade_;
};

}  // namespace

BaseTracker::BaseTracker(Board& board, Scene& scene, QWidget* parent)
    : DraggablePanel(scene, parent) {
  Name(this, "pb_BaseTracker", QStringLiteral("Base tracker"));
  setToolTip(QStringLiteral("CTRL + Left Click to drag the base tracker"));
  SetFill(look::kBoxGrey);
  scene.Put(this, kTrackerPanel);
  auto* diamond = new Diamond(this);
  Name(diamond, "lbl_tracker", QStringLiteral("Home"));
  diamond->setAttribute(Qt::WA_TransparentForMouseEvents);
  scene.Put(diamond, {0, 0, kTrackerPanel.width, kTrackerPanel.height});
  struct Corner {
    const char* name;
    const char* word;
    double left;
    double top;
  };
  constexpr std::array<Corner, 3> bases{{{"lbl_tracker1", "First base", 82, 45},
                                         {"lbl_tracker2", "Second base", 45, 8},
                                         {"lbl_tracker3", "Third base", 8, 45}}};
  for (std::size_t base = 0; base < bases.size(); ++base) {
    const Corner& corner = bases[base];
    auto* label = new Base(this);
    label->setToolTip(QLatin1String(corner.word));
    scene.Put(label, {corner.left, corner.top, kBase, kBase});
    Follow<Colour>(label, board.state.lbl_tracker.at(base), [label, corner](const Colour& colour) {
      const bool taken = colour == kOccupiedGreen;
      Name(label, corner.name,
           QLatin1String(corner.word) + QLatin1String(taken ? ", occupied" : ", empty"));
      label->SetShade(look::Shade(colour));
    });
    connect(label, &QAbstractButton::clicked, this,
            [&board, base] { ToggleBase(board, static_cast<int>(base)); });
  }
  BindVisible(this, board.state.pb_BaseTracker_visible);
}

}  // namespace dtb
