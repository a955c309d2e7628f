// The figures of a game, named as in a file of expected figures.
#pragma once

#include <compare>
#include <map>
#include <string>

namespace dtb::plays {

struct Figure {
  int side = 0;      // 0 for the visitors, 1 for the home team
  std::string kind;  // "LINE", "LEFT", "BATTING", "PITCHING"
  std::string who;   // the player; of a line the inning, "03"
  std::string what;  // "RBI"; "IP" counts outs
  friend auto operator<=>(const Figure&, const Figure&) = default;
};

using Figures = std::map<Figure, int>;

inline int ValueOf(const Figures& figures, const Figure& figure) {
  const auto found = figures.find(figure);
  return found == figures.end() ? 0 : found->second;
}

inline std::string InningName(int inning) {
  return (inning < 10 ? "0" : "") + std::to_string(inning);
}

}  // namespace dtb::plays
