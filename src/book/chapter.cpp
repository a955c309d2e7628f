#include "book/chapter.h"

#include <algorithm>
#include <unordered_set>

#include "book/feats.h"
#include "book/persons.h"
#include "database/rows.h"
#include "season/season_places.h"
#include "season/season_standings.h"

namespace dtb::book {
namespace {

// Earlier of two days, where one is told.
void Widen(std::optional<LocalTime>& first, std::optional<LocalTime>& last,
           const std::optional<LocalTime>& day) {
  if (!day) return;
  if (!first || IsEarlier(day, first)) first = day;
  if (!last || IsEarlier(last, day)) last = day;
}

void AddFigures(Chapter& chapter, const SeasonFigures& season, const TeamGroups& groups) {
  chapter.games = static_cast<int>(season.games.size());
  chapter.mixedGames = season.mixedGames;
  for (const SeasonGame& game : season.games) Widen(chapter.first, chapter.last, game.day);
  for (const GroupStandings& group : StandingsByGroup(season, groups)) {
    PlacingGroup& own = chapter.groups.emplace_back(PlacingGroup{group.name});
    for (const Standing& standing : group.standings) {
      const SeasonTeam& team = season.teams[standing.team];
      own.standings.push_back({team.name, team.wins, team.losses, team.ties(), standing.share});
    }
  }
  for (const SeasonPlayer& player : season.players) {
    const SeasonTeam& team = season.teams[player.team];
    chapter.lines.push_back(
        {player.name, team.name, double(team.games.size()), player.batting, player.pitching});
  }
}

void CountPlays(Chapter& chapter, Database& database, const SeasonFigures& season) {
  std::unordered_set<std::string> told;
  ForEachRow(database, {"SELECT DISTINCT GameID FROM Plays"},
             [&told](std::span<const DatabaseValue> row) { told.insert(TextIn(row[0])); });
  for (const SeasonGame& game : season.games) {
    chapter.gamesWithPlays += told.contains(game.id) ? 1 : 0;
  }
}

void AddPresences(std::vector<Presence>& presences, const SeasonFigures& season,
                  const AllOutings& outings) {
  for (std::size_t player = 0; player < outings.size(); ++player) {
    for (const SeasonOuting& outing : outings[player]) {
      Widen(presences[player].first, presences[player].last,
            outing.game < 0 ? outing.time : season.games[outing.game].day);
    }
  }
}

}  // namespace

std::optional<Chapter> ReadChapter(Database& database, const std::string& name,
                                   const ArchiveIds& ids, const TeamGroups& groups,
                                   const std::function<bool()>& goOn) {
  Chapter chapter{.name = name};
  if (!goOn()) return std::nullopt;
  const SeasonFigures season = ReadSeasonFigures(database);
  if (!goOn()) return std::nullopt;
  AddFigures(chapter, season, groups);
  CountPlays(chapter, database, season);
  FindTeamGames(chapter, season);
  FindWinningStreaks(chapter, season);
  if (!goOn()) return std::nullopt;

  const SeasonPlaces places(season);
  std::vector<Presence> presences(season.players.size());
  PitchedGames pitched(season.games.size());
  {
    const AllOutings pitching =
        ReadAllOutings(database, places, SeasonRole::Pitching, [&](const PlacedLine& line) {
          if (line.game < 0) return;
          PitchedSide& side = pitched[line.game].at(line.side);
          if (std::ranges::find(side.players, line.player) == side.players.end()) {
            side.players.push_back(line.player);
          }
          side.sum += std::get<PitchingTotals>(line.line);
        });
    AddPresences(presences, season, pitching);
    FindBestGames(chapter, season, pitching, SeasonRole::Pitching);
  }
  FindNoHitters(chapter, season, pitched);
  if (!goOn()) return std::nullopt;

  const AllOutings batting = ReadAllOutings(database, places, SeasonRole::Batting);
  AddPresences(presences, season, batting);
  FindPersons(chapter, presences, ids);
  FindBestGames(chapter, season, batting, SeasonRole::Batting);
  FindCycles(chapter, season, batting);
  FindHittingStreaks(chapter, season, batting);
  return chapter;
}

}  // namespace dtb::book
