// Real games, played on the board and saved as they really were: the file gives back what the board
// had, and both worlds stand level.
#include <SQLiteCpp/SQLiteCpp.h>
#include <stdlib.h>

#include <fstream>

#include "archive/season_reader.h"
#include "database/archive_games.h"
#include "database/kept_record.h"
#include "database/save_game.h"
#include "game/constant_update.h"
#include "platform/sqlite/sqlite_database.h"
#include "platform/zip/zip_archives.h"
#include "plays/played_game.h"
#include "real/team_games.h"
#include "real/use.h"
#include "record/game_record.h"
#include "temporary_folder.h"

namespace dtb::plays {
namespace {

// What the board cannot know, by team, player and figure: it has so many more than there really
// were. Tells them as season_scripts does.
class Known {
 public:
  void Take(const GameScript& script, const GameRecord& record) {
    for (const Difference& one : script.differences) {
      // Innings of a half-inning that the game cut short are right once they are saved.
      const Figure& figure = one.figure;
      if (figure.kind == "LINE" || figure.kind == "LEFT" || figure.what == "IP") continue;
      Of(script.teams.at(one.figure.side), one.figure.who, one.figure.kind[0] + one.figure.what) +=
          one.delta;
    }
    // The board's decisions less the scorer's.
    for (const PitcherDecision& one : record.decisions) {
      if (one.decision == Decision::Hold || one.decision == Decision::BlownSave) continue;
      Decided(script, one.pitcher, DecisionCode(one.decision), 1);
    }
    for (const auto& [code, pitcher] : script.decisions) Decided(script, pitcher, code, -1);
  }

  int& Of(const std::string& team, const std::string& player, const std::string& what) {
    return deltas_[team + '/' + real::WithoutNumber(player) + '/' + what];
  }

 private:
  void Decided(const GameScript& script, const std::string& pitcher, const std::string& code,
               int count) {
    for (std::size_t side = 0; side < 2; ++side) {
      if (!std::ranges::count(script.pitchers.at(side), pitcher)) continue;
      Of(script.teams.at(side), pitcher, "P" + code) += count;
    }
  }

  std::map<std::string, int> deltas_;
};

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

// A season in which all games of the part are played and saved as they really were.
class ReplayedPart {
 public:
  ReplayedPart() {
    std::ifstream schema(DTB_SCHEMA);
    SQLite::Database((folder_ / kDatabaseFile).string(),
                     SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec(std::string{std::istreambuf_iterator<char>(schema), {}});
    const auto zip = ZipArchives().OpenArchive(DTB_PART_ARCHIVE, Always);
    season = std::make_shared<const archive::Season>(*archive::ReadSeason(*zip, Always));
    std::map<std::string, GameEvents> eventsOf;
    for (GameEvents& events : ReadGames(*zip)) eventsOf[events.id] = std::move(events);
    for (const archive::Game& game : season->games) {
      Play(MakeScript(*season, eventsOf.at(game.id), Earned::ByOuts));
    }
  }
  ~ReplayedPart() { std::filesystem::remove_all(folder_); }
  ReplayedPart(const ReplayedPart&) = delete;
  ReplayedPart& operator=(const ReplayedPart&) = delete;

 private:
  std::filesystem::path folder_ = MakeTemporaryFolder("worlds");

 public:
  SqliteDatabase database{folder_ / kDatabaseFile};
  std::shared_ptr<const archive::Season> season;
  Known known;
  std::map<std::string, std::size_t> gamesOf;  // by the day

 private:
  void Play(const GameScript& script) {
    PlayedGame played(script);
    Platform ports = PlatformOf(played.fake, database, played.fake);
    Board board{played.state, played.sheet, played.log, ports};
    NoteArchiveGame(board, script.id);
    for (const Side side : {Side::Visitors, Side::Home}) SideOf(board, side).list.Select(0);
    ConstantUpdate(board);
    played.fake.saysYes = true;
    SaveGame(board, "Old Wooden Grounds");
    ASSERT_FALSE(played.sheet.Command2_enabled.value()) << script.id << played.fake.told;
    const GameRecord record = RecordOf(board);
    known.Take(script, record);
    const auto kept = ReadRecord(database, record.id, {script.teams[0], script.teams[1]});
    ASSERT_TRUE(kept.has_value()) << script.id;
    EXPECT_EQ(TextOf(*kept), TextOf(record));
    EXPECT_EQ(kept->plays, record.plays) << script.id;
    EXPECT_EQ(kept->archive + kept->date + kept->park,
              script.id + DateOfArchiveGame(script.id) + "Old Wooden Grounds");
    ++gamesOf[kept->date];
  }
};

void ExpectLevelPlayers(const std::vector<real::BothPlayer>& players, const SeasonFigures& season,
                        Known& known) {
  std::string unlike;
  for (const real::BothPlayer& player : players) {
    const auto b = player.batting.value_or(BattingTotals{});
    const auto p = player.pitching.value_or(PitchingTotals{});
    const auto& rb = player.reallyBatted;
    const auto& rp = player.reallyPitched;
    const std::string& team = season.teams[player.team].name;
    const auto hits = [&](double all, double extra) { return all - extra; };
    for (const auto& [what, own, real] :
         std::initializer_list<std::tuple<const char*, double, double>>{
             {"BAB", b.atBats, rb.atBats},
             {"B1B", hits(b.hits, b.doubles + b.triples + b.homeRuns),
              hits(rb.hits, rb.doubles + rb.triples + rb.homeRuns)},
             {"B2B", b.doubles, rb.doubles},
             {"B3B", b.triples, rb.triples},
             {"BHR", b.homeRuns, rb.homeRuns},
             {"BRBI", b.runsBattedIn, rb.runsBattedIn},
             {"BBB", b.walks, rb.walks},
             {"BK", b.strikeouts, rb.strikeouts},
             {"BSB", b.stolenBases, rb.stolenBases},
             {"BR", b.runs, rb.runs},
             {"BDP", b.intoDoublePlays, rb.intoDoublePlays},
             {"BLOB", b.leftOnBase, rb.leftOnBase},
             {"PG", p.games, rp.games},
             {"PGS", player.starts, rp.starts},
             {"PIP", p.outs, rp.outs},
             {"PH", p.hits, rp.hits},
             {"PHR", p.homeRuns, rp.homeRuns},
             {"PBB", p.walks, rp.walks},
             {"PK", p.strikeouts, rp.strikeouts},
             {"PER", p.earnedRuns, rp.earnedRuns},
             {"PR", p.runs, rp.runs},
             {"PW", p.wins, rp.wins},
             {"PL", p.losses, rp.losses},
             {"PS", p.saves, rp.saves}}) {
      const double delta = known.Of(team, player.name, what);
      if (own == real + delta) continue;
      unlike += player.name + ' ' + what + ": " + std::to_string(static_cast<int>(own)) +
                ", really " + std::to_string(static_cast<int>(real)) + '\n';
    }
  }
  EXPECT_EQ(unlike, "");
}

TEST(BothWorlds, StandLevelOnceRealGamesAreReplayedAsTheyWere) {
  ReplayedPart part;
  const auto replayed = std::make_shared<const SeasonFigures>(ReadSeasonFigures(part.database));
  ASSERT_EQ(replayed->games.size(), 120U);
  for (const auto& [date, games] : part.gamesOf) {
    EXPECT_EQ(ReadRecordsOfDay(part.database, date).size(), games) << date;
  }
  const real::BothWorlds worlds = real::PairWorlds(replayed, part.season);
  EXPECT_EQ(real::NotCompared(worlds), std::vector<std::string>());
  const real::StartsOfPitchers starts = real::ReadStarts(part.database);
  const real::ArchiveIds ids = ArchiveIdsOfGames(part.database, "");
  // One who left without an out or a figure has no row on the board.
  const auto players = real::PlayersOfBoth(worlds, {}, starts);
  for (const real::BothPlayer& player : players) {
    const double missing =
        player.reallyPitched.games - player.pitching.value_or(PitchingTotals{}).games;
    if (missing == 1) part.known.Of(replayed->teams[player.team].name, player.name, "PG") = -1;
  }
  for (const auto by : {real::Moment::By::Games, real::Moment::By::Date}) {
    const real::Moment moment{by};
    const real::BothStandings both = real::StandingsOfBoth(worlds, moment);
    for (const real::BothStanding& row : both.rows) {
      const SeasonTeam& own = both.replayed.teams[row.team];
      const SeasonTeam& real = both.really.teams[row.team];
      EXPECT_EQ(std::tuple(own.wins, own.losses, own.runs, own.runsAllowed, own.games.size()),
                std::tuple(real.wins, real.losses, real.runs, real.runsAllowed, real.games.size()))
          << own.name;
      EXPECT_EQ(row.ahead, 0) << own.name;
    }
    ExpectLevelPlayers(real::PlayersOfBoth(worlds, moment, starts), *replayed, part.known);
    for (const SeasonLead lead : kSeasonLeads) {
      EXPECT_EQ(real::UntoldOf(worlds, moment, lead).games, 0) << LeadTitle(lead);
    }
  }
  for (int team = 0; team < static_cast<int>(replayed->teams.size()); ++team) {
    const std::string& name = replayed->teams[team].name;
    const real::BothCourses courses = real::CoursesOf(worlds, team);
    EXPECT_TRUE(std::ranges::equal(courses.replayed,
                                   std::span(courses.really).first(courses.replayed.size())))
        << name;
    for (const real::TeamGame& game : real::GamesOfTeam(worlds, ids, team)) {
      if (game.replayed < 0) continue;
      EXPECT_EQ(game.replayedText, game.reallyText) << name;
      EXPECT_EQ(game.replayedRecord, game.reallyRecord) << name;
    }
    const real::TeamUse use = real::UseOfTeam(worlds, players, team);
    for (const auto* list : {&use.batters, &use.pitchers}) {
      for (const real::PlayerUse& player : *list) {
        EXPECT_EQ(player.mark(), real::UseMark::Within) << player.name;
        EXPECT_EQ(player.uses[0].replayed, player.uses[0].toDate) << player.name;
      }
    }
  }
}

}  // namespace
}  // namespace dtb::plays
