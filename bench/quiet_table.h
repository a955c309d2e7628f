// A game without windows, whose boxes close at once.
#pragma once

#include <filesystem>
#include <fstream>

#include "aids/random_generator.h"
#include "game/start_up.h"
#include "platform/database.h"
#include "teams/pitchers.h"
#include "teams/team_load.h"

namespace dtb {

struct QuietPlatform : MessageBoxes,
                       FileDialogs,
                       Pictures,
                       Keyboard,
                       SettingsStore,
                       Pages,
                       Clock,
                       Sounds,
                       Database {
  void ShowRecorded(const std::string& /*message*/, BoxAlignment /*alignment*/) override {}
  void Show(const std::string& /*message*/, BoxIcon /*icon*/,
            const std::string& /*title*/) override {}
  bool Ask(const std::string& /*question*/, const std::string& /*title*/) override { return true; }
  std::optional<std::filesystem::path> OpenFile(const OpenFileRequest& /*request*/) override {
    return std::nullopt;
  }
  std::optional<Picture> Load(const std::filesystem::path& /*file*/) override {
    return std::nullopt;
  }
  std::optional<Picture> Recognise(const std::filesystem::path& /*file*/) override {
    return std::nullopt;
  }
  KeyState Query(Key /*key*/) override { return {}; }
  std::string Read(const std::string& /*section*/, const std::string& /*key*/,
                   const std::string& missing) override {
    return missing;
  }
  void Write(const std::string& /*section*/, const std::string& /*key*/,
             const std::string& /*value*/) override {}
  void Open(const std::string& /*addressOrFile*/) override {}
  KeyState Peek(Key /*key*/) override { return {}; }
  bool OpenSystemInformation() override { return false; }
  void PlayOnce(const std::filesystem::path& /*file*/) override {}
  void StartLoop(const std::filesystem::path& /*file*/) override {}
  void StopLoop() override {}
  void Silence() override {}
  LocalTime Now() override { return {}; }
  void Run(const Statement& /*query*/, StatGrid& /*result*/) override {}
  std::vector<std::string> Delete(const std::vector<Statement>& /*statements*/) override {
    return {};
  }
  std::unique_ptr<DatabaseSave> BeginSave(const std::vector<TableColumns>& /*tables*/) override {
    return nullptr;
  }
};

// A team file of 49 players with remarks.
inline std::filesystem::path FullTeamFile() {
  const auto file = std::filesystem::temp_directory_path() / "Full Roster 1961.txt";
  std::ofstream stream(file);
  for (int player = 1; player <= 49; ++player) {
    stream << "Firstname Lastname" << player << "=SS R .287 speed A arm B\r\n";
  }
  return file;
}

inline void StartGame(Board& board) {
  const auto file = FullTeamFile();
  for (const Side side : {Side::Visitors, Side::Home}) {
    OpenTeam(board, side, file);
    SideOf(board, side).list.Select(20);
    ChangePitcher(board, side);
  }
  PutAtBat(board, Side::Visitors);
  board.state.List1.Select(0);
}

struct QuietTable {
  QuietPlatform quiet;
  RandomGenerator randoms{1};
  Platform platform{quiet, quiet, quiet, quiet, quiet, quiet, quiet, quiet, quiet, randoms, {}};
  BoardState state;
  StatSheet sheet;
  EventLog log;
  Board board{state, sheet, log, platform};

  QuietTable() {
    StartUp(board);
    StartGame(board);
  }
};

}  // namespace dtb
