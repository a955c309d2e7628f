// All that is done to the database, on a disk that is full: it is done, or told and not done.
#include <algorithm>

#include "book/book_pages.h"
#include "browser/chosen_game.h"
#include "browser/exports.h"
#include "copies_test.h"
#include "database/backups.h"
#include "database/deletes.h"
#include "database/restore.h"
#include "platform/sqlite/sqlite_seasons.h"
#include "season/season_pages.h"
#include "small_disk.h"
#include "soak_settings.h"

namespace dtb {
namespace {

namespace fs = std::filesystem;

class FullDiskOfTheDatabase : public CopiesTest {
 public:
  // Each uses the table as a person does. Returns what is told where it was done.
  std::string SaveAGame() {
    desk.time.minute = 30;
    Table table(ports, "Cats", "Dogs");
    for (int row = 1; row <= 40; ++row) {
      const std::string name = std::string(200, 'a') + std::to_string(row);
      table.Put(Side::Visitors, row, {{stat_column::kBatter, name}, {stat_column::kPlayed, "1"}});
    }
    table.PlayThree();
    SaveGame(table.board);
    return "Data successfully recorded";
  }
  std::string Purge() {
    PurgeAll(browser.platform, kBrowserTitle);
    return "Delete of all statistics is complete.";
  }
  std::string TakeOut() {
    OpenBrowser(browser);
    TakeOutChosen(browser, ChosenGame(state, 1));
    return "The game is deleted.";
  }
  std::string BringBack() {
    CopiesState shown;
    CopiesDesk copiesDesk{shown, ports};
    ListCopies(copiesDesk);
    BringBackSelected(copiesDesk);
    return "The database is now the copy of ";
  }
  std::string Renew() {
    std::ofstream(file, std::ios::binary) << std::string(5000, 'x');
    OpenBrowser(browser);
    return "The database is now the copy of ";
  }
  std::string MakePages() {
    WriteSeasonPages(browser.platform, kBrowserTitle);
    return "The season pages are written";
  }
  std::string MakeBook() {
    SqliteSeasons shelf(folder, database, copies, [](const fs::path&) {});
    Platform platform = WithShelf(ports, shelf);
    book::WriteBook(platform, {});
    return "The book of all seasons is written";
  }
  std::string MakeWorkbook() {
    ExportTables(browser);
    return "xlsx";
  }
  using Use = std::string (FullDiskOfTheDatabase::*)();

  // What went wrong on a disk with so many pages left; "" for nothing.
  std::string Try(Use use, const fs::path& disk, bool small, int pages);

  [[nodiscard]] bool Told(const std::string& words) const {
    return std::ranges::any_of(
        desk.told, [&](const std::string& box) { return box.find(words) != std::string::npos; });
  }
  // Files that are no whole ones of the program.
  static std::string Unfinished(const fs::path& disk) {
    for (const auto& entry : fs::recursive_directory_iterator(disk)) {
      const std::string name = entry.path().filename();
      bool whole = entry.is_directory() || name == "filler";
      for (const char* end : {".mdb", ".xlsx", ".html", ".css"}) whole |= name.ends_with(end);
      if (!whole || name.find("being written") != std::string::npos) return name;
    }
    return {};
  }
};

std::string FullDiskOfTheDatabase::Try(Use use, const fs::path& disk, bool small, int pages) {
  Execute(ReadAll(DTB_SCHEMA));
  fs::create_directory(disk / "Game Rpts");
  Save(1, "Ants", 4, "Bees", 2);
  copies.MakeCopy(CopyName({2026, 11, 19}));
  Save(2, "Ants", 5, "Bees", 3);
  const std::string before = Counts();
  Fill(disk, small, pages);
  desk.told.clear();
  desk.answer = "Restore";
  // Nothing is deleted without its copy.
  desk.refused = "No copy of the database";
  const std::string done = (this->*use)();
  const std::string told = " told: " + testing::PrintToString(desk.told);
  if (desk.told.empty()) return "nothing is told";
  if (pages > 40 && small && !Told(done)) return "there was room;" + told;
  if (const std::string name = Unfinished(disk); !name.empty()) return name + " is left;" + told;
  if (!Told(done)) {
    const bool why = Told("full") || Told("disk");
    if (!why) return "the reason is not told;" + told;
    if (use != &FullDiskOfTheDatabase::Renew && Counts() != before) return "rows are lost;" + told;
  }
  if (use == &FullDiskOfTheDatabase::Renew && !Told(done)) {
    if (ReadAll(file) != std::string(5000, 'x')) return "the damaged file is lost;" + told;
  } else if (Stored("PRAGMA integrity_check") != Strings{"ok"}) {
    return "the database is damaged;" + told;
  }
  for (const std::string& copy : CopiesNewestFirst(copies)) {
    if (const std::string fault = copies.FaultOfCopy(copy); !fault.empty()) return fault + told;
  }
  return {};
}

TEST_F(FullDiskOfTheDatabase, IsDoneOrToldAndNotDone) {
  const unsigned seed = FromOutside("DTB_SEED", 1960);
  const unsigned disks = FromOutside("DTB_DISKS", 6);
  std::minstd_rand random(seed);
  const std::pair<const char*, Use> uses[] = {
      {"save", &FullDiskOfTheDatabase::SaveAGame},
      {"purge", &FullDiskOfTheDatabase::Purge},
      {"take out", &FullDiskOfTheDatabase::TakeOut},
      {"bring back", &FullDiskOfTheDatabase::BringBack},
      {"renew", &FullDiskOfTheDatabase::Renew},
      {"pages", &FullDiskOfTheDatabase::MakePages},
      {"book", &FullDiskOfTheDatabase::MakeBook},
      {"workbook", &FullDiskOfTheDatabase::MakeWorkbook},
  };
  for (unsigned i = 0; i < disks && !HasFailure(); ++i) {
    for (const auto& [name, use] : uses) {
      const int pages = i == 0 ? 0 : static_cast<int>(random() % 44);
      fs::remove(file);
      const std::string wrong = OnSmallDisk(
          folder, [&](const fs::path& there, bool small) { return Try(use, there, small, pages); });
      EXPECT_EQ(wrong, "") << name << " with " << pages << " pages left. " << Again();
    }
  }
}

}  // namespace
}  // namespace dtb
