#include "archive/archive_desk.h"

#include <algorithm>
#include <system_error>

#include "archive/archive_views.h"
#include "archive/season_files.h"
#include "base/paths.h"
#include "base/program_error.h"
#include "base/settings_keys.h"
#include "game/new_game.h"
#include "platform/trapped.h"
#include "teams/team_load.h"

namespace dtb::archive {
namespace {

Platform& PlatformOf(ArchiveDesk& desk) { return desk.board.platform; }

std::filesystem::path TeamsFolder(ArchiveDesk& desk) {
  return PlatformOf(desk).programFolder / "Teams";
}

// Marks need the database; without it nothing is marked, and that is told once.
void FindPlayedGames(ArchiveDesk& desk) {
  const Season& season = *desk.kept.season;
  try {
    desk.state.played = PlayedGames(season, PlatformOf(desk));
  } catch (const ProgramError& error) {
    desk.state.played.assign(season.games.size(), false);
    desk.state.lbl_Done.Set(std::string("No game is marked as played. ") + error.what());
  }
}

void ShowSeason(ArchiveDesk& desk) {
  if (desk.kept.season) FindPlayedGames(desk);
  ShowTeams(desk);
  ShowGames(desk);
  ShowFiles(desk);
}

// Asks where another file would be replaced. False: the person wants to keep one.
bool PutFile(ArchiveDesk& desk, const std::filesystem::path& file, const std::string& bytes) {
  const FileState standing = WhatStands(file, bytes);
  if (standing == FileState::TheSame) return true;
  if (standing == FileState::Another &&
      !PlatformOf(desk).boxes.Ask({"\"" + TextOf(file.filename()) + "\" in \"" +
                                       TextOf(file.parent_path()) +
                                       "\" is there already and differs. Replace it?",
                                   kSeasonTitle})) {
    return false;
  }
  WriteTeamFile(file, bytes);
  return true;
}

// Runs an operation and tells its errors; false after one.
template <class Operation>
bool Works(ArchiveDesk& desk, Operation operation) {
  bool works = false;
  Trapped(PlatformOf(desk).boxes, [&] { works = operation(); });
  return works;
}

}  // namespace

LineForm ShownForm(const SeasonState& state) {
  return {state.tb_Batters.value(), state.tb_Pitchers.value(),
          state.opt_LastFirst.value() ? NameForm::LastFirst : NameForm::FirstLast};
}

void OpenSeasonDesk(ArchiveDesk& desk) {
  const LineForm form = KeptForm(PlatformOf(desk));
  SeasonState& state = desk.state;
  state.tb_Batters.Set(form.batters);
  state.tb_Pitchers.Set(form.pitchers);
  state.opt_LastFirst.Set(form.names == NameForm::LastFirst);
  ShowForms(desk);
  ShowSeason(desk);
}

std::optional<std::filesystem::path> LastArchive(const ArchiveDesk& desk) {
  if (desk.kept.season) return std::nullopt;
  const std::filesystem::path last =
      PathOf(desk.board.platform.settings.Read(settings::kLabels, settings::kSeasonArchive, ""));
  std::error_code fault;
  if (last.empty() || !std::filesystem::exists(last, fault)) return std::nullopt;
  return last;
}

std::optional<std::filesystem::path> ChooseZip(ArchiveDesk& desk) {
  const std::filesystem::path last =
      PathOf(PlatformOf(desk).settings.Read(settings::kLabels, settings::kSeasonArchive, ""));
  return PlatformOf(desk).dialogs.OpenFile(
      {"The archive of a season", last.parent_path(), "Zip (*.zip)|*.zip|All files (*)|*"});
}

std::optional<std::filesystem::path> ChooseFolder(ArchiveDesk& desk) {
  const std::filesystem::path last =
      PathOf(PlatformOf(desk).settings.Read(settings::kLabels, settings::kSeasonArchive, ""));
  return PlatformOf(desk).dialogs.OpenFolder("The folder of a season", last.parent_path());
}

void ReadArchive(ArchiveDesk& desk, const std::filesystem::path& archive, const GoOn& goOn) {
  Works(desk, [&] {
    if (!KeepSeason(desk.kept, archive, PlatformOf(desk), goOn)) return false;
    desk.state.lbl_Done.Set("");
    ShowSeason(desk);
    PlatformOf(desk).settings.Write(settings::kLabels, settings::kSeasonArchive,
                                    TextOf(std::filesystem::absolute(archive)));
    return true;
  });
}

void ShowFaults(ArchiveDesk& desk) {
  if (!desk.kept.season) return;
  PlatformOf(desk).boxes.Show(FaultsText(*desk.kept.season), BoxIcon::Information, kSeasonTitle);
}

void SelectTeam(ArchiveDesk& desk, int row) {
  const int place = row - 2;  // row 1 stands for all clubs
  if (!desk.kept.season || row < 1 || place >= static_cast<int>(desk.state.clubs.size())) return;
  desk.kept.club = place < 0 ? kAllClubs : desk.state.clubs[place];
  desk.kept.game.reset();
  ShowGames(desk);
  ShowFiles(desk);
}

void SelectGame(ArchiveDesk& desk, int row) {
  if (row < 1 || row > static_cast<int>(desk.state.games.size())) return;
  desk.kept.game = desk.state.games[row - 1];
  ShowFiles(desk);
}

void SelectUsedMost(ArchiveDesk& desk) {
  desk.kept.game.reset();
  ShowFiles(desk);
}

void ChangeForms(ArchiveDesk& desk) {
  ShowForms(desk);
  ShowFiles(desk);
}

void KeepChoices(ArchiveDesk& desk) {
  Works(desk, [&] {
    KeepForm(ShownForm(desk.state), PlatformOf(desk));
    KeepClub(desk.kept, PlatformOf(desk));
    return true;
  });
}

void WriteTeamFiles(ArchiveDesk& desk) {
  Works(desk, [&] {
    std::string written;
    for (const SeasonState::File& file : desk.state.files) {
      if (!file.team) continue;
      const std::string name = FileNameOf(*file.team);
      if (!PutFile(desk, TeamsFolder(desk) / PathOf(name), BytesOf(*file.team))) continue;
      written += (written.empty() ? "\"" : " and \"") + name + "\"";
    }
    if (!written.empty()) desk.state.lbl_Done.Set("In the folder Teams now: " + written + ".");
    return true;
  });
}

void LoadTeamAs(ArchiveDesk& desk, Side side) {
  Works(desk, [&] {
    const std::optional<TeamText>& team = desk.state.files[0].team;
    if (!team) return false;
    const LoadInto place = WhereToLoad(desk.board, "New game with this team");
    if (place == LoadInto::Nowhere) return false;
    const std::filesystem::path file = TeamsFolder(desk) / PathOf(FileNameOf(*team));
    if (!PutFile(desk, file, BytesOf(*team))) return false;
    if (place == LoadInto::NewGame && !NewGame(desk.board)) return false;
    ReplaceTeam(desk.board, side, file);
    desk.state.lbl_Done.Set(BoardName(team->name) + " is on the board as " +
                            (side == Side::Visitors ? "visitors." : "home team."));
    return true;
  });
}

bool LoadGame(ArchiveDesk& desk) {
  if (!desk.kept.season || !desk.kept.game) return false;
  return Works(desk, [&] {
    const LoadInto place = WhereToLoad(desk.board, "New game with these teams");
    if (place == LoadInto::Nowhere) return false;
    if (place == LoadInto::NewGame && !NewGame(desk.board)) return false;
    LoadGameTeams(*desk.kept.season, desk.kept.season->games[*desk.kept.game],
                  ShownForm(desk.state), desk.board);
    return true;
  });
}

bool LoadNextGame(ArchiveDesk& desk) {
  if (!desk.kept.season) return false;
  const auto next = NextGameOf(*desk.kept.season, desk.state.played, desk.kept.club);
  if (!next) return false;
  desk.kept.game = *next;
  ShowFiles(desk);
  return LoadGame(desk);
}

}  // namespace dtb::archive
