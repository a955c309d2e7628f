#include "browser/season_outings.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "browser/season_words.h"
#include "game/text_cell.h"
#include "sheet/stat_grid.h"
#include "shell/time_stamp.h"

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
  const bool batting = subject.role == SeasonRole::Batting;
  Statement statement{"SELECT GameID, " + SeasonSums(subject.role) + " FROM " +
                          (batting ? "Batting" : "Pitching") + " WHERE ifnull(Team, '') = ?1",
                      {season.teams[subject.team].name},
                      stop};
  if (!subject.wholeTeam) {
    statement.text += std::string(" AND ifnull(") + (batting ? "Batter" : "Pitcher") + ", '') = ?2";
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
  const auto man = std::ranges::find_if(in.men, [&found](const SeasonMan& one) {
    return one.team == found.team && one.name == found.man;
  });
  if (man == in.men.end()) return std::nullopt;
  if (!man->line(found.role)) {
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
      outings.push_back({season.games[game].id, season.games[game].time, game});
    }
  }
  std::ranges::stable_sort(outings, [](const SeasonOuting& a, const SeasonOuting& b) {
    if (IsEarlier(a.time, b.time) || IsEarlier(b.time, a.time)) return IsEarlier(a.time, b.time);
    return a.game < b.game;
  });
  SeasonLine total{};
  for (SeasonOuting& outing : outings) {
    // Whatever the number of rows.
    outing.line[batting_line::kGames] = 1;
    outing.total = total += outing.line;
  }
}

std::vector<SeasonOuting> ReadOutings(Database& database, const SeasonFigures& season,
                                      const SeasonSubject& subject, const std::stop_token& stop) {
  StatGrid rows(1, 1);
  database.Run(StatementOf(season, subject, stop), rows);
  std::vector<SeasonOuting> outings;
  for (int row = 1; row < rows.rows(); ++row) {
    SeasonOuting outing;
    outing.id = rows.Text(row, 1);
    outing.line = SeasonLineOf(rows, row, 2, subject.role);
    outings.push_back(std::move(outing));
  }
  SettleOutings(season, subject, outings);
  return outings;
}

int ResultOf(const SeasonFigures& season, int team, const SeasonOuting& outing) {
  if (outing.game < 0) return 0;
  const auto& [visitors, home] = season.games[outing.game].sides;
  if (visitors.team == home.team || visitors.runs == home.runs) return 0;
  return (visitors.runs > home.runs) == (visitors.team == team) ? 1 : -1;
}

std::optional<Quotient> RateOf(const SeasonLine& line, SeasonRole role) {
  return role == SeasonRole::Batting ? BattingAverage(line) : EarnedRunAverage(line);
}

std::string RateText(const SeasonLine& line, SeasonRole role) {
  const auto rate = RateOf(line, role);
  return role == SeasonRole::Batting ? AverageText(rate) : EarnedRunText(rate);
}

std::string OutingText(const SeasonLine& line, SeasonRole role) {
  std::string text;
  if (role == SeasonRole::Pitching) {
    return InningsText(line[pitching_line::kOuts]) + " innings, " +
           DecimalText(line[pitching_line::kEarnedRuns]) + " ER, " +
           DecimalText(line[pitching_line::kStrikeouts]) + " K";
  }
  text =
      DecimalText(line[batting_line::kHits]) + " for " + DecimalText(line[batting_line::kAtBats]);
  const auto add = [&](std::size_t place, const char* what) {
    if (line.at(place) > 0) text += ", " + DecimalText(line.at(place)) + what;
  };
  add(batting_line::kHomeRuns, " HR");
  add(batting_line::kRunsBattedIn, " RBI");
  add(batting_line::kStolenBases, " SB");
  return text;
}

std::vector<std::string> LineHeaders(SeasonRole role) {
  if (role == SeasonRole::Pitching) return {"G", "IP", "H", "ER", "HR", "BB", "K", "ERA"};
  return {"G", "AB", "H", "2B", "3B", "HR", "RBI", "BB", "K", "SB", "AVG", "SLG"};
}

std::vector<std::string> LineTexts(const SeasonLine& line, SeasonRole role) {
  const bool pitching = role == SeasonRole::Pitching;
  std::vector<std::string> texts;
  const std::size_t places = LineHeaders(role).size() - (pitching ? 1 : 2);
  for (std::size_t place = 0; place < places; ++place) {
    const bool innings = pitching && place == pitching_line::kOuts;
    texts.push_back(innings ? InningsText(line.at(place)) : DecimalText(line.at(place)));
  }
  texts.push_back(RateText(line, role));
  if (!pitching) texts.push_back(AverageText(SluggingAverage(line)));
  return texts;
}

std::vector<std::vector<std::string>> MonthTable(const SeasonFigures& season,
                                                 const SeasonSubject& subject,
                                                 const std::vector<SeasonOuting>& outings) {
  struct Sum {
    std::string month;
    int wins = 0;
    int losses = 0;
    SeasonLine line = {};
  };
  std::vector<Sum> sums;
  Sum all{"All"};
  const auto add = [](Sum& sum, const SeasonOuting& outing, int result) {
    sum.line += outing.line;
    sum.wins += result > 0 ? 1 : 0;
    sum.losses += result < 0 ? 1 : 0;
  };
  for (const SeasonOuting& outing : outings) {
    const std::string month = MonthText(outing.time);
    if (sums.empty() || sums.back().month != month) sums.push_back({month});
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
    std::ranges::copy(LineTexts(sum.line, subject.role), std::back_inserter(row));
    table.push_back(std::move(row));
  }
  return table;
}

}  // namespace dtb
