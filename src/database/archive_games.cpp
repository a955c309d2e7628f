#include "database/archive_games.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/settings_keys.h"
#include "database/saved_games.h"
#include "platform/database.h"

namespace dtb {
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

// "OAK202008070=GameID;...": a game that was played twice stands there twice.
constexpr char kBetweenGames = ';';
constexpr char kBeforeId = '=';

}  // namespace

// The names of the teams stand with it, so that it counts for no others.
void NoteArchiveGame(Board& board, const std::string& id) {
  board.state.ArchiveGame =
      id + '\n' + board.sheet.lbl_VisTeam.value() + '\n' + board.sheet.lbl_HomeTeam.value();
}

void NoteSavedArchiveGame(Board& board) {
  const std::vector<std::string_view> noted = Parts(board.state.ArchiveGame, '\n');
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

std::unordered_set<std::string> SavedArchiveGames(const Platform& platform) {
  const std::string told = platform.settings.Read(settings::kLabels, settings::kSeasonPlayed, "");
  std::unordered_set<std::string> played;
  if (told.empty()) return played;
  const std::unordered_set<std::string> saved = SavedGameIDs(platform.database);
  for (const std::string_view entry : Parts(told, kBetweenGames)) {
    const std::size_t sign = entry.find(kBeforeId);
    if (sign == std::string_view::npos) continue;
    if (saved.contains(std::string(entry.substr(sign + 1)))) {
      played.emplace(entry.substr(0, sign));
    }
  }
  return played;
}

}  // namespace dtb
