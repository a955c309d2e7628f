#include "database/saved_twice.h"

#include <algorithm>
#include <map>
#include <vector>

#include "database/rows.h"
#include "database/saved_games.h"
#include "database/saved_tables.h"

namespace dtb {
namespace {

// All of a game's lines but their GameID, as a text to compare.
using LinesOfGames = std::map<std::string, std::string>;  // by GameID

LinesOfGames LinesIn(const StatGrid& lineScores) {
  LinesOfGames lines;
  for (int row = 1; row < lineScores.rows(); ++row) {
    std::string& text = lines[std::string(lineScores.Text(row, line_score_column::kGameID))];
    for (int column = 1; column < line_score_column::kGameID; ++column) {
      text.append(lineScores.Text(row, column)).append("|");
    }
  }
  return lines;
}

std::vector<std::string> BattingOf(DatabaseReader& database, const std::string& id) {
  const std::vector<std::string>& all = SavedTables().front().columns;
  std::string columns;
  for (const std::string& column : all) {
    if (column != "GameID")
      columns += (columns.empty() ? "[" : " || '|' || ifnull([") + column +
                 (columns.empty() ? "]" : "], '')");
  }
  std::vector<std::string> texts;
  ForEachRow(
      database, {"SELECT " + columns + " FROM Batting WHERE GameID = ?1 ORDER BY 1", {id}},
      [&texts](std::span<const DatabaseValue> row) { texts.push_back(TextIn(row.front())); });
  return texts;
}

// The year leads, so that the earlier save comes first.
std::string ByAge(const std::string& id) {
  constexpr std::size_t kYear = 4;
  return id.size() < kYear + 2 ? id : id.substr(kYear, 2) + id;
}

}  // namespace

std::optional<SavedTwice> FindSavedTwice(DatabaseReader& database, const StatGrid& lineScores) {
  std::map<std::string, std::vector<std::string>> gamesOfLines;
  for (const auto& [id, lines] : LinesIn(lineScores)) gamesOfLines[lines].push_back(id);
  int found = 0;
  SavedTwice twice;
  for (auto& [lines, ids] : gamesOfLines) {
    if (ids.size() < 2) continue;
    std::ranges::sort(ids, {}, ByAge);
    // Of games with the same lines, each against all that were saved before it.
    std::map<std::vector<std::string>, std::string> firstOf;  // by batting
    for (const std::string& id : ids) {
      const auto batting = BattingOf(database, id);
      if (batting.empty()) continue;
      const auto [first, isFirst] = firstOf.try_emplace(batting, id);
      if (isFirst || ++found > 1) continue;
      twice.words = "Saved twice: " + ScoreText(ReadSavedGames(database, id).at(0)) + ", as " +
                    first->second + " and again as " + id;
      twice.again = id;
    }
  }
  if (found == 0) return std::nullopt;
  if (found > 1) twice.words += "; and " + std::to_string(found - 1) + " more";
  twice.words += ".";
  return twice;
}

}  // namespace dtb
