#include "archive/figures_csv.h"

#include <algorithm>
#include <tuple>
#include <vector>

namespace dtb::archive {
namespace {

constexpr int kNotTold = -1;

std::string Cell(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? "\"\"" : std::string(1, c);
  return quoted + '"';
}

// The rows of all players for whom `figures` has any.
template <class Figures>
std::string Table(const Season& season, std::string text, Figures figures) {
  struct Row {
    const Club* club;
    const Player* player;
  };
  std::vector<Row> rows;
  for (const Club& club : season.clubs) {
    for (const Player& player : club.players) rows.push_back({&club, &player});
  }
  std::ranges::stable_sort(rows, [](const Row& a, const Row& b) {
    return std::tie(a.club->year, a.club->id, a.player->id) <
           std::tie(b.club->year, b.club->id, b.player->id);
  });
  for (const Row& row : rows) {
    const std::vector<int> numbers = figures(*row.player);
    if (numbers.empty()) continue;
    text += Cell(row.player->id) + ',' + Cell(row.club->id) + ',' + Cell(FullName(*row.player));
    for (const int number : numbers) {
      text += number == kNotTold ? std::string(",") : ',' + std::to_string(number);
    }
    text += '\n';
  }
  return text;
}

}  // namespace

std::string BattingTable(const Season& season) {
  return Table(season, "player,team,name,G,AB,H,2B,3B,HR,BB,K,HBP,SB\n", [](const Player& player) {
    const Batting& b = player.batting;
    if (b.games == 0) return std::vector<int>{};
    return std::vector<int>{b.games,    b.atBats, b.hits,       b.doubles,    b.triples,
                            b.homeRuns, b.walks,  b.strikeouts, b.hitByPitch, b.stolenBases};
  });
}

std::string PitchingTable(const Season& season) {
  return Table(season, "player,team,name,G,GS,outs,H,HR,BB,K,ER,W,L,S\n", [](const Player& player) {
    const Pitching& p = player.pitching;
    if (p.games == 0) return std::vector<int>{};
    const bool told = p.outsUncharged == 0 || p.outs > p.outsUncharged;
    return std::vector<int>{p.games,    p.starts, p.outs,       p.hits,
                            p.homeRuns, p.walks,  p.strikeouts, told ? p.earnedRuns : kNotTold,
                            p.wins,     p.losses, p.saves};
  });
}

}  // namespace dtb::archive
