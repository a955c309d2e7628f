#include "windows/desk.h"

#include <QApplication>
#include <QCheckBox>
#include <QIcon>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QToolTip>

#include "aids/ballparks.h"
#include "aids/charts.h"
#include "game/start_up.h"
#include "platform/qt/qt_text.h"
#include "windows/accessible_roles.h"
#include "windows/controls.h"
#include "windows/look.h"
#include "windows/slate_style.h"

namespace dtb {

namespace {

// Enter presses what has the focus, as Space does: in the main window too, not in dialogs alone.
class EnterPresses : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    const bool button = qobject_cast<QPushButton*>(watched) != nullptr ||
                        qobject_cast<QCheckBox*>(watched) != nullptr ||
                        qobject_cast<QRadioButton*>(watched) != nullptr ||
                        qobject_cast<PictureButton*>(watched) != nullptr;
    if (!enter || !button) return false;
    if (!key->isAutoRepeat()) static_cast<QAbstractButton*>(watched)->click();
    return true;
  }
};

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    icon.addFile(QStringLiteral(":/icons/kelvane-diamond-table-%1.png").arg(size), {size, size});
  }
  return icon;
}

}  // namespace

void DressApplication() {
  QApplication::setWindowIcon(ProgramIcon());
  qApp->installEventFilter(new EnterPresses(qApp));
  InstallAccessibleRoles();
  QApplication::setStyle(new SlateStyle);
  QApplication::setPalette(look::Palette());
  QApplication::setFont(look::Font(look::kBody));
  QToolTip::setPalette(look::Palette());
  QToolTip::setFont(look::Font(look::kBody));
}

Desk::Desk(const Setup& setup)
    : settings_(setup.settingsFile),
      database_(setup.programFolder / kDatabaseFile),
      platform_{boxes_,
                setup.dialogs != nullptr ? *setup.dialogs : ownDialogs_,
                pictures_,
                keyboard_,
                settings_,
                setup.pages != nullptr ? *setup.pages : ownPages_,
                database_,
                workbooks_,
                setup.spreadsheets != nullptr ? *setup.spreadsheets : ownSpreadsheets_,
                clipboard_,
                clock_,
                setup.sounds != nullptr ? *setup.sounds : ownSounds_,
                randoms_,
                setup.programFolder} {
  StartUp(board_);
  SetUpBallparks(aids_);
  ReadChartNames(aids_);
  form1_ = std::make_unique<Form1>(board_, aids_, pictures_);
  boxes_.SetMainWindow(form1_.get());
}

void Desk::Open() {
  form1_->show();
  if (settings_.damagedFile().isEmpty()) return;
  boxes_.Show("The settings file could not be understood. It is kept as \"" +
                  FromQt(settings_.damagedFile()) + "\", and the settings start anew.",
              BoxIcon::Warning, "Settings");
}

}  // namespace dtb
