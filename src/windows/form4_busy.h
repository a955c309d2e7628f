// What the person sees while the database works.
#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>

#include "windows/controls.h"

namespace dtb {

// A busy pointer for as long as it lives, but not over a message box.
class BusyPointer : public QObject {
  Q_OBJECT
 public:
  BusyPointer();
  ~BusyPointer() override;
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

// A slim bar in the middle of a window, for work that lasts longer than a moment.
class OpeningProgress : public Panel {
  Q_OBJECT
 public:
  explicit OpeningProgress(QWidget* over);
  void Hear(int done, int steps);

 private:
  QElapsedTimer since_;
  QProgressBar* bar_;
};

}  // namespace dtb
