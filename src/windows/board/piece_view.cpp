#include "windows/board/piece_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPixmapCache>

#include "game/base_running.h"
#include "game/bases.h"
#include "game/game_pieces.h"
#include "game/history.h"
#include "game/player_name.h"
#include "game/runners.h"
#include "platform/qt/qt_text.h"
#include "windows/boxes/closing_press.h"
#include "windows/shared/bind.h"
#include "windows/shared/look.h"
#include "windows/shared/tips.h"

namespace dtb {
namespace {

using namespace look;

constexpr double kShadowMargin = 10;
constexpr double kPlateHeight = 24;
constexpr double kKeyStep = 12;
constexpr int kDragDistance = 4;  // pixels
constexpr int kLeastSeen = 16;    // pixels of a piece by which it can be caught

}  // namespace

PieceShadow::PieceShadow(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PieceShadow::paintEvent(QPaintEvent* /*event*/) {
  // All four are the same, and each click repaints them.
  const double ratio = devicePixelRatioF();
  const QString key = QStringLiteral("PieceShadow %1 %2 %3").arg(width()).arg(height()).arg(ratio);
  QPixmap shadow;
  if (!QPixmapCache::find(key, &shadow)) {
    shadow = QPixmap(size() * ratio);
    shadow.setDevicePixelRatio(ratio);
    shadow.fill(Qt::transparent);
    Draw(shadow);
    QPixmapCache::insert(key, shadow);
  }
  QPainter(this).drawPixmap(0, 0, shadow);
}

void PieceShadow::Draw(QPixmap& shadow) const {
  QPainter painter(&shadow);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  constexpr int kLayers = 6;
  for (int layer = 0; layer < kLayers; ++layer) {
    painter.setBrush(QColor(0, 0, 0, 16 + layer * 4));
    const double inset = layer * kShadowMargin / kLayers;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), kShadowMargin,
                            kShadowMargin);
  }
}

PieceView::PieceView(Board& board, int piece, QtPictures& pictures, Aids& aids,
                     BaseTargets& targets, Scene& scene, QWidget* parent)
    : QAbstractButton(parent),
      board_(board),
      piece_(piece),
      aids_(aids),
      targets_(targets),
      scene_(scene),
      shadow_(new PieceShadow(parent)),
      photo_(new PictureBox(PictureBox::Fit::Stretched, this)),
      photoName_(new NameLabel(this, Qt::AlignCenter)),
      plate_(new NameLabel(this, Qt::AlignCenter)) {
  setObjectName(QStringLiteral("pb_Player%1").arg(piece + 1));
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::OpenHandCursor);
  TakeClosingPress(this);
  photo_->setAttribute(Qt::WA_TransparentForMouseEvents);
  shadow_->lower();
  scene.Put(shadow_, {});
  scene.Put(this, {});
  scene.Put(photo_, {});
  BuildPlate();
  DressPlate(photoName_);
  photoName_->setAttribute(Qt::WA_TransparentForMouseEvents);
  // The press that assistive programs make; the gestures of mouse and keyboard stand below.
  connect(this, &QAbstractButton::clicked, this, [this] { ClickPiece(board_, piece_); });
  FollowAll(
      this, [this] { Arrange(); }, Piece().left, Piece().top, board.state.pieceWidth,
      board.state.pieceHeight, board.state.cb_KeepBases, board.state.base[0], board.state.base[1],
      board.state.base[2], board.state.lbl_Selected, board.state.BatterOf, board.state.tb_OutsCount,
      Piece().tag, aids.state.parkPlaces);
  Follow<Picture>(this, Piece().picture, [this, &pictures](const Picture& picture) {
    photo_->SetImage(pictures.Image(picture));
    photo_->setVisible(!picture.empty());
    update();
  });
  FollowAll(
      this, [this] { ShowPlate(); }, Piece().plate, Piece().tag, Piece().picture);
}

void PieceView::BuildPlate() {
  plate_->setObjectName(QStringLiteral("lbl_Player%1").arg(piece_ + 1));
  DressPlate(plate_);
  plate_->installEventFilter(this);
}

void PieceView::DressPlate(QLabel* plate) {
  plate->setAutoFillBackground(true);
  plate->setBackgroundRole(QPalette::Window);  // not the button's, which it lies on
  plate->setForegroundRole(QPalette::WindowText);
  QPalette palette = plate->palette();
  palette.setColor(QPalette::Window, kPlateGrey);
  palette.setColor(QPalette::WindowText, Qt::white);
  plate->setPalette(palette);
  scene_.Put(plate, {}, kBody, true);
}

void PieceView::Arrange() {
  const bool keepsBases = KeepsBases(board_.state);
  const auto [left, top, width, height] =
      keepsBases ? StandOf(board_.state, aids_.state, piece_)
                 : Place{Piece().left.value(), Piece().top.value(), board_.state.pieceWidth.value(),
                         board_.state.pieceHeight.value()};
  if (!dragged_ || !keepsBases) scene_.MoveTo(this, {left, top, width, height});
  scene_.MoveTo(shadow_, {left - kShadowMargin + 2, top - kShadowMargin + 5,
                          width + 2 * kShadowMargin, height + 2 * kShadowMargin});
  const double ring = hasFocus() ? 3 : 0;  // room for the ring of the keyboard focus
  scene_.MoveTo(photo_, {ring, ring, width - 2 * ring, height - 2 * ring});
  // Both names stand at the foot of the box.
  const double nameHeight = std::min(kPlateHeight, height);
  for (QWidget* name : {plate_, photoName_}) {
    scene_.MoveTo(name, {0, height - nameHeight, width, nameHeight});
  }
  ShowPlate();
  Stack();
}

void PieceView::Stack() {
  if (StandsAtStart(board_.state, piece_)) moved_ = false;
  if (moved_ || HiddenByPanels()) {
    raise();
  } else {
    lower();
    shadow_->lower();
  }
}

bool PieceView::HiddenByPanels() const {
  QRegion seen(geometry() & parentWidget()->rect());
  for (const auto* panel :
       parentWidget()->findChildren<Panel*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (!panel->isHidden()) seen -= panel->geometry();
  }
  const QRect whole = seen.boundingRect();
  return std::min(whole.width(), whole.height()) < std::min({kLeastSeen, width(), height()});
}

void PieceView::ShowPlate() {
  const QString name = ToQt(Piece().plate.value()).left(400);
  plate_->setVisible(!name.isEmpty());
  plate_->SetName({}, name);
  const QString tag = ToQt(Piece().tag.value()).left(400);
  const bool taken = !Piece().free();
  // A photo has its player's name as well.
  photoName_->setVisible(taken && name.isEmpty() && !tag.isEmpty());
  photoName_->SetName({}, tag);
  setVisible(taken || !KeepsBases(board_.state));
  shadow_->setVisible(taken);
  setToolTip(taken ? TipOfLines({tag}) : QString());
  setAccessibleName(taken ? QStringLiteral("Game piece %1: %2").arg(piece_ + 1).arg(tag)
                          : QStringLiteral("Game piece %1, free").arg(piece_ + 1));
  update();
}

void PieceView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (Piece().free()) {
    // An empty place: only where it is.
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasFocus() ? QPen(kAccent, 3) : QPen(kCream, 1.5, Qt::DashLine));
    painter.setBrush(QColor(22, 38, 31, underMouse() ? 110 : 60));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), kCorner, kCorner);
    return;
  }
  painter.fillRect(rect(), kBoxGrey);
  DrawInitials(painter);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(hasFocus() ? kAccent : QColor(104, 104, 104), hasFocus() ? 3 : 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
}

// A player without a photo is told from the next by more than his small plate.
void PieceView::DrawInitials(QPainter& painter) {
  const QString name = ToQt(Piece().plate.value()).left(400).simplified();
  QString initials;
  for (const QString& word :
       {name, name.section(QLatin1Char(' '), 1).section(QLatin1Char(' '), -1)}) {
    const auto letters = word.toUcs4();
    if (letters.isEmpty() || !QChar::isLetterOrNumber(letters.first())) continue;
    const char32_t letter = letters.first();
    initials += QString::fromUcs4(&letter, 1);
  }
  painter.setFont(Font(width() * 0.42, true));
  painter.setPen(QColor(184, 184, 184));
  painter.drawText(QRect(0, 0, width(), plate_->y()), Qt::AlignCenter, initials);
}

void PieceView::focusInEvent(QFocusEvent* event) {
  QAbstractButton::focusInEvent(event);
  Arrange();
}

void PieceView::focusOutEvent(QFocusEvent* event) {
  QAbstractButton::focusOutEvent(event);
  Arrange();
}

bool PieceView::CancelDrag() {
  if (!dragged_ || !pressed_ || !KeepsBases(board_.state)) return false;
  pressed_ = false;
  dragged_ = false;
  targets_.hide();
  Arrange();
  return true;
}

void PieceView::hideEvent(QHideEvent* event) {
  QAbstractButton::hideEvent(event);
  CancelDrag();
}

void PieceView::mousePressEvent(QMouseEvent* event) {
  // Another button in the middle of a drag.
  if (CancelDrag()) return;
  SealGesture(board_);
  pressed_ = event->button() == Qt::LeftButton;
  dragged_ = false;
  pressPlace_ = event->globalPosition().toPoint();
  grip_ = event->position().toPoint();
}

void PieceView::mouseMoveEvent(QMouseEvent* event) {
  if (!pressed_ || !event->buttons().testFlag(Qt::LeftButton)) return;
  // A hand that shakes while it clicks does not drag.
  const QPoint way = event->globalPosition().toPoint() - pressPlace_;
  if (!dragged_ && way.manhattanLength() < kDragDistance) return;
  dragged_ = true;
  if (KeepsBases(board_.state)) return DragOverBases(*event);
  moved_ = true;
  const QPoint middle = mapToParent(event->position().toPoint());
  MovePiece(board_, piece_, middle.x() / scene_.resizer().scaleX(),
            middle.y() / scene_.resizer().scaleY());
}

void PieceView::mouseReleaseEvent(QMouseEvent* event) {
  if (!pressed_ || event->button() != Qt::LeftButton) return;
  pressed_ = false;
  board_.state.cb_Xinnings.Set(false);
  if (dragged_ && KeepsBases(board_.state)) return LetGo(*event);
  if (!dragged_ && rect().contains(event->position().toPoint())) click();
}

void PieceView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  if (KeepsBases(board_.state)) return TellHowToTakeOff();
  FreePiece(board_, piece_);
}

void PieceView::DragOverBases(const QMouseEvent& event) {
  const QPoint pointer = mapToParent(event.position().toPoint());
  const QPoint corner = pointer - grip_;
  scene_.MoveTo(this,
                {corner.x() / scene_.resizer().scaleX(), corner.y() / scene_.resizer().scaleY(),
                 board_.state.pieceWidth.value(), board_.state.pieceHeight.value()});
  targets_.Light(targets_.At(pointer, corner + QPoint(width() / 2, height())),
                 PlacesFor(board_.state, piece_));
  shadow_->hide();
  raise();
}

void PieceView::LetGo(const QMouseEvent& event) {
  const QPoint pointer = mapToParent(event.position().toPoint());
  const auto place = targets_.At(pointer, pointer - grip_ + QPoint(width() / 2, height()));
  targets_.hide();
  dragged_ = false;
  Arrange();
  const bool own = event.modifiers().testFlag(Qt::ControlModifier);
  if (place) DropPiece(board_, piece_, *place, own ? MoveOf::ItsOwn : MoveOf::LastPlay);
}

void PieceView::StepToBase(int by) {
  const int base = BaseOf(board_.state, Piece().tag.value());
  const int to = base + by;
  if (to >= kFirstBase && to <= kHomePlate) DropPiece(board_, piece_, to, MoveOf::LastPlay);
}

void PieceView::TellHowToTakeOff() {
  if (Piece().free()) return;
  const std::string name = LastNameOf(Piece().tag.value());
  board_.platform.boxes.Notify("Drag " + name + " to a base, to home plate, or to OUT.");
}

void PieceView::Nudge(double right, double down) {
  if (KeepsBases(board_.state)) return StepToBase(right > 0 || down < 0 ? 1 : -1);
  moved_ = true;
  const double middleX = Piece().left.value() + board_.state.pieceWidth.value() / 2;
  const double middleY = Piece().top.value() + board_.state.pieceHeight.value() / 2;
  MovePiece(board_, piece_, middleX + right, middleY + down);
}

void PieceView::keyPressEvent(QKeyEvent* event) {
  // A key that is held would run a player home.
  if (event->isAutoRepeat() && KeepsBases(board_.state)) return;
  switch (event->key()) {
    case Qt::Key_Left:
      Nudge(-kKeyStep, 0);
      break;
    case Qt::Key_Right:
      Nudge(kKeyStep, 0);
      break;
    case Qt::Key_Up:
      Nudge(0, -kKeyStep);
      break;
    case Qt::Key_Down:
      Nudge(0, kKeyStep);
      break;
    case Qt::Key_Delete:
      if (KeepsBases(board_.state)) {
        DropPiece(board_, piece_, kPutOut, MoveOf::LastPlay);
      } else {
        FreePiece(board_, piece_);
      }
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (!event->isAutoRepeat()) click();
      break;
    default:
      QAbstractButton::keyPressEvent(event);
  }
}

// The plate is a part of the piece, but a double click on it keeps the name on the piece.
bool PieceView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == plate_ && event->type() == QEvent::MouseButtonDblClick) {
    if (KeepsBases(board_.state)) {
      TellHowToTakeOff();
    } else {
      ClearPlate(board_, piece_);
    }
    return true;
  }
  return QAbstractButton::eventFilter(watched, event);
}

}  // namespace dtb
