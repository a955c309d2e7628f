// Ties controls to fields of the board, both ways.
#pragma once

#include <QCheckBox>
#include <QLineEdit>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <string>

#include "base/field.h"
#include "platform/qt/qt_text.h"
#include "windows/shared/look.h"

namespace dtb {

[[nodiscard]] inline std::function<bool()> WhileItLives(QObject* observer) {
  return [observer = QPointer<QObject>(observer)] { return !observer.isNull(); };
}

// Runs `show` now and on each change of the field, for as long as the widget lives.
template <class T>
void Follow(QWidget* widget, Field<T>& field, std::function<void(const T&)> show) {
  show(field.value());
  field.Observe([&field, show = std::move(show)] { show(field.value()); }, WhileItLives(widget));
}

// Runs `show` now and on each change of any of the fields.
template <class... Fields>
void FollowAll(QWidget* widget, const std::function<void()>& show, Fields&... fields) {
  show();
  (fields.Observe(show, WhileItLives(widget)), ...);
}

// Names a control for scripts and screen readers. Without a name of its own a screen reader reads
// the control's text.
inline void Name(QWidget* widget, const char* objectName, const QString& accessibleName = {}) {
  widget->setObjectName(QString::fromLatin1(objectName));
  widget->setAccessibleName(accessibleName);
}

inline void FollowText(QLineEdit* edit, Field<std::string>& field) {
  Follow<std::string>(edit, field, [edit](const std::string& text) {
    const QString shown = ToQt(text);
    if (edit->text() != shown) edit->setText(shown);
  });
}

// What the person types goes into the field at each keystroke.
inline void BindText(QLineEdit* edit, Field<std::string>& field) {
  FollowText(edit, field);
  QObject::connect(edit, &QLineEdit::textEdited, edit,
                   [&field](const QString& text) { field.Set(FromQt(text)); });
}

// The operation runs after the person has turned the check on or off: by a click, a key, or what a
// screen reader does in his place.
inline void BindCheck(QAbstractButton* check, Field<bool>& field,
                      const std::function<void()>& operation = {}) {
  Follow<bool>(check, field, [check](bool on) {
    if (check->isChecked() != on) check->setChecked(on);
  });
  QObject::connect(check, &QAbstractButton::toggled, check, [&field, operation](bool on) {
    if (field.value() == on) return;
    field.Set(on);
    if (operation) operation();
  });
}

inline void BindVisible(QWidget* widget, Field<bool>& field) {
  Follow<bool>(widget, field, [widget](bool shown) { widget->setVisible(shown); });
}

}  // namespace dtb
