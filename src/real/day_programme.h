// A day of the real calendar as a programme: its games, what became of them on the board, and the
// standings of both worlds in the evening.
#pragma once

#include <string>
#include <vector>

#include "real/both_standings.h"
#include "real/team_games.h"

namespace dtb::real {

struct DayGame {
  int real = 0;       // of archive::Season::games
  int replayed = -1;  // of SeasonFigures::games, of several the last; -1: not played yet
};

struct DayProgramme {
  int day = 0;  // as archive::DayOf has it
  std::vector<DayGame> games;
};
[[nodiscard]] DayProgramme ProgrammeOf(const BothWorlds& worlds, const ArchiveIds& ids, int day);

// The nearest day before (step -1) or after (step 1) on which there are games; the day itself where
// there is none.
[[nodiscard]] int DayBeside(const archive::Season& season, int day, int step);

// The day of the next game of a club (archive::kAllClubs: of all) that is not played; of the last
// game where all are. `played`: of each game of the archive, which has some.
[[nodiscard]] int DayToPlay(const archive::Season& season, const std::vector<bool>& played,
                            int club);

// "7 Aug 2020: 15 games, 3 played"
[[nodiscard]] std::string ProgrammeTitle(const DayProgramme& programme);

// Texts of the list, its header first; the last column of a game says "Play" or "Play again".
[[nodiscard]] std::vector<std::vector<std::string>> ProgrammeTable(const BothWorlds& worlds,
                                                                   const DayProgramme& programme);
inline constexpr int kPlayColumn = 5;  // of the texts

// For a forum, in lines of at most 65 letters, behind the games that were played: those that were
// not, how all of them really ended, and the standings of both worlds.
[[nodiscard]] std::string ProgrammeText(const BothWorlds& worlds, const DayProgramme& programme,
                                        const BothStandings& standings);

}  // namespace dtb::real
