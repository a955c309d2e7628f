#include "archive/archive_teams.h"

#include "archive/archive_tables.h"
#include "archive/lineup_choice.h"
#include "archive/schedule.h"
#include "archive/season_files.h"
#include "base/paths.h"
#include "base/words.h"
#include "game/new_game.h"
#include "game/player_name.h"
#include "platform/trapped.h"
#include "teams/team_load.h"

namespace dtb::archive {
namespace {

std::filesystem::path TeamsFolder(ArchiveDesk& desk) {
  return PlatformOf(desk).programFolder / "Teams";
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i > 0) joined += i + 1 < texts.size() ? ", " : " and ";
    joined += texts[i];
  }
  return joined;
}

void ShowFile(const SeasonState& state, SeasonState::File& file, const std::string& what) {
  GridContents contents = Headed({"", "", "Player and remark", "Real use"});
  bool marked = false;
  int order = 0;
  if (!file.team) {
    file.title.Set("");
  } else {
    const TeamText& team = *file.team;
    std::string title = FileNameOf(team) + what;
    if (!team.gaps.empty()) title += ", not told: " + Joined(team.gaps);
    if (!team.leftOut.empty()) {
      title += ", no room for " + Counted(std::ssize(team.leftOut), "player") + ": " +
               Joined(team.leftOut);
    }
    file.title.Set(title);
    for (std::size_t i = 0; i < team.lines.size(); ++i) {
      const std::string use =
          state.useOf ? state.useOf(BoardName(team.name), PlayerNameOf(team.lines[i])) : "";
      marked = marked || !use.empty();
      AddRow(contents, {"", std::to_string(i + 1), team.lines[i], use});
    }
    order = team.inOrder;
  }
  Fill(file.grid, std::move(contents), {0, 500, 4000, marked ? 1300 : 0});
  file.grid.SetColumnAlignment(1, CellAlignment::Right);
  // One band, of the batting order alone.
  file.grid.SetFirstBand(Colour{228, 234, 226}, order);
}

void ShowForms(ArchiveDesk& desk) {
  std::string wrong;
  const auto look = [&](const std::string& form, bool asPitcher, const char* where) {
    for (const std::string& word : UnknownWords(form, asPitcher)) {
      wrong += (wrong.empty() ? "Not known " : "; ") + std::string(where) + ": " + word;
    }
  };
  look(desk.state.tb_Batters.value(), false, "for batters");
  look(desk.state.tb_Pitchers.value(), true, "for pitchers");
  desk.state.lbl_Forms.Set(wrong);
}

// Asks where another file would be replaced. False: the person wants to keep one.
bool PutFile(ArchiveDesk& desk, const std::filesystem::path& file, const std::string& bytes) {
  const FileState standing = WhatStands(file, bytes);
  if (standing == FileState::TheSame) return true;
  if (standing == FileState::Another &&
      !PlatformOf(desk).boxes.Ask({"\"" + TextOf(file.filename()) + "\" in \"" +
                                       TextOf(file.parent_path()) +
                                       "\" exists already and differs. Replace it?",
                                   kSeasonTitle})) {
    return false;
  }
  WriteTeamFile(file, bytes);
  return true;
}

LineForm ShownForm(const SeasonState& state) {
  return {state.tb_Batters.value(), state.tb_Pitchers.value(),
          state.opt_LastFirst.value() ? NameForm::LastFirst : NameForm::FirstLast};
}

}  // namespace

void ShowFiles(ArchiveDesk& desk) {
  SeasonState& state = desk.state;
  const LineForm form = ShownForm(state);
  for (SeasonState::File& file : state.files) file.team.reset();
  int shown = 0;
  std::string what;
  if (desk.kept.season && desk.kept.game) {
    const Season& season = *desk.kept.season;
    const Game& game = season.games[*desk.kept.game];
    GameTeams made = MakeGameTeams(season, game, form);
    for (std::size_t side = 0; side < 2; ++side) {
      state.files.at(side).team = std::move(made.teams.at(side));
    }
    what = " on " + game.date;
    shown = 2;
  } else if (desk.kept.season && desk.kept.club != kAllClubs) {
    const Season& season = *desk.kept.season;
    const int club = desk.kept.club;
    const SeasonNine nine = desk.kept.nine;
    state.files[0].team = MakeTeamText(season, club, LineUpOfSeason(season, club, nine), form);
    what = nine == SeasonNine::UsedMost ? ", line-up used most" : ", the usual nine";
    shown = 1;
  }
  for (SeasonState::File& file : state.files) ShowFile(state, file, what);
  if (desk.kept.season && shown == 0) state.files[0].title.Set("Choose a team or a game");
  state.shownFiles.Set(shown);
  state.hasClub.Set(desk.kept.season && desk.kept.club != kAllClubs);
  state.shownNine.Set(shown == 1 ? std::optional(desk.kept.nine) : std::nullopt);
}

void ChangeForms(ArchiveDesk& desk) {
  ShowForms(desk);
  ShowFiles(desk);
}

void KeepChoices(ArchiveDesk& desk) {
  Trapped(PlatformOf(desk).boxes, [&] {
    KeepForm(ShownForm(desk.state), PlatformOf(desk));
    KeepClub(desk.kept, PlatformOf(desk));
    if (desk.kept.season) KeepNine(desk.kept.nine, PlatformOf(desk));
  });
}

void WriteTeamFiles(ArchiveDesk& desk) {
  Trapped(PlatformOf(desk).boxes, [&] {
    std::string written;
    for (const SeasonState::File& file : desk.state.files) {
      if (!file.team) continue;
      const std::string name = FileNameOf(*file.team);
      if (!PutFile(desk, TeamsFolder(desk) / PathOf(name), BytesOf(*file.team))) continue;
      written += (written.empty() ? "\"" : " and \"") + name + "\"";
    }
    if (!written.empty()) desk.state.lbl_Done.Set("In the folder Teams now: " + written + ".");
  });
}

void LoadTeamAs(ArchiveDesk& desk, Side side) {
  Trapped(PlatformOf(desk).boxes, [&] {
    const std::optional<TeamText>& team = desk.state.files[0].team;
    if (!team) return;
    const LoadInto place = WhereToLoad(desk.board, "New game with this team");
    if (place == LoadInto::Nowhere) return;
    const std::filesystem::path file = TeamsFolder(desk) / PathOf(FileNameOf(*team));
    if (!PutFile(desk, file, BytesOf(*team))) return;
    if (place == LoadInto::NewGame && !NewGame(desk.board)) return;
    if (!ReplaceTeam(desk.board, side, file)) return;
    desk.state.lbl_Done.Set(BoardName(team->name) + " is on the board as " +
                            (side == Side::Visitors ? "visitors." : "home team."));
  });
}

bool LoadChosenGame(KeptSeason& kept, int game, const LineForm& form, Board& board) {
  bool loaded = false;
  Trapped(board.platform.boxes, [&] {
    const LoadInto place = WhereToLoad(board, "New game with these teams");
    if (place == LoadInto::Nowhere) return;
    if (place == LoadInto::NewGame && !NewGame(board)) return;
    loaded = LoadGameTeams(*kept.season, kept.season->games[game], form, board);
  });
  if (loaded) kept.game = game;
  return loaded;
}

bool LoadGame(ArchiveDesk& desk) {
  if (!desk.kept.season || !desk.kept.game) return false;
  return LoadChosenGame(desk.kept, *desk.kept.game, ShownForm(desk.state), desk.board);
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
