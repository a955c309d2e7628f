// A team file made of a line-up.
#pragma once

#include <array>
#include <string>
#include <unordered_set>
#include <vector>

#include "archive/lineup_choice.h"
#include "archive/remarks.h"

namespace dtb::archive {

struct TeamText {
  std::string name;                  // of the team; the file is "name.txt"
  int inOrder = 0;                   // lines of the batting order
  std::string starter;               // the name of who starts as pitcher; "" if it is not told
  std::vector<std::string> lines;    // "Marcus Semien=SS R .223 7 HR"; at most 49
  std::vector<std::string> leftOut;  // names for which there was no room
  std::vector<std::string> gaps;     // what the archive does not tell: "who bats 4th"
};

// The names that a file has taken already.
using TakenNames = std::unordered_set<std::string>;

// No two lines have the same name, and none has one of `taken`: of players of one name, all but the
// first of the year's rosters get a number, "Luis Garcia (2)", which they keep whatever the
// line-up. A place of the order that the archive leaves open has a line without a name, so that the
// players after it bat where they did. Who starts as pitcher and bats for another has both remarks.
[[nodiscard]] TeamText MakeTeamText(const Season& season, int club, const LineUp& lineUp,
                                    const LineForm& form, const TakenNames& taken = {});

// Both teams of a game.
struct GameTeams {
  std::array<TeamText, 2> teams;   // visitors, home
  std::vector<std::string> alike;  // what to say of players of one name: a sentence for each pair
};

// The two share no name: the board tells players by their names alone.
[[nodiscard]] GameTeams MakeGameTeams(const Season& season, const Game& game, const LineForm& form);

// The file's bytes: UTF-8, each line with its end.
[[nodiscard]] std::string BytesOf(const TeamText& team);

// A team's name as the board takes it from its file's name, which every file system takes.
[[nodiscard]] std::string BoardName(const std::string& teamName);

// "Oakland 2020.txt".
[[nodiscard]] std::string FileNameOf(const TeamText& team);

}  // namespace dtb::archive
