#include "seasons/schedule.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_set>

#include "platform/database.h"
#include "sheet/stat_grid.h"
#include "shell/settings_keys.h"

namespace dtb::seasons {
namespace {

// The texts between such a sign, in order.
std::vector<std::string_view> Parts(std::string_view text, char between) {
  std::vector<std::string_view> parts;
  while (!text.empty()) {
    const std::string_view part = text.substr(0, text.find(between));
    parts.push_back(part);
    text.remove_prefix(std::min(part.size() + 1, text.size()));
  }
  return parts;
}

std::unordered_set<std::string> SavedIds(Database& database) {
  StatGrid result(1, 1);
  database.Run({"SELECT DISTINCT GameID FROM BoxScores"}, result);
  std::unordered_set<std::string> ids;
  for (int row = 1; row < result.rows(); ++row) ids.emplace(result.Text(row, 1));
  return ids;
}

// "OAK202008070=GameID;...": a game that was played twice stands there twice.
constexpr char kBetweenGames = ';';
constexpr char kBeforeId = '=';

}  // namespace

// The names of the teams stand with it, so that it counts for no others.
void NoteLoaded(Board& board, const Game& game) {
  board.state.SeasonGame =
      game.id + '\n' + board.sheet.lbl_VisTeam.value() + '\n' + board.sheet.lbl_HomeTeam.value();
}

void NoteSaved(Board& board) {
  const std::vector<std::string_view> noted = Parts(board.state.SeasonGame, '\n');
  constexpr std::size_t kParts = 3;
  if (noted.size() != kParts || noted[1] != board.sheet.grd_BoxScore.Text(1, 0) ||
      noted[2] != board.sheet.grd_BoxScore.Text(2, 0)) {
    return;
  }
  SettingsStore& settings = board.platform.settings;
  std::string played = settings.Read(settings::kLabels, settings::kSeasonPlayed, "");
  if (!played.empty()) played += kBetweenGames;
  played.append(noted[0]).append(1, kBeforeId).append(board.sheet.tb_TimeStamp2.value());
  settings.Write(settings::kLabels, settings::kSeasonPlayed, played);
}

std::vector<bool> PlayedGames(const Season& season, const Platform& platform) {
  const std::string told = platform.settings.Read(settings::kLabels, settings::kSeasonPlayed, "");
  std::unordered_set<std::string_view> played;
  if (!told.empty()) {
    const std::unordered_set<std::string> saved = SavedIds(platform.database);
    for (const std::string_view entry : Parts(told, kBetweenGames)) {
      const std::size_t sign = entry.find(kBeforeId);
      if (sign == std::string_view::npos) continue;
      if (saved.contains(std::string(entry.substr(sign + 1)))) played.insert(entry.substr(0, sign));
    }
  }
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

}  // namespace dtb::seasons
