// What the replay program is asked to do.
#pragma once

#include <QStringList>
#include <optional>

#include "replay/player.h"

namespace dtb::replay {

struct CommandLine {
  QStringList scripts;  // files, or folders of a game
  QStringList options;  // as they were given, for a program that plays one of several scripts
  bool help = false;
  bool version = false;
  bool gestures = false;  // lists them
  bool check = false;     // plays nothing
  QString table;          // folder of a table that stays; "": one of its own
  QString program;        // folder of the program's files; "": the one that is found
  Player::Options player;
};

// Without the program's name. Throws Refused for what it does not understand, or cannot do.
[[nodiscard]] CommandLine CommandLineOf(const QStringList& arguments);

[[nodiscard]] QString HelpText();
// The forms of all gestures, one a line.
[[nodiscard]] QString GesturesText();

}  // namespace dtb::replay
