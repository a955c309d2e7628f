#include "season/season_totals.h"

#include <array>

#include "database/rows.h"
#include "database/saved_tables.h"

namespace dtb {
namespace {

// A figure, and what of a row of the database counts for it.
template <class Totals>
struct TotalFigure {
  double Totals::*member;
  const char* column;
};

constexpr std::array<TotalFigure<BattingTotals>, 9> kBatting{{
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
constexpr std::array<TotalFigure<PitchingTotals>, 6> kPitching{{
    {&PitchingTotals::outs, "round(IP * 3)"},
    {&PitchingTotals::hits, "Hits"},
    {&PitchingTotals::earnedRuns, "Runs"},
    {&PitchingTotals::homeRuns, "HR"},
    {&PitchingTotals::walks, "BB"},
    {&PitchingTotals::strikeouts, "K"},
}};

// A table of the plays, and what its rows tell of players. Text of a name that is missing is "".
template <class Totals, std::size_t size>
struct Source {
  const char* from;  // with the rows that count
  const char* team;
  const char* name;
  std::array<TotalFigure<Totals>, size> figures;
};
constexpr Source<BattingTotals, 1> kRunsScored{
    "Runs", "Team", "Runner", {{{&BattingTotals::runs, "1"}}}};
// A batter who is out leaves those who stand on base then, but not himself.
constexpr Source<BattingTotals, 2> kTimesAtBat{
    "Plays WHERE Outcome IN ('K', 'GO', 'FO', 'LO', 'PO', 'DP', 'FC')",
    "Team",
    "Batter",
    {{{&BattingTotals::intoDoublePlays, "Outcome = 'DP'"},
      {&BattingTotals::leftOnBase,
       "(ifnull(First, Batter) <> Batter) + (ifnull(Second, Batter) <> Batter)"
       " + (ifnull(Third, Batter) <> Batter)"}}}};
constexpr Source<PitchingTotals, 1> kRunsCharged{
    "Runs", "Opponent", "Pitcher", {{{&PitchingTotals::runs, "1"}}}};
constexpr Source<PitchingTotals, 3> kDecided{"Decisions",
                                             "Team",
                                             "Pitcher",
                                             {{{&PitchingTotals::wins, "Decision = 'W'"},
                                               {&PitchingTotals::losses, "Decision = 'L'"},
                                               {&PitchingTotals::saves, "Decision = 'S'"}}}};

// Calls the function with each source of a role.
template <class Function>
void WithSources(SeasonRole role, Function&& function) {
  if (role == SeasonRole::Batting) {
    function(kRunsScored);
    function(kTimesAtBat);
  } else {
    function(kRunsCharged);
    function(kDecided);
  }
}

// Calls the function with the figures of a role.
template <class Function>
auto WithFigures(SeasonRole role, Function&& function) {
  return role == SeasonRole::Batting ? function(kBatting) : function(kPitching);
}

template <class Totals, std::size_t size>
Totals Read(const std::array<TotalFigure<Totals>, size>& figures,
            std::span<const DatabaseValue> values) {
  Totals totals;
  totals.games = NumberIn(values.front());
  for (std::size_t i = 0; i < size; ++i) totals.*figures.at(i).member = NumberIn(values[i + 1]);
  return totals;
}

template <class Totals, std::size_t size>
void AddFigures(Totals& sum, const Totals& totals,
                const std::array<TotalFigure<Totals>, size>& figures) {
  for (const auto& figure : figures) sum.*figure.member += totals.*figure.member;
}

template <class Totals, std::size_t size>
Totals& Add(Totals& sum, const Totals& totals,
            const std::array<TotalFigure<Totals>, size>& figures) {
  sum.games += totals.games;
  AddFigures(sum, totals, figures);
  return sum;
}

template <class Totals, std::size_t size>
Statement StatementOf(const Source<Totals, size>& source, const PlayScope& scope) {
  const std::string team = std::string("ifnull(") + source.team + ", '')";
  const std::string name = std::string("ifnull(") + source.name + ", '')";
  Statement statement{"SELECT " + std::string(scope.byGame ? "GameID" : "''") + ", " + team + ", " +
                      name};
  for (const auto& figure : source.figures) {
    statement.text.append(", SUM(").append(figure.column).append(")");
  }
  statement.text.append(" FROM ").append(source.from);
  bool first = statement.text.find(" WHERE ") == std::string::npos;
  for (const auto& [column, wanted] : {std::pair{team, scope.team}, {name, scope.name}}) {
    if (!wanted) continue;
    statement.bound.push_back(*wanted);
    statement.text +=
        (first ? " WHERE " : " AND ") + column + " = ?" + std::to_string(statement.bound.size());
    first = false;
  }
  statement.text += std::string(" GROUP BY ") + (scope.byGame ? "GameID, " : "") + source.team +
                    ", " + source.name;
  return statement;
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
  AddFigures(sum, totals, kRunsScored.figures);
  AddFigures(sum, totals, kTimesAtBat.figures);
  return Add(sum, totals, kBatting);
}

PitchingTotals& operator+=(PitchingTotals& sum, const PitchingTotals& totals) {
  AddFigures(sum, totals, kRunsCharged.figures);
  AddFigures(sum, totals, kDecided.figures);
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

void ForEachPlayPart(DatabaseReader& database, SeasonRole role, const PlayScope& scope,
                     const std::function<void(const PlayPart&)>& take,
                     const std::stop_token& stop) {
  WithSources(role, [&]<class Totals, std::size_t size>(const Source<Totals, size>& source) {
    Statement statement = StatementOf(source, scope);
    statement.stop = stop;
    ForEachRow(database, statement, [&](std::span<const DatabaseValue> row) {
      Totals part;
      for (std::size_t i = 0; i < size; ++i) {
        part.*source.figures.at(i).member = NumberIn(row[i + 3]);
      }
      take({TextIn(row[0]), TextIn(row[1]), TextIn(row[2]), part});
    });
  });
}

std::optional<Quotient> WinningPercentage(const PitchingTotals& pitching) {
  return Rate(pitching.wins, pitching.wins + pitching.losses);
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
