// The shelf of seasons, with real files.
#include "database/season_shelf.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>

#include "base/paths.h"
#include "base/program_error.h"
#include "database/backups.h"
#include "database/rows.h"
#include "database/team_groups.h"
#include "platform/quiet_desktop.h"
#include "platform/sqlite/sqlite_seasons.h"
#include "temporary_folder.h"

namespace dtb {
namespace {

namespace fs = std::filesystem;

struct ShelfTest : testing::Test, QuietDesktop {
  ShelfTest() { Start(); }
  ~ShelfTest() override { fs::remove_all(folder); }

  // A run of the program.
  void Start() {
    seasons = std::make_unique<SqliteSeasons>(folder, database, copies,
                                              [this](const fs::path& file) { place = file; });
    platform = std::make_unique<Platform>(WithSeasons());
    told = TakeUpSeason(*platform);
    desk = std::make_unique<ShelfDesk>(ShelfDesk{state, *platform});
    ListSeasons(*desk);
  }
  Platform WithSeasons() {
    return {*this,    *this, *this, *this, *this, *this, database, copies, *this,
            *seasons, *this, *this, *this, *this, *this, *this,    *this,  folder};
  }

  void Show(const std::string& message, BoxIcon, const std::string&) override { told = message; }
  std::string Read(const std::string&, const std::string& key,
                   const std::string& missing) override {
    return settings.contains(key) ? settings[key] : missing;
  }
  void Write(const std::string&, const std::string& key, const std::string& value) override {
    settings[key] = value;
  }
  LocalTime Now() override { return {2026, 11, 18, 10, 44, second++}; }
  std::optional<fs::path> SaveFile(const SaveFileRequest&) override { return folder / "out.mdb"; }

  std::string Do(void (*wish)(ShelfDesk&), const std::string& name = "", int row = -1) {
    told.clear();
    state.tb_Name.Set(name);
    if (row >= 0) state.row = row;
    wish(*desk);
    return told;
  }
  void SaveGame(const std::string& team) {
    const auto change = database.BeginChange();
    for (const char* host : {"a_VIS", "b_HOME"}) {
      change->Execute({"INSERT INTO BoxScores (Team, Host, GameID) VALUES (?1, ?2, '111826104413')",
                       {team + host, host}});
    }
    change->Commit();
  }
  int Games() { return CountOf(database, {"SELECT count(*) / 2 FROM BoxScores"}); }

  fs::path folder = MakeTemporaryFolder("shelf");
  SqliteDatabase database{folder / kDatabaseFile};
  SqliteCopies copies{folder / kDatabaseFile};
  fs::path place;
  std::unique_ptr<SqliteSeasons> seasons;
  std::unique_ptr<Platform> platform;
  ShelfState state;
  std::unique_ptr<ShelfDesk> desk;
  std::map<std::string, std::string> settings;
  std::string told;
  int second = 0;
};

TEST_F(ShelfTest, EachSeasonHasItsOwnGamesAndCopies) {
  Do(MakeSeason, "  1960 ");
  EXPECT_EQ(seasons->InUse(), "1960");
  SaveGame("Owls ");
  EXPECT_EQ(CopyAside(*platform), "DTB 2026-11-18 10-44-00.mdb");
  Do(MakeSeason, "1978");
  EXPECT_EQ(Games(), 0);
  EXPECT_EQ(copies.CopyNames().size(), 0U);
  EXPECT_EQ(SeasonInTitle(*platform), " - 1978");
  // The next run takes up the last one; its row tells of it.
  Do(UseSelectedSeason, "", 2);
  Start();
  EXPECT_EQ(seasons->InUse(), "1960");
  EXPECT_EQ(Games(), 1);
  EXPECT_EQ(state.grd_Seasons.Text(2, 1), "1960, in use");
  EXPECT_EQ(state.grd_Seasons.Text(2, 2), "1");
  EXPECT_EQ(state.grd_Seasons.Text(2, 3), "18 Nov 2026");
  // A new name takes the copies along, the archive to which it is tied, and the place.
  KeepForSeason(*platform, "season_archive", "/1960.zip");
  Do(RenameSelectedSeason, "Our 1960", 2);
  EXPECT_EQ(Games(), 1);
  EXPECT_EQ(copies.CopyNames().size(), 1U);
  EXPECT_EQ(place, folder / "Seasons" / "Our 1960.mdb");
  EXPECT_EQ(SettingOfSeason(*platform, "season_archive"), "/1960.zip");
  Do(CopySelectedSeasonOut, "", 3);
  EXPECT_EQ(CountOf(*std::make_unique<SqliteDatabase>(folder / "out.mdb"),
                    {"SELECT count(*) FROM BoxScores"}),
            2);
  // Put away, nothing of it is lost.
  Do(PutSelectedSeasonAway, "", 3);
  EXPECT_EQ(seasons->InUse(), "");
  EXPECT_TRUE(fs::exists(folder / "Seasons" / "Put away" / "Our 1960.mdb"));
  EXPECT_EQ(state.names, (std::vector<std::string>{"", "1978"}));
  Do(MakeSeason, "Our 1960");
  EXPECT_EQ(copies.CopyNames().size(), 0U) << "another season's copies are not its own";
  EXPECT_EQ(SettingOfSeason(*platform, "season_archive"), "") << "nor is its archive";
}

TEST_F(ShelfTest, GroupsOfTeamsGoWithTheirSeason) {
  const TeamGroups made{{"East", {"Ants", "Bees"}}, {"West"}};
  const TeamGroups leagues{{"League", {"Ants"}}};
  settings["season_groups of 1960"] = GroupsText(made);  // by an older version
  Do(MakeSeason, "1960");
  EXPECT_EQ(settings["season_groups of 1960"], "");
  Do(CopySelectedSeasonOut, "", 2);
  SqliteDatabase copy(folder / "out.mdb");
  EXPECT_EQ(GroupsOfSeason(*platform, "of another machine", copy), made);
  KeepLeagues(*platform, leagues);
  EXPECT_EQ(GroupsOfSeason(*platform), made);
  KeepGroups(*platform, {});
  EXPECT_EQ(GroupsOfSeason(*platform), TeamGroups()) << "none are a choice as well";
  KeepGroups(*platform, leagues);
  KeepLeagues(*platform, made);
  EXPECT_EQ(GroupsOfSeason(*platform), made) << "those of the archive follow it";
  // A season in which nobody made groups keeps its five tables; another's table is no groups.
  Do(MakeSeason, "1978");
  KeepGroups(*platform, {});
  EXPECT_EQ(CountOf(database, {"SELECT count(*) FROM sqlite_master WHERE name = 'TeamGroups'"}), 0);
  const auto change = database.BeginChange();
  change->Execute({"CREATE TABLE TeamGroups (Owner TEXT)"});
  change->Commit();
  EXPECT_EQ(GroupsOfSeason(*platform), TeamGroups());
  EXPECT_THROW(KeepGroups(*platform, made), ProgramError);
}

TEST_F(ShelfTest, WhatCannotBeIsSaidAndChangesNothing) {
  Do(MakeSeason, "Ants");
  for (const auto& [name, words] : {std::pair{"", "Type a name"},
                                    {"a/b", "cannot be the name of a file"},
                                    {"..", "cannot be"},
                                    {"ANTS", "There is a season \"Ants\" already"}}) {
    EXPECT_NE(Do(MakeSeason, name).find(words), std::string::npos) << name << ": " << told;
  }
  EXPECT_NE(Do(RenameSelectedSeason, "Bees", 1).find("has no name"), std::string::npos);
  EXPECT_NE(Do(PutSelectedSeasonAway, "", 1).find("The usual season stays"), std::string::npos);
  EXPECT_EQ(state.names, (std::vector<std::string>{"", "Ants"}));
  EXPECT_EQ(Do(RenameSelectedSeason, "ants", 2), "") << "its own letters in another case";
  // A file that is no database is shown, and the others stay of use.
  std::ofstream(folder / "Seasons" / "Bad.mdb") << "no database at all";
  Start();
  EXPECT_EQ(state.grd_Seasons.Text(3, 2), "cannot be read");
  // A season that is gone at the start: the usual one is in use, and that is told.
  fs::remove(folder / "Seasons" / "ants.mdb");
  Start();
  EXPECT_NE(told.find("no longer on the shelf"), std::string::npos);
}

}  // namespace
}  // namespace dtb
