// The season on the board beside the real one: 30 teams, 162 games each. Goal: each view within 100
// milliseconds.
#include <random>

#include "archive/day_figures.h"
#include "bench/pairs.h"
#include "bench/season.h"
#include "platform/sqlite/sqlite_database.h"
#include "real/team_games.h"
#include "real/use.h"

namespace dtb {
namespace {

constexpr int kGames = 30 * 162 / 2;
constexpr double kViewGoal = 100;

// The games of a season of the board, ended otherwise, with the same players in all of them.
archive::Season RealSeasonOf(const SeasonFigures& board) {
  std::minstd_rand random(7);
  archive::Season season;
  for (const SeasonTeam& team : board.teams) {
    archive::Club club;
    club.name = team.name;
    season.clubs.push_back(club);
  }
  for (const SeasonPlayer& player : board.players) {
    archive::Player real;
    real.last = player.name;
    real.days = {1};
    season.clubs[player.team].players.push_back(real);
  }
  for (std::size_t place = 0; place < board.games.size(); ++place) {
    archive::Game game;
    game.id = std::to_string(place);
    game.day = static_cast<int>(place / 15);
    game.account = archive::Account::Plays;
    for (std::size_t i = 0; i < 2; ++i) {
      archive::GameSide& side = game.sides.at(i);
      side.club = board.games[place].sides.at(i).team;
      side.runs = static_cast<int>(random() % 10);
      archive::Club& club = season.clubs[side.club];
      club.games.push_back(static_cast<int>(place));
      for (std::size_t player = 0; player < std::min<std::size_t>(club.players.size(), 14);
           ++player) {
        archive::Batting day;
        day.atBats = 4;
        day.hits = static_cast<int>(random() % 3);
        archive::Pitching pitched;
        if (player >= 11) pitched.games = 1, pitched.outs = 9;
        archive::PackDay(side.figures, static_cast<int>(player), {}, day, {}, pitched);
        archive::Add(club.players[player].batting, day);
        archive::Add(club.players[player].pitching, pitched);
      }
    }
    season.games.push_back(std::move(game));
  }
  return season;
}

void Measure(benchmark::State& state, const char* name, const std::function<void()>& view) {
  std::vector<double> turns;
  for (auto _ : state) turns.push_back(1000 * SecondsOf(view));
  NoteTime(name, kGames, kViewGoal, turns);
}

void Views(benchmark::State& state, int which) {
  SqliteDatabase database(SeasonOf(kGames));
  const auto board = std::make_shared<const SeasonFigures>(ReadSeasonFigures(database));
  const auto season = std::make_shared<const archive::Season>(RealSeasonOf(*board));
  const real::BothWorlds worlds = real::PairWorlds(board, season);
  const real::StartsOfPitchers starts = real::ReadStarts(database);
  const auto players = real::PlayersOfBoth(worlds, {}, starts);
  switch (which) {
    case 0:
      return Measure(state, "real: standings",
                     [&] { benchmark::DoNotOptimize(real::StandingsOfBoth(worlds, {})); });
    case 1:
      return Measure(state, "real: a team's games", [&] {
        benchmark::DoNotOptimize(real::GamesOfTeam(worlds, {}, 3));
        benchmark::DoNotOptimize(real::CoursesOf(worlds, 3));
      });
    case 2:
      return Measure(state, "real: players and leaders", [&] {
        real::BothStandings both = real::StandingsOfBoth(worlds, {});
        real::AddPlayers(both, real::PlayersOfBoth(worlds, {}, starts));
        for (const SeasonLead lead : kSeasonLeads) {
          benchmark::DoNotOptimize(Leaders(both.really, lead, true));
          benchmark::DoNotOptimize(real::UntoldOf(worlds, {}, lead));
        }
      });
    case 3:
      return Measure(state, "real: use of a team",
                     [&] { benchmark::DoNotOptimize(real::UseOfTeam(worlds, players, 3)); });
    default:
      return Measure(state, "real: marks of the line-ups",
                     [&] { benchmark::DoNotOptimize(real::ReadUseMarks(database, season)); });
  }
}

[[maybe_unused]] const bool registered = [] {
  constexpr int kTurns = 15;
  constexpr int kViews = 5;
  for (int view = 0; view < kViews; ++view) {
    benchmark::RegisterBenchmark(("Real/" + std::to_string(view)).c_str(),
                                 [view](benchmark::State& state) { Views(state, view); })
        ->Unit(benchmark::kMillisecond)
        ->Iterations(kTurns);
  }
  return true;
}();

}  // namespace
}  // namespace dtb
