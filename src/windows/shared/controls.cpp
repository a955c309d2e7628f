#include "windows/shared/controls.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyleOption>
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "game/player_name.h"
#include "platform/qt/qt_text.h"
#include "windows/shared/look.h"

namespace dtb {

using namespace look;

Panel::Panel(QWidget* parent) : QWidget(parent), fill_(kSlateOverPark) {}

void Panel::SetLit(bool lit) {
  if (lit_ == lit) return;
  lit_ = lit;
  update();
}

void Panel::SetFill(const QColor& fill) {
  fill_ = fill;
  update();
}

void Panel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  DrawPlate(painter, rect(), fill_, lit_ ? kCream : kEdge, lit_ ? 3 : 1);
}

ClickLabel::ClickLabel(const QString& caption, const Shades& shades, QWidget* parent)
    : QAbstractButton(parent), shades_(shades) {
  setText(caption);
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
}

void ClickLabel::SetShades(const Shades& shades) {
  shades_ = shades;
  update();
}

void ClickLabel::SetHint(const QString& hint) {
  hint_ = hint;
  update();
}

void ClickLabel::SetHintLight(HintLight light) {
  hintLight_ = light;
  update();
}

void ClickLabel::SetFoot(const QString& foot) {
  foot_ = foot;
  update();
}

// A label whose text fits has its hint as its caption for as long as it has none.
void ClickLabel::DrawHint(QPainter& painter, const QRect& inside) const {
  if (textFits_) {
    painter.setFont(FittingFont(font(), hint_, inside.width()));
    painter.drawText(inside, Qt::AlignCenter,
                     ElidedText(painter.fontMetrics(), hint_, inside.width()));
    return;
  }
  QColor ink = painter.pen().color();
  if (hintLight_ == HintLight::Dim) ink = kCreamDim;
  if (hintLight_ == HintLight::Bright) ink = kAccent;
  if (hintLight_ == HintLight::Flash) {
    DrawPlate(painter, rect(), kAccent, kInk, 1);
    ink = kInk;
  }
  painter.setFont(Font(font().pixelSize() * kSmall / kLarge));
  painter.setPen(ink);
  painter.drawText(inside, Qt::AlignCenter | Qt::TextWordWrap, hint_);
}

void ClickLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QColor fill = lit_ && isEnabled() ? shades_.hover : shades_.rest;
  QColor text = shades_.text;
  if (!isEnabled()) {
    fill.setAlphaF(fill.alphaF() * 0.35F);
    text = kCreamDim;
  }
  const bool bordered = isDown() || pressed_;
  DrawPlate(painter, rect(), fill, bordered ? kCream : Qt::transparent, bordered ? 3 : 0);
  if (hasFocus()) DrawFocus(painter, rect());
  // Captions that fit are set as large as those beside them, where a pixel or two are missing.
  const int margin = textFits_ ? qMin(3, width() / 12) : qMin(6, width() / 12);
  QRect inside = rect().adjusted(margin, 0, -margin, 0);
  painter.setPen(text);
  if (this->text().isEmpty()) return DrawHint(painter, inside);
  const auto line = [&](const QString& words) {
    painter.drawText(inside, Qt::AlignCenter,
                     ElidedText(painter.fontMetrics(), words, inside.width()));
  };
  if (!foot_.isEmpty()) {
    // Both lines together stand in the middle.
    const QFont small = Font(font().pixelSize() * kSmall / kLarge);
    const int foot = QFontMetrics(small).height();
    const int top = std::max(0, height() - foot - painter.fontMetrics().height()) / 2;
    painter.setFont(small);
    inside = QRect(inside.left(), height() - top - foot, inside.width(), foot);
    line(foot_);
    painter.setFont(font());
    inside = QRect(inside.left(), top, inside.width(), height() - 2 * top - foot);
  }
  if (textFits_) painter.setFont(FittingFont(font(), this->text(), inside.width()));
  line(this->text());
}

void ClickLabel::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter) {
    QAbstractButton::keyPressEvent(event);
    return;
  }
  if (event->isAutoRepeat()) return;
  // What takes a double click of the mouse takes one press of Enter.
  if (receivers(SIGNAL(doubleClicked())) > 0) {
    emit doubleClicked();
  } else {
    click();
  }
}

void ClickLabel::mousePressEvent(QMouseEvent* event) {
  QAbstractButton::mousePressEvent(event);
  event->accept();  // also of the buttons that do nothing but press
  pressed_ = true;
  update();
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
  pressed_ = event->buttons() != Qt::NoButton;
  if (restsAfterRelease_) lit_ = false;
  update();
  QAbstractButton::mouseReleaseEvent(event);
}

void ClickLabel::mouseDoubleClickEvent(QMouseEvent* event) {
  QAbstractButton::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton) emit doubleClicked();
}

bool ClickLabel::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
      if (!lit_) update();
      lit_ = true;
      break;
    case QEvent::HoverLeave:
    case QEvent::Hide:
      lit_ = pressed_ = false;
      update();
      break;
    default:
      break;
  }
  return QAbstractButton::event(event);
}

PictureBox::PictureBox(Fit fit, QWidget* parent) : QWidget(parent), fit_(fit) {}

void PictureBox::SetImage(const QImage& image) {
  image_ = image;
  scaled_ = {};
  update();
}

void PictureBox::resizeEvent(QResizeEvent* /*event*/) { scaled_ = {}; }

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
  if (width() < 1 || height() < 1) return;
  if (image_.isNull()) {
    QPainter painter(this);
    if (plateWhenEmpty_) DrawPlate(painter, rect(), QColor(14, 26, 20, 120), kEdge, 1);
    return;
  }
  if (scaled_.isNull()) {
    const double ratio = devicePixelRatioF();
    const auto aspect = fit_ == Fit::Whole ? Qt::KeepAspectRatio : Qt::IgnoreAspectRatio;
    scaled_ = QPixmap::fromImage(
        image_.scaled((QSizeF(size()) * ratio).toSize(), aspect, Qt::SmoothTransformation));
    scaled_.setDevicePixelRatio(ratio);
  }
  QPainter painter(this);
  const QSizeF shown = scaled_.deviceIndependentSize();
  painter.drawPixmap(QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2),
                     scaled_);
}

QImage WithoutSlate(const QImage& image) {
  // What a lossy picture may differ by in each of the three colours.
  constexpr int kSlack = 10;
  const auto slate = [](QRgb colour) {
    return std::abs(qRed(colour) - kSlate.red()) <= kSlack &&
           std::abs(qGreen(colour) - kSlate.green()) <= kSlack &&
           std::abs(qBlue(colour) - kSlate.blue()) <= kSlack;
  };
  if (image.width() < 2 || image.height() < 2) return image;
  const QRect rect = image.rect();
  std::vector<QPoint> open{rect.topLeft(), rect.topRight(), rect.bottomLeft(), rect.bottomRight()};
  for (const QPoint& corner : open) {
    if (!slate(image.pixel(corner))) return image;
  }
  QImage cut = image.convertToFormat(QImage::Format_ARGB32);
  auto* const pixels = reinterpret_cast<QRgb*>(cut.bits());  // its lines follow without a gap
  while (!open.empty()) {
    const QPoint at = open.back();
    open.pop_back();
    if (!rect.contains(at)) continue;
    QRgb& pixel = pixels[at.y() * rect.width() + at.x()];
    if (qAlpha(pixel) == 0 || !slate(pixel)) continue;
    pixel = 0;
    for (const QPoint& step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
      open.push_back(at + step);
    }
  }
  return cut;
}

PictureButton::PictureButton(QWidget* parent)
    : QAbstractButton(parent), box_(new PictureBox(PictureBox::Fit::Whole, this)) {
  box_->setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
}

void PictureButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (isDown()) {
    DrawPlate(painter, rect(), Qt::transparent, kCream, 3);
  } else if (underMouse()) {
    DrawPlate(painter, rect(), kSlateHover, kCream, 1);
  }
  if (hasFocus()) DrawFocus(painter, rect());
}

void PictureButton::resizeEvent(QResizeEvent* /*event*/) {
  constexpr int kRim = 2;  // for the ring around it
  box_->setGeometry(rect().adjusted(kRim, kRim, -kRim, -kRim));
}

bool PictureButton::event(QEvent* event) {
  if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) update();
  return QAbstractButton::event(event);
}

FigureField::FigureField(QWidget* parent) : QLineEdit(parent) {
  setFrame(false);
  setAlignment(Qt::AlignCenter);
  setContextMenuPolicy(Qt::NoContextMenu);
  setTextMargins(0, 0, 0, 0);
}

void FigureField::SetGround(const QColor& ground, const QColor& figures) {
  QPalette palette = this->palette();
  palette.setColor(QPalette::Base, ground);
  palette.setColor(QPalette::Text, figures);
  setPalette(palette);
}

void FigureField::SetMark(bool on) {
  if (mark_ == on) return;
  mark_ = on;
  update();
}

void FigureField::SetTextFits(FigureField* partner) {
  partner_ = partner;
  partner->partner_ = this;
  for (FigureField* field : {this, partner}) {
    connect(field, &QLineEdit::textChanged, field, [field] { field->FitText(); });
  }
}

bool FigureField::Fits(const QFont& font) const {
  const QMargins margins = textMargins();
  constexpr int kCaret = 6;  // what Qt keeps free beside the text
  const int room = width() - margins.left() - margins.right() - kCaret;
  return TextWidth(QFontMetrics(font), text()) <= room;
}

void FigureField::FitText() {
  if (partner_ == nullptr || fullSize_ <= 0 || fitting_) return;
  const QScopedValueRollback fitting(fitting_, true);
  const QScopedValueRollback partnersFitting(partner_->fitting_, true);
  QFont fitted = font();
  for (const double share : kFittingSizes) {
    fitted.setPixelSize(FittingSize(fullSize_, share));
    if (Fits(fitted) && partner_->Fits(fitted)) break;
  }
  for (FigureField* field : {this, partner_}) {
    if (fitted != field->font()) field->setFont(fitted);
  }
}

void FigureField::resizeEvent(QResizeEvent* event) {
  QLineEdit::resizeEvent(event);
  FitText();
}

void FigureField::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  if (event->type() != QEvent::FontChange || fitting_) return;
  fullSize_ = font().pixelSize();
  // The partner may have this font already, and so hear of no change.
  if (partner_ != nullptr) partner_->fullSize_ = fullSize_;
  FitText();
}

void FigureField::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(this);
    DrawPlate(painter, rect(), palette().color(QPalette::Base), Qt::transparent, 0, 4);
    if (hasFocus()) DrawFocus(painter, rect(), 4);
  }
  QLineEdit::paintEvent(event);
  if (!mark_) return;
  QPainter painter(this);
  const int bar = std::max(3, height() / 10);
  DrawPlate(painter, QRectF(3, height() - bar - 2, width() - 6, bar), kMarkGreen, Qt::transparent,
            0, bar / 2.0);
}

void FigureField::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  // The return of the focus after a box, a menu or another window is no new visit to the cell.
  switch (event->reason()) {
    case Qt::MouseFocusReason:
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
      firstPress_ = event->reason() == Qt::MouseFocusReason;
      selectAll();
      emit focused();
      break;
    default:
      emit returned();
      break;
  }
}

void FigureField::mousePressEvent(QMouseEvent* event) {
  // The press that brings the focus keeps the whole text selected, so that typing replaces it.
  if (firstPress_) {
    firstPress_ = false;
    return;
  }
  QLineEdit::mousePressEvent(event);
  TellCaret();
}

void FigureField::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  TellCaret();
}

void FigureField::inputMethodEvent(QInputMethodEvent* event) {
  QLineEdit::inputMethodEvent(event);
  TellCaret();
}

void FigureField::TellCaret() { emit caretMoved(cursorPosition() == 0 || hasSelectedText()); }

void FigureField::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit marked();
}

void FigureField::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && event->modifiers().testFlag(Qt::ControlModifier)) {
    emit marked();
    return;
  }
  if (enter || event->key() == Qt::Key_Escape) {
    // The keys are the board's again.
    if (!event->isAutoRepeat()) clearFocus();
    return;
  }
  const QString typed = event->text();
  const bool printable = !typed.isEmpty() && typed.at(0).isPrint() &&
                         !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  const KeyUse use = printable && keyUse_ ? keyUse_(typed) : KeyUse::Text;
  if (use == KeyUse::Done) return;
  if (use == KeyUse::Board) {
    clearFocus();
    event->ignore();  // goes up to the window
    return;
  }
  QLineEdit::keyPressEvent(event);
  TellCaret();
}

NameLabel::NameLabel(QWidget* parent, Qt::Alignment alignment) : QLabel(parent) {
  setAlignment(alignment);
  setTextFormat(Qt::PlainText);
}

void NameLabel::SetName(const QString& lead, const QString& name) {
  constexpr int kLongest = 400;  // letters; no screen shows more
  if (lead == lead_ && name.left(kLongest) == name_) return;
  lead_ = lead;
  name_ = name.left(kLongest);
  FitName();
}

void NameLabel::FitName() {
  constexpr int kRim = 4;
  const QFontMetrics metrics = fontMetrics();
  const int room = std::max(0, width() - kRim - TextWidth(metrics, lead_));
  const bool fits = TextWidth(metrics, name_) <= room;
  setText(lead_ + ElidedText(metrics, fits ? name_ : ToQt(LastNameOf(FromQt(name_))), room));
}

void NameLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  FitName();
}

void NameLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) FitName();
}

QLabel* MakeCaption(const QString& text, QWidget* parent, Qt::Alignment alignment) {
  auto* label = new QLabel(text, parent);
  label->setAlignment(alignment);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace dtb
