// The window "Event Log".
#pragma once

#include <QDialog>
#include <QPlainTextEdit>

#include "shell/event_log.h"

namespace dtb {

// The form Options. It is hidden, not destroyed, when it is closed.
class LogWindow : public QDialog {
  Q_OBJECT
 public:
  LogWindow(EventLog& log, QWidget* parent);

 private:
  void ShowText();

  EventLog& log_;
  QPlainTextEdit* text_;
  std::size_t shownBytes_ = 0;
};

}  // namespace dtb
