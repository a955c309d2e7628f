#include "real/both_standings.h"

#include <algorithm>

#include "base/text_cell.h"
#include "base/words.h"
#include "season/season_words.h"

namespace dtb::real {
namespace {

std::string BehindText(double behind) { return behind == 0 ? "-" : FixedDecimals(behind, 1); }

}  // namespace

std::string AheadText(double ahead) {
  if (ahead == 0) return "level";
  return (ahead > 0 ? "+" : "-") + FixedDecimals(ahead > 0 ? ahead : -ahead, 1);
}

BothStandings StandingsOfBoth(const BothWorlds& worlds, const Moment& moment) {
  BothStandings both{ReplayedAt(worlds, moment), ReallyAt(worlds, moment), {}};
  const std::vector<Standing> really = Standings(both.really);
  for (const Standing& standing : Standings(both.replayed)) {
    BothStanding row{.team = standing.team, .replayed = standing};
    const auto found = std::ranges::find(really, standing.team, &Standing::team);
    if (found != really.end()) {
      row.really = *found;
      row.placeReally = static_cast<int>(found - really.begin()) + 1;
    }
    row.ahead = (both.replayed.teams[row.team].above() - both.really.teams[row.team].above()) / 2.0;
    row.notTold = ResultsNotTold(worlds, row.team, moment);
    both.rows.push_back(row);
  }
  return both;
}

std::vector<std::vector<std::string>> BothTable(const BothStandings& standings) {
  std::vector<std::vector<std::string>> table{
      {"Team", "Replayed", "Pct", "GB", "Really", "Pct", "GB", "Real place", "Ahead"}};
  for (const BothStanding& row : standings.rows) {
    const SeasonTeam& own = standings.replayed.teams[row.team];
    const SeasonTeam& real = standings.really.teams[row.team];
    std::vector<std::string> cells{own.name, RecordText(own), AverageText(row.replayed.share),
                                   BehindText(row.replayed.behind)};
    if (row.really) {
      cells.insert(cells.end(), {RecordText(real), AverageText(row.really->share),
                                 BehindText(row.really->behind), std::to_string(*row.placeReally),
                                 AheadText(row.ahead)});
    } else {
      cells.insert(cells.end(), {row.notTold > 0 ? "unknown" : "-", "", "", "", ""});
    }
    table.push_back(std::move(cells));
  }
  return table;
}

std::string HeadlineOf(const BothWorlds& worlds, int team) {
  const Moment now;
  const SeasonTeam& own = worlds.replayed->teams[team];
  const auto games = std::to_string(own.games.size());
  const std::string record = RecordText(own);
  if (!worlds.Compares(team)) return games + ": " + record + ", not in the archive";
  const auto& club = worlds.archive->clubs[worlds.clubs[team]];
  std::string text =
      games + " of " + std::to_string(club.games.size()) + ": " + record + ", really ";
  int wins = 0;
  int losses = 0;
  int ties = 0;
  const int count = RealGamesAt(worlds, team, now);
  for (int i = 0; i < count; ++i) {
    const archive::Game& game = worlds.archive->games[club.games[i]];
    const auto result = ResultOf(game, game.sides[0].club == worlds.clubs[team] ? 0 : 1);
    if (result) ++(*result > 0 ? wins : *result < 0 ? losses : ties);
  }
  const int untold = ResultsNotTold(worlds, team, now);
  if (untold == count && count > 0) return text + "unknown to the archive";
  text += RecordText(wins, losses, ties);
  if (untold > 0) text += " and " + Counted(untold, "game") + " without a known result";
  return text;
}

std::string BothNote(const BothWorlds& worlds, const BothStandings& standings,
                     const Moment& moment) {
  std::string note;
  if (moment.by == Moment::By::Games) {
    note = "Each team after as many games as are replayed";
    if (moment.last) note += ", at most " + std::to_string(*moment.last);
    note += '.';
  } else if (const auto day = moment.last ? moment.last : LastDayReplayed(worlds)) {
    note = "Both up to " + TextOfDay(*day) + '.';
  } else {
    note = "No game is replayed on a day of the archive, so the dates cannot be compared.";
  }
  if (standings.rows.empty()) note += " No team of the archive has played yet.";
  int untold = 0;
  for (const BothStanding& row : standings.rows) untold += row.notTold;
  if (untold > 0) {
    note += " Left out, since the archive lacks the result: " + std::to_string(untold) +
            " of the teams' games.";
  }
  const std::vector<std::string> strangers = NotCompared(worlds);
  if (!strangers.empty()) {
    note += " Not compared, since the archive has no club of the name: ";
    for (std::size_t i = 0; i < strangers.size(); ++i) {
      note += (i == 0 ? "" : ", ") + strangers[i];
    }
    note += '.';
  }
  return note;
}

}  // namespace dtb::real
