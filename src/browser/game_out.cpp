#include "browser/game_out.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "browser/copies.h"
#include "browser/grid_format.h"
#include "browser/opening.h"
#include "browser/queries.h"
#include "browser/saved_games.h"
#include "game/text_cell.h"
#include "sheet/saved_tables.h"

namespace dtb {
namespace {

// Rows that cannot be told apart, because they bear no GameID.
struct EqualRows {
  std::string words;  // "win of Pittsburgh 1960"
  std::string from;   // "WinLoss WHERE ..."
  std::vector<std::string> bound;
};

EqualRows ResultRow(const std::string& team, double own, double others) {
  const char* word = own > others ? "win" : own < others ? "loss" : "tie";
  return {std::string(word) + " of " + team,
          std::string("WinLoss WHERE Team = ?1 AND ifnull(Win, 0) = ") +
              (own > others ? "1" : "0") + " AND ifnull(Loss, 0) = " + (own < others ? "1" : "0"),
          {team}};
}

// What a save gives to the tables without a GameID.
std::vector<EqualRows> RowsWithoutGameID(const SavedGame& game) {
  const double visitors = NumberOf(game.visitorsRuns);
  const double home = NumberOf(game.homeRuns);
  const std::string matchup = game.visitors + "  vs  " + game.home;
  return {ResultRow(game.visitors, visitors, home),
          ResultRow(game.home, home, visitors),
          {"matchup " + matchup, "Matchups WHERE Matchup = ?1", {matchup}}};
}

// How many of such rows there are, how many games gave one, and how many the game gave.
struct Tally {
  EqualRows rows;
  int ofGame = 0;
  int given = 0;
  int there = 0;
  [[nodiscard]] bool Certain() const { return there >= given; }
  // As many as there are, where some are gone already.
  [[nodiscard]] int Going() const { return std::min(ofGame, there); }
};

std::vector<Tally> TallyOf(Database& database, const std::vector<SavedGame>& games) {
  std::map<std::string, int> given;
  for (const SavedGame& game : ReadSavedGames(database)) {
    for (const EqualRows& rows : RowsWithoutGameID(game)) ++given[rows.words];
  }
  std::vector<Tally> tally;
  for (const SavedGame& game : games) {
    for (const EqualRows& rows : RowsWithoutGameID(game)) {
      const auto same = [&rows](const Tally& other) { return other.rows.words == rows.words; };
      auto found = std::ranges::find_if(tally, same);
      if (found == tally.end()) {
        const int there = CountOf(database, {"SELECT count(*) FROM " + rows.from, rows.bound});
        tally.push_back({rows, 0, given[rows.words], there});
        found = tally.end() - 1;
      }
      ++found->ofGame;
    }
  }
  return tally;
}

Statement DeleteOf(const Tally& tally) {
  const std::string table = tally.rows.from.substr(0, tally.rows.from.find(' '));
  return {"DELETE FROM " + table + " WHERE rowid IN (SELECT rowid FROM " + tally.rows.from +
              " ORDER BY rowid DESC LIMIT " + std::to_string(tally.Going()) + ")",
          tally.rows.bound};
}

constexpr std::array<std::pair<const char*, const char*>, 3> kTablesWithGameID{
    {{table::kBoxScores, "line"}, {table::kBatting, "batter"}, {table::kPitching, "pitcher"}}};

std::string QuestionText(Database& database, const std::string& id,
                         const std::vector<SavedGame>& games, const std::vector<Tally>& tally) {
  std::string text = games.size() > 1
                         ? "Take these games out of the database? They have the same GameID.\n"
                         : "Take this game out of the database?\n";
  for (const SavedGame& game : games) text += "\n" + ScoreText(game);
  text += "\nGameID " + id + "\n\nWith it go:";
  for (const auto& [table, word] : kTablesWithGameID) {
    const int count = CountOf(
        database, {std::string("SELECT count(*) FROM ") + table + " WHERE GameID = ?1", {id}});
    text += (table == kTablesWithGameID.front().first ? " " : ", ") + Counted(count, word);
  }
  for (const Tally& one : tally) {
    if (one.Certain() && one.Going() > 0)
      text += "\n" + std::to_string(one.Going()) + " " + one.rows.words;
  }
  for (const Tally& one : tally) {
    if (one.there == 0) text += "\nNo longer there: " + one.rows.words;
  }
  return text;
}

enum class Answer { Leave, Take, KeepGame };

// Where fewer rows are left than were given, nobody knows whose they are.
Answer AskAboutDoubtful(MessageBoxes& boxes, const std::vector<Tally>& tally) {
  Choice choice{
      .text =
          "Some rows of the standings were deleted before, and those that are left bear no "
          "GameID. It cannot be told whether they belong to this game:",
      .title = kBrowserTitle,
      .answers = {"Leave them", "Take one of each out", "Keep the game"}};
  for (const Tally& one : tally) {
    if (one.Certain() || one.there == 0) continue;
    choice.lines.push_back(std::to_string(one.there) + " " + one.rows.words + ", for " +
                           Counted(one.given, "game"));
  }
  return choice.lines.empty() ? Answer::Leave : static_cast<Answer>(boxes.Choose(choice));
}

void TakeOut(Browser& browser, const std::string& id) {
  Database& database = browser.platform.database;
  MessageBoxes& boxes = browser.platform.boxes;
  const std::vector<SavedGame> games = ReadSavedGames(database, id);
  if (games.empty()) {
    return boxes.Show("The game " + id + " is not in the database any more.", BoxIcon::Information,
                      kBrowserTitle);
  }
  const std::vector<Tally> tally = TallyOf(database, games);
  if (!boxes.Ask({QuestionText(database, id, games, tally), kBrowserTitle})) return;
  const Answer doubtful = AskAboutDoubtful(boxes, tally);
  if (doubtful == Answer::KeepGame) return;
  const auto wayBack = CopyBeforeLoss(browser.platform, kBrowserTitle);
  if (!wayBack) return;

  std::vector<Statement> statements;
  statements.reserve(kTablesWithGameID.size() + tally.size());
  for (const auto& [table, word] : kTablesWithGameID) {
    statements.push_back({std::string("DELETE FROM ") + table + " WHERE GameID = ?1", {id}});
  }
  for (const Tally& one : tally) {
    if (one.Going() > 0 && (one.Certain() || doubtful == Answer::Take)) {
      statements.push_back(DeleteOf(one));
    }
  }
  database.Change(statements);
  boxes.Show("The game is taken out." + *wayBack, BoxIcon::Information, kBrowserTitle);
  ReadAgain(browser);
  FindGameSavedTwice(browser);
}

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

std::vector<std::string> BattingOf(Database& database, const std::string& id) {
  const std::vector<std::string>& all = SavedTables().front().columns;
  std::string columns;
  for (const std::string& column : all) {
    if (column != "GameID")
      columns += (columns.empty() ? "[" : " || '|' || ifnull([") + column +
                 (columns.empty() ? "]" : "], '')");
  }
  StatGrid rows(1, 1);
  database.Run({"SELECT " + columns + " FROM Batting WHERE GameID = ?1 ORDER BY 1", {id}}, rows);
  std::vector<std::string> texts;
  for (int row = 1; row < rows.rows(); ++row) texts.emplace_back(rows.Text(row, 1));
  return texts;
}

// The year leads, so that the earlier save comes first.
std::string ByAge(const std::string& id) {
  constexpr std::size_t kYear = 4;
  return id.size() < kYear + 2 ? id : id.substr(kYear, 2) + id;
}

}  // namespace

std::optional<std::string> ChosenGameID(const BrowserState& state, int row) {
  const StatGrid& lineScores = state.MSHFlexGrid1.grid;
  if (lineScores.columns() <= line_score_column::kGameID) return std::nullopt;
  const auto idOf = [&lineScores](int line) {
    return std::string(lineScores.Text(line, line_score_column::kGameID));
  };
  if (row >= 1 && row < lineScores.rows()) return idOf(row);
  const std::string& part = state.Text9.value();
  std::optional<std::string> found;
  for (int line = 1; line < lineScores.rows() && !part.empty(); ++line) {
    const std::string id = idOf(line);
    if (id.find(part) == std::string::npos || id == found) continue;
    if (found) return std::nullopt;
    found = id;
  }
  return found;
}

void TakeOutGame(Browser& browser, const std::optional<std::string>& id) {
  if (!id || id->empty()) {
    return browser.platform.boxes.Show(
        "No game is chosen. Click one of its two lines in the list, or enter its GameID.",
        BoxIcon::Information, kBrowserTitle);
  }
  try {
    TakeOut(browser, *id);
  } catch (const ProgramError& failure) {
    browser.platform.boxes.Show("No game was taken out. " + std::string(failure.what()),
                                BoxIcon::Exclamation, kBrowserTitle);
  }
}

void FindGameSavedTwice(Browser& browser) {
  BrowserState& state = browser.state;
  std::map<std::string, std::vector<std::string>> gamesOfLines;
  if (state.MSHFlexGrid1.grid.columns() > line_score_column::kGameID) {
    for (const auto& [id, lines] : LinesIn(state.MSHFlexGrid1.grid)) {
      gamesOfLines[lines].push_back(id);
    }
  }
  int found = 0;
  std::string words;
  try {
    for (auto& [lines, ids] : gamesOfLines) {
      if (ids.size() < 2) continue;
      std::ranges::sort(ids, {}, ByAge);
      const auto batting = BattingOf(browser.platform.database, ids[0]);
      if (batting.empty() || batting != BattingOf(browser.platform.database, ids[1])) continue;
      if (++found > 1) continue;
      const auto games = ReadSavedGames(browser.platform.database, ids[1]);
      words =
          "Saved twice: " + ScoreText(games.at(0)) + ", as " + ids[0] + " and again as " + ids[1];
      state.savedAgain = ids[1];
    }
  } catch (const ProgramError&) {
    found = 0;  // whoever asks for the tables is told
  }
  if (found > 1) words += "; and " + std::to_string(found - 1) + " more";
  state.lbl_Twice.Set(found == 0 ? "" : words + ".");
}

}  // namespace dtb
