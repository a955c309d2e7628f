#include "database/games_of_others.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "base/checksum.h"
#include "base/paths.h"
#include "base/text_cell.h"
#include "base/time_stamp.h"
#include "base/words.h"
#include "database/backups.h"
#include "database/rows.h"
#include "database/saved_tables.h"
#include "platform/database.h"
#include "platform/seasons.h"

namespace dtb {
namespace {

std::string Listed(const std::vector<std::string>& columns) {
  std::string list;
  for (const std::string& column : columns) list += (list.empty() ? "[" : ", [") + column + "]";
  return list;
}

// Sums of the rows of a team in the games of a GameID. They do not depend on the order of the rows.
using Sums = std::map<std::pair<std::string, std::string>, std::uint64_t>;

void AddSums(DatabaseReader& database, const char* table, Sums& sums) {
  const std::vector<std::string>& columns = ColumnsOf(table);
  const auto placeOf = [&columns](const char* name) {
    return static_cast<std::size_t>(std::ranges::find(columns, name) - columns.begin());
  };
  const std::size_t team = placeOf("Team");
  const std::size_t id = placeOf("GameID");
  ForEachRow(database, {"SELECT " + Listed(columns) + " FROM " + table},
             [&](std::span<const DatabaseValue> row) {
               std::string text = table;
               for (std::size_t i = 0; i < row.size(); ++i) {
                 if (i != id) text.append("\n").append(TextIn(row[i]));
               }
               sums[{TextIn(row[id]), TextIn(row[team])}] += ChecksumOf(text);
             });
}

struct GamesRow {
  std::string ownId;
  std::string day;
};

std::unordered_map<std::string, GamesRow> ReadGamesRows(DatabaseReader& database) {
  std::unordered_map<std::string, GamesRow> rows;
  // A save sees the tables that are there, and no others.
  const Statement there{
      "SELECT count(*) FROM (SELECT name FROM sqlite_master UNION ALL SELECT name FROM "
      "sqlite_temp_master) WHERE name = 'Games'"};
  if (CountOf(database, there) == 0) return rows;
  ForEachRow(database, {"SELECT GameID, OwnID, GameDate FROM Games"},
             [&rows](std::span<const DatabaseValue> row) {
               rows[TextIn(row[0])] = {TextIn(row[1]), TextIn(row[2])};
             });
  return rows;
}

// The rows of a game in a table, ready to be put elsewhere under another GameID.
std::vector<TableRow> RowsOf(DatabaseReader& database, const char* table, const SavedGame& game,
                             const std::string& newId) {
  const std::vector<std::string>& columns = ColumnsOf(table);
  Statement query{"SELECT " + Listed(columns) + " FROM " + table + " WHERE GameID = ?1", {game.id}};
  if (std::ranges::find(columns, "Team") != columns.end()) {
    query.text += " AND ifnull(Team, '') IN (?2, ?3)";
    query.bound.insert(query.bound.end(), {game.visitors, game.home});
  }
  query.text += " ORDER BY rowid";
  std::vector<TableRow> rows;
  ForEachRow(database, query, [&](std::span<const DatabaseValue> values) {
    TableRow& row = rows.emplace_back(TableRow{table, {}});
    for (std::size_t i = 0; i < values.size(); ++i) {
      std::string text = columns[i] == "GameID" ? newId : TextIn(values[i]);
      if (!text.empty()) row.cells.push_back({columns[i], std::move(text)});
    }
  });
  return rows;
}

bool HasGame(DatabaseReader& database, const std::string& id) {
  const Statement games{
      "SELECT EXISTS (SELECT 1 FROM BoxScores WHERE GameID = ?1)"
      " OR EXISTS (SELECT 1 FROM Batting WHERE GameID = ?1)"
      " OR EXISTS (SELECT 1 FROM Pitching WHERE GameID = ?1)",
      {id}};
  return CountOf(database, games) != 0;
}

// The game's own GameID, or the next second that no other game has. One that tells no time gets a
// letter more until it is free.
std::string FreeId(DatabaseReader& database, const std::string& id) {
  std::string free = id;
  auto time = TimeOfStamp(id);
  while (HasGame(database, free)) {
    if (time) time = NextSecond(*time);
    if (time) free = MakeStamp(*time);
    if (!time) free += 'b';
  }
  return free;
}

void AppendResults(DatabaseSave& save, const SavedGame& game) {
  const double visitors = NumberOf(game.visitorsRuns);
  const double home = NumberOf(game.homeRuns);
  for (const auto& [team, own, other] :
       {std::tuple{game.visitors, visitors, home}, {game.home, home, visitors}}) {
    std::vector<ColumnText> row{{"Team", team}};
    if (own > other) row.push_back({"Win", "1"});
    if (own < other) row.push_back({"Loss", "1"});
    save.Append(table::kWinLoss, row);
  }
  save.Append(table::kMatchups,
              {{"Matchup", game.visitors + "  vs  " + game.home}, {"Tally", "1"}});
}

void PutGame(DatabaseReader& from, const SavedGame& game, DatabaseSave& save) {
  const std::string id = FreeId(save, game.id);
  for (const char* table : {table::kBatting, table::kPitching, table::kBoxScores}) {
    for (const TableRow& row : RowsOf(from, table, game, id)) save.Append(row.table, row.cells);
  }
  AppendResults(save, game);
  std::vector<TableRow> plays;
  for (const TableColumns& columns : PlayTables()) {
    std::ranges::move(RowsOf(from, columns.table.c_str(), game, id), std::back_inserter(plays));
  }
  if (plays.empty()) return;
  const std::string refusal = save.AppendPlays(plays);
  if (!refusal.empty()) throw ProgramError(error_number::kInvalidCall, refusal);
}

// Whether a database has a game.
class Known {
 public:
  explicit Known(DatabaseReader& database) {
    for (const GameIdentity& game : IdentitiesOf(database)) Add(game);
  }
  [[nodiscard]] bool Has(const GameIdentity& game) const {
    return fingerprints_.contains(game.fingerprint) ||
           (!game.ownId.empty() && ownIds_.contains(game.ownId));
  }
  void Add(const GameIdentity& game) {
    fingerprints_.insert(game.fingerprint);
    if (!game.ownId.empty()) ownIds_.insert(game.ownId);
  }

 private:
  std::unordered_set<std::uint64_t> fingerprints_;
  std::unordered_set<std::string> ownIds_;
};

}  // namespace

std::vector<GameIdentity> IdentitiesOf(DatabaseReader& database) {
  Sums sums;
  for (const char* table : {table::kBatting, table::kPitching, table::kBoxScores}) {
    AddSums(database, table, sums);
  }
  const auto rows = ReadGamesRows(database);
  std::unordered_map<std::string, int> games;
  std::vector<GameIdentity> identities;
  for (const SavedGame& game : ReadSavedGames(database)) {
    ++games[game.id];
    GameIdentity& identity = identities.emplace_back(GameIdentity{game, "", "", 0});
    std::string both;
    for (const std::string& team : {game.visitors, game.home}) {
      both += std::to_string(sums[{game.id, team}]) + ' ';
    }
    identity.fingerprint = ChecksumOf(both);
    const auto time = TimeOfStamp(game.id);
    if (time) identity.day = DateText(*time);
  }
  for (GameIdentity& identity : identities) {
    const auto row = rows.find(identity.game.id);
    if (row == rows.end()) continue;
    if (!row->second.day.empty()) identity.day = row->second.day;
    // Of several games with one GameID nobody knows whose it is.
    if (games[identity.game.id] == 1) identity.ownId = row->second.ownId;
  }
  return identities;
}

std::vector<GameIdentity> GamesLacking(DatabaseReader& database, DatabaseReader& other) {
  Known known(database);
  std::vector<GameIdentity> lacking;
  for (const GameIdentity& game : IdentitiesOf(other)) {
    if (known.Has(game)) continue;
    known.Add(game);
    lacking.push_back(game);
  }
  return lacking;
}

int PutGames(DatabaseReader& from, const std::vector<GameIdentity>& games, Database& into) {
  const auto save = into.BeginSave(SavedTables());
  Known known(*save);
  int put = 0;
  for (const GameIdentity& game : games) {
    if (known.Has(game)) continue;
    known.Add(game);
    PutGame(from, game.game, *save);
    ++put;
  }
  save->Commit();
  return put;
}

OthersGames AskForOthersGames(Platform& platform) {
  const auto file = platform.dialogs.OpenFile(
      {kTakeInTitle, platform.programFolder, "Databases (*.mdb)|*.mdb|All files (*)|*"});
  if (!file) return {};
  OthersGames others{*file, {}};
  try {
    const auto database = platform.seasons.OpenDatabaseFile(*file);
    others.games = GamesLacking(platform.database, *database);
    if (others.games.empty()) {
      platform.boxes.Show("This season has all games of \"" + TextOf(*file) + "\" already.",
                          BoxIcon::Information, kTakeInTitle);
    }
  } catch (const ProgramError& failure) {
    platform.boxes.Show("No games can be taken in. " + std::string(failure.what()),
                        BoxIcon::Exclamation, kTakeInTitle);
    others.games.clear();
  }
  return others;
}

bool TakeIn(Platform& platform, const OthersGames& chosen) {
  try {
    const std::string noCopy = CopyBeforeFirstSave(platform);
    const auto other = platform.seasons.OpenDatabaseFile(chosen.file);
    const int put = PutGames(*other, chosen.games, platform.database);
    platform.boxes.Show(
        Counted(put, "game") + (put == 1 ? " was" : " were") + " taken in." + noCopy,
        BoxIcon::Information, kTakeInTitle);
    return put > 0;
  } catch (const ProgramError& failure) {
    platform.boxes.Show("No game was taken in. " + std::string(failure.what()),
                        BoxIcon::Exclamation, kTakeInTitle);
    return false;
  }
}

void GiveOut(Platform& platform, const std::vector<GameIdentity>& chosen) {
  const auto file = platform.dialogs.SaveFile(
      {platform.programFolder, "Games.mdb", "Databases (*.mdb)|*.mdb", "mdb"});
  if (!file) return;
  try {
    int put = 0;
    platform.seasons.MakeDatabaseFile(
        *file, [&](Database& made) { put = PutGames(platform.database, chosen, made); });
    platform.boxes.Show(
        Counted(put, "game") + (put == 1 ? " was" : " were") + " written into\n" + TextOf(*file),
        BoxIcon::Information, kGiveOutTitle);
  } catch (const ProgramError& failure) {
    platform.boxes.Show("No game was given out. " + std::string(failure.what()),
                        BoxIcon::Exclamation, kGiveOutTitle);
  }
}

std::string GameLine(const GameIdentity& game) {
  const auto day = DateIn(game.day);
  return (day ? PlainDay(*day) : std::string("no date")) + ": " + ScoreText(game.game);
}

}  // namespace dtb
