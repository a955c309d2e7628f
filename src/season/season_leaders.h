// The best players of a season.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "season/season_figures.h"

namespace dtb {

enum class SeasonLead {
  Average,
  HomeRuns,
  RunsBattedIn,
  Runs,
  StolenBases,
  EarnedRunAverage,
  Wins,
  Saves,
  Strikeouts,  // a pitcher's
  Innings,
  Hits,  // where there is room for more than ten
};
inline constexpr std::array kSeasonLeads{SeasonLead::Average,      SeasonLead::HomeRuns,
                                         SeasonLead::RunsBattedIn, SeasonLead::Runs,
                                         SeasonLead::StolenBases,  SeasonLead::EarnedRunAverage,
                                         SeasonLead::Wins,         SeasonLead::Saves,
                                         SeasonLead::Strikeouts,   SeasonLead::Innings};
inline constexpr std::size_t kMostLeaders = 10;

// "Batting average"
[[nodiscard]] const char* LeadTitle(SeasonLead lead);
[[nodiscard]] SeasonRole RoleOf(SeasonLead lead);

struct SeasonLeader {
  int player = 0;    // his place among the players
  double value = 0;  // innings in outs
  std::string text;
};

struct LeaderList {
  std::vector<SeasonLeader> first;  // the best ten, equal ones in the order of names
  int alsoLast = 0;                 // so many more have the value of the tenth
};

// One of those who are compared, and the games of his team.
struct LeadCandidate {
  const BattingTotals* batting = nullptr;  // none: he never batted
  const PitchingTotals* pitching = nullptr;
  double teamGames = 0;
};

// What one has of it, and how it reads; nothing for whoever has none. `player` is as given.
[[nodiscard]] std::optional<SeasonLeader> LeadOf(int player, const LeadCandidate& candidate,
                                                 SeasonLead lead);

// The best of them; `player` is a place among them. As below.
[[nodiscard]] LeaderList LeadersAmong(const std::vector<LeadCandidate>& candidates, SeasonLead lead,
                                      bool qualified);

inline constexpr const char* kAverageRule =
    "For both averages: 3.1 plate appearances, that is at-bats and walks, or 1 inning, for each "
    "game "
    "of the player's team. Innings are counted in thirds.";

// With the qualification, the two averages ask for 3.1 plate appearances, which are at-bats and
// walks, or 1 inning, for each game of the player's team.
[[nodiscard]] LeaderList Leaders(const SeasonFigures& season, SeasonLead lead, bool qualified);

// What a player of the season has in that figure, "12" or ".333"; nothing where he has none of it.
[[nodiscard]] std::optional<std::string> LeaderFigure(const SeasonFigures& season,
                                                      const SeasonPlayer& player, SeasonLead lead);

// "and 3 more with 12".
[[nodiscard]] std::string MoreText(int more, const std::string& figure);
// The same; "" where all with the value of the tenth are in the list.
[[nodiscard]] std::string MoreText(const LeaderList& list);

}  // namespace dtb
