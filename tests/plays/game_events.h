// The games of an archive, line by line as they happened.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "archive/play.h"
#include "platform/archive.h"

namespace dtb::plays {

// What the archive remarks of a run.
struct RunMark {
  bool battedIn = false;        // "(RBI)"
  bool notBattedIn = false;     // "(NR)"
  bool unearned = false;        // "(UR)"
  bool unearnedOfTeam = false;  // "(TUR)": the pitcher's is earned all the same
};

struct Event {
  enum class Kind { Start, Sub, Play, Runner, Earned };
  Kind kind = Kind::Play;
  int side = 0;         // 0 for the visitors, 1 for the home team
  std::string id = {};  // of the player who enters, bats, stands on a base or pitched
  // Start, Sub
  int order = 0;
  int position = 0;
  // Play
  int inning = 0;
  std::string count = {};  // balls and strikes
  std::string text = {};
  archive::Play play = {};
  std::array<RunMark, 4> marks = {};  // by the base where the player stood; 0: the batter
  int number = 0;                     // Runner: the base. Earned: the runs
};

struct GameEvents {
  std::string id;
  std::vector<Event> events;
  std::map<std::string, std::string> info = {};  // "wp": the winning pitcher's id
};

// Throws std::runtime_error for a line that makes no sense.
[[nodiscard]] std::vector<GameEvents> ReadGames(Archive& archive);

// Where the player on a base goes in the end: a base, kHome, or kIsOut. kStays is told no more.
[[nodiscard]] int GoesTo(const archive::Play& play, int from);

// The archive credits the batter with this run: by its mark, else by the rule.
[[nodiscard]] bool IsBattedIn(const Event& event, int from, int outsBefore, bool forced);

}  // namespace dtb::plays
