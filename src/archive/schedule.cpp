#include "archive/schedule.h"

#include <string>
#include <unordered_set>

#include "database/archive_games.h"

namespace dtb::archive {

std::vector<bool> PlayedGames(const Season& season, const Platform& platform) {
  const std::unordered_set<std::string> played = SavedArchiveGames(platform);
  std::vector<bool> marks;
  marks.reserve(season.games.size());
  for (const Game& game : season.games) marks.push_back(played.contains(game.id));
  return marks;
}

bool Plays(const Game& game, int club) {
  return club == kAllClubs || game.sides[0].club == club || game.sides[1].club == club;
}

std::optional<int> NextGameOf(const Season& season, const std::vector<bool>& played, int club) {
  for (int game = 0; game < static_cast<int>(season.games.size()); ++game) {
    if (!played[game] && Plays(season.games[game], club)) return game;
  }
  return std::nullopt;
}

}  // namespace dtb::archive
