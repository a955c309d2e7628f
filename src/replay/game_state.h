// What a script shows of a game, and what must come out of it.
#pragma once

#include <QStringList>
#include <map>

#include "windows/board/form1.h"

namespace dtb::replay {

// The whole state: names and values, many of them empty. Whether a control is shown is asked of the
// window itself.
[[nodiscard]] std::map<std::string, std::string> StateLines(Board& board, const Form1& form1,
                                                            const QStringList& messages);

// What the sheet, the line score and the rows of the saved game show differently from a file of
// figures, one sentence each.
[[nodiscard]] QStringList Differences(Board& board, const QString& expectedFile);

}  // namespace dtb::replay
