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

// What counts, and how it reads; nothing for a man who has none of it.
std::optional<SeasonLeader> LeaderOf(int man, const SeasonLine& line, SeasonLead lead) {
  if (lead == SeasonLead::Average || lead == SeasonLead::EarnedRunAverage) {
    const bool batting = lead == SeasonLead::Average;
    const auto rate = batting ? BattingAverage(line) : EarnedRunAverage(line);
    if (!rate) return std::nullopt;
    return SeasonLeader{man, rate->value(), batting ? AverageText(rate) : EarnedRunText(rate)};
  }
  const double counted = line.at(EntryOf(lead).place);
  if (counted <= 0) return std::nullopt;
  return SeasonLeader{man, counted,
                      lead == SeasonLead::Innings ? InningsText(counted) : DecimalText(counted)};
}

}  // namespace

const char* LeadTitle(SeasonLead lead) { return EntryOf(lead).title; }

SeasonRole RoleOf(SeasonLead lead) { return EntryOf(lead).role; }

LeaderList Leaders(const SeasonFigures& season, SeasonLead lead, bool qualified) {
  const bool rate = lead == SeasonLead::Average || lead == SeasonLead::EarnedRunAverage;
  const SeasonRole role = RoleOf(lead);
  LeaderList list;
  std::vector<SeasonLeader>& leaders = list.first;
  for (std::size_t i = 0; i < season.men.size(); ++i) {
    const SeasonMan& man = season.men[i];
    const auto& line = man.line(role);
    if (!line ||
        (rate && qualified && !Qualified(*line, role, season.teams[man.team].games.size()))) {
      continue;
    }
    if (auto leader = LeaderOf(static_cast<int>(i), *line, lead)) {
      leaders.push_back(std::move(*leader));
    }
  }
  const bool lowestFirst = lead == SeasonLead::EarnedRunAverage;
  const auto kept = static_cast<std::ptrdiff_t>(std::min(kMostLeaders, leaders.size()));
  std::partial_sort(leaders.begin(), leaders.begin() + kept, leaders.end(),
                    [lowestFirst](const SeasonLeader& a, const SeasonLeader& b) {
                      if (a.value == b.value) return a.man < b.man;
                      return lowestFirst ? a.value < b.value : a.value > b.value;
                    });
  if (kept > 0) {
    const double last = leaders[static_cast<std::size_t>(kept) - 1].value;
    list.alsoLast = static_cast<int>(
        std::count_if(leaders.begin() + kept, leaders.end(),
                      [last](const SeasonLeader& leader) { return leader.value == last; }));
  }
  leaders.erase(leaders.begin() + kept, leaders.end());
  return list;
}

std::string MoreText(const LeaderList& list) {
  if (list.alsoLast == 0) return {};
  return "and " + std::to_string(list.alsoLast) + " more with " + list.first.back().text;
}

}  // namespace dtb
