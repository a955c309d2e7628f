#include "database/archive_games.h"

#include <string_view>
#include <vector>

#include "base/settings_keys.h"
#include "base/text_parts.h"
#include "database/rows.h"
#include "database/saved_games.h"
#include "platform/database.h"

namespace dtb {
namespace {

// The texts between such a sign, in order.
std::vector<std::string_view> Parts(std::string_view text, char between) {
  std::vector<std::string_view> parts;
  while (!text.empty()) parts.push_back(TakeUpTo(text, between));
  return parts;
}

// "OAK202008070=GameID;...", as older versions wrote it: a game that was played twice stands there
// twice.
constexpr char kBetweenGames = ';';
constexpr char kBeforeId = '=';

}  // namespace

// The names of the teams stand with it, so that it counts for no others.
void NoteArchiveGame(Board& board, const std::string& id) {
  board.state.ArchiveGame =
      id + '\n' + board.sheet.lbl_VisTeam.value() + '\n' + board.sheet.lbl_HomeTeam.value();
}

std::string ArchiveGameOnBoard(const Board& board) {
  const std::vector<std::string_view> noted = Parts(board.state.ArchiveGame, '\n');
  constexpr std::size_t kParts = 3;
  if (noted.size() != kParts || noted[1] != board.sheet.grd_BoxScore.Text(1, 0) ||
      noted[2] != board.sheet.grd_BoxScore.Text(2, 0)) {
    return "";
  }
  return std::string(noted[0]);
}

// Three letters of the home team, then year, month, day, and the number of the game on that day.
std::string DateOfArchiveGame(std::string_view id) {
  constexpr std::size_t kTeam = 3;
  constexpr std::size_t kDate = 8;
  constexpr std::size_t kYear = 4;
  constexpr std::size_t kMonthEnd = 6;
  if (id.size() != kTeam + kDate + 1) return "";
  const std::string date(id.substr(kTeam, kDate));
  if (date.find_first_not_of("0123456789") != std::string::npos) return "";
  return date.substr(0, kYear) + "-" + date.substr(kYear, 2) + "-" + date.substr(kMonthEnd);
}

std::string NotedArchiveGames(const Platform& platform) {
  return platform.settings.Read(settings::kLabels, settings::kSeasonPlayed, "");
}

std::unordered_map<std::string, std::string> ArchiveIdsOfGames(DatabaseReader& database,
                                                               const std::string& told) {
  std::unordered_map<std::string, std::string> ids;
  for (const std::string_view entry : Parts(told, kBetweenGames)) {
    const std::size_t sign = entry.find(kBeforeId);
    if (sign == std::string_view::npos) continue;
    ids.emplace(entry.substr(sign + 1), entry.substr(0, sign));
  }
  ForEachRow(database, {"SELECT ArchiveGame, GameID FROM Games WHERE ArchiveGame IS NOT NULL"},
             [&](std::span<const DatabaseValue> row) { ids[TextIn(row[1])] = TextIn(row[0]); });
  return ids;
}

std::unordered_map<std::string, std::array<std::string, 2>> ReplayedRuns(const Platform& platform) {
  const auto ids = ArchiveIdsOfGames(platform.database, NotedArchiveGames(platform));
  std::unordered_map<std::string, std::array<std::string, 2>> replays;
  for (const SavedGame& game : ReadSavedGames(platform.database)) {
    const auto id = ids.find(game.id);
    if (id != ids.end()) replays[id->second] = {game.visitorsRuns, game.homeRuns};
  }
  return replays;
}

std::unordered_set<std::string> SavedArchiveGames(const Platform& platform) {
  std::unordered_set<std::string> played;
  const std::unordered_set<std::string> saved = SavedGameIDs(platform.database);
  for (const auto& [game, id] : ArchiveIdsOfGames(platform.database, NotedArchiveGames(platform))) {
    // A board of an older version takes a game out of the five tables alone.
    if (saved.contains(game)) played.insert(id);
  }
  return played;
}

}  // namespace dtb
