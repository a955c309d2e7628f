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
    statement.bound.push_back(subject.player);
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
  const auto player = std::ranges::find_if(in.players, [&found](const SeasonPlayer& one) {
    return one.team == found.team && one.name == found.player;
  });
  if (player == in.players.end()) return std::nullopt;
  if (!player->has(found.role)) {
    found.role = player->batting ? SeasonRole::Batting : SeasonRole::Pitching;
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
  std::unordered_map<std::string_view, std::size_t> places;
  for (std::size_t i = 0; i < outings.size(); ++i) places.emplace(outings[i].id, i);
  PlayScope scope{.byGame = true, .team = season.teams[subject.team].name};
  if (!subject.wholeTeam) scope.name = subject.player;
  ForEachPlayPart(
      database, subject.role, scope,
      [&](const PlayPart& part) {
        const auto place = places.find(part.game);
        if (place != places.end()) outings[place->second].line += part.part;
      },
      stop);
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
  if (role == SeasonRole::Pitching) {
    return {"G", "W", "L", "S", "IP", "H", "R", "ER", "HR", "BB", "K", "PCT", "ERA"};
  }
  return {"G",  "AB", "R",  "H",    "2B",  "3B",  "HR", "RBI",
          "BB", "K",  "SB", "GIDP", "LOB", "AVG", "SLG"};
}

std::vector<std::string> LineTexts(const SeasonTotals& line) {
  std::vector<std::string> texts;
  const auto add = [&texts](std::initializer_list<double> counts) {
    for (const double count : counts) texts.push_back(DecimalText(count));
  };
  if (const auto* pitching = std::get_if<PitchingTotals>(&line)) {
    add({pitching->games, pitching->wins, pitching->losses, pitching->saves});
    texts.push_back(DecimalInnings(pitching->outs));
    add({pitching->hits, pitching->runs, pitching->earnedRuns, pitching->homeRuns, pitching->walks,
         pitching->strikeouts});
    texts.push_back(AverageText(WinningPercentage(*pitching)));
    texts.push_back(RateText(line));
    return texts;
  }
  const auto& batting = std::get<BattingTotals>(line);
  add({batting.games, batting.atBats, batting.runs, batting.hits, batting.doubles, batting.triples,
       batting.homeRuns, batting.runsBattedIn, batting.walks, batting.strikeouts,
       batting.stolenBases, batting.intoDoublePlays, batting.leftOnBase});
  texts.push_back(RateText(line));
  texts.push_back(AverageText(SluggingAverage(batting)));
  return texts;
}

}  // namespace dtb
