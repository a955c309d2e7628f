#include "real/day_programme.h"

#include <algorithm>
#include <unordered_map>

#include "archive/schedule.h"
#include "base/fixed_text.h"
#include "base/text_cell.h"
#include "base/words.h"
#include "season/season_words.h"

namespace dtb::real {
namespace {

using archive::Game;

constexpr std::size_t kMostLetters = 63;  // of a line, behind two blanks
constexpr std::size_t kResult = 10;       // of a result

std::string ClubName(const BothWorlds& worlds, const Game& game, int side) {
  return archive::TeamName(*worlds.archive, game.sides.at(side).club);
}

// "Oakland 2020", of a double-header "Oakland 2020, game 2".
std::string HomeText(const BothWorlds& worlds, const Game& game) {
  const std::string name = ClubName(worlds, game, 1);
  return game.number == 0 ? name : name + ", game " + std::to_string(game.number);
}

// "2-3", visitors first; "" where the archive does not tell it.
std::string RealResult(const Game& game) {
  if (game.account != archive::Account::LineUps) {
    return std::to_string(game.sides[0].runs) + '-' + std::to_string(game.sides[1].runs);
  }
  return game.forfeit == archive::Forfeit::No ? "" : "forfeit";
}

std::string StandingsText(const BothStandings& standings) {
  constexpr std::size_t kTeam = 30;
  constexpr std::size_t kColumn = 11;
  const auto line = [](const std::string& team, const std::string& replayed,
                       const std::string& really, const std::string& ahead) {
    return Left(team, kTeam) + Right(replayed, kColumn) + Right(really, kColumn) +
           Right(ahead, kColumn) + '\n';
  };
  std::string text = line("", "Replayed", "Really", "Ahead");
  for (const BothStanding& row : standings.rows) {
    const SeasonTeam& own = standings.replayed.teams[row.team];
    const SeasonTeam& real = standings.really.teams[row.team];
    text += line(own.name, RecordText(own), row.really ? RecordText(real) : "-",
                 row.really ? AheadText(row.ahead) : "");
  }
  return text;
}

}  // namespace

DayProgramme ProgrammeOf(const BothWorlds& worlds, const ArchiveIds& ids, int day) {
  std::unordered_map<std::string, int> replays;  // by the archive's id
  for (std::size_t game = 0; game < worlds.replayed->games.size(); ++game) {
    const auto id = ids.find(worlds.replayed->games[game].id);
    if (id != ids.end()) replays[id->second] = static_cast<int>(game);
  }
  DayProgramme programme{day, {}};
  const auto& games = worlds.archive->games;
  const auto end = std::ranges::upper_bound(games, day, {}, &archive::Game::day);
  auto game = std::ranges::lower_bound(games, day, {}, &archive::Game::day);
  for (; game != end; ++game) {
    const auto replay = replays.find(game->id);
    programme.games.push_back(
        {static_cast<int>(game - games.begin()), replay == replays.end() ? -1 : replay->second});
  }
  return programme;
}

int DayBeside(const archive::Season& season, int day, int step) {
  const auto& games = season.games;
  if (step < 0) {
    const auto here = std::ranges::lower_bound(games, day, {}, &archive::Game::day);
    return here == games.begin() ? day : std::prev(here)->day;
  }
  const auto next = std::ranges::upper_bound(games, day, {}, &archive::Game::day);
  return next == games.end() ? day : next->day;
}

int DayToPlay(const archive::Season& season, const std::vector<bool>& played, int club) {
  const auto next = archive::NextGameOf(season, played, club);
  if (next) return season.games[*next].day;
  const auto last = std::ranges::find_if(season.games.rbegin(), season.games.rend(),
                                         [&](const Game& game) { return Plays(game, club); });
  return last == season.games.rend() ? season.games.back().day : last->day;
}

std::string ProgrammeTitle(const DayProgramme& programme) {
  const auto played = std::ranges::count_if(programme.games,
                                            [](const DayGame& game) { return game.replayed >= 0; });
  return TextOfDay(programme.day) + ": " + Counted(std::ssize(programme.games), "game") + ", " +
         (played == 0 ? "none" : std::to_string(played)) + " played";
}

std::vector<std::vector<std::string>> ProgrammeTable(const BothWorlds& worlds,
                                                     const DayProgramme& programme) {
  std::vector<std::vector<std::string>> table{{"Visitors", "R", "Home", "R ", "Really", ""}};
  for (const DayGame& entry : programme.games) {
    const Game& real = worlds.archive->games[entry.real];
    const std::string result = RealResult(real);
    std::vector<std::string> row{ClubName(worlds, real, 0),
                                 "",
                                 HomeText(worlds, real),
                                 "",
                                 result.empty() ? "not told" : result,
                                 entry.replayed < 0 ? "Play" : "Play again"};
    if (entry.replayed >= 0) {
      const SeasonGame& game = worlds.replayed->games[entry.replayed];
      row[1] = DecimalText(game.sides[0].runs);
      row[3] = DecimalText(game.sides[1].runs);
    }
    table.push_back(std::move(row));
  }
  return table;
}

std::string ProgrammeText(const BothWorlds& worlds, const DayProgramme& programme,
                          const BothStandings& standings) {
  std::string open;
  std::string really;
  for (const DayGame& entry : programme.games) {
    const Game& real = worlds.archive->games[entry.real];
    const std::string teams = ClubName(worlds, real, 0) + " at " + HomeText(worlds, real);
    const std::string result = RealResult(real);
    if (entry.replayed < 0) open += "  " + std::string(FirstLetters(teams, kMostLetters)) + '\n';
    really += "  " + Left(teams, kMostLetters - kResult) +
              Right(result.empty() ? "-" : result, kResult) + '\n';
  }
  std::string text;
  if (!open.empty()) text += "\nNot played yet:\n" + open;
  text += "\nReally:\n" + really;
  if (!standings.rows.empty()) {
    text += "\nStandings in the evening:\n" + StandingsText(standings);
  }
  return text;
}

}  // namespace dtb::real
