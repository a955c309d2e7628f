#include "season/season_outings.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "base/text_cell.h"
#include "base/time_stamp.h"
#include "database/rows.h"
#include "season/season_words.h"

namespace dtb {
namespace {

// Places of the team's games by their GameID.
std::unordered_map<std::string_view, int> GamesOf(const SeasonFigures& season, int team) {
  std::unordered_map<std::string_view, int> games;
  for (const int game : season.teams[team].games) games.emplace(season.games[game].id, game);
  return games;
}

Statement StatementOf(const SeasonFigures& season, const SeasonSubject& subject,
                      const std::stop_token& stop) {
  Statement statement{"SELECT GameID, " + SelectedSums(subject.role) + " FROM " +
                          TableOf(subject.role) + " WHERE ifnull(Team, '') = ?1",
                      {season.teams[subject.team].name},
                      stop};
  if (!subject.wholeTeam) {
    statement.text += " AND ifnull(" + NameColumnOf(subject.role) + ", '') = ?2";
    statement.bound.push_back(subject.man);
  }
  statement.text += " GROUP BY GameID";
  return statement;
}

}  // namespace

std::optional<SeasonSubject> FoundAgain(const SeasonFigures& season, const SeasonSubject& subject,
                                        const SeasonFigures& in) {
  const std::string& name = season.teams.at(static_cast<std::size_t>(subject.team)).name;
  const auto team = std::ranges::find(in.teams, name, &SeasonTeam::name);
  if (team == in.teams.end()) return std::nullopt;
  SeasonSubject found = subject;
  found.team = static_cast<int>(team - in.teams.begin());
  if (subject.wholeTeam) return found;
  const auto man = std::ranges::find_if(in.players, [&found](const SeasonPlayer& one) {
    return one.team == found.team && one.name == found.man;
  });
  if (man == in.players.end()) return std::nullopt;
  if (!man->has(found.role)) {
    found.role = man->batting ? SeasonRole::Batting : SeasonRole::Pitching;
  }
  return found;
}

void SettleOutings(const SeasonFigures& season, const SeasonSubject& subject,
                   std::vector<SeasonOuting>& outings) {
  const auto games = GamesOf(season, subject.team);
  std::unordered_set<int> told;
  for (SeasonOuting& outing : outings) {
    const auto game = games.find(outing.id);
    outing.game = game == games.end() ? -1 : game->second;
    outing.time = TimeOfStamp(outing.id);
    told.insert(outing.game);
  }
  if (subject.wholeTeam) {
    for (const int game : season.teams[subject.team].games) {
      if (!told.insert(game).second) continue;
      outings.push_back(
          {season.games[game].id, season.games[game].time, game, NoTotals(subject.role)});
    }
  }
  std::ranges::stable_sort(outings, [](const SeasonOuting& a, const SeasonOuting& b) {
    if (IsEarlier(a.time, b.time) || IsEarlier(b.time, a.time)) return IsEarlier(a.time, b.time);
    return a.game < b.game;
  });
  SeasonTotals total = NoTotals(subject.role);
  for (SeasonOuting& outing : outings) {
    SetGames(outing.line, 1);  // whatever the number of rows
    outing.total = total += outing.line;
  }
}

std::vector<SeasonOuting> ReadOutings(Database& database, const SeasonFigures& season,
                                      const SeasonSubject& subject, const std::stop_token& stop) {
  std::vector<SeasonOuting> outings;
  ForEachRow(database, StatementOf(season, subject, stop), [&](std::span<const DatabaseValue> row) {
    SeasonOuting& outing = outings.emplace_back();
    outing.id = TextIn(row.front());
    outing.line = TotalsOf(row.subspan(1), subject.role);
  });
  SettleOutings(season, subject, outings);
  return outings;
}

int ResultOf(const SeasonFigures& season, int team, const SeasonOuting& outing) {
  if (outing.game < 0) return 0;
  const auto& [visitors, home] = season.games[outing.game].sides;
  if (visitors.team == home.team || visitors.runs == home.runs) return 0;
  return (visitors.runs > home.runs) == (visitors.team == team) ? 1 : -1;
}

std::optional<Quotient> RateOf(const SeasonTotals& line) {
  const auto* batting = std::get_if<BattingTotals>(&line);
  return batting != nullptr ? BattingAverage(*batting)
                            : EarnedRunAverage(std::get<PitchingTotals>(line));
}

std::string RateText(const SeasonTotals& line) {
  const auto rate = RateOf(line);
  return std::holds_alternative<BattingTotals>(line) ? AverageText(rate) : EarnedRunText(rate);
}

std::string OutingText(const SeasonTotals& line) {
  if (const auto* pitching = std::get_if<PitchingTotals>(&line)) {
    return DecimalInnings(pitching->outs) + " innings, " + DecimalText(pitching->earnedRuns) +
           " ER, " + DecimalText(pitching->strikeouts) + " K";
  }
  const auto& batting = std::get<BattingTotals>(line);
  std::string text = DecimalText(batting.hits) + " for " + DecimalText(batting.atBats);
  const auto add = [&](double count, const char* what) {
    if (count > 0) text += ", " + DecimalText(count) + what;
  };
  add(batting.homeRuns, " HR");
  add(batting.runsBattedIn, " RBI");
  add(batting.stolenBases, " SB");
  return text;
}

std::vector<std::string> LineHeaders(SeasonRole role) {
  if (role == SeasonRole::Pitching) return {"G", "IP", "H", "ER", "HR", "BB", "K", "ERA"};
  return {"G", "AB", "H", "2B", "3B", "HR", "RBI", "BB", "K", "SB", "AVG", "SLG"};
}

std::vector<std::string> LineTexts(const SeasonTotals& line) {
  std::vector<std::string> texts;
  const auto add = [&texts](std::initializer_list<double> counts) {
    for (const double count : counts) texts.push_back(DecimalText(count));
  };
  if (const auto* pitching = std::get_if<PitchingTotals>(&line)) {
    add({pitching->games});
    texts.push_back(DecimalInnings(pitching->outs));
    add({pitching->hits, pitching->earnedRuns, pitching->homeRuns, pitching->walks,
         pitching->strikeouts});
    texts.push_back(RateText(line));
    return texts;
  }
  const auto& batting = std::get<BattingTotals>(line);
  add({batting.games, batting.atBats, batting.hits, batting.doubles, batting.triples,
       batting.homeRuns, batting.runsBattedIn, batting.walks, batting.strikeouts,
       batting.stolenBases});
  texts.push_back(RateText(line));
  texts.push_back(AverageText(SluggingAverage(batting)));
  return texts;
}

std::vector<std::vector<std::string>> MonthTable(const SeasonFigures& season,
                                                 const SeasonSubject& subject,
                                                 const std::vector<SeasonOuting>& outings) {
  struct Sum {
    std::string month;
    int wins = 0;
    int losses = 0;
    SeasonTotals line;
  };
  const SeasonTotals none = NoTotals(subject.role);
  std::vector<Sum> sums;
  Sum all{.month = "All", .line = none};
  const auto add = [](Sum& sum, const SeasonOuting& outing, int result) {
    sum.line += outing.line;
    sum.wins += result > 0 ? 1 : 0;
    sum.losses += result < 0 ? 1 : 0;
  };
  for (const SeasonOuting& outing : outings) {
    const std::string month = MonthText(outing.time);
    if (sums.empty() || sums.back().month != month) sums.push_back({.month = month, .line = none});
    const int result = ResultOf(season, subject.team, outing);
    add(sums.back(), outing, result);
    add(all, outing, result);
  }
  sums.push_back(all);
  std::vector<std::string> headers{"Month"};
  if (subject.wholeTeam) headers.insert(headers.end(), {"W", "L"});
  std::ranges::copy(LineHeaders(subject.role), std::back_inserter(headers));
  std::vector<std::vector<std::string>> table{headers};
  for (const Sum& sum : sums) {
    std::vector<std::string> row{sum.month};
    if (subject.wholeTeam) {
      row.insert(row.end(), {std::to_string(sum.wins), std::to_string(sum.losses)});
    }
    std::ranges::copy(LineTexts(sum.line), std::back_inserter(row));
    table.push_back(std::move(row));
  }
  return table;
}

}  // namespace dtb
