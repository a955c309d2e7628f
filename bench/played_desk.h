// The whole program with a game in progress, on a board of full height on a screen of 1920 x 1080.
#pragma once

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTimer>

#include "base/paths.h"
#include "bench/quiet_table.h"
#include "windows/desk.h"

namespace dtb {

inline constexpr QSize kFullHd(1860, 1079);

struct PlayedDesk {
  explicit PlayedDesk(bool recovery = true)
      : desk{{.programFolder = PathOf(DTB_PROGRAM_FOLDER),
              .settingsFile = folder.filePath(QStringLiteral("settings.ini")),
              .recovery = recovery}} {
    desk.form1().resize(kFullHd);
    desk.Open();
    StartGame(desk.board());
    QCoreApplication::processEvents();
  }

  QTemporaryDir folder;
  Desk desk;
};

// Closes the boxes that come until none is open.
void CloseBoxes();

// A click until everything is painted again and its boxes are closed.
void ClickOn(QWidget* control);

}  // namespace dtb
