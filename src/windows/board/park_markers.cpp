#include "windows/board/park_markers.h"

#include <QPainter>
#include <QPushButton>
#include <algorithm>

#include "game/board_state.h"
#include "windows/board/piece_view.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"
#include "windows/shared/text_visit.h"

namespace dtb {
namespace {

using namespace look;

// In layout units. The place lies in the middle of the ring.
constexpr double kMarkerWidth = 40;
constexpr double kMarkerHeight = 68;
constexpr double kMarkerRing = 18;  // radius, to the outer edge
constexpr double kBelow = 20;
constexpr double kAbove = kMarkerHeight - kBelow;
constexpr double kPlateSize = 28;

constexpr Place kMarkersPanel{650, 288, 380, 76};
constexpr double kButtonWidth = 96;

constexpr double kStep = 1;
constexpr double kLongStep = 12;
constexpr double kStill = 4;  // pixels: a hand that shakes while it clicks does not drag

struct MarkedBase {
  const char* name;
  const char* letter;
  const char* words;
};
constexpr std::array kMarkedBases{
    MarkedBase{"ParkMarkerHome", "H", "home plate"}, MarkedBase{"ParkMarker1", "1", "first base"},
    MarkedBase{"ParkMarker2", "2", "second base"}, MarkedBase{"ParkMarker3", "3", "third base"}};

}  // namespace

ParkMarker::ParkMarker(int base, Scene& scene, QWidget* park) : QWidget(park), scene_(scene) {
  const MarkedBase& of = kMarkedBases.at(static_cast<std::size_t>(base));
  letter_ = QLatin1String(of.letter);
  const QString words = QLatin1String(of.words);
  Name(this, of.name, QStringLiteral("Marker of ") + words);
  setToolTip(QStringLiteral("Drag the ring onto %1, or move it with the arrow keys; "
                            "Shift makes longer steps")
                 .arg(words));
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::OpenHandCursor);
  setAttribute(Qt::WA_Hover);
  scene.Put(this, {0, 0, kMarkerWidth, kMarkerHeight}, kLarge, true);
  hide();
}

void ParkMarker::SetPlace(const ParkPlace& place) {
  place_ = place;
  scene_.MoveTo(this, {place.x * kSceneWidth - kMarkerWidth / 2, place.y * kSceneHeight - kAbove,
                       kMarkerWidth, kMarkerHeight});
  update();
}

void ParkMarker::MoveInside(double x, double y) {
  SetPlace({std::clamp(x, kMarkerWidth / 2, kSceneWidth - kMarkerWidth / 2) / kSceneWidth,
            std::clamp(y, kAbove, kSceneHeight - kBelow) / kSceneHeight});
}

QPointF ParkMarker::Middle() const {
  const QSizeF park = parentWidget()->size();
  return QPointF(place_.x * park.width(), place_.y * park.height()) - QPointF(pos());
}

void ParkMarker::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double unit = std::min(scene_.resizer().scaleX(), scene_.resizer().scaleY());
  const QColor line = hasFocus() ? kAccent : kCream;
  painter.translate(Middle());
  painter.scale(unit, unit);
  // The ring, its stem and four ticks that aim at the place: bright, in a dark border, so that they
  // are seen on any ground.
  for (const auto& [colour, width] : {std::pair{kSlate, 5.0}, {line, 2.5}}) {
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::FlatCap));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(), kMarkerRing - 2.5, kMarkerRing - 2.5);
    painter.drawLine(QPointF(0, -kMarkerRing), QPointF(0, kPlateSize - kAbove));
    painter.setPen(QPen(colour, width - 1, Qt::SolidLine, Qt::FlatCap));
    for (const QPointF& way : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)}) {
      painter.drawLine(way * (kMarkerRing - 3), way * (kMarkerRing - 7));
    }
  }
  const QRectF plate(-kPlateSize / 2, 1 - kAbove, kPlateSize, kPlateSize);
  const QColor ground = pressed_ ? kAccent : underMouse() ? kSlateHover : kSlate;
  DrawPlate(painter, plate, ground, line, hasFocus() ? 2.5 : 1.5);
  QFont letter = font();
  letter.setPixelSize(static_cast<int>(kLarge));
  painter.setFont(letter);
  painter.setPen(pressed_ ? kInk : kCream);
  painter.drawText(plate, Qt::AlignCenter, letter_);
}

void ParkMarker::mousePressEvent(QMouseEvent* event) {
  EndTextVisit(this);
  if (event->button() != Qt::LeftButton) return;
  pressed_ = true;
  dragged_ = false;
  grip_ = event->position() - Middle();
  pressPlace_ = event->globalPosition();
  update();
}

void ParkMarker::mouseMoveEvent(QMouseEvent* event) {
  if (!pressed_ || !event->buttons().testFlag(Qt::LeftButton)) return;
  const QPointF way = event->globalPosition() - pressPlace_;
  if (!dragged_ && way.manhattanLength() < kStill) return;
  dragged_ = true;
  const QPointF middle = QPointF(pos()) + event->position() - grip_;
  MoveInside(middle.x() / scene_.resizer().scaleX(), middle.y() / scene_.resizer().scaleY());
}

void ParkMarker::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressed_ = false;
  update();
}

void ParkMarker::keyPressEvent(QKeyEvent* event) {
  const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
  const bool longStep = modifiers == Qt::ShiftModifier;
  QPointF way;
  if (event->key() == Qt::Key_Left) way = {-1, 0};
  if (event->key() == Qt::Key_Right) way = {1, 0};
  if (event->key() == Qt::Key_Up) way = {0, -1};
  if (event->key() == Qt::Key_Down) way = {0, 1};
  if (way.isNull() || (modifiers != Qt::NoModifier && !longStep)) return event->ignore();
  way *= longStep ? kLongStep : kStep;
  MoveInside(place_.x * kSceneWidth + way.x(), place_.y * kSceneHeight + way.y());
}

void ParkMarker::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  pressed_ = false;
}

bool ParkMarker::event(QEvent* event) {
  if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) update();
  return QWidget::event(event);
}

ParkMarkers::ParkMarkers(Aids& aids, Scene& scene, QWidget* park)
    : QObject(park), aids_(aids), panel_(new DraggablePanel(scene, park, DragBy::Grip)) {
  BuildPanel(scene, park);
  Follow<Picture>(panel_, aids.state.Picture1, [this](const Picture& /*park*/) { Cancel(); });
  // A piece that comes to the front, as one that is moved does, leaves the markers before it.
  for (auto* piece : park->findChildren<PieceView*>()) piece->installEventFilter(this);
}

void ParkMarkers::BuildPanel(Scene& scene, QWidget* park) {
  Name(panel_, "fra_ParkPlaces", QStringLiteral("Bases of this park"));
  panel_->SetFill(kSlate);
  panel_->SetLit(true);
  panel_->hide();
  scene.Put(panel_, kMarkersPanel);
  scene.Put(MakeCaption(QStringLiteral("Drag the markers to the bases of this park."), panel_,
                        Qt::AlignCenter),
            {8, 8, kMarkersPanel.width - 16, 24}, kBody);
  QWidget* before = nullptr;
  for (std::size_t base = 0; base < markers_.size(); ++base) {
    markers_.at(base) = new ParkMarker(static_cast<int>(base), scene, park);
    if (before != nullptr) QWidget::setTabOrder(before, markers_.at(base));
    before = markers_.at(base);
  }
  const auto add = [&](const char* name, const char* caption, const char* tip, double left) {
    auto* button = new QPushButton(QLatin1String(caption), panel_);
    Name(button, name, button->text());
    button->setToolTip(QLatin1String(tip));
    scene.Put(button, {left, 36, kButtonWidth, 32}, kBody);
    QWidget::setTabOrder(before, button);
    before = button;
    return button;
  };
  const double middle = kMarkersPanel.width / 2;
  connect(add("cmd_ParkPlacesDone", "Done", "Keeps these places for this park",
              middle - kButtonWidth - 4),
          &QPushButton::clicked, this, [this] { Done(); });
  connect(add("cmd_ParkPlacesCancel", "Cancel", "Leaves the places as they were (Esc)", middle + 4),
          &QPushButton::clicked, this, [this] { Cancel(); });
}

void ParkMarkers::Open() {
  if (!open()) {
    for (std::size_t base = 0; base < markers_.size(); ++base) {
      markers_.at(base)->SetPlace(aids_.state.parkPlaces.value().at(base));
      markers_.at(base)->show();
    }
    panel_->show();
  }
  Raise();
  markers_.front()->setFocus(Qt::OtherFocusReason);
}

bool ParkMarkers::Press(const QKeyEvent& event) {
  if (!open() || event.key() != Qt::Key_Escape || event.modifiers() != Qt::NoModifier) return false;
  Cancel();
  return true;
}

bool ParkMarkers::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ZOrderChange && open()) Raise();
  return QObject::eventFilter(watched, event);
}

void ParkMarkers::Done() {
  ParkPlaces places;
  for (std::size_t base = 0; base < places.size(); ++base) {
    places.at(base) = markers_.at(base)->place();
  }
  Hide();  // before a box that tells of settings which cannot be written
  KeepParkPlaces(aids_, places);
  emit closed(true);
}

void ParkMarkers::Cancel() {
  if (!open()) return;
  Hide();
  emit closed(false);
}

void ParkMarkers::Hide() {
  panel_->hide();
  for (ParkMarker* marker : markers_) marker->hide();
}

void ParkMarkers::Raise() {
  panel_->raise();
  for (ParkMarker* marker : markers_) marker->raise();
}

}  // namespace dtb
