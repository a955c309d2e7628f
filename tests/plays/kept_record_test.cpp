// Real games, played on the board and saved: the file gives back what the board had.
#include "database/kept_record.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <stdlib.h>

#include <fstream>

#include "archive/season_reader.h"
#include "database/archive_games.h"
#include "database/save_game.h"
#include "game/constant_update.h"
#include "platform/sqlite/sqlite_database.h"
#include "platform/zip/zip_archives.h"
#include "plays/played_game.h"
#include "temporary_folder.h"

namespace dtb::plays {
namespace {

// All of a record, a line for each fact.
std::string TextOf(const GameRecord& game) {
  std::ostringstream text;
  text << game.id << ' ' << game.over << '\n';
  for (const SideRecord& side : game.sides) {
    text << side.team << ' ' << side.runs << ' ' << side.hits << ' ' << side.errors << ' '
         << side.runsKnown;
    for (const std::string& inning : side.innings) text << ' ' << inning;
    for (const auto& [name, position, place, substitute, f] : side.batters) {
      text << '\n' << name << '=' << position << ' ' << place << (substitute ? " sub" : "");
      for (const double figure : {f.atBats, f.singles, f.doubles, f.triples, f.homeRuns,
                                  f.runsBattedIn, f.walks, f.strikeouts, f.steals, f.runs}) {
        text << ' ' << figure;
      }
    }
    for (const auto& [name, f] : side.pitchers) {
      text << '\n' << name;
      for (const double figure :
           {f.outs, f.hits, f.earnedRuns, f.walks, f.strikeouts, f.homeRuns, f.runs}) {
        text << ' ' << figure;
      }
    }
    text << '\n';
  }
  return text.str() + DecisionsText(game.decisions);
}

TEST(KeptRecord, IsThatOfTheBoardForRealGames) {
  const std::filesystem::path folder = MakeTemporaryFolder("records");
  SqliteDatabase database(folder / kDatabaseFile);
  std::ifstream schema(DTB_SCHEMA);
  SQLite::Database((folder / kDatabaseFile).string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
      .exec(std::string{std::istreambuf_iterator<char>(schema), {}});
  const auto archive = ZipArchives().OpenArchive(DTB_PART_ARCHIVE, Always);
  const archive::Season season = *archive::ReadSeason(*archive, Always);
  std::map<std::string, std::size_t> gamesOf;
  int number = 0;
  for (const GameEvents& events : ReadGames(*archive)) {
    if (number++ % 3 != 0) continue;  // enough to see every kind of play
    const GameScript script = MakeScript(season, events, Earned::ByOuts);
    PlayedGame game(script);
    Platform ports = PlatformOf(game.fake, database, game.fake);
    Board board{game.state, game.sheet, game.log, ports};
    NoteArchiveGame(board, script.id);
    for (const Side side : {Side::Visitors, Side::Home}) SideOf(board, side).list.Select(0);
    ConstantUpdate(board);  // the sheet's line score
    game.fake.saysYes = true;
    SaveGame(board, "Old Wooden Grounds");
    ASSERT_FALSE(game.sheet.Command2_enabled.value()) << script.id << game.fake.told;
    const GameRecord played = RecordOf(board);
    const auto kept = ReadRecord(database, played.id, {script.teams[0], script.teams[1]});
    ASSERT_TRUE(kept.has_value()) << script.id;
    EXPECT_EQ(TextOf(*kept), TextOf(played));
    EXPECT_EQ(kept->plays, played.plays) << script.id;
    EXPECT_EQ(kept->archive + kept->date + kept->park,
              script.id + DateOfArchiveGame(script.id) + "Old Wooden Grounds");
    ++gamesOf[kept->date];
  }
  for (const auto& [date, games] : gamesOf) {
    EXPECT_EQ(ReadRecordsOfDay(database, date).size(), games) << date;
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace dtb::plays
