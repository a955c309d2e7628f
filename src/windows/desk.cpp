#include "windows/desk.h"

#include <QApplication>
#include <QCheckBox>
#include <QDirIterator>
#include <QFontDatabase>
#include <QIcon>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QToolTip>

#include "aids/ballparks.h"
#include "aids/charts.h"
#include "aids/quick_boxes.h"
#include "database/old_database.h"
#include "database/season_shelf.h"
#include "game/recovery.h"
#include "game/start_up.h"
#include "platform/qt/qt_text.h"
#include "platform/trapped.h"
#include "sheet/log_file.h"
#include "windows/accessible_roles.h"
#include "windows/application.h"
#include "windows/boxes/log_window.h"
#include "windows/boxes/message_box.h"
#include "windows/shared/board_type.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"
#include "windows/shared/slate_style.h"

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

// Where the system does not bring the typefaces, they ship beside the program.
void TakeUpShippedTypefaces() {
  const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/fonts");
  for (QDirIterator file(folder, {QStringLiteral("*.ttf")}, QDir::Files); file.hasNext();) {
    QFontDatabase::addApplicationFont(file.next());
  }
}

}  // namespace

void DressApplication() {
  TakeUpShippedTypefaces();
  qApp->installEventFilter(new EnterPresses(qApp));
  InstallAccessibleRoles();
  QApplication::setStyle(new SlateStyle);
  QApplication::setPalette(look::Palette());
  QApplication::setPalette(look::MenuPalette(), "QMenu");
  QApplication::setFont(look::Font(look::kBody));
  QToolTip::setPalette(look::Palette());
  QToolTip::setFont(look::Font(look::kBody));
}

Desk::Desk(const Setup& setup)
    : settings_(setup.settingsFile),
      database_(setup.programFolder / kDatabaseFile),
      copies_(setup.programFolder / kDatabaseFile),
      old_(setup.programFolder / kDatabaseFile),
      seasons_(setup.programFolder, database_, copies_,
               [this](const std::filesystem::path& file) { old_.MoveTo(file); }),
      platform_{boxes_,
                setup.dialogs != nullptr ? *setup.dialogs : ownDialogs_,
                pictures_,
                keyboard_,
                settings_,
                setup.pages != nullptr ? *setup.pages : ownPages_,
                database_,
                copies_,
                old_,
                seasons_,
                workbooks_,
                setup.spreadsheets != nullptr ? *setup.spreadsheets : ownSpreadsheets_,
                clipboard_,
                clock_,
                setup.sounds != nullptr ? *setup.sounds : ownSounds_,
                randoms_,
                archives_,
                setup.programFolder},
      store_(settings_.FileBeside("DTB_v102.game")),
      keepsGame_(setup.recovery) {
  board_.newGames = &newGames_;
  noSeason_ = TakeUpSeason(platform_);
  StartUp(board_);
  SetUpBallparks(aids_);
  ReadChartNames(aids_);
  ReadQuickBoxes(aids_);
  form1_ = std::make_unique<BoardWindow>(board_, aids_, pictures_);
  if (keepsGame_) ServeRecovery();
  boxes_.SetMainWindow(form1_.get());
  new BoardType(form1_.get());
  ServeLog();
  if (auto* application = dynamic_cast<Application*>(qApp)) {
    application->ReportTo([this](int number, const std::string& description) {
      if (keepsGame_) KeepGame();
      ReportError(boxes_, number, description);
    });
  }
  boxes_.SetQuick(aidsState_.cb_QuickBoxes);
  boxes_.SetKeepsBases(state_.cb_KeepBases);
  form1_->AddTakeUp([this] { TakeUpSetAside(board_, aids_, store_); });
}

void Desk::ServeLog() {
  auto* window = form1_->findChild<LogWindow*>();
  QObject::connect(window, &LogWindow::saveWanted, window, [this] { SaveLog(platform_, log_); });
  QObject::connect(window, &LogWindow::copyWanted, window, [this, window] {
    platform_.clipboard.SetText(log_.text());
    window->Tell(QStringLiteral("The log was copied to the clipboard."));
  });
}

Desk::~Desk() {
  if (auto* application = dynamic_cast<Application*>(qApp)) application->ReportTo({});
  if (keepsGame_) store_.Discard();
}

void Desk::Open() {
  form1_->show();
  // The icon takes longer than all other looks together, so the board is painted first.
  constexpr int kAfterFirstPaint = 100;  // milliseconds
  QTimer::singleShot(kAfterFirstPaint, qApp, [] { QApplication::setWindowIcon(ProgramIcon()); });
  if (!settings_.damagedFile().isEmpty()) {
    platform_.boxes.Show("The settings file could not be read. It is kept as \"" +
                             FromQt(settings_.damagedFile()) + "\", and the settings start afresh.",
                         BoxIcon::Warning, "Settings");
  }
  if (!noSeason_.empty()) platform_.boxes.Show(noSeason_, BoxIcon::Warning, kShelfTitle);
  OfferTakingOverAtStart(platform_);
  if (!keepsGame_) return;
  OfferRecovery(board_, aids_, store_);
  if (store_.takenByAnother()) {
    platform_.boxes.Show(
        "Another board is open already, and its game is kept in case the program ends. "
        "The game on this board is not kept, but it can be saved to the database.",
        BoxIcon::Information);
  }
}

void Desk::KeepGame() {
  // Of an empty board nothing is to be taken up.
  if (!history_.CanUndo() && IsFresh(board_)) return store_.Discard();
  store_.Keep(TableText(board_, aidsState_), history_.merged());
}

void Desk::ServeRecovery() {
  // After all windows, which may add to what a step changes.
  history_.Observe([this] { KeepGame(); });
  store_.OnFailure(
      [this](const std::string& why) { handOver_.Give([this, why] { TellNotKept(why); }); });
}

void Desk::TellNotKept(const std::string& why) {
  constexpr int kLookAgain = 50;        // milliseconds
  if (MessageBox::Open() != nullptr) {  // of the gesture that goes on
    QTimer::singleShot(kLookAgain, form1_.get(), [this, why] { TellNotKept(why); });
    return;
  }
  platform_.boxes.Show("The game in progress cannot be kept beside the settings: " + why +
                           "\n\nYou can go on; each click tries again. "
                           "But if the program ends unexpectedly before one is kept, "
                           "the clicks from here on are lost.",
                       BoxIcon::Warning);
}

}  // namespace dtb
