#include "browser/game_out.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <tuple>
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
          std::string("WinLoss WHERE Team = ?1 AND CAST(ifnull(Win, 0) AS NUMERIC) = ") +
              (own > others ? "1" : "0") +
              " AND CAST(ifnull(Loss, 0) AS NUMERIC) = " + (own < others ? "1" : "0"),
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
  [[nodiscard]] auto figures() const { return std::tuple(rows.words, ofGame, given, there); }
  friend bool operator==(const Tally& one, const Tally& other) {
    return one.figures() == other.figures();
  }
};

std::vector<Tally> TallyOf(DatabaseReader& database, const std::vector<SavedGame>& games) {
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

// All that goes with a game.
struct Outgoing {
  std::string id;
  std::vector<SavedGame> games;  // none: it is not there
  // Of which teams the rows go; none: all rows of the GameID.
  std::vector<std::string> teams = {};
  std::array<int, kTablesWithGameID.size()> rows = {};  // by table
  std::vector<Tally> tally = {};

  [[nodiscard]] Statement OnRows(const std::string& operation, const char* table) const {
    Statement statement{operation + " FROM " + table + " WHERE GameID = ?1", {id}};
    if (teams.empty()) return statement;
    statement.text += " AND Team IN (?2, ?3)";
    statement.bound.insert(statement.bound.end(), teams.begin(), teams.end());
    return statement;
  }
  friend bool operator==(const Outgoing&, const Outgoing&) = default;
};

Outgoing FindOutgoing(DatabaseReader& database, const GameChoice& choice) {
  Outgoing found{.id = choice.id, .games = ReadSavedGames(database, choice.id)};
  if (!choice.teams.empty()) {
    const SavedGame wanted{.id = choice.id, .visitors = choice.teams[0], .home = choice.teams[1]};
    const auto same = [&wanted](const SavedGame& game) {
      return game.visitors == wanted.visitors && game.home == wanted.home;
    };
    const auto inTheWay = [&](const SavedGame& game) {
      return !same(game) && ShareATeam(game, wanted);
    };
    if (std::ranges::none_of(found.games, same)) {
      found.games.clear();
    } else if (std::ranges::none_of(found.games, inTheWay) &&
               !std::ranges::all_of(found.games, same)) {
      std::erase_if(found.games, [&same](const SavedGame& game) { return !same(game); });
      found.teams = choice.teams;
    }
  }
  for (std::size_t i = 0; i < kTablesWithGameID.size(); ++i) {
    found.rows.at(i) =
        CountOf(database, found.OnRows("SELECT count(*)", kTablesWithGameID.at(i).first));
  }
  found.tally = TallyOf(database, found.games);
  return found;
}

std::string QuestionText(const Outgoing& outgoing) {
  std::string text = outgoing.games.size() > 1
                         ? "Take these games out of the database? They have the same GameID and a "
                           "team in common, so that nothing tells the rows of their players "
                           "apart.\n"
                         : "Take this game out of the database?\n";
  for (const SavedGame& game : outgoing.games) text += "\n" + ScoreText(game);
  text += "\nGameID " + outgoing.id + "\n\nWith it go:";
  for (std::size_t i = 0; i < kTablesWithGameID.size(); ++i) {
    text += (i == 0 ? " " : ", ") + Counted(outgoing.rows.at(i), kTablesWithGameID.at(i).second);
  }
  for (const Tally& one : outgoing.tally) {
    if (one.Certain() && one.Going() > 0)
      text += "\n" + std::to_string(one.Going()) + " " + one.rows.words;
  }
  for (const Tally& one : outgoing.tally) {
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

// Another program may have changed the tables since they were read.
void ShowAsItIsNow(Browser& browser) {
  ReadAgain(browser);
  FindGameSavedTwice(browser);
}

// Finds the game, counts and deletes in one transaction. False: what is found is not what the
// person was asked about, and nothing is deleted.
bool Delete(Database& database, const GameChoice& choice, const Outgoing& asked, Answer doubtful) {
  const auto change = database.BeginChange();
  if (FindOutgoing(*change, choice) != asked) return false;
  for (const auto& [table, word] : kTablesWithGameID) {
    change->Execute(asked.OnRows("DELETE", table));
  }
  for (const Tally& one : asked.tally) {
    if (one.Going() > 0 && (one.Certain() || doubtful == Answer::Take)) {
      change->Execute(DeleteOf(one));
    }
  }
  change->Commit();
  return true;
}

void TakeOut(Browser& browser, const GameChoice& choice) {
  Database& database = browser.platform.database;
  MessageBoxes& boxes = browser.platform.boxes;
  const Outgoing outgoing = FindOutgoing(database, choice);
  const auto tell = [&](const std::string& words) {
    boxes.Show(words, BoxIcon::Information, kBrowserTitle);
    ShowAsItIsNow(browser);
  };
  if (outgoing.games.empty()) {
    return tell("The game " + choice.id + " is not in the database any more.");
  }
  if (!boxes.Ask({QuestionText(outgoing), kBrowserTitle})) return;
  const Answer doubtful = AskAboutDoubtful(boxes, outgoing.tally);
  if (doubtful == Answer::KeepGame) return;
  const auto wayBack = CopyBeforeLoss(browser.platform, kBrowserTitle);
  if (!wayBack) return;
  if (!Delete(database, choice, outgoing, doubtful)) {
    return tell(
        "No game was taken out: another program has changed the database since you were asked. "
        "The tables show it as it is now.");
  }
  tell("The game is taken out." + *wayBack);
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

// Those of all games, whatever the list shows.
LinesOfGames LinesOfAll(Browser& browser) {
  const BrowserGrid& list = browser.state.MSHFlexGrid1;
  if (!list.shown) return {};
  if (list.shown->query == Query::Command4) return LinesIn(list.grid);
  return LinesIn(ReadQuery(browser.platform.database, Query::Command4, {}));
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

std::optional<GameChoice> ChosenGame(const BrowserState& state, int row) {
  const StatGrid& lineScores = state.MSHFlexGrid1.grid;
  if (lineScores.columns() <= line_score_column::kGameID) return std::nullopt;
  const auto choiceOf = [&lineScores](int line) {
    const SavedGame game = GameInRow(lineScores, line);
    return GameChoice{game.id, {game.visitors, game.home}};
  };
  if (row >= 1 && row < lineScores.rows()) return choiceOf(row);
  const std::string& part = state.Text9.value();
  std::optional<GameChoice> found;
  for (int line = 1; line < lineScores.rows() && !part.empty(); ++line) {
    const auto id = lineScores.Text(line, line_score_column::kGameID);
    if (id.find(part) == std::string_view::npos) continue;
    const GameChoice choice = choiceOf(line);
    if (found && choice != *found) return std::nullopt;
    found = choice;
  }
  return found;
}

void TakeOutGame(Browser& browser, const std::optional<GameChoice>& game) {
  if (!game || game->id.empty()) {
    return browser.platform.boxes.Show(
        "No game is chosen. Click one of its two lines in the list, or enter its GameID.",
        BoxIcon::Information, kBrowserTitle);
  }
  try {
    TakeOut(browser, *game);
  } catch (const ProgramError& failure) {
    browser.platform.boxes.Show("No game was taken out. " + std::string(failure.what()),
                                BoxIcon::Exclamation, kBrowserTitle);
  }
}

void FindGameSavedTwice(Browser& browser) {
  BrowserState& state = browser.state;
  Database& database = browser.platform.database;
  int found = 0;
  std::string words;
  try {
    std::map<std::string, std::vector<std::string>> gamesOfLines;
    for (const auto& [id, lines] : LinesOfAll(browser)) gamesOfLines[lines].push_back(id);
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
        words = "Saved twice: " + ScoreText(ReadSavedGames(database, id).at(0)) + ", as " +
                first->second + " and again as " + id;
        state.savedAgain = id;
      }
    }
  } catch (const ProgramError&) {
    found = 0;  // whoever asks for the tables is told
  }
  if (found > 1) words += "; and " + std::to_string(found - 1) + " more";
  state.lbl_Twice.Set(found == 0 ? "" : words + ".");
}

}  // namespace dtb
