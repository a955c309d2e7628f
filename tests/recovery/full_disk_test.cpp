// All that writes a file, on a disk that is full: what stood there stays, and the person is told.
#include <sys/stat.h>

#include <fstream>
#include <functional>

#include "archive/season_files.h"
#include "base/whole_file.h"
#include "core/fake_platform.h"
#include "game/recovery.h"
#include "platform/qt/program_folder.h"
#include "platform/qt/qt_recovery_store.h"
#include "platform/qt/qt_settings_store.h"
#include "sheet/game_report.h"
#include "sheet/log_file.h"
#include "small_disk.h"
#include "temporary_folder.h"

namespace dtb {
namespace {

namespace fs = std::filesystem;

constexpr int kPlenty = 40;  // pages; enough for every file

std::string BytesOf(const fs::path& file) { return ReadWholeFile(file).value_or("none"); }

// A game with dialogs that name one file.
struct ReportingDesk {
  struct Dialogs : QuietDesktop {
    std::optional<fs::path> SaveFile(const SaveFileRequest& /*request*/) override { return file; }
    void Show(const std::string& message, BoxIcon icon, const std::string& /*title*/) override {
      if (icon == BoxIcon::Critical) told = message;
    }
    fs::path file;
    std::string told;
  };
  explicit ReportingDesk(const fs::path& folder) { dialogs.file = folder / "file"; }
  Dialogs dialogs;
  Platform ports = PlatformOf(dialogs, dialogs, dialogs, dialogs.file.parent_path());
};

struct Writer {
  const char* name;
  // Writes the file "file" in the folder and returns what was told: "" if all went well.
  std::function<std::string(const fs::path& folder)> write;
};

std::string Complaint(const std::function<void()>& operation) {
  try {
    return operation(), "";
  } catch (const ProgramError& fault) {
    return fault.what();
  }
}

const std::vector<Writer> kWriters{
    {"team",
     [](const fs::path& folder) {
       return Complaint(
           [&] { archive::WriteTeamFile(folder / "file", std::string(3 * kPage, 't')); });
     }},
    {"log",
     [](const fs::path& folder) {
       ReportingDesk desk(folder);
       desk.ports.programFolder = folder / "reports";
       SaveLog(desk.ports, EventLog(std::string(3 * kPage, 'l')));
       return desk.dialogs.told;
     }},
    {"report",
     [](const fs::path& folder) {
       ReportingDesk desk(folder);
       desk.ports.programFolder = folder / "reports";
       Game game;
       game.sheet.tb_Comments.Set(std::string(3 * kPage, 'c'));
       Board board{game.state, game.sheet, game.log, desk.ports, &game.history};
       WriteGameReport(board);
       return desk.dialogs.told;
     }},
    {"settings",
     [](const fs::path& folder) {
       return Complaint([&] {
         QtSettingsStore(QString::fromStdString(folder / "file"))
             .Write("labels", "name", std::string(3 * kPage, 's'));
       });
     }},
    {"game in progress",
     [](const fs::path& folder) {
       std::string told;
       QtRecoveryStore store(QString::fromStdString(folder / "file"));
       store.OnFailure([&told](const std::string& why) { told = why; });
       store.Keep(std::string(3 * kPage, 'g'), false);
       if (store.Safe() != told.empty()) return std::string("said to be safe");
       return told;
     }},
};

class FullDisk : public testing::Test {
 protected:
  ~FullDisk() override { fs::remove_all(folder_); }

  std::string OnSmallDisk(const std::function<std::string(const fs::path&, bool small)>& body) {
    return dtb::OnSmallDisk(folder_, body);
  }

  fs::path folder_ = MakeTemporaryFolder("full");
};

// A setting that stood there is part of what is written later.
constexpr const char* kBefore = "[labels]\nold=before\n";

TEST_F(FullDisk, WhatStoodThereStaysUntilTheNewFileIsWhole) {
  for (const Writer& writer : kWriters) {
    for (const int pages : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, kPlenty}) {
      const std::string wrong = OnSmallDisk([&](const fs::path& folder, bool small) {
        fs::create_directory(folder / "reports");
        fs::create_directory(folder / "reports" / "Game Rpts");
        std::ofstream(folder / "file") << kBefore;
        Fill(folder, small, pages);
        const std::string told = writer.write(folder);
        const bool kept = BytesOf(folder / "file") == kBefore;
        const bool whole = BytesOf(folder / "file").size() >= 3 * kPage;
        if (told.empty() ? !whole : !kept) return "the file is broken; told: " + told;
        if (!told.empty() && told.find("full") == std::string::npos) return told;
        if (pages == kPlenty && small && !whole) return "there was room: " + told;
        for (const auto& entry : fs::directory_iterator(folder)) {
          const std::string name = entry.path().filename();
          if (name != "file" && name != "filler" && name != "reports" && name != "file.lock") {
            return name + " is left";
          }
        }
        return std::string();
      });
      EXPECT_EQ(wrong, "") << writer.name << " with " << pages << " pages left";
    }
  }
}

TEST_F(FullDisk, AFirstStartIsFinishedWhenThereIsRoom) {
  for (int pages = 0; pages <= 12; pages += 3) {
    const std::string wrong = OnSmallDisk([&](const fs::path& folder, bool small) {
      const fs::path shared = folder / "share" / "kelvane-diamond-table";
      fs::create_directories(shared / "Teams");
      fs::create_directory(folder / "bin");
      for (const char* file : {"Teams/a.txt", "Teams/b.txt", "Teams/c.txt", "DTB.mdb"}) {
        std::ofstream(shared / file) << std::string(2 * kPage, 'a');
      }
      for (const char* empty : {"mine/Teams", "mine/Ballparks", "mine/Logos", "mine/Charts"}) {
        fs::create_directories(folder / empty);
      }
      const auto start = [&folder] {
        return FindProgramFolder(QString::fromStdString(folder / "bin"),
                                 QString::fromStdString(folder / "mine"));
      };
      Fill(folder, small, pages);
      const ProgramFolder first = start();
      const bool filled = fs::exists(folder / "mine" / "DTB.mdb");
      if (first.complaint.isEmpty() && !filled) return std::string("not told");
      if (!filled && first.path != QString::fromStdString(shared)) {
        return std::string("half a folder is taken for the whole");
      }
      for (const auto& entry : fs::recursive_directory_iterator(folder / "mine")) {
        const bool record = entry.path().filename() == ".laid-out";
        if (entry.is_regular_file() && !record && entry.file_size() != 2 * kPage) {
          return entry.path().string() + " is cut";
        }
      }
      if (!small) return std::string();  // files cannot grow any more
      fs::remove(folder / "filler");
      const ProgramFolder second = start();
      if (!second.complaint.isEmpty()) return second.complaint.toStdString();
      const bool all =
          fs::exists(folder / "mine/Teams/a.txt") && fs::exists(folder / "mine/Teams/b.txt") &&
          fs::exists(folder / "mine/Teams/c.txt") && fs::exists(folder / "mine/DTB.mdb");
      return std::string(all ? "" : "not finished");
    });
    EXPECT_EQ(wrong, "") << pages << " pages left";
  }
}

TEST_F(FullDisk, AGameIsSetAsideOnlyOnceItIsSafe) {
  const std::string wrong = OnSmallDisk([](const fs::path& folder, bool small) {
    QtRecoveryStore store(QString::fromStdString(folder / "game"));
    Game old;
    AidsState aidsState;
    std::ofstream(folder / "game.20261124-200000") << TableText(old.board, aidsState);
    Game game;
    game.Play("1B HR");
    struct Choosing : QuietDesktop {
      std::optional<fs::path> OpenFile(const OpenFileRequest& /*request*/) override { return file; }
      void Show(const std::string& message, BoxIcon, const std::string&) override {
        told = message;
      }
      fs::path file;
      std::string told;
    } desk;
    desk.file = folder / "game.20261124-200000";
    Platform ports = PlatformOf(desk, desk, desk, folder);
    Board board{game.state, game.sheet, game.log, ports, &game.history};
    Aids aids{aidsState, ports};
    const std::string before = GameText(board);
    Fill(folder, small, 0);
    TakeUpSetAside(board, aids, store);
    if (GameText(board) != before) return std::string("the game on the board is lost");
    return desk.told.find("It stays on the board") == std::string::npos ? "told: " + desk.told : "";
  });
  EXPECT_EQ(wrong, "");
}

// Files that only look like files, and links.
TEST_F(FullDisk, WhatIsNoFileIsNeitherWrittenNorWaitedFor) {
  ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(ReadWholeFile(folder_ / "pipe"), std::nullopt);
  EXPECT_EQ(ReadWholeFile("/dev/zero"), std::nullopt);
  EXPECT_EQ(ReadWholeFile(folder_), std::nullopt);
  for (const fs::path& place : {folder_ / "pipe", fs::path("/dev/full"), folder_}) {
    EXPECT_THROW(WriteWholeFile(place, "x"), ProgramError) << place;
  }
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
  const std::string longName(255, 'n');
  WriteWholeFile(folder_ / longName, "x");
  EXPECT_EQ(BytesOf(folder_ / longName), "x");
  std::ofstream(folder_ / "real") << "old";
  fs::permissions(folder_ / "real", fs::perms(0640));
  fs::create_symlink("real", folder_ / "link");
  WriteWholeFile(folder_ / "link", "new");
  EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
  EXPECT_EQ(BytesOf(folder_ / "real"), "new");
  EXPECT_EQ(fs::status(folder_ / "real").permissions(), fs::perms(0640));
}

}  // namespace
}  // namespace dtb
