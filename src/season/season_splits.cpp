#include "season/season_splits.h"

#include <algorithm>
#include <array>
#include <map>

#include "base/letters.h"
#include "base/text_cell.h"
#include "database/rows.h"
#include "season/season_words.h"

namespace dtb {
namespace {

// What comes first in the order of a table, and how it is called there.
struct Group {
  int order = 0;
  std::string name;
  friend bool operator<(const Group& a, const Group& b) {
    if (a.order != b.order) return a.order < b.order;
    const int names = CompareNames(a.name, b.name);
    return names != 0 ? names < 0 : a.name < b.name;
  }
};

constexpr int kLast = 1'000'000;

Group GroupOf(const SeasonFigures& season, int team, const SeasonOuting& outing,
              SeasonSplit split) {
  if (split == SeasonSplit::Months) {
    const auto& day = outing.game < 0 ? outing.time : season.games[outing.game].day;
    constexpr int kMonths = 12;
    return {day ? kMonths * day->year + day->month : kLast, MonthText(day)};
  }
  if (outing.game < 0) return {kLast, "not known"};
  const auto& [visitors, home] = season.games[outing.game].sides;
  const bool atHome = home.team == team;
  if (split == SeasonSplit::Places) return {atHome ? 0 : 1, atHome ? "at home" : "away"};
  return {0, season.teams[atHome ? visitors.team : home.team].name};
}

constexpr const char* kDuelSums =
    ", SUM(Outcome NOT IN ('BB', '1ST', 'SAC')), SUM(Outcome IN ('1B', '2B', '3B', 'HR')),"
    " SUM(Outcome = '2B'), SUM(Outcome = '3B'), SUM(Outcome = 'HR'), SUM(Outcome = 'BB'),"
    " SUM(Outcome = 'K') FROM Plays WHERE Outcome IN ('1B', '2B', '3B', 'HR', 'BB', 'K', 'GO',"
    " 'FO', 'LO', 'PO', 'DP', 'FC', 'AB', '1ST', 'SAC')";

BattingTotals DuelOf(std::span<const DatabaseValue> sums) {
  constexpr std::array kMembers{&BattingTotals::atBats,    &BattingTotals::hits,
                                &BattingTotals::doubles,   &BattingTotals::triples,
                                &BattingTotals::homeRuns,  &BattingTotals::walks,
                                &BattingTotals::strikeouts};
  BattingTotals batting;
  for (std::size_t i = 0; i < kMembers.size(); ++i) batting.*kMembers.at(i) = NumberIn(sums[i]);
  return batting;
}

}  // namespace

std::vector<SplitLine> SplitOutings(const SeasonFigures& season, const SeasonSubject& subject,
                                    const std::vector<SeasonOuting>& outings, SeasonSplit split) {
  const SplitLine none{.name = "", .line = NoTotals(subject.role)};
  std::map<Group, SplitLine> groups;
  SplitLine all = none;
  all.name = "All";
  for (const SeasonOuting& outing : outings) {
    const Group group = GroupOf(season, subject.team, outing, split);
    SplitLine& own = groups.try_emplace(group, none).first->second;
    own.name = group.name;
    const int result = ResultOf(season, subject.team, outing);
    for (SplitLine* sum : {&own, &all}) {
      sum->line += outing.line;
      sum->wins += result > 0 ? 1 : 0;
      sum->losses += result < 0 ? 1 : 0;
    }
  }
  std::vector<SplitLine> lines;
  lines.reserve(groups.size() + 1);
  for (auto& [group, line] : groups) lines.push_back(std::move(line));
  lines.push_back(std::move(all));
  return lines;
}

std::vector<SplitLine> ReadDuels(DatabaseReader& database, const SeasonFigures& season,
                                 const SeasonSubject& subject, const std::stop_token& stop) {
  const bool bats = subject.role == SeasonRole::Batting;
  const std::string met = bats ? "Pitcher, Opponent" : "Batter, Team";
  Statement query{"SELECT " + met + kDuelSums + std::string(" AND ifnull(") +
                      (bats ? "Team" : "Opponent") + ", '') = ?1",
                  {season.teams[subject.team].name},
                  stop};
  if (!subject.wholeTeam) {
    query.text += std::string(" AND ifnull(") + (bats ? "Batter" : "Pitcher") + ", '') = ?2";
    query.bound.push_back(subject.player);
  }
  query.text += " GROUP BY " + met + " ORDER BY count(*) DESC, " + met + " COLLATE NAMES";
  std::vector<SplitLine> lines;
  ForEachRow(database, query, [&lines](std::span<const DatabaseValue> row) {
    lines.push_back(
        {.name = TextIn(row[0]), .team = TextIn(row[1]), .line = DuelOf(row.subspan(2))});
  });
  return lines;
}

void ForEachDuel(DatabaseReader& database, const std::function<void(const Duel&)>& take) {
  const std::string both = "Batter, Team, Pitcher, Opponent";
  const Statement query{"SELECT " + both + kDuelSums + " GROUP BY " + both +
                        " ORDER BY count(*) DESC, " + both};
  ForEachRow(database, query, [&take](std::span<const DatabaseValue> row) {
    take({TextIn(row[0]), TextIn(row[1]), TextIn(row[2]), TextIn(row[3]), DuelOf(row.subspan(4))});
  });
}

std::vector<std::vector<std::string>> SplitTable(const SeasonSubject& subject, SeasonSplit split,
                                                 const std::vector<SplitLine>& lines) {
  std::vector<std::vector<std::string>> table;
  if (split == SeasonSplit::Duels) {
    table.push_back({subject.role == SeasonRole::Batting ? "Pitcher" : "Batter", "Team", "AB", "H",
                     "2B", "3B", "HR", "BB", "K", "AVG"});
    for (const SplitLine& one : lines) {
      const auto& batting = std::get<BattingTotals>(one.line);
      auto& row = table.emplace_back(std::vector<std::string>{one.name, one.team});
      for (const double count : {batting.atBats, batting.hits, batting.doubles, batting.triples,
                                 batting.homeRuns, batting.walks, batting.strikeouts}) {
        row.push_back(DecimalText(count));
      }
      row.push_back(AverageText(BattingAverage(batting)));
    }
    return table;
  }
  std::vector<std::string>& headers = table.emplace_back();
  headers.emplace_back(split == SeasonSplit::Months ? "Month" : "");
  if (split == SeasonSplit::Opponents) headers.back() = "Opponent";
  // A pitcher has wins of his own.
  if (subject.wholeTeam) headers.insert(headers.end(), {"Won", "Lost"});
  std::ranges::copy(LineHeaders(subject.role), std::back_inserter(headers));
  for (const SplitLine& one : lines) {
    auto& row = table.emplace_back(std::vector<std::string>{one.name});
    if (subject.wholeTeam) {
      row.insert(row.end(), {std::to_string(one.wins), std::to_string(one.losses)});
    }
    std::ranges::copy(LineTexts(one.line), std::back_inserter(row));
  }
  return table;
}

}  // namespace dtb
