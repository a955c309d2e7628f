// A field in which a lasting text is edited in place.
#pragma once

#include <QKeyEvent>
#include <QLineEdit>
#include <functional>

namespace dtb {

// A double click, or Enter, takes the text over.
class NameEdit : public QLineEdit {
  Q_OBJECT
 public:
  NameEdit(std::function<void()> save, QWidget* parent)
      : QLineEdit(parent), save_(std::move(save)) {}

 protected:
  void mouseDoubleClickEvent(QMouseEvent* /*event*/) override { save_(); }
  void keyPressEvent(QKeyEvent* event) override {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) {
      QLineEdit::keyPressEvent(event);
    } else if (!event->isAutoRepeat()) {
      save_();
    }
  }

 private:
  std::function<void()> save_;
};

}  // namespace dtb
