#include "season/season_places.h"

#include <algorithm>

#include "database/rows.h"

namespace dtb {
namespace {

std::string KeyOf(int team, std::string_view name) {
  return std::to_string(team) + ' ' + std::string(name);
}

// Fills in where the line belongs; false for one of nobody.
bool Place(PlacedLine& line, const SeasonPlaces& places, std::string_view team,
           std::string_view name) {
  const int own = places.TeamOf(team);
  line.player = own < 0 ? -1 : places.PlayerOf(own, name);
  if (line.player < 0) return false;
  line.game = places.GameOf(line.id, own);
  if (line.game >= 0) line.side = places.season().games[line.game].sides[0].team == own ? 0 : 1;
  return true;
}

// The outing in this game, most often the last one.
SeasonOuting* Find(std::vector<SeasonOuting>& outings, const std::string& id) {
  const auto found = std::find_if(outings.rbegin(), outings.rend(),
                                  [&id](const SeasonOuting& outing) { return outing.id == id; });
  return found == outings.rend() ? nullptr : &*found;
}

}  // namespace

SeasonPlaces::SeasonPlaces(const SeasonFigures& season) : season_(season) {
  for (std::size_t i = 0; i < season.teams.size(); ++i) {
    teams_.emplace(season.teams[i].name, static_cast<int>(i));
  }
  for (std::size_t i = 0; i < season.players.size(); ++i) {
    players_.emplace(KeyOf(season.players[i].team, season.players[i].name), static_cast<int>(i));
  }
  for (std::size_t i = 0; i < season.games.size(); ++i) {
    games_.emplace(season.games[i].id, static_cast<int>(i));
  }
}

int SeasonPlaces::TeamOf(std::string_view name) const {
  const auto team = teams_.find(name);
  return team == teams_.end() ? -1 : team->second;
}

int SeasonPlaces::PlayerOf(int team, std::string_view name) const {
  const auto player = players_.find(KeyOf(team, name));
  return player == players_.end() ? -1 : player->second;
}

int SeasonPlaces::GameOf(std::string_view id, int team) const {
  const auto [first, last] = games_.equal_range(id);
  int game = -1;
  for (auto entry = first; entry != last; ++entry) {
    const auto& sides = season_.games[entry->second].sides;
    const bool played = sides[0].team == team || sides[1].team == team;
    if (played && (game < 0 || entry->second < game)) game = entry->second;
  }
  return game;
}

AllOutings ReadAllOutings(Database& database, const SeasonPlaces& places, SeasonRole role,
                          const TakeLine& row, const TakeLine& part) {
  const SeasonFigures& season = places.season();
  AllOutings all(season.players.size());
  const std::string statement = "SELECT " + NameColumnOf(role) + ", Team, GameID, " +
                                SelectedFigures(role) + " FROM " + TableOf(role) +
                                " ORDER BY rowid";
  ForEachRow(database, {statement}, [&](std::span<const DatabaseValue> values) {
    PlacedLine line{.id = TextIn(values[2])};
    if (!Place(line, places, TextIn(values[1]), TextIn(values[0]))) return;
    line.line = TotalsOf(values.subspan(3), role);
    SeasonOuting* outing = Find(all[line.player], line.id);
    if (outing == nullptr) {
      outing = &all[line.player].emplace_back();
      outing->id = line.id;
      outing->line = NoTotals(role);
    }
    outing->line += line.line;
    if (row) row(line);
  });
  ForEachPlayPart(database, role, {.byGame = true}, [&](const PlayPart& told) {
    PlacedLine line{.id = told.game, .line = told.part};
    if (!Place(line, places, told.team, told.name)) return;
    if (SeasonOuting* outing = Find(all[line.player], line.id)) outing->line += line.line;
    if (part) part(line);
  });
  for (std::size_t i = 0; i < season.players.size(); ++i) {
    const SeasonPlayer& player = season.players[i];
    SettleOutings(season, {player.team, player.name, false, role}, all[i]);
  }
  return all;
}

}  // namespace dtb
