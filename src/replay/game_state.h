// What a script shows of a game, and what must come out of it.
#pragma once

#include <QStringList>
#include <cstdint>
#include <map>
#include <string>

#include "replay/gesture_forms.h"
#include "windows/board/board_window.h"

namespace dtb::replay {

using StateMap = std::map<std::string, std::string>;

// The whole state: names and values, many of them empty; with that of the browser while it is open.
// Whether a control is shown is asked of the window itself.
[[nodiscard]] StateMap StateLines(Board& board, const BoardWindow& form1,
                                  const QStringList& messages);

struct Comparison {
  QStringList differences;  // one sentence each
  QStringList withoutRow;   // "Team, Player": has figures, yet no row was to be saved for him
};

// What is wrong with the form of a line of figures.
[[nodiscard]] std::optional<LineFault> FaultOfFigures(const QString& line);

// The last row of each table that holds figures of a game. Throws Refused where
// the database cannot be read.
using RowsBefore = std::map<std::string, std::int64_t>;
[[nodiscard]] RowsBefore LastRows(const Board& board);

// The sheet, the line score and the rows of the saved game, which stand behind those that were
// there before it, beside a file of figures, whose lines have their form. Runs of players and those
// left on base are taken from the plays, and compared where the file names them. A difference names
// the file and the line where its figure is expected.
[[nodiscard]] Comparison Compare(Board& board, const QString& expectedFile,
                                 const RowsBefore& rowsBefore);

}  // namespace dtb::replay
