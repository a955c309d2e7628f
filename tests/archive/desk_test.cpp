// From the archive to two teams on the board, without the looks of the window.

#include <map>

#include "archive/archive_lists.h"
#include "archive/archive_teams.h"
#include "archive/season_files.h"
#include "archive/season_test.h"
#include "base/paths.h"
#include "base/whole_file.h"
#include "database/archive_games.h"
#include "game/history.h"
#include "game/start_up.h"
#include "platform/quiet_desktop.h"
#include "teams/team_load.h"
#include "temporary_folder.h"

namespace dtb::archive {
namespace {

struct Desktop final : QuietDesktop {
  void Show(const std::string& message, BoxIcon, const std::string&) override { told = message; }
  bool Ask(const Question& question) override {
    told = question.text;
    return answer;
  }
  std::size_t Choose(const Choice& choice) override {
    told = choice.text;
    return answer ? 0 : choice.answers.size() - 1;
  }
  std::string Read(const std::string&, const std::string& key,
                   const std::string& missing) override {
    return settings.contains(key) ? settings[key] : missing;
  }
  void Write(const std::string&, const std::string& key, const std::string& value) override {
    settings[key] = value;
  }
  std::unique_ptr<Archive> OpenArchive(const std::filesystem::path& from,
                                       const GoOn& goOn) override {
    return ZipArchives().OpenArchive(from, goOn);
  }
  void Run(const Statement& query, RowSink& rows) override {
    const bool games = query.text.find("ArchiveGame") != std::string::npos;
    const bool lines = query.text.find("Host") != std::string::npos;
    rows.TakeFields({});
    for (const auto& [id, archiveGame] : saved) {
      if (lines) {  // the home team has won 5-3
        for (const auto& [runs, host] : {std::pair{"3", "a_VIS"}, {"5", "b_HOME"}}) {
          rows.TakeRow(std::array<DatabaseValue, 4>{id, "", runs, host});
        }
        continue;
      }
      const std::array<DatabaseValue, 2> row{archiveGame, id};
      rows.TakeRow(games ? std::span(row) : std::span(row).last(1));
    }
  }

  std::string told;
  bool answer = true;
  std::map<std::string, std::string> settings;
  std::map<std::string, std::string> saved;  // games of an archive, by GameID
};

class SeasonWindow : public testing::Test {
 protected:
  SeasonWindow() { std::filesystem::create_directories(folder / "Teams"); }
  ~SeasonWindow() override { std::filesystem::remove_all(folder); }

  void Read(const std::filesystem::path& archive = DTB_SEASON_FILES "2020-part.zip") {
    ReadArchive(desk, archive, Always);
  }
  void SelectTeamNamed(const std::string& name) {
    SelectTeam(desk, state.grd_Teams.FindRow(1, name).value());
  }
  void SelectGameOn(const std::string& date) {
    SelectGame(desk, state.grd_Games.FindRow(1, date).value());
  }
  [[nodiscard]] std::string Entry(Side side, std::size_t row) {
    return SideOf(board, side).list.entries().at(row);
  }

  std::filesystem::path folder = MakeTemporaryFolder("season");
  Desktop desktop;
  Platform ports = PlatformOf(desktop, desktop, desktop, folder);
  BoardState boardState;
  StatSheet sheet;
  EventLog log;
  History history;
  Board board{boardState, sheet, log, ports, &history};
  SeasonState state;
  KeptSeason kept;
  ArchiveDesk desk{state, kept, board};
};

TEST_F(SeasonWindow, ATeamIsWrittenLoadedAndNeverPutOverAnotherFileUnasked) {
  OpenArchiveDesk(desk);
  Read();
  EXPECT_EQ(state.lbl_Archive.value(), "2020-part.zip: 28 teams and 120 games of 2020.");
  SelectTeamNamed("Oakland 2020");
  EXPECT_EQ(state.games.size(), 30U);
  EXPECT_EQ(state.grd_Games.Text(1, 2), "Anaheim 2020");
  EXPECT_EQ(state.grd_Games.Text(1, 3), "W 7-3");
  EXPECT_EQ(state.files[0].grid.Text(1, 2), "Marcus Semien=SS R .188 2 HR");

  const std::filesystem::path file = folder / "Teams" / "Oakland 2020.txt";
  WriteTeamFile(file, "my own line-up\n");
  desktop.answer = false;
  LoadTeamAs(desk, Side::Home);
  EXPECT_NE(desktop.told.find("exists already"), std::string::npos);
  EXPECT_EQ(WhatStands(file, "my own line-up\n"), FileState::TheSame);
  EXPECT_TRUE(SideOf(board, Side::Home).list.empty());
  desktop.answer = true;
  WriteTeamFiles(desk);
  desktop.told.clear();
  LoadTeamAs(desk, Side::Home);
  LoadTeamAs(desk, Side::Home);  // in place of the first, not behind it
  EXPECT_EQ(desktop.told, "");
  EXPECT_EQ(boardState.tb_HomeTeam.value(), "Oakland 2020");
  EXPECT_EQ(SideOf(board, Side::Home).list.size(), 38);

  // A form that changes is seen at once, and the next run has it.
  state.tb_Batters.Set("{bats} {sb} SB {wrong}");
  state.opt_LastFirst.Set(true);
  ChangeForms(desk);
  EXPECT_EQ(state.files[0].grid.Text(1, 2).substr(0, 16), "Semien, Marcus=R");
  EXPECT_EQ(state.lbl_Forms.value(), "Not known for batters: {wrong}");
  KeepChoices(desk);
  SeasonState later;
  ArchiveDesk again{later, kept, board};
  OpenArchiveDesk(again);
  EXPECT_EQ(later.files[0].grid.Text(1, 2), state.files[0].grid.Text(1, 2));
}

TEST_F(SeasonWindow, ASeasonIsGoneThroughGameByGame) {
  const auto save = [this](const std::string& id) {
    desktop.saved[id] = ArchiveGameOnBoard(board);
  };
  const auto marks = [this] {
    SelectTeamNamed("Oakland 2020");
    std::string text;
    for (int row = 1; row <= 5; ++row) text += state.grd_Games.Text(row, 4) == "W 5-3" ? 'x' : '.';
    return text;
  };
  OpenArchiveDesk(desk);
  Read();
  EXPECT_EQ(NextGameOffer(kept, board), std::nullopt) << "no game of an archive";
  EXPECT_EQ(marks(), ".....");
  SelectGame(desk, 2);
  EXPECT_TRUE(LoadGame(desk));
  EXPECT_EQ(boardState.tb_VisTeam.value(), "Anaheim 2020");
  EXPECT_EQ(boardState.tb_HomeTeam.value(), "Oakland 2020");
  EXPECT_EQ(history.steps(), 1U);  // one step takes both teams back
  EXPECT_TRUE(std::filesystem::is_empty(folder / "Teams"));
  save("a");
  // The game that was loaded counts, not the first of the two teams; and no team loaded since.
  Read();
  EXPECT_EQ(marks(), ".x...");
  EXPECT_EQ(NextGameOffer(kept, board), "Next game of Oakland 2020");
  SelectNine(desk, SeasonNine::UsualNine);
  KeepChoices(desk);
  KeptSeason later;  // of another run
  EXPECT_EQ(NextGameOffer(later, board), "Next game of Oakland 2020");
  EXPECT_TRUE(LoadNextGame(later, board, Always));
  EXPECT_EQ(later.nine, SeasonNine::UsualNine);
  EXPECT_EQ(later.season->games[*later.game].id, kept.season->games[state.games[0]].id);
  save("b");
  SelectTeamNamed("Houston 2020");
  LoadTeamAs(desk, Side::Visitors);
  save("c");
  Read();
  EXPECT_EQ(marks(), "xx...");
  EXPECT_TRUE(LoadNextGame(desk));
  EXPECT_EQ(kept.season->games[*kept.game].id, "OAK202007260");
  // Taken out of the database, a game is to be played again.
  desktop.saved.erase("b");
  Read();
  EXPECT_EQ(marks(), ".x...");
  desktop.answer = false;
  sheet.grd_VisStats.SetText(1, stat_column::kAtBats, "1");
  SelectGameOn("2020-08-07");
  EXPECT_FALSE(LoadGame(desk));
  EXPECT_NE(desktop.told.find("A game is on the board"), std::string::npos) << desktop.told;
  desktop.answer = true;
  EXPECT_TRUE(LoadGame(desk));
  EXPECT_EQ(boardState.tb_VisTeam.value(), "Houston 2020");
  EXPECT_EQ(Entry(Side::Visitors, 0).substr(0, 12), "Kyle Tucker=");
}

TEST_F(SeasonWindow, TheStartersOfAGameAreItsPitchers) {
  const auto pitchers = [this] {
    std::string text = boardState.lbl_VisPitcher.value() + '/' + boardState.lbl_HomePitcher.value();
    for (const StatGrid* grid : {&sheet.grd_VisStats, &sheet.grd_HomeStats}) {
      text += " |";
      for (int row = 1; row < grid->rows(); ++row) {
        const std::string_view name = grid->Text(row, stat_column::kPitcher);
        if (!name.empty()) text.append(" ").append(name);
      }
    }
    return text;
  };
  const std::string first = "Dylan Bundy/Sean Manaea | Dylan Bundy | Sean Manaea";
  const std::string second = "Zack Greinke/Chris Bassitt | Zack Greinke | Chris Bassitt";
  OpenArchiveDesk(desk);
  Read();
  SelectTeamNamed("Oakland 2020");
  SelectGame(desk, 2);
  EXPECT_TRUE(LoadGame(desk));
  EXPECT_EQ(pitchers(), first);
  EXPECT_EQ(log.text(),
            "Dylan Bundy_____[current pitcher]\r\nSean Manaea_____[current pitcher]\r\n");
  // Before a game has begun another one takes its place, on the sheet, too.
  const int longer = SideOf(board, Side::Home).list.size();
  SelectGameOn("2020-08-07");
  EXPECT_TRUE(LoadGame(desk));
  EXPECT_EQ(pitchers(), second);
  for (const Side side : {Side::Visitors, Side::Home}) {
    const SideFields fields = SideOf(board, side);
    for (int row = fields.list.size() + 1; row <= longer; ++row) {
      EXPECT_EQ(fields.grid.Text(row, stat_column::kBatter), "") << row;
    }
  }
  history.Undo(board);
  EXPECT_EQ(pitchers(), first);
  history.Undo(board);
  EXPECT_EQ(pitchers(), "/ | |");
  history.Redo(board);
  EXPECT_EQ(pitchers(), first);
  // Into a game that is under way.
  sheet.grd_VisStats.SetText(1, stat_column::kAtBats, "1");
  EXPECT_TRUE(LoadGame(desk));
  EXPECT_EQ(boardState.tb_VisTeam.value(), "Houston 2020");
  EXPECT_EQ(pitchers(), first);
}

TEST_F(SeasonWindow, AStarterMayStandInTheOrder) {
  const std::filesystem::path archive = folder / "old";
  std::string game = "id,AAA197504010\ninfo,visteam,BBB\ninfo,hometeam,AAA\n";
  for (const char* side : {"0", "1"}) {
    for (int place = 1; place <= 9; ++place) {
      const int position = place == 8 ? 1 : place == 9 ? 9 : place + 1;
      game += std::string("start,") + (side[0] == '0' ? 'v' : 'h') + std::to_string(place) +
              ",\"\"," + side + ',' + std::to_string(place) + ',' + std::to_string(position) + '\n';
    }
  }
  std::filesystem::create_directories(archive);
  WriteWholeFile(archive / "1975AAA.EVA", game);
  Read(archive);
  SelectGame(desk, 1);
  EXPECT_TRUE(LoadGame(desk));
  EXPECT_EQ(boardState.lbl_VisPitcher.value() + boardState.lbl_HomePitcher.value(), "v8h8");
  EXPECT_EQ(SideOf(board, Side::Home).list.size(), 9);
  EXPECT_EQ(sheet.grd_HomeStats.Text(8, stat_column::kBatter), "h8");
}

TEST_F(SeasonWindow, APlayerOfBothTeamsIsTold) {
  WriteWholeFile(folder / "Teams" / "A.txt", "Hal One\nPell Two=P\n");
  WriteWholeFile(folder / "Teams" / "B.txt", "Pell Two\nVarrow\n");
  ReplaceTeam(board, Side::Visitors, folder / "Teams" / "A.txt");
  EXPECT_EQ(desktop.told, "");
  ReplaceTeam(board, Side::Home, folder / "Teams" / "B.txt");
  EXPECT_NE(desktop.told.find("Both teams have \"Pell Two\"."), std::string::npos) << desktop.told;
}

TEST_F(SeasonWindow, WhatCannotBeReadLeavesTheSeasonThatIsKept) {
  OpenArchiveDesk(desk);
  Read();
  EXPECT_EQ(LastArchive(desk), std::nullopt);
  Read("no such file");
  EXPECT_NE(desktop.told.find("does not exist"), std::string::npos) << desktop.told;
  ReadArchive(desk, DTB_SEASON_FILES, [](double) { return false; });
  // Cancel works at every moment: while a file is unpacked, and while its lines are taken.
  bool stopped = true;
  int moment = 0;
  for (; stopped; moment += 5) {
    int heard = 0;
    ReadArchive(desk, DTB_SEASON_FILES "2020-part.zip", [&](double share) {
      EXPECT_TRUE(share >= 0 && share <= 1) << share;
      stopped = heard++ >= moment;
      return !stopped;
    });
    if (stopped) {
      ASSERT_EQ(heard, moment + 1) << "it went on";
    }
  }
  EXPECT_GT(moment, 100);
  EXPECT_EQ(kept.season->games.size(), 120U);
  SelectTeam(desk, 99);
  SelectGame(desk, 0);
  EXPECT_EQ(state.shownFiles.value(), 0);
  kept = {};
  EXPECT_EQ(LastArchive(desk)->filename(), "2020-part.zip");
}

}  // namespace
}  // namespace dtb::archive
