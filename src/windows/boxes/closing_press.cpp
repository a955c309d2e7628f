#include "windows/boxes/closing_press.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <algorithm>

#include "windows/boxes/message_box.h"

namespace dtb {
namespace {

constexpr const char* kTakesPress = "takesClosingPress";

QWidget* TakerAt(const QPoint& place) {
  QWidget* widget = QApplication::widgetAt(place);
  while (widget != nullptr && !widget->property(kTakesPress).toBool()) {
    widget = widget->isWindow() ? nullptr : widget->parentWidget();
  }
  return widget;
}

// Watches the mouse from the closing press to the next press of its own.
class ClosingPress : public QObject {
 public:
  ClosingPress(const QPoint& place, QWidget* taker) : QObject(qApp), place_(place), taker_(taker) {
    qApp->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (delivers_) return false;
    switch (event->type()) {
      case QEvent::MouseButtonRelease:
        LetGo(*static_cast<QMouseEvent*>(event));
        return true;
      case QEvent::MouseButtonDblClick:
        return true;
      case QEvent::MouseButtonPress:
        if (static_cast<QMouseEvent*>(event)->flags() & Qt::MouseEventCreatedDoubleClick) {
          return true;
        }
        qApp->removeEventFilter(this);
        deleteLater();
        return false;
      default:
        return false;
    }
  }

 private:
  void LetGo(const QMouseEvent& release) {
    if (letGo_ || taker_.isNull()) return;
    letGo_ = true;
    const QPoint end = taker_->mapFromGlobal(release.globalPosition().toPoint());
    if (release.button() == Qt::LeftButton && taker_->rect().contains(end)) Deliver();
  }

  // The operation that the box held back goes on first, and may bring the next box.
  void Deliver() {
    constexpr int kNextTurn = 1;  // milliseconds; of the event loop
    QTimer::singleShot(kNextTurn, this, [this] {
      if (MessageBox::Opened() != opened_) return;
      MessageBox::Open() != nullptr ? Deliver() : Click();
    });
  }

  void Click() {
    if (taker_.isNull()) return;
    const QPointF local = taker_->mapFromGlobal(place_);
    delivers_ = true;
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      const Qt::MouseButtons held =
          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
      QMouseEvent event(type, local, place_, Qt::LeftButton, held, Qt::NoModifier);
      if (!taker_.isNull()) QCoreApplication::sendEvent(taker_, &event);
    }
    delivers_ = false;
  }

  QPoint place_;
  QPointer<QWidget> taker_;
  int opened_ = MessageBox::Opened();  // boxes up to the one that was closed
  bool letGo_ = false;
  bool delivers_ = false;
};

}  // namespace

void TakeClosingPress(QWidget* control) { control->setProperty(kTakesPress, true); }

bool TakesClosingPresses(const QWidget& window) {
  const auto controls = window.findChildren<const QWidget*>();
  return std::ranges::any_of(controls, [](const QWidget* control) {
    return control->property(kTakesPress).toBool() && control->isVisible();
  });
}

void FollowClosingPress(const QPoint& place, Qt::MouseButton button) {
  new ClosingPress(place, button == Qt::LeftButton ? TakerAt(place) : nullptr);
}

}  // namespace dtb
