// What the person sees while the program works.
#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>

#include "windows/shared/controls.h"

namespace dtb {

// A busy pointer for as long as it lives, but not over a message box (ArrowPointer).
class BusyPointer {
 public:
  BusyPointer();
  ~BusyPointer();
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
};

// A slim bar in the middle of a window, for work that lasts longer than a moment. The window takes
// no input meanwhile, apart from the button "Cancel" of work that can be cancelled, and Esc.
class ProgressPanel : public Panel {
  Q_OBJECT
 public:
  enum class Work { Uninterrupted, Cancellable };
  ProgressPanel(const QString& caption, Work work, QWidget* over);
  ~ProgressPanel() override;

  // The share of the work that is done, from 0 to 1. False once the person has cancelled.
  bool Hear(double share);

  // Work that takes no longer shows nothing; milliseconds. For tests, which know no time.
  static inline int moment = 250;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Show();
  void Cancel();

  Work work_;
  QElapsedTimer since_;
  QElapsedTimer sincePaint_;
  QLabel* caption_;
  QProgressBar* bar_;
  QPushButton* cancel_ = nullptr;
  QPointer<QWidget> focus_;
  bool cancelled_ = false;
};

}  // namespace dtb
