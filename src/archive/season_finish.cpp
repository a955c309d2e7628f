#include "archive/season_finish.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>

#include "archive/remarks.h"

namespace dtb::archive {
namespace {

void ListGames(Season& season) {
  std::ranges::sort(season.games, [](const Game& a, const Game& b) {
    return std::tie(a.date, a.number, a.id) < std::tie(b.date, b.number, b.id);
  });
  for (std::size_t game = 0; game < season.games.size(); ++game) {
    for (const GameSide& side : season.games[game].sides) {
      season.clubs[side.club].games.push_back(static_cast<int>(game));
    }
  }
  for (Club& club : season.clubs) {
    for (Player& player : club.players) std::ranges::sort(player.days);
  }
}

// The last names of a city's clubs tell them apart; elsewhere the city is enough.
void NameClubs(Season& season) {
  const auto cityOf = [](const Club& club) { return club.city.empty() ? club.id : club.city; };
  std::map<std::pair<int, std::string>, int> clubsOf;
  for (const Club& club : season.clubs) ++clubsOf[{club.year, cityOf(club)}];
  std::map<std::string, int> named;
  for (Club& club : season.clubs) {
    std::string name = cityOf(club);
    if (!club.nickname.empty() && clubsOf[{club.year, name}] > 1) name += ' ' + club.nickname;
    name += ' ' + std::to_string(club.year);
    // Two clubs that are called the same in every word have their ids.
    const bool first = ++named[name] == 1;
    club.name = first ? name : name + ' ' + club.id;
  }
}

void NumberNamesakes(Season& season) {
  struct Name {
    int players = 0;
    std::unordered_map<std::string, int> numbers;  // by id
  };
  std::map<std::pair<int, std::string>, Name> names;
  for (Club& club : season.clubs) {
    for (Player& player : club.players) {
      Name& name = names[{club.year, PlainName(player, NameForm::FirstLast)}];
      const auto [place, fresh] = name.numbers.try_emplace(player.id, name.players + 1);
      if (fresh) ++name.players;
      player.number = place->second;
    }
  }
}

}  // namespace

void FinishSeason(Season& season) {
  ListGames(season);
  NameClubs(season);
  NumberNamesakes(season);
}

}  // namespace dtb::archive
