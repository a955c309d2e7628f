// Where rows of the database belong among the games and players of a season.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "season/season_outings.h"

namespace dtb {

// The season stays as it is while this lives.
class SeasonPlaces {
 public:
  explicit SeasonPlaces(const SeasonFigures& season);

  [[nodiscard]] const SeasonFigures& season() const { return season_; }
  // -1, here and below: none.
  [[nodiscard]] int TeamOf(std::string_view name) const;
  [[nodiscard]] int PlayerOf(int team, std::string_view name) const;
  // The first game with this GameID in which the team played.
  [[nodiscard]] int GameOf(std::string_view id, int team) const;

 private:
  const SeasonFigures& season_;
  std::unordered_map<std::string_view, int> teams_;
  std::unordered_map<std::string, int> players_;
  std::unordered_multimap<std::string_view, int> games_;
};

// What a player did in a game, or what the tables of the plays add to it.
struct PlacedLine {
  int player = 0;
  std::string id = {};   // GameID
  int game = -1;         // -1: it has no line score
  std::size_t side = 0;  // in that game: 0 visitors, 1 home team
  SeasonTotals line = {};
};
using TakeLine = std::function<void(const PlacedLine&)>;

// By player, each in order and added up.
using AllOutings = std::vector<std::vector<SeasonOuting>>;

// The outings of all players of the season in a role. The functions hear of each row as it is
// stored, and then of what the plays add. Rows that were saved since the season was read are left
// out. Throws ProgramError.
[[nodiscard]] AllOutings ReadAllOutings(Database& database, const SeasonPlaces& places,
                                        SeasonRole role, const TakeLine& row = {},
                                        const TakeLine& part = {});

}  // namespace dtb
