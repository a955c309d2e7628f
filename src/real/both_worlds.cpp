#include "real/both_worlds.h"

#include <algorithm>
#include <chrono>
#include <unordered_map>

#include "archive/team_text.h"

namespace dtb::real {
namespace {

using archive::Account;
using archive::Club;
using archive::Forfeit;
using archive::Game;

LocalTime TimeOfDay(int day) {
  const std::chrono::year_month_day date{std::chrono::sys_days(std::chrono::days(day))};
  return {.year = static_cast<int>(date.year()),
          .month = static_cast<int>(static_cast<unsigned>(date.month())),
          .day = static_cast<int>(static_cast<unsigned>(date.day()))};
}

// The same teams, in the same places, that have not played yet.
SeasonFigures TeamsOf(const BothWorlds& worlds) {
  SeasonFigures season;
  for (const SeasonTeam& team : worlds.replayed->teams) season.teams.push_back({.name = team.name});
  return season;
}

void CountFor(SeasonTeam& team, const SeasonGame& game, std::size_t side, int result, int place) {
  team.games.push_back(place);
  team.wins += result > 0 ? 1 : 0;
  team.losses += result < 0 ? 1 : 0;
  team.runs += game.sides.at(side).runs;
  team.runsAllowed += game.sides.at(1 - side).runs;
}

int Compared(double own, double others) { return own > others ? 1 : own < others ? -1 : 0; }

// The last day that counts; nothing where the moment is none of a day, or no day is known.
std::optional<int> LastDay(const BothWorlds& worlds, const Moment& moment) {
  if (moment.by == Moment::By::Games) return std::nullopt;
  return moment.last ? moment.last : LastDayReplayed(worlds);
}

int ReplayedGamesAt(const BothWorlds& worlds, int team, const Moment& moment) {
  const std::vector<int>& games = worlds.replayed->teams[team].games;
  const int all = static_cast<int>(games.size());
  if (moment.by == Moment::By::Games) return std::min(all, moment.last.value_or(all));
  const auto last = LastDay(worlds, moment);
  return static_cast<int>(std::ranges::count_if(games, [&](int game) {
    const auto day = DayOfGame(worlds.replayed->games[game]);
    return day && last && *day <= *last;
  }));
}

}  // namespace

BothWorlds PairWorlds(std::shared_ptr<const SeasonFigures> replayed,
                      std::shared_ptr<const archive::Season> archive, archive::NameForm names) {
  std::unordered_map<std::string, int> clubs;
  for (int club = 0; club < static_cast<int>(archive->clubs.size()); ++club) {
    if (archive->clubs[club].games.empty()) continue;
    clubs.try_emplace(archive::BoardName(archive::TeamName(*archive, club)), club);
  }
  BothWorlds worlds{std::move(replayed), std::move(archive), names};
  for (const SeasonTeam& team : worlds.replayed->teams) {
    const auto club = clubs.find(team.name);
    worlds.clubs.push_back(club == clubs.end() ? kNoClub : club->second);
  }
  return worlds;
}

std::vector<std::string> NotCompared(const BothWorlds& worlds) {
  std::vector<std::string> names;
  for (std::size_t team = 0; team < worlds.clubs.size(); ++team) {
    const SeasonTeam& entry = worlds.replayed->teams[team];
    if (worlds.clubs[team] == kNoClub && !entry.games.empty()) names.push_back(entry.name);
  }
  return names;
}

std::optional<int> DayOfGame(const SeasonGame& game) {
  if (!game.day) return std::nullopt;
  return archive::DayOf(DateText(*game.day));
}

std::string TextOfDay(int day) { return PlainDay(TimeOfDay(day)); }

std::optional<int> LastDayReplayed(const BothWorlds& worlds) {
  if (worlds.archive->games.empty()) return std::nullopt;
  const int begin = worlds.archive->games.front().day;
  const int end = worlds.archive->games.back().day;
  std::optional<int> last;
  for (const SeasonGame& game : worlds.replayed->games) {
    const auto day = DayOfGame(game);
    if (!day || *day < begin || *day > end || (last && *day <= *last)) continue;
    if (worlds.Compares(game.sides[0].team) || worlds.Compares(game.sides[1].team)) last = day;
  }
  return last;
}

std::optional<int> ResultOf(const Game& game, int side) {
  switch (game.forfeit) {
    case Forfeit::ToVisitors:
      return side == 0 ? 1 : -1;
    case Forfeit::ToHome:
      return side == 1 ? 1 : -1;
    case Forfeit::ToNobody:
      return 0;
    case Forfeit::No:
      break;
  }
  if (game.account == Account::LineUps) return std::nullopt;
  return Compared(game.sides.at(side).runs, game.sides.at(1 - side).runs);
}

SeasonFigures ReplayedAt(const BothWorlds& worlds, const Moment& moment) {
  SeasonFigures season = TeamsOf(worlds);
  season.games = worlds.replayed->games;
  const auto last = LastDay(worlds, moment);
  for (std::size_t team = 0; team < season.teams.size(); ++team) {
    if (worlds.clubs[team] == kNoClub) continue;
    const auto& games = worlds.replayed->teams[team].games;
    const auto most =
        moment.by == Moment::By::Games
            ? static_cast<std::size_t>(ReplayedGamesAt(worlds, static_cast<int>(team), moment))
            : games.size();
    int before = -1;
    for (std::size_t i = 0; i < most; ++i) {
      const SeasonGame& game = season.games[games[i]];
      if (moment.by == Moment::By::Date) {
        const auto day = DayOfGame(game);
        if (!day || !last || *day > *last) continue;
      }
      // One against itself stands twice.
      const bool again = games[i] == before;
      const bool home = again || game.sides[0].team != static_cast<int>(team);
      before = games[i];
      const std::size_t side = home ? 1 : 0;
      CountFor(season.teams[team], game, side,
               Compared(game.sides.at(side).runs, game.sides.at(1 - side).runs), games[i]);
    }
  }
  return season;
}

int RealGamesAt(const BothWorlds& worlds, int team, const Moment& moment) {
  if (!worlds.Compares(team)) return 0;
  const Club& club = worlds.archive->clubs[worlds.clubs[team]];
  const int all = static_cast<int>(club.games.size());
  if (moment.by == Moment::By::Games) return std::min(all, ReplayedGamesAt(worlds, team, moment));
  const auto last = LastDay(worlds, moment);
  if (!last) return 0;
  const auto end = std::ranges::upper_bound(
      club.games, *last, {}, [&](int game) { return worlds.archive->games[game].day; });
  return static_cast<int>(end - club.games.begin());
}

int ResultsNotTold(const BothWorlds& worlds, int team, const Moment& moment) {
  const int count = RealGamesAt(worlds, team, moment);
  if (count == 0) return 0;
  const auto first = worlds.archive->clubs[worlds.clubs[team]].games.begin();
  return static_cast<int>(std::count_if(
      first, first + count, [&](int game) { return !ResultOf(worlds.archive->games[game], 0); }));
}

SeasonFigures ReallyAt(const BothWorlds& worlds, const Moment& moment) {
  SeasonFigures season = TeamsOf(worlds);
  std::unordered_map<int, int> teams;  // by club
  for (std::size_t team = 0; team < worlds.clubs.size(); ++team) {
    if (worlds.clubs[team] != kNoClub) teams.emplace(worlds.clubs[team], static_cast<int>(team));
  }
  // The games that count for somebody, in order.
  struct Counted {
    int game;
    int team;
  };
  std::vector<Counted> counted;
  for (const auto& [club, team] : teams) {
    const auto& games = worlds.archive->clubs[club].games;
    const int most = RealGamesAt(worlds, team, moment);
    for (int i = 0; i < most; ++i) {
      if (ResultOf(worlds.archive->games[games[i]], 0)) counted.push_back({games[i], team});
    }
  }
  std::ranges::sort(counted, [](const Counted& a, const Counted& b) {
    return a.game != b.game ? a.game < b.game : a.team < b.team;
  });
  const auto teamOf = [&](int club) {
    const auto [place, added] = teams.try_emplace(club, static_cast<int>(season.teams.size()));
    // An opponent that is in no replayed game.
    if (added) season.teams.push_back({.name = archive::TeamName(*worlds.archive, club)});
    return place->second;
  };
  int last = -1;
  for (const auto& [place, team] : counted) {
    const Game& real = worlds.archive->games[place];
    if (place != last) {
      SeasonGame game{real.id, TimeOfDay(real.day), TimeOfDay(real.day)};
      for (std::size_t side = 0; side < 2; ++side) {
        game.sides.at(side).team = teamOf(real.sides.at(side).club);
        game.sides.at(side).runs = real.sides.at(side).runs;
      }
      season.games.push_back(std::move(game));
      last = place;
    }
    const SeasonGame& game = season.games.back();
    const std::size_t side = game.sides[0].team == team ? 0 : 1;
    CountFor(season.teams[team], game, side, *ResultOf(real, static_cast<int>(side)),
             static_cast<int>(season.games.size()) - 1);
  }
  return season;
}

}  // namespace dtb::real
