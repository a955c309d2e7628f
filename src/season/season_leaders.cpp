#include "season/season_leaders.h"

#include <algorithm>
#include <variant>

#include "base/text_cell.h"
#include "season/season_words.h"

namespace dtb {
namespace {

using CountedFigure = std::variant<double BattingTotals::*, double PitchingTotals::*>;

struct LeadEntry {
  const char* title;
  CountedFigure counted;  // averages have a rule of their own
};

// In the order of SeasonLead.
constexpr std::array<LeadEntry, kSeasonLeads.size() + 1> kEntries{{
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
    {"Hits", &BattingTotals::hits},
}};

const LeadEntry& EntryOf(SeasonLead lead) { return kEntries.at(static_cast<std::size_t>(lead)); }

bool IsRate(SeasonLead lead) {
  return lead == SeasonLead::Average || lead == SeasonLead::EarnedRunAverage;
}

bool Qualified(const LeadCandidate& player, SeasonRole role) {
  constexpr double kPlateAppearances = 3.1;
  constexpr double kOuts = 3;
  if (role == SeasonRole::Pitching) return player.pitching->outs >= kOuts * player.teamGames;
  return player.batting->atBats + player.batting->walks >= kPlateAppearances * player.teamGames;
}

bool Has(const LeadCandidate& player, SeasonRole role) {
  return role == SeasonRole::Batting ? player.batting != nullptr : player.pitching != nullptr;
}

}  // namespace

const char* LeadTitle(SeasonLead lead) { return EntryOf(lead).title; }

SeasonRole RoleOf(SeasonLead lead) {
  const bool batting = std::holds_alternative<double BattingTotals::*>(EntryOf(lead).counted);
  return batting ? SeasonRole::Batting : SeasonRole::Pitching;
}

LeadCandidate CandidateOf(const SeasonFigures& season, const SeasonPlayer& player) {
  return {player.batting ? &*player.batting : nullptr,
          player.pitching ? &*player.pitching : nullptr,
          double(season.teams[player.team].games.size())};
}

std::optional<SeasonLeader> LeadOf(int player, const LeadCandidate& candidate, SeasonLead lead) {
  if (!Has(candidate, RoleOf(lead))) return std::nullopt;
  if (lead == SeasonLead::Average) {
    const auto rate = BattingAverage(*candidate.batting);
    if (rate) return SeasonLeader{player, rate->value(), AverageText(rate)};
    return std::nullopt;
  }
  if (lead == SeasonLead::EarnedRunAverage) {
    const auto rate = EarnedRunAverage(*candidate.pitching);
    if (rate) return SeasonLeader{player, rate->value(), EarnedRunText(rate)};
    return std::nullopt;
  }
  const CountedFigure& figure = EntryOf(lead).counted;
  const auto* batting = std::get_if<double BattingTotals::*>(&figure);
  const double counted = batting != nullptr
                             ? candidate.batting->**batting
                             : candidate.pitching->*std::get<double PitchingTotals::*>(figure);
  if (counted <= 0) return std::nullopt;
  return SeasonLeader{player, counted,
                      lead == SeasonLead::Innings ? DecimalInnings(counted) : DecimalText(counted)};
}

LeaderList LeadersAmong(const std::vector<LeadCandidate>& candidates, SeasonLead lead,
                        bool qualified) {
  const SeasonRole role = RoleOf(lead);
  LeaderList list;
  std::vector<SeasonLeader>& leaders = list.first;
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    const LeadCandidate& player = candidates[i];
    if (!Has(player, role) || (IsRate(lead) && qualified && !Qualified(player, role))) continue;
    if (auto leader = LeadOf(static_cast<int>(i), player, lead)) {
      leaders.push_back(std::move(*leader));
    }
  }
  const bool lowestFirst = lead == SeasonLead::EarnedRunAverage;
  const auto kept = static_cast<std::ptrdiff_t>(std::min(kMostLeaders, leaders.size()));
  std::partial_sort(leaders.begin(), leaders.begin() + kept, leaders.end(),
                    [lowestFirst](const SeasonLeader& a, const SeasonLeader& b) {
                      if (a.value == b.value) return a.player < b.player;
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

LeaderList Leaders(const SeasonFigures& season, SeasonLead lead, bool qualified) {
  std::vector<LeadCandidate> candidates;
  candidates.reserve(season.players.size());
  for (const SeasonPlayer& player : season.players) {
    candidates.push_back(CandidateOf(season, player));
  }
  return LeadersAmong(candidates, lead, qualified);
}

std::optional<std::string> LeaderFigure(const SeasonFigures& season, const SeasonPlayer& player,
                                        SeasonLead lead) {
  const auto leader = LeadOf(0, CandidateOf(season, player), lead);
  return leader ? std::optional(leader->text) : std::nullopt;
}

std::string MoreText(int more, const std::string& figure) {
  return "and " + std::to_string(more) + " more with " + figure;
}

std::string MoreText(const LeaderList& list) {
  return list.alsoLast == 0 ? std::string() : MoreText(list.alsoLast, list.first.back().text);
}

}  // namespace dtb
