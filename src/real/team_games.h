// One team, game by game, in both worlds.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "real/both_worlds.h"

namespace dtb::real {

// By GameID, as ArchiveIdsOfGames reads them.
using ArchiveIds = std::unordered_map<std::string, std::string>;

// A game of the real calendar, and what became of it on the board; or one that is none of the
// calendar.
struct TeamGame {
  std::optional<int> day = {};      // as archive::DayOf has it
  std::string opponent = {};        // "at Houston 2020"
  int replayed = -1;                // of SeasonFigures::games; -1: not played yet
  int real = -1;                    // of archive::Season::games; -1: not in the archive
  std::string replayedText = {};    // "W 5-3"
  std::string reallyText = {};      // "L 2-4"; "" where the archive does not tell it
  std::string replayedRecord = {};  // "20-17", up to this game in the order of this list
  std::string reallyRecord = {};
};

// The club's calendar in order, each game with its replay (of several the last one), then those of
// the team's games that are none of the calendar's.
[[nodiscard]] std::vector<TeamGame> GamesOfTeam(const BothWorlds& worlds, const ArchiveIds& ids,
                                                int team);

// Texts of the list, its header first.
[[nodiscard]] std::vector<std::vector<std::string>> GamesTable(const std::vector<TeamGame>& games);

// Games above .500 before the first game and after each, in both worlds; the real one to the end of
// the year. A real game whose result is not told changes nothing.
struct BothCourses {
  std::vector<int> replayed;
  std::vector<int> really;
};
[[nodiscard]] BothCourses CoursesOf(const BothWorlds& worlds, int team);

}  // namespace dtb::real
