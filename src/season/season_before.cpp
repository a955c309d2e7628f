#include "season/season_before.h"

#include <array>
#include <optional>
#include <string>

#include "base/time_stamp.h"
#include "database/rows.h"
#include "season/season_figures.h"

namespace dtb {
namespace {

// Whether the game of a GameID was played before another one.
class Earlier {
 public:
  explicit Earlier(const std::string& id) : id_(id), time_(TimeOfStamp(id)) {}
  bool operator()(const std::string& id) const {
    return id_.empty() || (id != id_ && IsEarlier(TimeOfStamp(id), time_));
  }

 private:
  std::string id_;
  std::optional<LocalTime> time_;
};

constexpr const char* kBattingToDate =
    "SELECT GameID, Batter, AB, [1B], [2B], [3B], HR, RBI, BB, K, SB FROM Batting"
    " WHERE ifnull(Team, '') = ?1";
constexpr const char* kPitchingToDate =
    "SELECT GameID, Pitcher, round(IP * 3), Hits, Runs, BB, K, HR FROM Pitching"
    " WHERE ifnull(Team, '') = ?1";
constexpr const char* kDecisions =
    "SELECT GameID, Pitcher, Decision FROM Decisions WHERE ifnull(Team, '') = ?1";

// Adds the numbers of a row from its third column on to the members, in their order.
template <class Figures, std::size_t size>
void Add(Figures& figures, const std::array<double Figures::*, size>& members,
         std::span<const DatabaseValue> row) {
  for (std::size_t i = 0; i < size; ++i) figures.*members.at(i) += NumberIn(row[i + 2]);
}

}  // namespace

SeasonToDate ReadSeasonBefore(DatabaseReader& database, const GameRecord& game,
                              const std::stop_token& stop) {
  using B = BatterFigures;
  using P = PitcherFigures;
  constexpr std::array kBatted{&B::atBats,  &B::singles,    &B::doubles,
                               &B::triples, &B::homeRuns,   &B::runsBattedIn,
                               &B::walks,   &B::strikeouts, &B::steals};
  constexpr std::array kPitched{&P::outs,  &P::hits,       &P::earnedRuns,
                                &P::walks, &P::strikeouts, &P::homeRuns};
  SeasonToDate season;
  const Earlier before(game.id);
  for (const SideRecord& side : game.sides) {
    const auto read = [&](const char* query, auto add) {
      ForEachRow(database, {query, {side.team}, stop}, [&](std::span<const DatabaseValue> row) {
        if (before(TextIn(row[0]))) add(season.Of(side.team, TextIn(row[1])), row);
      });
    };
    read(kBattingToDate,
         [&](PlayerToDate& player, auto row) { Add(player.batting, kBatted, row); });
    read(kPitchingToDate,
         [&](PlayerToDate& player, auto row) { Add(player.pitching, kPitched, row); });
    read(kDecisions, [&](PlayerToDate& player, auto row) {
      const std::string code = TextIn(row[2]);
      for (const Decision decision : kAllDecisions) {
        if (code == DecisionCode(decision)) ++player.decisions[decision];
      }
    });
    if (game.sides[0].team == game.sides[1].team) break;
  }
  return season;
}

}  // namespace dtb
