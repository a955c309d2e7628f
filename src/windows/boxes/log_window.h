// The window "Event Log".
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include "game/event_log.h"

namespace dtb {

// The form Options. It is hidden, not destroyed, when it is closed, and opens at the end of the
// log.
class LogWindow : public QDialog {
  Q_OBJECT
 public:
  LogWindow(EventLog& log, QWidget* parent);

  // Says beside the buttons what became of a wish, until the window is opened again.
  void Tell(const QString& outcome);

 signals:
  void copyWanted();
  void saveWanted();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QPushButton* AddButton(const char* name, const QString& caption, const QString& tip);
  void ShowText();
  void ShowEnd();
  // The board's type, and a size that goes with it.
  void FollowBoard();

  EventLog& log_;
  QLabel* title_;
  QPlainTextEdit* text_;
  QLabel* outcome_;
  QPushButton* copy_;
  QPushButton* save_;
  QPushButton* close_;
  std::size_t shownBytes_ = 0;
};

}  // namespace dtb
