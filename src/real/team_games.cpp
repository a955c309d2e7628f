#include "real/team_games.h"

#include "archive/team_text.h"
#include "base/text_cell.h"
#include "season/season_words.h"

namespace dtb::real {
namespace {

struct Record {
  int wins = 0;
  int losses = 0;
  int ties = 0;
  void Count(int result) { ++(result > 0 ? wins : result < 0 ? losses : ties); }
  [[nodiscard]] std::string text() const { return RecordText(wins, losses, ties); }
};

const char* SignOf(int result) { return result > 0 ? "W " : result < 0 ? "L " : "T "; }

// Side of the team in a game of the board; against itself it is the visitors.
std::size_t SideOfTeam(const SeasonGame& game, int team) {
  return game.sides[0].team == team ? 0 : 1;
}

int ResultOnBoard(const SeasonGame& game, int team) {
  const std::size_t side = SideOfTeam(game, team);
  const double own = game.sides.at(side).runs;
  const double others = game.sides.at(1 - side).runs;
  if (game.sides[0].team == game.sides[1].team || own == others) return 0;
  return own > others ? 1 : -1;
}

void AddReplay(TeamGame& entry, const SeasonFigures& replayed, int team, Record& record) {
  const SeasonGame& game = replayed.games[entry.replayed];
  const std::size_t side = SideOfTeam(game, team);
  const int result = ResultOnBoard(game, team);
  record.Count(result);
  entry.replayedText = SignOf(result) + DecimalText(game.sides.at(side).runs) + '-' +
                       DecimalText(game.sides.at(1 - side).runs);
  entry.replayedRecord = record.text();
}

int SideOfClub(const archive::Game& game, int club) { return game.sides[0].club == club ? 0 : 1; }

void AddReal(TeamGame& entry, const archive::Game& game, int side, Record& record) {
  const auto result = ResultOf(game, side);
  if (result) {
    record.Count(*result);
    entry.reallyText = SignOf(*result);
    if (game.account == archive::Account::LineUps) {
      entry.reallyText += "forfeit";
    } else {
      entry.reallyText += std::to_string(game.sides.at(side).runs) + '-' +
                          std::to_string(game.sides.at(1 - side).runs);
    }
  }
  entry.reallyRecord = record.text();
}

}  // namespace

std::vector<TeamGame> GamesOfTeam(const BothWorlds& worlds, const ArchiveIds& ids, int team) {
  std::vector<TeamGame> games;
  if (!worlds.Compares(team)) return games;
  const SeasonFigures& replayed = *worlds.replayed;
  const archive::Season& season = *worlds.archive;
  const int club = worlds.clubs[team];
  std::unordered_map<std::string, int> replays;  // by the archive's id
  for (const int game : replayed.teams[team].games) {
    const auto id = ids.find(replayed.games[game].id);
    if (id != ids.end()) replays[id->second] = game;
  }
  Record onBoard;
  Record really;
  std::vector<bool> listed(replayed.games.size());
  for (const int place : season.clubs[club].games) {
    const archive::Game& game = season.games[place];
    const int side = SideOfClub(game, club);
    TeamGame entry{.day = game.day, .real = place};
    entry.opponent =
        (side == 0 ? "at " : "") + archive::TeamName(season, game.sides.at(1 - side).club);
    const auto replay = replays.find(game.id);
    if (replay != replays.end()) {
      entry.replayed = replay->second;
      listed[entry.replayed] = true;
      AddReplay(entry, replayed, team, onBoard);
    }
    AddReal(entry, game, side, really);
    games.push_back(std::move(entry));
  }
  int before = -1;
  for (const int place : replayed.teams[team].games) {
    if (listed[place] || place == before) continue;
    before = place;
    const SeasonGame& game = replayed.games[place];
    const std::size_t side = SideOfTeam(game, team);
    TeamGame entry{.day = DayOfGame(game), .replayed = place};
    entry.opponent = (side == 0 ? "at " : "") + replayed.teams[game.sides.at(1 - side).team].name;
    AddReplay(entry, replayed, team, onBoard);
    games.push_back(std::move(entry));
  }
  return games;
}

std::vector<std::vector<std::string>> GamesTable(const std::vector<TeamGame>& games) {
  std::vector<std::vector<std::string>> table{
      {"Day", "No.", "Opponent", "Replayed", "Really", "Record", "Real record"}};
  int number = 0;
  for (const TeamGame& game : games) {
    ++number;
    table.push_back({game.day ? TextOfDay(*game.day) : "no date",
                     game.real < 0 ? "-" : std::to_string(number), game.opponent, game.replayedText,
                     game.real < 0             ? "not in the archive"
                     : game.reallyText.empty() ? "not told"
                                               : game.reallyText,
                     game.replayedRecord, game.reallyRecord});
  }
  return table;
}

BothCourses CoursesOf(const BothWorlds& worlds, int team) {
  BothCourses courses{{0}, {0}};
  int before = -1;
  for (const int place : worlds.replayed->teams[team].games) {
    if (place == before) continue;
    before = place;
    courses.replayed.push_back(courses.replayed.back() +
                               ResultOnBoard(worlds.replayed->games[place], team));
  }
  if (!worlds.Compares(team)) return courses;
  const int club = worlds.clubs[team];
  for (const int place : worlds.archive->clubs[club].games) {
    const archive::Game& game = worlds.archive->games[place];
    courses.really.push_back(courses.really.back() +
                             ResultOf(game, SideOfClub(game, club)).value_or(0));
  }
  return courses;
}

}  // namespace dtb::real
