#include "season/season_book.h"

#include <algorithm>
#include <utility>

#include "database/rows.h"
#include "season/season_places.h"

namespace dtb {
namespace {

constexpr const char* kWholeLineScores = "SELECT * FROM BoxScores ORDER BY rowid";

void AddLines(SeasonBook& book, const SeasonPlaces& places, Database& database, SeasonRole role) {
  const auto roleAt = static_cast<std::size_t>(role);
  const auto entriesOf = [&](const PlacedLine& line) {
    return &book.games[line.game].at(line.side).at(roleAt);
  };
  AllOutings all = ReadAllOutings(
      database, places, role,
      [&](const PlacedLine& line) {
        if (line.game >= 0) entriesOf(line)->push_back({line.player, line.line});
      },
      [&](const PlacedLine& line) {
        if (line.game < 0) return;
        auto* entries = entriesOf(line);
        const auto entry = std::ranges::find(*entries, line.player, &BookEntry::player);
        if (entry != entries->end()) entry->line += line.line;
      });
  for (std::size_t player = 0; player < all.size(); ++player) {
    book.outings[player].at(roleAt) = std::move(all[player]);
  }
}

void AddDuels(SeasonBook& book, const SeasonPlaces& places, Database& database) {
  const auto add = [&](const std::string& team, const std::string& name, SeasonRole role,
                       SplitLine line) {
    const int place = places.TeamOf(team);
    const int player = place < 0 ? -1 : places.PlayerOf(place, name);
    if (player < 0) return;
    auto& duels = book.duels[player].at(static_cast<std::size_t>(role));
    if (duels.size() < kMostDuels) duels.push_back(std::move(line));
  };
  ForEachDuel(database, [&](const Duel& duel) {
    add(duel.team, duel.batter, SeasonRole::Batting,
        {.name = duel.pitcher, .team = duel.opponent, .line = duel.line});
    add(duel.opponent, duel.pitcher, SeasonRole::Pitching,
        {.name = duel.batter, .team = duel.team, .line = duel.line});
  });
}

}  // namespace

SeasonBook ReadSeasonBook(Database& database) {
  SeasonBook book;
  book.season = ReadSeasonFigures(database);
  const SeasonFigures& season = book.season;
  book.lineScores.Take(TextsOf(database, {kWholeLineScores}));
  book.games.resize(season.games.size());
  book.outings.resize(season.players.size());
  book.duels.resize(season.players.size());
  const SeasonPlaces places(season);
  AddDuels(book, places, database);
  for (const SeasonRole role : kSeasonRoles) AddLines(book, places, database, role);
  return book;
}

}  // namespace dtb
