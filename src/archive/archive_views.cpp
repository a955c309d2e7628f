#include "archive/archive_views.h"

#include <algorithm>
#include <initializer_list>
#include <numeric>

namespace dtb::archive {
namespace {

std::string Counted(std::size_t number, const char* one, const char* many) {
  return std::to_string(number) + ' ' + (number == 1 ? one : many);
}

GridContents Headed(std::initializer_list<const char*> headers) {
  GridContents contents;
  for (const char* header : headers) contents.headers.emplace_back(header);
  contents.columns.resize(contents.headers.size());
  return contents;
}

void AddRow(GridContents& contents, const std::vector<std::string>& cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) contents.columns[i].Append(cells[i]);
}

void Fill(StatGrid& grid, GridContents contents, const std::vector<int>& widths) {
  grid.Replace(std::move(contents));
  grid.SetRowBands(kWhite, Colour{240, 240, 236}, 1);
  for (int column = 0; column < grid.columns(); ++column) {
    grid.SetColumnWidth(column, widths.at(column));
  }
}

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

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i > 0) joined += i + 1 < texts.size() ? ", " : " and ";
    joined += texts[i];
  }
  return joined;
}

void ShowFile(SeasonState::File& file, const std::string& what) {
  GridContents contents = Headed({"", "", "Player and remark"});
  int order = 0;
  if (!file.team) {
    file.title.Set("");
  } else {
    const TeamText& team = *file.team;
    std::string title = FileNameOf(team) + what;
    if (!team.gaps.empty()) title += ", not told: " + Joined(team.gaps);
    if (!team.leftOut.empty()) {
      title += ", no room for " + Counted(team.leftOut.size(), "man", "men") + ": " +
               Joined(team.leftOut);
    }
    file.title.Set(title);
    for (std::size_t i = 0; i < team.lines.size(); ++i) {
      AddRow(contents, {"", std::to_string(i + 1), team.lines[i]});
    }
    order = team.inOrder;
  }
  Fill(file.grid, std::move(contents), {0, 500, 4000});
  file.grid.SetColumnAlignment(1, CellAlignment::Right);
  // One band, of the batting order alone.
  file.grid.SetFirstBand(Colour{228, 234, 226}, order);
}

}  // namespace

void ShowTeams(ArchiveDesk& desk) {
  SeasonState& state = desk.state;
  GridContents contents = Headed({"", "Team", "G"});
  state.clubs.clear();
  state.hasFaults.Set(false);
  if (!desk.kept.season) {
    state.lbl_Archive.Set(
        "Choose the archive of a season: its zip as it was downloaded, or the unpacked folder.");
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
    std::string told = desk.kept.archive + ": " + Counted(state.clubs.size(), "team", "teams") +
                       " and " + Counted(season.games.size(), "game", "games") + " of " +
                       Years(season);
    if (season.faultCount > 0) {
      told += ", " + Counted(static_cast<std::size_t>(season.faultCount), "line", "lines") +
              " made no sense";
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
      Headed({"", "Date", club == kAllClubs ? "Game" : "Opponent", "Result", "Played"});
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
                        state.played[i] ? "yes" : ""});
    }
    state.hasNext.Set(NextGameOf(season, state.played, club).has_value());
  }
  // The same for all clubs, whichever has such games.
  const bool longResults =
      desk.kept.season && std::ranges::any_of(desk.kept.season->games, [](const Game& game) {
        return game.account != Account::Plays || game.forfeit != Forfeit::No;
      });
  Fill(state.grd_Games, std::move(contents), {0, 1400, 2200, longResults ? 1700 : 850, 800});
  state.grd_Games.SetColumnAlignment(3, CellAlignment::Centred);
  state.grd_Games.SetColumnAlignment(4, CellAlignment::Centred);
}

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
    state.files[0].team = MakeTeamText(season, club, LineUpUsedMost(season, club), form);
    what = ", line-up used most";
    shown = 1;
  }
  for (SeasonState::File& file : state.files) ShowFile(file, what);
  if (desk.kept.season && shown == 0) state.files[0].title.Set("Choose a team or a game");
  state.shownFiles.Set(shown);
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

std::string FaultsText(const Season& season) {
  constexpr std::size_t kMostLines = 12;
  std::string text;
  for (std::size_t i = 0; i < std::min(season.skipped.size(), kMostLines); ++i) {
    text += season.skipped[i] + '\n';
  }
  if (season.skipped.size() > kMostLines) text += "...\n";
  if (season.faultCount > 0) {
    text += Counted(static_cast<std::size_t>(season.faultCount), "line makes", "lines make") +
            " no sense; the rest counts.\n";
  }
  for (std::size_t i = 0; i < std::min(season.faults.size(), kMostLines); ++i) {
    const LineFault& fault = season.faults[i];
    text += fault.file + ", line " + std::to_string(fault.line) + ": " + fault.what + '\n';
  }
  if (static_cast<std::size_t>(season.faultCount) > kMostLines) text += "...\n";
  if (!text.empty()) text.pop_back();
  return text;
}

}  // namespace dtb::archive
