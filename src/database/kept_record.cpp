#include "database/kept_record.h"

#include <algorithm>
#include <span>
#include <unordered_map>
#include <utility>

#include "base/text_cell.h"
#include "base/time_stamp.h"
#include "database/play_rows.h"
#include "database/rows.h"
#include "database/saved_games.h"
#include "database/saved_tables.h"

namespace dtb {
namespace {

// A row of a table, by the names of its columns.
class Row {
 public:
  Row(const std::vector<std::string>& columns, std::span<const DatabaseValue> values)
      : columns_(columns), values_(values) {}
  [[nodiscard]] std::string Text(std::string_view column) const {
    return TextIn(values_[PlaceOf(column)]);
  }
  [[nodiscard]] double Number(std::string_view column) const {
    return NumberIn(values_[PlaceOf(column)]);
  }
  [[nodiscard]] int Whole(std::string_view column) const {
    return static_cast<int>(Number(column));
  }
  [[nodiscard]] const DatabaseValue& At(std::size_t column) const { return values_[column]; }

 private:
  [[nodiscard]] std::size_t PlaceOf(std::string_view column) const {
    return static_cast<std::size_t>(std::ranges::find(columns_, column) - columns_.begin());
  }
  const std::vector<std::string>& columns_;
  std::span<const DatabaseValue> values_;
};

// A game while it is being read.
struct Game {
  GameRecord record;
  std::vector<int> numbers = {};  // of the plays
  bool readable = true;           // all of its plays
};

class Reading {
 public:
  Reading(DatabaseReader& database, const std::vector<std::string>& ids)
      : database_(database), ids_(ids) {}

  std::vector<GameRecord> Records() {
    ReadLines();
    ReadPlayers();
    ReadGames();
    ReadPlays();
    ForEach(table::kRuns, [this](const Row& row) { TakeRun(row); });
    ForEach(table::kDecisions, [this](const Row& row) { TakeDecision(row); });
    std::vector<GameRecord> records;
    for (Game& game : games_) {
      if (!game.readable) game.record.plays.clear();
      SettleRecord(game.record);
      records.push_back(std::move(game.record));
    }
    return records;
  }

 private:
  using Take = std::function<void(const Row&)>;

  // The rows of these games in a table, in the order in which they were saved.
  void ForEach(const char* table, const Take& take) {
    const std::vector<std::string>& columns = ColumnsOf(table);
    Statement query{"SELECT ", ids_};
    for (const std::string& column : columns) {
      query.text += (query.text.back() == ' ' ? "[" : ", [") + column + "]";
    }
    query.text.append(" FROM ").append(table).append(" WHERE GameID IN (");
    for (std::size_t i = 1; i <= ids_.size(); ++i) {
      query.text += (i == 1 ? "?" : ", ?") + std::to_string(i);
    }
    query.text += ") ORDER BY rowid";
    ForEachRow(database_, query, [&](std::span<const DatabaseValue> values) {
      take({columns, values});
    });
  }

  void ReadLines() {
    struct Line {
      LineKey key;
      SideRecord side;
    };
    std::vector<Line> lines;
    ForEach(table::kBoxScores, [&lines](const Row& row) {
      Line& line = lines.emplace_back();
      line.key = {row.Text("GameID"), SideOfHost(row.Text("Host"))};
      line.side = {.team = row.Text("Team"),
                   .runs = row.Number("Runs"),
                   .hits = row.Number("Hits"),
                   .errors = row.Number("Errors")};
      for (int inning = 1; inning <= kInnings; ++inning) {
        line.side.innings.push_back(TextIn(row.At(static_cast<std::size_t>(inning))));
      }
      while (!line.side.innings.empty() && line.side.innings.back().empty()) {
        line.side.innings.pop_back();
      }
    });
    std::ranges::stable_sort(lines, {}, [this](const Line& line) {
      return std::ranges::find(ids_, line.key.id) - ids_.begin();
    });
    std::vector<LineKey> keys;
    keys.reserve(lines.size());
    for (const Line& line : lines) keys.push_back(line.key);
    for (const auto& [visitors, home] : PairLines(keys)) {
      GameRecord& game = games_.emplace_back().record;
      game.id = keys[visitors ? *visitors : *home].id;
      game.over = true;
      if (visitors) game.side(Side::Visitors) = lines[*visitors].side;
      if (home) game.side(Side::Home) = lines[*home].side;
      placesOf_[game.id].push_back(games_.size() - 1);
    }
  }

  // The game of a row and the side of its team in it; none for rows of no game.
  std::pair<Game*, Side> GameOf(const Row& row) {
    const std::string team = row.Text("Team");
    for (const std::size_t place : placesOf_[row.Text("GameID")]) {
      for (const Side side : {Side::Home, Side::Visitors}) {
        if (games_[place].record.side(side).team == team) return {&games_[place], side};
      }
    }
    return {nullptr, Side::Home};
  }

  void ReadPlayers() {
    ForEach(table::kBatting, [this](const Row& row) {
      const auto [game, side] = GameOf(row);
      if (game == nullptr) return;
      BatterRecord& batter = game->record.side(side).batters.emplace_back();
      batter.name = row.Text("Batter");
      batter.figures = {.atBats = row.Number("AB"),
                        .singles = row.Number("1B"),
                        .doubles = row.Number("2B"),
                        .triples = row.Number("3B"),
                        .homeRuns = row.Number("HR"),
                        .runsBattedIn = row.Number("RBI"),
                        .walks = row.Number("BB"),
                        .strikeouts = row.Number("k"),
                        .steals = row.Number("SB")};
    });
    ForEach(table::kPitching, [this](const Row& row) {
      const auto [game, side] = GameOf(row);
      if (game == nullptr) return;
      PitcherRecord& pitcher = game->record.side(side).pitchers.emplace_back();
      pitcher.name = row.Text("Pitcher");
      pitcher.figures = {.outs = OutsOfInnings(row.Number("IP")),
                         .hits = row.Number("Hits"),
                         .earnedRuns = row.Number("Runs"),
                         .walks = row.Number("BB"),
                         .strikeouts = row.Number("k"),
                         .homeRuns = row.Number("HR")};
    });
  }

  // What stands there once counts for all games of the GameID.
  void ReadGames() {
    ForEach(table::kGames, [this](const Row& row) {
      for (const std::size_t place : placesOf_[row.Text("GameID")]) {
        GameRecord& game = games_[place].record;
        game.date = row.Text("GameDate");
        game.archive = row.Text("ArchiveGame");
        game.park = row.Text("Park");
        TakeLineup(game.side(Side::Visitors), row.Text("VisitorsLineup"));
        TakeLineup(game.side(Side::Home), row.Text("HomeLineup"));
      }
    });
    for (Game& game : games_) {
      const auto time = TimeOfStamp(game.record.id);
      if (game.record.date.empty() && time) game.record.date = DateText(*time);
    }
  }

  static void TakeLineup(SideRecord& side, const std::string& lineup) {
    for (const BatterRecord& told : LineupIn(lineup)) {
      const auto batter = std::ranges::find(side.batters, told.name, &BatterRecord::name);
      if (batter == side.batters.end()) continue;
      batter->place = told.place;
      batter->substitute = told.substitute;
      batter->position = told.position;
    }
  }

  void ReadPlays() {
    ForEach(table::kPlays, [this](const Row& row) {
      Game* game = GameOf(row).first;
      if (game == nullptr) return;
      const auto outcome = OutcomeOfCode(row.Text("Outcome"));
      auto moves = MovesIn(row.Text("Moves"));
      const int inning = row.Whole("Inning");
      if (!outcome || !moves || inning < 1) {
        game->readable = false;
        return;
      }
      const int bottom = SideOfHost(row.Text("Half")) == Side::Home ? 1 : 0;
      game->numbers.push_back(row.Whole("Number"));
      game->record.plays.push_back(
          {.half = 2 * (inning - 1) + bottom,
           .outsBefore = row.Whole("Outs"),
           .outcome = *outcome,
           .batter = row.Text("Batter"),
           .pitcher = row.Text("Pitcher"),
           .basesKept = row.Whole("BasesKept") == 1,
           .moves = std::move(*moves),
           .after = {row.Text("First"), row.Text("Second"), row.Text("Third")}});
    });
  }

  void TakeRun(const Row& row) {
    Game* game = GameOf(row).first;
    if (game == nullptr) return;
    const auto number = std::ranges::find(game->numbers, row.Whole("Play"));
    if (number == game->numbers.end()) return;
    Play& play = game->record.plays[static_cast<std::size_t>(number - game->numbers.begin())];
    const std::string runner = row.Text("Runner");
    const auto run = std::ranges::find_if(play.moves, [&runner](const Move& move) {
      return move.to == kHomePlate && move.name == runner;
    });
    if (run == play.moves.end()) return;
    run->pitcher = row.Text("Pitcher");
    run->battedIn = row.Whole("RBI") == 1;
    run->earned = row.Whole("Earned") == 1;
    run->byError = row.Whole("OnByError") == 1;
  }

  void TakeDecision(const Row& row) {
    const auto [game, side] = GameOf(row);
    const auto decision = DecisionOfCode(row.Text("Decision"));
    if (game == nullptr || !decision) return;
    game->record.decisions.push_back({side, row.Text("Pitcher"), *decision});
  }

  DatabaseReader& database_;
  const std::vector<std::string>& ids_;
  std::vector<Game> games_;
  std::unordered_map<std::string, std::vector<std::size_t>> placesOf_;  // in games_, by GameID
};

}  // namespace

std::vector<GameRecord> ReadRecords(DatabaseReader& database, const std::vector<std::string>& ids) {
  return ids.empty() ? std::vector<GameRecord>() : Reading(database, ids).Records();
}

std::optional<GameRecord> ReadRecord(DatabaseReader& database, const std::string& id,
                                     const std::vector<std::string>& teams) {
  for (GameRecord& game : ReadRecords(database, {id})) {
    const bool meant = teams.size() != 2 || (game.side(Side::Visitors).team == teams[0] &&
                                             game.side(Side::Home).team == teams[1]);
    if (meant) return std::move(game);
  }
  return std::nullopt;
}

std::vector<GameRecord> ReadRecordsOfDay(DatabaseReader& database, const std::string& day) {
  std::unordered_map<std::string, std::string> dates;
  ForEachRow(
      database, {"SELECT GameID, GameDate FROM Games"},
      [&dates](std::span<const DatabaseValue> row) { dates[TextIn(row[0])] = TextIn(row[1]); });
  std::vector<std::string> ids;
  ForEachRow(database, {"SELECT GameID FROM BoxScores GROUP BY GameID ORDER BY min(rowid)"},
             [&](std::span<const DatabaseValue> row) {
               const std::string id = TextIn(row.front());
               const auto date = dates.find(id);
               const auto time = TimeOfStamp(id);
               const bool played =
                   date != dates.end() ? date->second == day : time && DateText(*time) == day;
               if (played) ids.push_back(id);
             });
  return ReadRecords(database, ids);
}

}  // namespace dtb
