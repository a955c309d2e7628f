// Ends a program once its window has been painted for the first time.
#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

class FirstPaint : public QObject {
 public:
  explicit FirstPaint(QWidget* painted) { painted->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
    }
    return false;
  }
};
