#include "windows/shared/name_edit.h"

#include <QKeyEvent>

#include "windows/shared/bind.h"
#include "windows/shared/text_visit.h"

namespace dtb {

NameEdit::NameEdit(Platform& platform, const EditedLabel& fields, ClickLabel* label)
    : QLineEdit(label->parentWidget()), platform_(platform), fields_(fields) {
  setToolTip(QStringLiteral("Double-Click to SAVE"));
  if (!fields.folderTitle.empty()) AddFolderButton();
  label->setToolTip(QStringLiteral("Ctrl + Click to EDIT"));
  Follow<std::string>(label, fields.label,
                      [label](const std::string& text) { label->setText(ToQt(text)); });
  BindText(this, fields.edit);
  LeaveOnEscape(this, [this] {
    CancelEdit(fields_);
    return true;
  });
  Follow<bool>(this, fields.editing, [this, label](bool editing) {
    // The keys are the board's again, not those of the next text field.
    if (!editing && hasFocus()) clearFocus();
    label->setVisible(!editing);
    setVisible(editing);
    if (editing) setFocus(Qt::OtherFocusReason);
  });
  connect(label, &QAbstractButton::clicked, this, [this] {
    if (!BeginEdit(platform_, fields_)) emit labelClicked();
  });
}

void NameEdit::AddFolderButton() {
  folder_ = new QPushButton(QStringLiteral("Choose..."), this);
  Name(folder_, "cmd_Folder", ToQt(fields_.folderTitle));
  folder_->setToolTip(QStringLiteral("Opens the dialog for folders"));
  connect(folder_, &QPushButton::clicked, this, [this] { ChooseFolder(platform_, fields_); });
}

void NameEdit::resizeEvent(QResizeEvent* event) {
  QLineEdit::resizeEvent(event);
  if (folder_ == nullptr) return;
  constexpr int kRim = 3;
  const int width = folder_->fontMetrics().horizontalAdvance(folder_->text()) + height() / 2;
  folder_->setGeometry(this->width() - width - kRim, kRim, width, height() - 2 * kRim);
  setTextMargins(0, 0, width + kRim, 0);
}

void NameEdit::mouseDoubleClickEvent(QMouseEvent* /*event*/) { SaveEdit(platform_, fields_); }

void NameEdit::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter) {
    QLineEdit::keyPressEvent(event);
  } else if (!event->isAutoRepeat()) {
    SaveEdit(platform_, fields_);
  }
}

}  // namespace dtb
