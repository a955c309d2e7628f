// What a script shows of a game, and what must come out of it.
#pragma once

#include <QStringList>
#include <map>

#include "replay/gesture_forms.h"
#include "windows/board/form1.h"

namespace dtb::replay {

using StateMap = std::map<std::string, std::string>;

// The whole state: names and values, many of them empty; with that of the browser while it is open.
// Whether a control is shown is asked of the window itself.
[[nodiscard]] StateMap StateLines(Board& board, const Form1& form1, const QStringList& messages);

struct Comparison {
  QStringList differences;  // one sentence each
  QStringList withoutRow;   // "Team, Player": has figures, yet no row was to be saved for him
};

// What is wrong with the form of a line of figures.
[[nodiscard]] std::optional<LineFault> FaultOfFigures(const QString& line);

// The sheet, the line score and the rows of the saved game beside a file of figures, whose lines
// have their form. A difference names the file and the line where its figure is expected.
[[nodiscard]] Comparison Compare(Board& board, const QString& expectedFile);

}  // namespace dtb::replay
