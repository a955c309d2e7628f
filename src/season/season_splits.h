// A team or a player, divided: by month, at home and away, against whom.
#pragma once

#include <stop_token>
#include <string>
#include <vector>

#include "season/season_outings.h"

namespace dtb {

enum class SeasonSplit {
  Months,     // of the days of the games
  Places,     // at home and away
  Opponents,  // by team
  Duels,      // by pitcher, or by batter for a pitcher; from the plays
};

// A line of such a table, not worked out yet.
struct SplitLine {
  std::string name;
  std::string team = {};  // of a duel
  int wins = 0;           // of a whole team
  int losses = 0;
  SeasonTotals line = {};
};

// By what the outings tell, which is all but duels. Months in their order, opponents by name; the
// last line is the sum.
[[nodiscard]] std::vector<SplitLine> SplitOutings(const SeasonFigures& season,
                                                  const SeasonSubject& subject,
                                                  const std::vector<SeasonOuting>& outings,
                                                  SeasonSplit split);

// Everybody whom the subject met, those with the most times at bat first: at-bats, hits, doubles,
// triples, home runs, walks and strikeouts of the batter in the games whose plays are known. Throws
// ProgramError. Any thread may call it; once a stop is asked for, it fails soon.
[[nodiscard]] std::vector<SplitLine> ReadDuels(DatabaseReader& database,
                                               const SeasonFigures& season,
                                               const SeasonSubject& subject,
                                               const std::stop_token& stop = {});

// What one batter did against one pitcher.
struct Duel {
  std::string batter;
  std::string team;  // the batter's
  std::string pitcher;
  std::string opponent;  // the pitcher's team
  BattingTotals line;
};
// Calls the function with all of them, those with the most times at bat first.
void ForEachDuel(DatabaseReader& database, const std::function<void(const Duel&)>& take);

// The texts of such a table, its header first.
[[nodiscard]] std::vector<std::vector<std::string>> SplitTable(const SeasonSubject& subject,
                                                               SeasonSplit split,
                                                               const std::vector<SplitLine>& lines);

}  // namespace dtb
