#include "season/season_totals.h"

#include <array>

#include "database/rows.h"
#include "database/saved_tables.h"

namespace dtb {
namespace {

// A figure, and what of a row of the database counts for it.
template <class Totals>
struct Figure {
  double Totals::*member;
  const char* column;
};

constexpr std::array<Figure<BattingTotals>, 9> kBatting{{
    {&BattingTotals::atBats, "AB"},
    {&BattingTotals::hits, "ifnull([1B], 0) + ifnull([2B], 0) + ifnull([3B], 0) + ifnull(HR, 0)"},
    {&BattingTotals::doubles, "[2B]"},
    {&BattingTotals::triples, "[3B]"},
    {&BattingTotals::homeRuns, "HR"},
    {&BattingTotals::runsBattedIn, "RBI"},
    {&BattingTotals::walks, "BB"},
    {&BattingTotals::strikeouts, "K"},
    {&BattingTotals::stolenBases, "SB"},
}};
// Innings are stored with their thirds as .33 and .67, and none at all as .0001.
constexpr std::array<Figure<PitchingTotals>, 6> kPitching{{
    {&PitchingTotals::outs, "round(IP * 3)"},
    {&PitchingTotals::hits, "Hits"},
    {&PitchingTotals::earnedRuns, "Runs"},
    {&PitchingTotals::homeRuns, "HR"},
    {&PitchingTotals::walks, "BB"},
    {&PitchingTotals::strikeouts, "K"},
}};

// Calls the function with the figures of a role.
template <class Function>
auto WithFigures(SeasonRole role, Function&& function) {
  return role == SeasonRole::Batting ? function(kBatting) : function(kPitching);
}

template <class Totals, std::size_t size>
Totals Read(const std::array<Figure<Totals>, size>& figures,
            std::span<const DatabaseValue> values) {
  Totals totals;
  totals.games = NumberIn(values.front());
  for (std::size_t i = 0; i < size; ++i) totals.*figures.at(i).member = NumberIn(values[i + 1]);
  return totals;
}

template <class Totals, std::size_t size>
Totals& Add(Totals& sum, const Totals& totals, const std::array<Figure<Totals>, size>& figures) {
  sum.games += totals.games;
  for (const auto& figure : figures) sum.*figure.member += totals.*figure.member;
  return sum;
}

std::optional<Quotient> Rate(double part, double whole) {
  return whole > 0 ? std::optional(Quotient{part, whole}) : std::nullopt;
}

}  // namespace

SeasonTotals NoTotals(SeasonRole role) {
  if (role == SeasonRole::Batting) return BattingTotals{};
  return PitchingTotals{};
}

BattingTotals& operator+=(BattingTotals& sum, const BattingTotals& totals) {
  return Add(sum, totals, kBatting);
}

PitchingTotals& operator+=(PitchingTotals& sum, const PitchingTotals& totals) {
  return Add(sum, totals, kPitching);
}

SeasonTotals& operator+=(SeasonTotals& sum, const SeasonTotals& totals) {
  std::visit([&totals](auto& own) { own += std::get<std::decay_t<decltype(own)>>(totals); }, sum);
  return sum;
}

void SetGames(SeasonTotals& totals, double games) {
  std::visit([games](auto& own) { own.games = games; }, totals);
}

std::string TableOf(SeasonRole role) {
  return role == SeasonRole::Batting ? table::kBatting : table::kPitching;
}

std::string NameColumnOf(SeasonRole role) {
  return role == SeasonRole::Batting ? "Batter" : "Pitcher";
}

std::string SelectedSums(SeasonRole role) {
  return WithFigures(role, [](const auto& figures) {
    std::string list = "count(*)";
    for (const auto& figure : figures) list.append(", SUM(").append(figure.column).append(")");
    return list;
  });
}

std::string SelectedFigures(SeasonRole role) {
  return WithFigures(role, [](const auto& figures) {
    std::string list = "1";
    for (const auto& figure : figures) list.append(", ").append(figure.column);
    return list;
  });
}

SeasonTotals TotalsOf(std::span<const DatabaseValue> values, SeasonRole role) {
  return WithFigures(role,
                     [values](const auto& figures) { return SeasonTotals(Read(figures, values)); });
}

std::optional<Quotient> BattingAverage(const BattingTotals& batting) {
  return Rate(batting.hits, batting.atBats);
}

std::optional<Quotient> SluggingAverage(const BattingTotals& batting) {
  return Rate(batting.hits + batting.doubles + 2 * batting.triples + 3 * batting.homeRuns,
              batting.atBats);
}

std::optional<Quotient> EarnedRunAverage(const PitchingTotals& pitching) {
  constexpr double kOutsOfNineInnings = 27;
  return Rate(kOutsOfNineInnings * pitching.earnedRuns, pitching.outs);
}

}  // namespace dtb
