// A game without windows, whose boxes close at once.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "game/start_up.h"
#include "platform/quiet_desktop.h"
#include "teams/pitchers.h"
#include "teams/team_load.h"

namespace dtb {

// A team file of 49 players with remarks, for as long as it is needed.
class FullTeamFile {
 public:
  // Two teams with the same names would be told in a box.
  explicit FullTeamFile(const std::string& firstName = "Firstname") {
    std::ofstream stream(path_);
    for (int player = 1; player <= 49; ++player) {
      stream << firstName << " Lastname" << player << "=SS R .287 speed A arm B\r\n";
    }
  }
  ~FullTeamFile() { std::filesystem::remove(path_); }
  FullTeamFile(const FullTeamFile&) = delete;
  FullTeamFile& operator=(const FullTeamFile&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_ = std::filesystem::temp_directory_path() / "Full Roster 1961.txt";
};

inline void StartGame(Board& board) {
  for (const Side side : {Side::Visitors, Side::Home}) {
    const FullTeamFile file(side == Side::Visitors ? "Firstname" : "Forename");
    OpenTeam(board, side, file.path());
    SideOf(board, side).list.Select(20);
    ChangePitcher(board, side);
  }
  PutAtBat(board, Side::Visitors);
  board.state.List1.Select(0);
}

struct QuietTable {
  QuietDesktop quiet;
  Platform platform = PlatformOf(quiet, quiet, quiet);
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
