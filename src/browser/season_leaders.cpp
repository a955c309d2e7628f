#include "browser/season_leaders.h"

#include <algorithm>

#include "browser/season_words.h"
#include "game/text_cell.h"

namespace dtb {
namespace {

struct LeadEntry {
  const char* title;
  SeasonRole role;
  std::size_t place;  // of what is counted; averages have a rule of their own
};

// In the order of SeasonLead.
constexpr std::array<LeadEntry, kSeasonLeads.size()> kEntries{{
    {"Batting average", SeasonRole::Batting, batting_line::kHits},
    {"Home runs", SeasonRole::Batting, batting_line::kHomeRuns},
    {"Runs batted in", SeasonRole::Batting, batting_line::kRunsBattedIn},
    {"Stolen bases", SeasonRole::Batting, batting_line::kStolenBases},
    {"Earned run average", SeasonRole::Pitching, pitching_line::kEarnedRuns},
    {"Strikeouts", SeasonRole::Pitching, pitching_line::kStrikeouts},
    {"Innings", SeasonRole::Pitching, pitching_line::kOuts},
}};

const LeadEntry& EntryOf(SeasonLead lead) { return kEntries.at(static_cast<std::size_t>(lead)); }

bool Qualified(const SeasonLine& line, SeasonRole role, std::size_t games) {
  constexpr double kPlateAppearances = 3.1;
  constexpr double kOuts = 3;
  if (role == SeasonRole::Pitching) return line[pitching_line::kOuts] >= kOuts * double(games);
  return line[batting_line::kAtBats] + line[batting_line::kWalks] >=
         kPlateAppearances * double(games);
}

std::optional<double> ValueOf(const SeasonLine& line, SeasonLead lead) {
  if (lead == SeasonLead::Average) return BattingAverage(line);
  if (lead == SeasonLead::EarnedRunAverage) return EarnedRunAverage(line);
  const double counted = line.at(EntryOf(lead).place);
  return counted > 0 ? std::optional(counted) : std::nullopt;
}

std::string TextOf(double value, SeasonLead lead) {
  switch (lead) {
    case SeasonLead::Average:
      return AverageText(value);
    case SeasonLead::EarnedRunAverage:
      return EarnedRunText(value);
    case SeasonLead::Innings:
      return InningsText(value);
    default:
      return DecimalText(value);
  }
}

}  // namespace

const char* LeadTitle(SeasonLead lead) { return EntryOf(lead).title; }

SeasonRole RoleOf(SeasonLead lead) { return EntryOf(lead).role; }

std::vector<SeasonLeader> Leaders(const SeasonFigures& season, SeasonLead lead, bool qualified) {
  const bool rate = lead == SeasonLead::Average || lead == SeasonLead::EarnedRunAverage;
  const SeasonRole role = RoleOf(lead);
  std::vector<SeasonLeader> leaders;
  for (std::size_t i = 0; i < season.men.size(); ++i) {
    const SeasonMan& man = season.men[i];
    const auto& line = man.line(role);
    if (!line ||
        (rate && qualified && !Qualified(*line, role, season.teams[man.team].games.size()))) {
      continue;
    }
    if (const auto value = ValueOf(*line, lead)) {
      leaders.push_back({static_cast<int>(i), *value, {}});
    }
  }
  const bool lowestFirst = lead == SeasonLead::EarnedRunAverage;
  const auto first = leaders.begin();
  const auto kept = first + static_cast<std::ptrdiff_t>(std::min(kMostLeaders, leaders.size()));
  std::partial_sort(first, kept, leaders.end(),
                    [lowestFirst](const SeasonLeader& a, const SeasonLeader& b) {
                      if (a.value == b.value) return a.man < b.man;
                      return lowestFirst ? a.value < b.value : a.value > b.value;
                    });
  leaders.erase(kept, leaders.end());
  for (SeasonLeader& leader : leaders) leader.text = TextOf(leader.value, lead);
  return leaders;
}

}  // namespace dtb
