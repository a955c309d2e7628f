// Makes table scripts of an archive's games, with the figures that the board must come to while it
// keeps the bases.
#pragma once

#include <string>
#include <vector>

#include "archive/season.h"
#include "plays/base_board.h"
#include "plays/scorebook.h"

namespace dtb::plays {

// What the board cannot know: its figure is more than the archive's by `delta`.
struct Difference {
  Figure figure;
  int delta = 0;
  std::string play;  // "3 home: S8.3-H(RBI)"; "" for what builds up over a game
  std::string why;
};

struct GameScript {
  std::string id;
  std::array<std::string, 2> teams;      // as the board names them
  std::array<std::string, 2> teamFiles;  // their text
  std::vector<std::string> gestures;
  int plays = 0;
  Figures board;    // as the model of the board comes to
  Figures archive;  // as the scorebook does
  std::array<bool, 2> finished{};
  std::array<std::vector<std::string>, 2> pitchers;  // in their order
  Earned earned = Earned::All;                       // the board's rule
  std::vector<Difference> differences;
  // What the archive's scorer decided: by "W", "L" and "S" the board's name for the pitcher.
  std::map<std::string, std::string> decisions;
};

// Throws std::runtime_error, with the play, for a game that cannot be played on the board.
[[nodiscard]] GameScript MakeScript(const archive::Season& season, const GameEvents& game,
                                    Earned earned);

// The text of expected.txt.
[[nodiscard]] std::string ExpectedText(const GameScript& script);

// The players of a team file.
[[nodiscard]] std::vector<std::string> PlayersIn(const std::string& teamFile);

// What the board comes to with these gestures.
[[nodiscard]] BaseBoard Replay(const GameScript& script);

}  // namespace dtb::plays
