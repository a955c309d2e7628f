#include "windows/board/base_targets.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

#include "game/bases.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

// Layout units.
constexpr double kReach = 70;  // how far from a base a piece may be let go: half its height
constexpr double kTargetRing = 46;
constexpr std::array kOutFields{Place{12, 822, 180, 140}, Place{1320, 822, 180, 140}};
// The batter stands in front of the plate, so that it can be seen: by this share of his width.
constexpr double kBesidePlate = 1.15;

QRectF RectOf(const Place& place) { return {place.left, place.top, place.width, place.height}; }

}  // namespace

QPointF SpotOf(const AidsState& aids, int place) {
  const std::size_t index = place == kHomePlate ? 0 : static_cast<std::size_t>(place);
  const ParkPlace& spot = aids.parkPlaces.value().at(index);
  return {spot.x * kSceneWidth, spot.y * kSceneHeight};
}

QRectF OutField() { return RectOf(kOutFields.front()); }

Place StandOf(const BoardState& board, const AidsState& aids, int piece) {
  const GamePiece& stands = board.pieces.at(static_cast<std::size_t>(piece));
  const double width = board.pieceWidth.value();
  const double height = board.pieceHeight.value();
  const std::string& name = stands.tag.value();
  const int base = BaseOf(board, name);
  const bool bats = name == board.lbl_Selected.value() && !board.BatterOf.value().empty();
  if (stands.free() || (base == 0 && !bats)) {
    return {stands.left.value(), stands.top.value(), width, height};
  }
  const QPointF spot = SpotOf(aids, base == 0 ? kHomePlate : base);
  const double left = spot.x() - (base == 0 ? kBesidePlate : 0.5) * width;
  return {std::clamp(left, 0.0, kSceneWidth - width),
          std::clamp(spot.y() - height, 0.0, kSceneHeight - height), width, height};
}

BaseTargets::BaseTargets(Aids& aids, Scene& scene, QWidget* park)
    : QWidget(park), aids_(aids), scene_(scene) {
  Name(this, "BaseTargets", QStringLiteral("Bases"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  park->installEventFilter(this);
  hide();
}

std::optional<int> BaseTargets::At(const QPoint& pointer, const QPoint& feet) const {
  const double across = scene_.resizer().scaleX();
  const double down = scene_.resizer().scaleY();
  const QPointF atPointer(pointer.x() / across, pointer.y() / down);
  const QPointF atFeet(feet.x() / across, feet.y() / down);
  const bool inPark = QRectF(0, 0, kSceneWidth, kSceneHeight).contains(atPointer);
  for (const Place& field : kOutFields) {
    if (!inPark || RectOf(field).contains(atPointer)) return kPutOut;
  }
  std::optional<int> nearest;
  double least = kReach;
  for (int place = kFirstBase; place <= kHomePlate; ++place) {
    const QPointF spot = SpotOf(aids_.state, place);
    for (const QPointF& at : {atPointer, atFeet}) {
      const double distance = std::hypot(at.x() - spot.x(), at.y() - spot.y());
      if (distance >= least) continue;
      least = distance;
      nearest = place;
    }
  }
  return nearest;
}

void BaseTargets::Light(std::optional<int> place, const std::vector<int>& places) {
  const bool unchanged = isVisible() && lit_ == place && places_ == places;
  lit_ = place;
  places_ = places;
  if (unchanged) return;
  setGeometry(parentWidget()->rect());
  show();
  // The rings lie on the ground: whoever stands on a base keeps his name before them.
  lower();
  update();
}

void BaseTargets::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double across = scene_.resizer().scaleX();
  const double down = scene_.resizer().scaleY();
  painter.scale(across, down);
  const auto dress = [&painter, this](int place) {
    const bool lit = lit_ == place;
    painter.setPen(QPen(lit ? kAccent : kCream, lit ? 5 : 2.5));
    QColor ground = kSlate;
    ground.setAlpha(lit ? 170 : 110);
    painter.setBrush(ground);
  };
  painter.setFont(Font(kLarge, true));
  for (const int place : places_) {
    dress(place);
    if (place <= kHomePlate) {
      painter.drawEllipse(SpotOf(aids_.state, place), kTargetRing, kTargetRing * 0.6);
      continue;
    }
    for (const Place& field : kOutFields) {
      painter.drawRoundedRect(RectOf(field), kCorner, kCorner);
      painter.drawText(RectOf(field), Qt::AlignCenter, QStringLiteral("OUT"));
    }
  }
}

bool BaseTargets::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget() && event->type() == QEvent::Resize) {
    setGeometry(parentWidget()->rect());
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace dtb
