#include "seasons/schedule.h"

#include <map>

#include "seasons/team_text.h"
#include "sheet/stat_grid.h"

namespace dtb::seasons {

std::vector<std::pair<std::string, std::string>> SavedGames(Database& database) {
  StatGrid result(1, 1);
  database.Run({"SELECT v.Team, h.Team FROM BoxScores v JOIN BoxScores h ON h.GameID = v.GameID"
                " WHERE v.Host = 'a_VIS' AND h.Host = 'b_HOME' GROUP BY v.GameID"},
               result);
  std::vector<std::pair<std::string, std::string>> saved;
  for (int row = 1; row < result.rows(); ++row) {
    saved.emplace_back(result.Text(row, 1), result.Text(row, 2));
  }
  return saved;
}

std::vector<bool> PlayedGames(const Season& season,
                              const std::vector<std::pair<std::string, std::string>>& saved) {
  std::map<std::pair<std::string, std::string>, int> left;
  for (const auto& teams : saved) ++left[teams];
  std::vector<std::string> names;
  for (const Club& club : season.clubs) names.push_back(BoardName(TeamName(season, club)));
  std::vector<bool> played;
  for (const Game& game : season.games) {
    const auto found = left.find({names[game.sides[0].club], names[game.sides[1].club]});
    played.push_back(found != left.end() && found->second-- > 0);
  }
  return played;
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

}  // namespace dtb::seasons
