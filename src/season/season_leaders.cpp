#include "season/season_leaders.h"

#include <algorithm>
#include <variant>

#include "base/text_cell.h"
#include "season/season_words.h"

namespace dtb {
namespace {

using Figure = std::variant<double BattingTotals::*, double PitchingTotals::*>;

struct LeadEntry {
  const char* title;
  Figure counted;  // averages have a rule of their own
};

// In the order of SeasonLead.
constexpr std::array<LeadEntry, kSeasonLeads.size()> kEntries{{
    {"Batting average", &BattingTotals::hits},
    {"Home runs", &BattingTotals::homeRuns},
    {"Runs batted in", &BattingTotals::runsBattedIn},
    {"Runs", &BattingTotals::runs},
    {"Stolen bases", &BattingTotals::stolenBases},
    {"Earned run average", &PitchingTotals::earnedRuns},
    {"Wins", &PitchingTotals::wins},
    {"Saves", &PitchingTotals::saves},
    {"Strikeouts", &PitchingTotals::strikeouts},
    {"Innings", &PitchingTotals::outs},
}};

const LeadEntry& EntryOf(SeasonLead lead) { return kEntries.at(static_cast<std::size_t>(lead)); }

bool IsRate(SeasonLead lead) {
  return lead == SeasonLead::Average || lead == SeasonLead::EarnedRunAverage;
}

bool Qualified(const SeasonPlayer& man, SeasonRole role, std::size_t games) {
  constexpr double kPlateAppearances = 3.1;
  constexpr double kOuts = 3;
  if (role == SeasonRole::Pitching) return man.pitching->outs >= kOuts * double(games);
  return man.batting->atBats + man.batting->walks >= kPlateAppearances * double(games);
}

// What counts, and how it reads; nothing for a player who has none of it.
std::optional<SeasonLeader> LeaderOf(int place, const SeasonPlayer& man, SeasonLead lead) {
  if (lead == SeasonLead::Average) {
    const auto rate = BattingAverage(*man.batting);
    if (rate) return SeasonLeader{place, rate->value(), AverageText(rate)};
    return std::nullopt;
  }
  if (lead == SeasonLead::EarnedRunAverage) {
    const auto rate = EarnedRunAverage(*man.pitching);
    if (rate) return SeasonLeader{place, rate->value(), EarnedRunText(rate)};
    return std::nullopt;
  }
  const Figure& figure = EntryOf(lead).counted;
  const auto* batting = std::get_if<double BattingTotals::*>(&figure);
  const double counted = batting != nullptr
                             ? *man.batting.*(*batting)
                             : *man.pitching.*std::get<double PitchingTotals::*>(figure);
  if (counted <= 0) return std::nullopt;
  return SeasonLeader{place, counted,
                      lead == SeasonLead::Innings ? DecimalInnings(counted) : DecimalText(counted)};
}

}  // namespace

const char* LeadTitle(SeasonLead lead) { return EntryOf(lead).title; }

SeasonRole RoleOf(SeasonLead lead) {
  const bool batting = std::holds_alternative<double BattingTotals::*>(EntryOf(lead).counted);
  return batting ? SeasonRole::Batting : SeasonRole::Pitching;
}

LeaderList Leaders(const SeasonFigures& season, SeasonLead lead, bool qualified) {
  const SeasonRole role = RoleOf(lead);
  LeaderList list;
  std::vector<SeasonLeader>& leaders = list.first;
  for (std::size_t i = 0; i < season.players.size(); ++i) {
    const SeasonPlayer& man = season.players[i];
    if (!man.has(role) ||
        (IsRate(lead) && qualified && !Qualified(man, role, season.teams[man.team].games.size()))) {
      continue;
    }
    if (auto leader = LeaderOf(static_cast<int>(i), man, lead)) {
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

std::optional<std::string> LeaderFigure(const SeasonPlayer& man, SeasonLead lead) {
  if (!man.has(RoleOf(lead))) return std::nullopt;
  const auto leader = LeaderOf(0, man, lead);
  return leader ? std::optional(leader->text) : std::nullopt;
}

std::string MoreText(const LeaderList& list) {
  if (list.alsoLast == 0) return {};
  return "and " + std::to_string(list.alsoLast) + " more with " + list.first.back().text;
}

}  // namespace dtb
