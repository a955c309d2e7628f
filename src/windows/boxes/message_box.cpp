#include "windows/boxes/message_box.h"

#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextLayout>
#include <QVBoxLayout>
#include <QtMath>
#include <optional>
#include <utility>

#include "base/program_error.h"
#include "base/project_pages.h"
#include "game/board_state.h"
#include "platform/qt/qt_text.h"
#include "windows/boxes/closing_press.h"
#include "windows/shared/look.h"
#include "windows/shared/scene.h"

namespace dtb {
namespace {

using namespace look;

constexpr double kConfirmationWidth = 340;  // layout units, as all sizes here
constexpr double kStandardWidth = 520;
constexpr double kChoiceWidth = 760;
constexpr double kMessageType = kLarge;  // 14 points on the reference screen
constexpr double kCloseSize = 28;
constexpr double kBesideCaption = 64;  // room of an answer besides its caption
constexpr double kLeastTextHeight = 40;
constexpr double kTallText = 240;
constexpr double kMostTextHeight = 700;  // a longer text scrolls
// A list entry may be of any length; more than this is no help to anybody.
constexpr qsizetype kLongestMessage = 20000;

MessageBox* openBox = nullptr;
int opened = 0;
constexpr const char* kAnswer = "answer";  // property of a button: its caption
int closingKey = 0;                        // 0: none

QString IconText(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Critical:
      return QStringLiteral("\u00D7");
    case BoxIcon::Information:
      return QStringLiteral("i");
    case BoxIcon::Warning:
    case BoxIcon::Exclamation:
      return QStringLiteral("!");
    case BoxIcon::None:
      break;
  }
  return {};
}

// A round badge that tells the kind of a message.
class Badge : public QWidget {
 public:
  Badge(BoxIcon icon, double scale, QWidget* parent) : QWidget(parent), icon_(icon) {
    setFixedSize(qRound(36 * scale), qRound(36 * scale));
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const bool critical = icon_ == BoxIcon::Critical;
    const QColor fill = critical ? QColor(200, 40, 32) : kAccent;
    DrawPlate(painter, rect(), fill, fill, 1, width() / 2.0);
    painter.setPen(critical ? QColor(Qt::white) : kInk);
    painter.setFont(Font(height() * 0.7, true));
    painter.drawText(rect(), Qt::AlignCenter, IconText(icon_));
  }

 private:
  BoxIcon icon_;
};

// The message, wrapped between its words, or within a word that is wider than the box. Its height
// is measured in the layout that is drawn.
class MessageText : public QLabel {
 public:
  MessageText(const QString& message, BoxAlignment alignment, const QFont& font) : QLabel(message) {
    setObjectName(QStringLiteral("Label1"));
    setTextFormat(Qt::PlainText);
    setFont(font);
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    layout_.setFont(font);
    layout_.setText(QString(message).replace(QLatin1Char('\n'), QChar::LineSeparator));
    QTextOption option(alignment == BoxAlignment::Left ? Qt::AlignLeft : Qt::AlignHCenter);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
  }

  [[nodiscard]] int heightForWidth(int width) const override {
    if (width != width_) LayOut(width);
    return height_;
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return {1, 1}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    const int needed = heightForWidth(width());
    QPainter painter(this);
    painter.setPen(Qt::white);
    layout_.draw(&painter, QPointF(0, std::max(0, (height() - needed) / 2)));
  }

 private:
  void LayOut(int width) const {
    width_ = width;
    double height = 0;
    layout_.beginLayout();
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
      line.setLineWidth(width);
      line.setPosition({0, height});
      height += line.height();
    }
    layout_.endLayout();
    height_ = qCeil(height);
  }

  mutable QTextLayout layout_;
  mutable int width_ = -1;
  mutable int height_ = 0;
};

// For a text that is higher than any box.
QScrollArea* MakeScroll(QWidget* text, const QSize& size) {
  auto* scroll = new QScrollArea;
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->viewport()->setAutoFillBackground(false);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setWidget(text);
  text->setAutoFillBackground(false);  // the scroll area turns it on
  scroll->setFixedSize(size);
  return scroll;
}

QString Shortened(const QString& message) {
  return message.size() <= kLongestMessage ? message
                                           : message.left(kLongestMessage) + QChar(0x2026);
}

// A click elsewhere closes the box, and over the board may do more.
QString ClosingHint(const QWidget* window) {
  QString hint = QStringLiteral("Enter, Space, Esc or a click anywhere closes this");
  if (window != nullptr && TakesClosingPresses(*window)) {
    hint += QStringLiteral("\nA click on a row, a piece or AT BAT counts as well");
  }
  return hint;
}

// What is told when a confirmation of the game cannot be closed as it should.
QString ClosingError(int number, const std::string& description) {
  return QStringLiteral(
             "[ErrKLV013F-002] The following error has occurred: %1, %2\n\n"
             "Please send numeric error codes to %3.")
      .arg(number)
      .arg(ToQt(description), QLatin1String(kSupportAddress));
}

// The arrow in place of a busy pointer, while the person is asked.
class ArrowPointer {
 public:
  ArrowPointer() {
    const QCursor* busy = QApplication::overrideCursor();
    if (busy == nullptr) return;
    before_ = *busy;
    QApplication::changeOverrideCursor(Qt::ArrowCursor);
  }
  ~ArrowPointer() {
    if (before_) QApplication::changeOverrideCursor(*before_);
  }
  ArrowPointer(const ArrowPointer&) = delete;
  ArrowPointer& operator=(const ArrowPointer&) = delete;

 private:
  std::optional<QCursor> before_;
};

}  // namespace

MessageBox* MessageBox::Open() { return openBox; }

int MessageBox::Opened() { return opened; }

bool MessageBox::Run(QWidget* window, const Content& content, double scale) {
  return Wait(window, content, scale).yes;
}

int MessageBox::RunChoice(QWidget* window, const Content& content, double scale) {
  return Wait(window, content, scale).chosen;
}

MessageBox::Answer MessageBox::Wait(QWidget* window, const Content& content, double scale) {
  QPointer<QWidget> focus = QApplication::focusWidget();
  // At the start no window is in front yet.
  if (focus == nullptr && window != nullptr) focus = window->focusWidget();
  MessageBox* const outer = openBox;
  const ArrowPointer arrow;
  auto* box =
      new MessageBox(window != nullptr && window->isVisible() ? window : nullptr, content, scale);
  openBox = box;
  ++opened;
  box->PlaceOverWindow();
  box->show();
  box->raise();
  if (box->isWindow()) {
    box->activateWindow();
    box->setFocus(Qt::PopupFocusReason);
  }
  qApp->installEventFilter(box);
  QAccessibleEvent alert(box, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
  box->loop_.exec();
  qApp->removeEventFilter(box);
  openBox = outer;
  // The box may be gone once another one has waited.
  const Answer answer{box->answer_, box->chosen_};
  if (!box->Confirmation()) {
    box->GiveBack(focus);
    return answer;
  }
  TrappedBy(
      [&](int number, const std::string& description) {
        Run(window,
            {ClosingError(number, description), QStringLiteral("Program Error"), BoxIcon::Critical,
             BoxAlignment::Left, false},
            scale);
      },
      [&] { box->GiveBack(focus); });
  return answer;
}

void MessageBox::GiveBack(QWidget* focus) {
  deleteLater();
  // Before the box hides: Qt would give the focus to the next control.
  if (focus != nullptr) focus->setFocus(Qt::OtherFocusReason);
  hide();
  if (isWindow() && window_) window_->activateWindow();
}

MessageBox::MessageBox(QWidget* window, const Content& content, double scale)
    : QWidget(window),
      content_(content),
      window_(window),
      answer_(!content.question),
      chosen_(static_cast<int>(content.answers.size()) - 1) {
  setObjectName(Confirmation() ? QStringLiteral("CustMsgBox") : QStringLiteral("MsgBox"));
  setAccessibleName(content_.title.isEmpty()
                        ? Shortened(content_.message)
                        : content_.title + QStringLiteral(": ") + Shortened(content_.message));
  setFocusPolicy(Qt::StrongFocus);
  Build(scale);
}

void MessageBox::Build(double scale) {
  const auto units = [scale](double length) { return qRound(length * scale); };
  setFont(Font(kMessageType * scale));
  auto* text = new MessageText(Shortened(content_.message), content_.alignment, font());
  const double beside = content_.icon == BoxIcon::None ? 44 : 100;  // margins and badge
  // A long text gets a wide box, and so do long answers.
  for (const double width : {kConfirmationWidth, kStandardWidth, kChoiceWidth}) {
    const bool usual = width >= (Confirmation() ? kConfirmationWidth : kStandardWidth);
    setFixedWidth(units(width));
    const bool list = content_.message.contains(QLatin1Char('\n'));
    if (!usual || (list && !content_.answers.isEmpty())) continue;
    if (WidthOfAnswers(scale) > units(width)) continue;
    if (text->heightForWidth(units(width) - units(beside)) <= units(kTallText)) break;
  }
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(units(20), units(8), units(8), units(20));
  column->setSpacing(units(4));

  auto* strip = new QHBoxLayout;
  auto* title = new QLabel(content_.title);
  title->setFont(Font(kBody * scale, true));
  title->setTextFormat(Qt::PlainText);
  auto* close = new QPushButton(QStringLiteral("\u00D7"));
  close->setObjectName(QStringLiteral("CloseBox"));
  close->setAccessibleName(QStringLiteral("Close"));
  close->setFocusPolicy(Qt::NoFocus);
  close->setFlat(true);
  close->setFixedSize(units(kCloseSize), units(kCloseSize));
  connect(close, &QPushButton::clicked, this, [this] { Finish(!content_.question); });
  strip->addWidget(title, 1);
  strip->addWidget(close);
  column->addLayout(strip);

  auto* row = new QHBoxLayout;
  row->setSpacing(units(16));
  row->setContentsMargins(0, 0, units(12), 0);
  if (content_.icon != BoxIcon::None) {
    row->addWidget(new Badge(content_.icon, scale, this), 0, Qt::AlignTop);
  }
  const int textWidth = width() - units(beside);
  const int textHeight = std::max(text->heightForWidth(textWidth), units(kLeastTextHeight));
  const int highest = units(kMostTextHeight);
  if (textHeight <= highest) {
    text->setFixedSize(textWidth, textHeight);
    row->addWidget(text, 1);
  } else {
    row->addWidget(MakeScroll(text, QSize(textWidth, highest)), 1);
  }
  column->addLayout(row);
  if (!content_.question) {
    auto* hint = new QLabel(ClosingHint(window_));
    hint->setObjectName(QStringLiteral("ClosingHint"));
    hint->setFont(Font(kSmall * scale));
    QPalette dim = hint->palette();
    dim.setColor(QPalette::WindowText, QColor(208, 208, 208));
    hint->setPalette(dim);
    hint->setAlignment(Qt::AlignHCenter);
    hint->setWordWrap(true);
    hint->setContentsMargins(0, units(4), units(12), 0);
    column->addWidget(hint);
  }
  if (!Confirmation()) BuildButtons(scale, this);
  adjustSize();
}

// All captions uncut, with what stands around them.
int MessageBox::WidthOfAnswers(double scale) const {
  const QFontMetrics captions(Font(kBody * scale));
  int width = 0;
  for (const QString& answer : content_.answers) {
    width += captions.horizontalAdvance(answer) + qRound(kBesideCaption * scale);
  }
  return width;
}

void MessageBox::BuildButtons(double scale, QWidget* below) {
  auto* row = new QHBoxLayout;
  row->setContentsMargins(0, qRound(8 * scale), qRound(12 * scale), 0);
  row->addStretch();
  const auto add = [&](const QString& caption, bool answer) {
    auto* button = new QPushButton(QString(caption).replace(QLatin1Char('&'), "&&"), below);
    button->setProperty(kAnswer, caption);
    button->setObjectName(QStringLiteral("cmd_") + caption.toUpper());
    button->setFixedSize(qRound(96 * scale), qRound(34 * scale));
    button->setFont(Font(kBody * scale));
    connect(button, &QPushButton::clicked, this, [this, answer] { Finish(answer); });
    row->addWidget(button);
    return button;
  };
  if (!content_.answers.isEmpty()) {
    const QFontMetrics captions(Font(kBody * scale));
    const bool fits = WidthOfAnswers(scale) <= width();
    for (int i = 0; i < content_.answers.size(); ++i) {
      auto* button = add(content_.answers[i], i == 0);
      button->disconnect(this);
      connect(button, &QPushButton::clicked, this, [this, i] { Choose(i); });
      // A name may be of any length.
      const int share =
          width() / static_cast<int>(content_.answers.size()) - qRound(kBesideCaption * scale);
      if (!fits) button->setText(captions.elidedText(button->text(), Qt::ElideMiddle, share));
      button->setFixedWidth(captions.horizontalAdvance(button->text()) + qRound(40 * scale));
      if (i == content_.usual) setFocusProxy(button);
    }
  } else if (content_.question) {
    auto* yes = add(QStringLiteral("Yes"), true);
    auto* no = add(QStringLiteral("No"), false);
    setFocusProxy(content_.yesIsUsual ? yes : no);
  } else {
    setFocusProxy(add(QStringLiteral("OK"), true));
  }
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

QPushButton* MessageBox::ButtonOf(const QString& answer) const {
  for (auto* button : findChildren<QPushButton*>()) {
    if (button->property(kAnswer).toString() == answer) return button;
  }
  return nullptr;
}

void MessageBox::PlaceOverWindow() {
  if (window_.isNull()) {
    setWindowTitle(content_.title);
    setWindowModality(Qt::ApplicationModal);
    return;
  }
  const bool fits = width() <= window_->width() && height() <= window_->height();
  if (!fits) {
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setWindowTitle(content_.title);
    CenterForm(this, window_);
    return;
  }
  move((window_->width() - width()) / 2, (window_->height() - height()) / 2);
  setFocus(Qt::PopupFocusReason);
}

void MessageBox::Finish(bool answer) {
  answer_ = answer;
  loop_.quit();
}

void MessageBox::Choose(int answer) {
  chosen_ = answer;
  Finish(answer == 0);
}

void MessageBox::closeEvent(QCloseEvent* event) {
  Finish(!content_.question);
  event->accept();
}

void MessageBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  DrawPlate(painter, rect(), kBoxGrey, kCream, 1.5, isWindow() ? 0 : kCorner);
}

// True for input that belongs to the box itself.
bool MessageBox::Holds(const QObject* watched, const QEvent* event) const {
  if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick ||
      event->type() == QEvent::MouseMove) {
    const QPoint pointer = static_cast<const QMouseEvent*>(event)->globalPosition().toPoint();
    return QRect(mapToGlobal(QPoint()), size()).contains(pointer);
  }
  const auto* widget = qobject_cast<const QWidget*>(watched);
  return widget != nullptr && (widget == this || isAncestorOf(widget));
}

void MessageBox::StepThroughAnswers(int by) {
  QList<QPushButton*> buttons = findChildren<QPushButton*>();
  buttons.removeIf([](const auto* button) { return button->focusPolicy() == Qt::NoFocus; });
  const auto count = buttons.size();
  const auto now = buttons.indexOf(qobject_cast<QPushButton*>(QApplication::focusWidget()));
  buttons[(now + by + count) % count]->setFocus(Qt::TabFocusReason);
}

// Enter and Space: the button that has the focus, or the end of a box that asks nothing.
void MessageBox::AnswerWithFocus() {
  auto* button = qobject_cast<QPushButton*>(QApplication::focusWidget());
  if (!content_.answers.isEmpty()) {
    if (button != nullptr) button->click();
    return;
  }
  Finish(!content_.question ||
         (button != nullptr && button->objectName() == QStringLiteral("cmd_YES")));
}

bool MessageBox::FilterKey(QEvent* event) {
  const auto* key = static_cast<QKeyEvent*>(event);
  if (event->type() == QEvent::ShortcutOverride) {
    event->accept();
    return true;
  }
  if (key->key() == Qt::Key_Control || key->key() == Qt::Key_F12) return false;
  if (event->type() == QEvent::KeyRelease || key->isAutoRepeat()) return true;
  switch (key->key()) {
    case Qt::Key_Escape:
      Finish(!content_.question);
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      AnswerWithFocus();
      break;
    case Qt::Key_Y:
    case Qt::Key_N:
      if (content_.question && content_.answers.isEmpty()) Finish(key->key() == Qt::Key_Y);
      break;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Left:
    case Qt::Key_Right:
      if (content_.question) {
        const bool back = key->key() == Qt::Key_Backtab || key->key() == Qt::Key_Left;
        StepThroughAnswers(back ? -1 : 1);
      }
      break;
    default:
      if (!content_.question && key->key() == closingKey) Finish(true);
      break;
  }
  return true;
}

bool MessageBox::eventFilter(QObject* watched, QEvent* event) {
  if (openBox != this) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      const QWidget* hit =
          QApplication::widgetAt(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
      const bool control = qobject_cast<const QPushButton*>(hit) != nullptr ||
                           qobject_cast<const QScrollBar*>(hit) != nullptr;
      if (Holds(watched, event) && (content_.question || control)) return false;
      if (content_.question) return true;
      const auto* press = static_cast<QMouseEvent*>(event);
      const bool beside = !Holds(watched, event);
      FollowClosingPress(press->globalPosition().toPoint(),
                         beside ? press->button() : Qt::NoButton);
      Finish(true);
      return true;
    }
    case QEvent::MouseMove:
      return !Holds(watched, event);
    case QEvent::Wheel:
    case QEvent::ContextMenu:
      return watched->isWidgetType() && !Holds(watched, event);
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
      return FilterKey(event);
    case QEvent::Close:
      if (watched == window_.data()) {
        Finish(!content_.question);
        event->ignore();
        return true;
      }
      return false;
    default:
      return false;
  }
}

BoxKey::BoxKey(int key) : outer_(std::exchange(closingKey, key)) {}

BoxKey::~BoxKey() { closingKey = outer_; }

}  // namespace dtb
