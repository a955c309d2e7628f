// One run of the program, put together: board, services of the desktop, windows.
#pragma once

#include <QString>
#include <filesystem>
#include <memory>

#include "aids/aids_state.h"
#include "game/history.h"
#include "game/new_game.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/qt_keyboard.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_recovery_store.h"
#include "platform/qt/qt_settings_store.h"
#include "platform/qt/qt_sounds.h"
#include "platform/random_generator.h"
#include "platform/sqlite/sqlite_copies.h"
#include "platform/sqlite/sqlite_database.h"
#include "platform/sqlite/sqlite_seasons.h"
#include "platform/xlsx/xlsx_workbooks.h"
#include "platform/zip/zip_archives.h"
#include "windows/board/board_window.h"
#include "windows/boxes/window_boxes.h"
#include "windows/browser/busy_old_database.h"
#include "windows/shared/hand_over.h"

namespace dtb {

// Looks of the whole application; before any window is made.
void DressApplication();

class Desk {
 public:
  struct Setup {
    std::filesystem::path programFolder;         // holds Teams, Ballparks, Logos
    QString settingsFile;                        // "": the user's own
    FileDialogs* dialogs = nullptr;              // none: the system's
    Pages* pages = nullptr;                      // none: the system's programs
    SpreadsheetProgram* spreadsheets = nullptr;  // none: the desktop's
    Sounds* sounds = nullptr;                    // none: the sound device
    bool recovery = true;                        // the game in progress is kept beside the settings
  };

  explicit Desk(const Setup& setup);
  // A clean end: the game in progress is no longer kept.
  ~Desk();
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  // Shows the board, tells what was found wrong with the settings, and offers to go on with a game
  // that was still in progress when the program ended.
  void Open();

  [[nodiscard]] Board& board() { return board_; }
  [[nodiscard]] AidsState& aids() { return aidsState_; }
  // None where nothing is kept.
  [[nodiscard]] QtRecoveryStore* recovery() { return keepsGame_ ? &store_ : nullptr; }
  [[nodiscard]] BoardWindow& form1() { return *form1_; }

 private:
  void ServeRecovery();
  void KeepGame();
  void TellNotKept(const std::string& why);
  void ServeLog();

  QtFileDialogs ownDialogs_;
  QtPages ownPages_;
  QtPictures pictures_;
  QtKeyboard keyboard_;
  QtSettingsStore settings_;
  SqliteDatabase database_;
  SqliteCopies copies_;
  BusyOldDatabase old_;
  SqliteSeasons seasons_;
  XlsxWorkbooks workbooks_;
  QtSpreadsheetProgram ownSpreadsheets_;
  QtClipboard clipboard_;
  QtClock clock_;
  QtSounds ownSounds_;
  RandomGenerator randoms_;
  ZipArchives archives_;
  WindowBoxes boxes_;
  Platform platform_;
  BoardState state_;
  StatSheet sheet_;
  EventLog log_;
  History history_;
  Board board_{state_, sheet_, log_, platform_, &history_};
  AidsState aidsState_;
  Aids aids_{aidsState_, platform_};
  HandOver handOver_;
  QtRecoveryStore store_;
  std::string noSeason_;  // why the season that was used last is not in use
  bool keepsGame_;        // else it has games that are set aside alone
  NewGames newGames_{aidsState_, store_};
  std::unique_ptr<BoardWindow> form1_;
};

}  // namespace dtb
