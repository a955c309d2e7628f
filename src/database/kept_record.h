// Saved games, as the record of each.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/database.h"
#include "record/game_record.h"

namespace dtb {

// The record of one saved game. `teams`: visitors and home team, since files of the years before
// may have several games under one GameID; none: the first that has it. Nothing if it is not there.
//
// A game without rows in the tables of the plays has what the five tables tell: no plays, no
// decisions, no places in the order. The same holds for plays that cannot be read as this program
// writes them. Of two teams of one name, nothing tells the players apart: they stand with the home
// team. Throws ProgramError, here and below.
[[nodiscard]] std::optional<GameRecord> ReadRecord(DatabaseReader& database, const std::string& id,
                                                   const std::vector<std::string>& teams = {});

// The same for all games of these GameIDs, in the order of the GameIDs.
[[nodiscard]] std::vector<GameRecord> ReadRecords(DatabaseReader& database,
                                                  const std::vector<std::string>& ids);

// All games that were played on a day, "2020-08-07", in the order in which they were saved. A game
// that has no row in Games was played on the day of its GameID.
[[nodiscard]] std::vector<GameRecord> ReadRecordsOfDay(DatabaseReader& database,
                                                       const std::string& day);

}  // namespace dtb
