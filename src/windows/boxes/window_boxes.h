// The message boxes of the desktop, over the window in front.
#pragma once

#include <QMainWindow>
#include <QPointer>

#include "base/field.h"
#include "platform/platform.h"
#include "windows/boxes/message_box.h"
#include "windows/boxes/notices.h"

namespace dtb {

// The port MessageBoxes, over the window that is in front.
class WindowBoxes : public MessageBoxes {
 public:
  void ShowRecorded(const std::string& message, BoxAlignment alignment) override;
  void Confirm(const std::string& message, const std::string& counted) override;
  void Notify(const std::string& message) override;
  void Show(const std::string& message, BoxIcon icon, const std::string& title) override;
  bool Ask(const Question& question) override;
  std::size_t Choose(const Choice& choice) override;

  // The board, over which boxes come when no other window is in front. Its type is that of all
  // boxes.
  void SetMainWindow(QMainWindow* window) { mainWindow_ = window; }
  // While the field is on, confirmations are notices at the foot of the board.
  void SetQuick(const Field<bool>& quick) { quick_ = &quick; }
  // While the field is on, the batter stands at home plate, and notices beside it.
  void SetKeepsBases(const Field<bool>& keepsBases) { keepsBases_ = &keepsBases; }

 private:
  bool Run(const MessageBox::Content& content) const;
  void ShowNotice(const std::string& message, const std::string& counted);
  [[nodiscard]] QWidget* Front() const;
  [[nodiscard]] double Scale() const;
  QPointer<QMainWindow> mainWindow_;
  QPointer<Notices> notices_;  // none before the first
  const Field<bool>* quick_ = nullptr;
  const Field<bool>* keepsBases_ = nullptr;
};

}  // namespace dtb
