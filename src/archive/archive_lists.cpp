#include "archive/archive_lists.h"

#include <algorithm>
#include <numeric>
#include <system_error>

#include "archive/archive_tables.h"
#include "archive/archive_teams.h"
#include "base/paths.h"
#include "base/program_error.h"
#include "base/text_cell.h"
#include "base/words.h"
#include "database/archive_games.h"
#include "platform/trapped.h"

namespace dtb::archive {
namespace {

std::string Years(const Season& season) {
  const std::string first = season.games.front().date.substr(0, 4);
  const std::string last = season.games.back().date.substr(0, 4);
  return first == last ? first : first + " to " + last;
}

// Where a club is listed on its own, the other one is enough: "at Houston 2020".
std::string Opponents(const Season& season, const Game& game, int club) {
  const auto name = [&](int side) { return TeamName(season, game.sides.at(side).club); };
  if (club == kAllClubs) return name(0) + " at " + name(1);
  return game.sides[0].club == club ? "at " + name(1) : name(0);
}

// Above 0: the visitors won.
int Balance(const Game& game) {
  switch (game.forfeit) {
    case Forfeit::ToVisitors:
      return 1;
    case Forfeit::ToHome:
      return -1;
    case Forfeit::ToNobody:
      return 0;
    case Forfeit::No:
      break;
  }
  return game.sides[0].runs - game.sides[1].runs;
}

// "W 3-2" of a club on its own, else visitors first; what is no game played to its end and told
// play by play says so. Nothing where only the line-ups are told.
std::string Result(const Game& game, int club) {
  std::string result;
  const bool told = game.account != Account::LineUps;
  const bool isHome = club == game.sides[1].club;
  if (told) {
    result = std::to_string(game.sides[isHome ? 1 : 0].runs) + '-' +
             std::to_string(game.sides[isHome ? 0 : 1].runs);
  }
  if (club != kAllClubs && (told || game.forfeit != Forfeit::No)) {
    const int balance = isHome ? -Balance(game) : Balance(game);
    const char* sign = balance > 0 ? "W" : balance < 0 ? "L" : "T";
    result = result.empty() ? sign : std::string(sign) + ' ' + result;
  }
  const auto add = [&result](const char* what) {
    result += result.empty() ? what : std::string(", ") + what;
  };
  if (game.forfeit != Forfeit::No) add("forfeit");
  if (game.account == Account::BoxScore) add("box score");
  if (!told) add("line-ups");
  return result;
}

// How a game that is played ended on the board, in the form of its real result.
std::string Replay(const SeasonState& state, const Game& game, int club) {
  const auto found = state.replays.find(game.id);
  if (found == state.replays.end()) return "yes";
  const bool isHome = club == game.sides[1].club;
  const auto& [visitors, home] = found->second;
  const std::string& own = isHome ? home : visitors;
  const std::string& others = isHome ? visitors : home;
  std::string result = own + '-' + others;
  if (club == kAllClubs) return result;
  const double balance = NumberOf(own) - NumberOf(others);
  return (balance > 0 ? "W " : balance < 0 ? "L " : "T ") + result;
}

void ShowTeams(ArchiveDesk& desk) {
  SeasonState& state = desk.state;
  GridContents contents = Headed({"", "Team", "G"});
  state.clubs.clear();
  state.hasFaults.Set(false);
  if (!desk.kept.season) {
    state.lbl_Archive.Set(
        "Choose the archive of a season: the zip as downloaded, or the unpacked folder.");
  } else {
    const Season& season = *desk.kept.season;
    for (int club = 0; club < static_cast<int>(season.clubs.size()); ++club) {
      if (!season.clubs[club].games.empty()) state.clubs.push_back(club);
    }
    std::ranges::sort(state.clubs, {},
                      [&](int club) -> const std::string& { return TeamName(season, club); });
    AddRow(contents, {"", "All teams", std::to_string(season.games.size())});
    for (const int club : state.clubs) {
      AddRow(contents,
             {"", TeamName(season, club), std::to_string(season.clubs[club].games.size())});
    }
    std::string told = desk.kept.archive + ": " + Counted(std::ssize(state.clubs), "team") +
                       " and " + Counted(std::ssize(season.games), "game") + " of " + Years(season);
    if (season.faultCount > 0) {
      told += ", " + Counted(season.faultCount, "line") + " made no sense";
    }
    state.lbl_Archive.Set(told + ".");
    state.hasFaults.Set(season.faultCount > 0 || !season.skipped.empty());
  }
  Fill(state.grd_Teams, std::move(contents), {0, 2000, 500});
  state.grd_Teams.SetColumnAlignment(2, CellAlignment::Right);
}

void ShowGames(ArchiveDesk& desk) {
  SeasonState& state = desk.state;
  const int club = desk.kept.club;
  GridContents contents =
      Headed({"", "Date", club == kAllClubs ? "Game" : "Opponent", "Really", "Replayed"});
  state.games.clear();
  if (desk.kept.season) {
    const Season& season = *desk.kept.season;
    std::vector<int> listed(season.games.size());
    std::iota(listed.begin(), listed.end(), 0);
    if (club != kAllClubs) listed = season.clubs[club].games;
    for (const int i : listed) {
      const Game& game = season.games[i];
      state.games.push_back(i);
      const std::string date =
          game.number == 0 ? game.date : game.date + " (" + std::to_string(game.number) + ")";
      AddRow(contents, {"", date, Opponents(season, game, club), Result(game, club),
                        state.played[i] ? Replay(state, game, club) : ""});
    }
    state.hasNext.Set(NextGameOf(season, state.played, club).has_value());
  }
  // The same for all clubs, whichever has such games.
  const bool longResults =
      desk.kept.season && std::ranges::any_of(desk.kept.season->games, [](const Game& game) {
        return game.account != Account::Plays || game.forfeit != Forfeit::No;
      });
  Fill(state.grd_Games, std::move(contents), {0, 1400, 2200, longResults ? 1700 : 850, 900});
  state.grd_Games.SetColumnAlignment(3, CellAlignment::Centred);
  state.grd_Games.SetColumnAlignment(4, CellAlignment::Centred);
}

std::string FaultsText(const Season& season) {
  constexpr std::size_t kMostLines = 12;
  std::string text;
  for (std::size_t i = 0; i < std::min(season.skipped.size(), kMostLines); ++i) {
    text += season.skipped[i] + '\n';
  }
  if (season.skipped.size() > kMostLines) text += "...\n";
  if (season.faultCount > 0) {
    text += FaultCountText(season);
  }
  for (std::size_t i = 0; i < std::min(season.faults.size(), kMostLines); ++i) {
    const LineFault& fault = season.faults[i];
    text += fault.file + ", line " + std::to_string(fault.line) + ": " + fault.what + '\n';
  }
  if (static_cast<std::size_t>(season.faultCount) > kMostLines) text += "...\n";
  if (!text.empty()) text.pop_back();
  return text;
}

// Marks need the database; without it nothing is marked, and that is told once.
void FindPlayedGames(ArchiveDesk& desk) {
  const Season& season = *desk.kept.season;
  try {
    desk.state.played = PlayedGames(season, PlatformOf(desk));
    desk.state.replays = ReplayedRuns(PlatformOf(desk));
  } catch (const ProgramError& error) {
    desk.state.played.assign(season.games.size(), false);
    desk.state.replays.clear();
    desk.state.lbl_Done.Set(std::string("No game is marked as played. ") + error.what());
  }
}

void ShowSeason(ArchiveDesk& desk) {
  if (desk.kept.season) FindPlayedGames(desk);
  ShowTeams(desk);
  ShowGames(desk);
  ShowFiles(desk);
}

}  // namespace

void OpenArchiveDesk(ArchiveDesk& desk) {
  const LineForm form = KeptForm(PlatformOf(desk));
  SeasonState& state = desk.state;
  state.tb_Batters.Set(form.batters);
  state.tb_Pitchers.Set(form.pitchers);
  state.opt_LastFirst.Set(form.names == NameForm::LastFirst);
  ChangeForms(desk);
  ShowSeason(desk);
}

std::optional<std::filesystem::path> LastArchive(const ArchiveDesk& desk) {
  if (desk.kept.season) return std::nullopt;
  const std::filesystem::path last = TiedArchive(desk.board.platform);
  std::error_code fault;
  if (last.empty() || !std::filesystem::exists(last, fault)) return std::nullopt;
  return last;
}

std::optional<std::filesystem::path> ChooseZip(ArchiveDesk& desk) {
  return AskForZip(PlatformOf(desk));
}

std::optional<std::filesystem::path> ChooseFolder(ArchiveDesk& desk) {
  return AskForFolder(PlatformOf(desk));
}

void ReadArchive(ArchiveDesk& desk, const std::filesystem::path& archive, const GoOn& goOn) {
  Trapped(PlatformOf(desk).boxes, [&] {
    if (!KeepSeason(desk.kept, archive, PlatformOf(desk), goOn)) return;
    desk.state.lbl_Done.Set("");
    ShowSeason(desk);
    TieSeason(archive, PlatformOf(desk));
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

void SelectNine(ArchiveDesk& desk, SeasonNine nine) {
  desk.kept.nine = nine;
  desk.kept.game.reset();
  ShowFiles(desk);
}

}  // namespace dtb::archive
