// A label with a lasting text that is edited in place.
#pragma once

#include <QLineEdit>
#include <QPushButton>

#include "aids/edited_label.h"
#include "windows/shared/controls.h"

namespace dtb {

// Shows a text, and its editor while it is edited. A click with Ctrl opens the editor; a double
// click there, or Enter, takes the text over, and Esc leaves the old one. The editor of a folder
// has a button at its end that lets the person choose it.
class NameEdit : public QLineEdit {
  Q_OBJECT
 public:
  // `label` shows the text while it is not edited. Both stand at the same place.
  NameEdit(Platform& platform, const EditedLabel& fields, ClickLabel* label);

 signals:
  // The label was clicked, and that was no wish to edit it.
  void labelClicked();

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void AddFolderButton();

  Platform& platform_;
  EditedLabel fields_;
  QPushButton* folder_ = nullptr;  // none: the text is no folder
};

}  // namespace dtb
