// The whole state of the program as lines of text.
#pragma once

#include <QStringList>
#include <map>

#include "game/board.h"
#include "windows/form1.h"

namespace dtb::replay {

// Names and values, without those that are empty. What comes and goes is asked of the windows.
[[nodiscard]] std::map<std::string, std::string> StateLines(Board& board, const Form1& form1,
                                                            const QStringList& messages);

}  // namespace dtb::replay
