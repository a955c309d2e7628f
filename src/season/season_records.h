// The records of a season's games, one after the other.
#pragma once

#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "platform/database.h"
#include "record/season_to_date.h"
#include "season/season_figures.h"

namespace dtb {

// Reads some hundred games at a time, so that a season of any size takes little store.
class SeasonRecords {
 public:
  SeasonRecords(DatabaseReader& database, const SeasonFigures& season)
      : database_(database), season_(season) {}

  // The record of a game, by its place in the season, to be asked in their order; nullptr where it
  // is no longer in the database. It is good until the next one is asked for. Throws ProgramError.
  [[nodiscard]] const GameRecord* Next(int game);
  // What the players did up to the game that was asked for last, that one included.
  [[nodiscard]] const SeasonToDate& toDate() const { return toDate_; }

 private:
  using Key = std::tuple<std::string, std::string, std::string>;  // GameID, visitors, home team

  [[nodiscard]] Key KeyOf(int game) const;
  void Read(int first);

  DatabaseReader& database_;
  const SeasonFigures& season_;
  std::map<Key, GameRecord> read_;
  int end_ = 0;  // of the games that are read
  SeasonToDate toDate_;
};

}  // namespace dtb
