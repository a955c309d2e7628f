// What comes of the plays of a game, as rows of the database.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"
#include "record/game_record.h"

namespace dtb {

// A line for each move: from and to, then the name, which ends the line whatever is in it.
//   "B-1 Varrow"            the batter reaches first
//   "1-H Pell Hathersby"    from first home
//   "2-X Hal One"           out on the way from second
//   "S-2 Mo Two"            from the bench onto second
// What else a run has, stands in the table Runs.
[[nodiscard]] std::string MovesText(const Play& play);
// Nothing for a text that is none of these.
[[nodiscard]] std::optional<std::vector<Move>> MovesIn(std::string_view text);

// The outcome of such a code, "1B"; nothing for another text.
[[nodiscard]] std::optional<Outcome> OutcomeOfCode(std::string_view code);
[[nodiscard]] std::optional<Decision> DecisionOfCode(std::string_view code);

// A player a line, in the order of the record: "4\tSS\tPell Hathersby". Place 0 is "", and so is a
// position that is not known.
[[nodiscard]] std::string LineupText(const SideRecord& side);
// What such a line says; figures are not in it. Lines of another form are passed over.
[[nodiscard]] std::vector<BatterRecord> LineupIn(std::string_view text);

// The rows of a saved game in Plays, Runs and Decisions.
[[nodiscard]] std::vector<TableRow> PlayRowsOf(const GameRecord& game);

// The checksum that goes on from `before` over a row, with its table and columns.
[[nodiscard]] std::uint64_t ChecksumOf(const TableRow& row, std::uint64_t before);

// The row in Games. `checksum` is that of all other rows of the game; OwnID comes of it.
[[nodiscard]] TableRow GameRowOf(const GameRecord& game, std::uint64_t checksum);

}  // namespace dtb
