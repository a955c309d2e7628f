// Real games, played on the board and saved as they really were: both worlds stand level.
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
#include "real/team_games.h"
#include "real/use.h"

namespace dtb::plays {
namespace {

// The games of the first days, up to so many.
constexpr int kGames = 120;

TEST(BothWorlds, StandLevelOnceRealGamesAreReplayedAsTheyWere) {
  std::string folderName = (std::filesystem::temp_directory_path() / "worldsXXXXXX").string();
  const std::filesystem::path folder = mkdtemp(folderName.data());
  SqliteDatabase database(folder / kDatabaseFile);
  std::ifstream schema(DTB_SCHEMA);
  SQLite::Database((folder / kDatabaseFile).string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
      .exec(std::string{std::istreambuf_iterator<char>(schema), {}});
  const auto zip = ZipArchives().OpenArchive(DTB_PART_ARCHIVE, Always);
  const auto season = std::make_shared<const archive::Season>(*archive::ReadSeason(*zip, Always));
  std::map<std::string, GameEvents> eventsOf;
  for (GameEvents& events : ReadGames(*zip)) eventsOf[events.id] = std::move(events);
  int number = 0;
  for (const archive::Game& game : season->games) {
    if (number++ >= kGames) break;
    const GameScript script = MakeScript(*season, eventsOf.at(game.id), Earned::ByOuts);
    PlayedGame played(script);
    Platform ports = PlatformOf(played.fake, database, played.fake);
    Board board{played.state, played.sheet, played.log, ports};
    NoteArchiveGame(board, script.id);
    for (const Side side : {Side::Visitors, Side::Home}) SideOf(board, side).list.Select(0);
    ConstantUpdate(board);
    played.fake.saysYes = true;
    SaveGame(board, "");
    ASSERT_FALSE(played.sheet.Command2_enabled.value()) << script.id << played.fake.told;
  }
  const auto replayed = std::make_shared<const SeasonFigures>(ReadSeasonFigures(database));
  const real::BothWorlds worlds = real::PairWorlds(replayed, season);
  EXPECT_EQ(real::NotCompared(worlds), std::vector<std::string>());
  const real::StartsOfPitchers starts = real::ReadStarts(database);
  for (const real::Moment& moment :
       {real::Moment{}, real::Moment{real::Moment::By::Date, std::nullopt}}) {
    real::BothStandings both = real::StandingsOfBoth(worlds, moment);
    const auto players = real::PlayersOfBoth(worlds, moment, starts);
    real::AddPlayers(both, players);
    for (const auto& row : both.rows) {
      const SeasonTeam& own = both.replayed.teams[row.team];
      const SeasonTeam& real = both.really.teams[row.team];
      EXPECT_EQ(std::tuple(own.wins, own.losses, own.runs, own.runsAllowed),
                std::tuple(real.wins, real.losses, real.runs, real.runsAllowed))
          << own.name;
    }
    for (const real::BothPlayer& player : players) {
      const auto b = player.batting.value_or(BattingTotals{});
      const auto p = player.pitching.value_or(PitchingTotals{});
      const auto& rb = player.reallyBatted;
      const auto& rp = player.reallyPitched;
      const auto same = [&](const char* what, double own, double real) {
        EXPECT_EQ(own, real) << player.name << ' ' << what;
      };
      same("AB", b.atBats, rb.atBats);
      same("H", b.hits, rb.hits);
      same("2B", b.doubles, rb.doubles);
      same("3B", b.triples, rb.triples);
      same("HR", b.homeRuns, rb.homeRuns);
      same("RBI", b.runsBattedIn, rb.runsBattedIn);
      same("BB", b.walks, rb.walks);
      same("K", b.strikeouts, rb.strikeouts);
      same("SB", b.stolenBases, rb.stolenBases);
      same("R", b.runs, rb.runs);
      same("G", p.games, rp.games);
      same("GS", player.starts, rp.starts);
      same("outs", p.outs, rp.outs);
      same("H", p.hits, rp.hits);
      same("HR", p.homeRuns, rp.homeRuns);
      same("BB", p.walks, rp.walks);
      same("K", p.strikeouts, rp.strikeouts);
      same("ER", p.earnedRuns, rp.earnedRuns);
      same("W", p.wins, rp.wins);
      same("L", p.losses, rp.losses);
      same("S", p.saves, rp.saves);
    }
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace dtb::plays
