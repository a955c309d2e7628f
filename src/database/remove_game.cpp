#include "database/remove_game.h"

#include <algorithm>
#include <array>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

#include "base/text_cell.h"
#include "base/words.h"
#include "database/backups.h"
#include "database/rows.h"
#include "database/saved_games.h"
#include "database/saved_tables.h"

namespace dtb {
namespace {

// Rows that cannot be told apart, because they have no GameID.
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

struct TableOfGames {
  const char* name = "";
  const char* word = "";  // for one of its rows
  bool ofPlays = false;   // games without plays have no row there
};
constexpr std::array<TableOfGames, 6> kTablesWithTeams{{{table::kBoxScores, "line"},
                                                        {table::kBatting, "batter"},
                                                        {table::kPitching, "pitcher"},
                                                        {table::kPlays, "play", true},
                                                        {table::kRuns, "run", true},
                                                        {table::kDecisions, "decision", true}}};

// All that goes with a game.
struct Outgoing {
  std::string id;
  std::vector<SavedGame> games;  // none: it is not there
  // Of which teams the rows go; none: all rows of the GameID.
  std::vector<std::string> teams = {};
  std::array<int, kTablesWithTeams.size()> rows = {};  // by table
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
  for (std::size_t i = 0; i < kTablesWithTeams.size(); ++i) {
    found.rows.at(i) =
        CountOf(database, found.OnRows("SELECT count(*)", kTablesWithTeams.at(i).name));
  }
  found.tally = TallyOf(database, found.games);
  return found;
}

std::string QuestionText(const Outgoing& outgoing) {
  std::string text = outgoing.games.size() > 1
                         ? "Delete these games from the database? "
                           "They have the same GameID and a team in common, "
                           "so that nothing tells the rows of their players apart.\n"
                         : "Delete this game from the database?\n";
  for (const SavedGame& game : outgoing.games) text += "\n" + ScoreText(game);
  text += "\nGameID " + outgoing.id + "\n\nWith it go:";
  for (std::size_t i = 0; i < kTablesWithTeams.size(); ++i) {
    const TableOfGames& table = kTablesWithTeams.at(i);
    if (table.ofPlays && outgoing.rows.at(i) == 0) continue;
    text += (i == 0 ? " " : ", ") + Counted(outgoing.rows.at(i), table.word);
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
Answer AskAboutDoubtful(MessageBoxes& boxes, const std::vector<Tally>& tally,
                        const std::string& title) {
  Choice choice{.text =
                    "Some rows of the standings were deleted before, "
                    "and those that are left bear no GameID. "
                    "It cannot be told whether they belong to this game:",
                .title = title,
                .answers = {"Leave them", "Delete one of each", "Keep the game"}};
  for (const Tally& one : tally) {
    if (one.Certain() || one.there == 0) continue;
    choice.lines.push_back(std::to_string(one.there) + " " + one.rows.words + ", for " +
                           Counted(one.given, "game"));
  }
  return choice.lines.empty() ? Answer::Leave : static_cast<Answer>(boxes.Choose(choice));
}

// Finds the game, counts and deletes in one transaction. False: what is found is not what the
// person was asked about, and nothing is deleted.
bool Delete(Database& database, const GameChoice& choice, const Outgoing& asked, Answer doubtful) {
  const auto change = database.BeginChange();
  if (FindOutgoing(*change, choice) != asked) return false;
  for (const TableOfGames& table : kTablesWithTeams) {
    change->Execute(asked.OnRows("DELETE", table.name));
  }
  // Games has no team. Several games of one GameID have plays only where a file was put together by
  // other means, and then nothing tells whose day and line-ups stand there: they stay with the
  // games that stay.
  if (asked.teams.empty()) change->Execute(asked.OnRows("DELETE", table::kGames));
  for (const Tally& one : asked.tally) {
    if (one.Going() > 0 && (one.Certain() || doubtful == Answer::Take)) {
      change->Execute(DeleteOf(one));
    }
  }
  change->Commit();
  return true;
}

// True: the tables may be others now.
bool TakeOut(Platform& platform, const GameChoice& choice, const std::string& title) {
  Database& database = platform.database;
  MessageBoxes& boxes = platform.boxes;
  const Outgoing outgoing = FindOutgoing(database, choice);
  const auto tell = [&](const std::string& words) {
    boxes.Show(words, BoxIcon::Information, title);
    return true;
  };
  if (outgoing.games.empty()) {
    return tell("The game " + choice.id + " is no longer in the database.");
  }
  if (!boxes.Ask({QuestionText(outgoing), title})) return false;
  const Answer doubtful = AskAboutDoubtful(boxes, outgoing.tally, title);
  if (doubtful == Answer::KeepGame) return false;
  const auto wayBack = CopyBeforeLoss(platform, title);
  if (!wayBack) return false;
  if (!Delete(database, choice, outgoing, doubtful)) {
    return tell(
        "No game was deleted: another program has changed the database since you were asked. "
        "The tables show it as it is now.");
  }
  return tell("The game is deleted." + *wayBack);
}

}  // namespace

bool TakeOutGame(Platform& platform, const GameChoice& game, const std::string& title) {
  try {
    return TakeOut(platform, game, title);
  } catch (const ProgramError& failure) {
    platform.boxes.Show("No game was deleted. " + std::string(failure.what()), BoxIcon::Exclamation,
                        title);
    return false;
  }
}

}  // namespace dtb
