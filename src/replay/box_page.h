// The box score of a played game, against the database and against a page that is expected.
#pragma once

#include <QStringList>

#include "game/board.h"

namespace dtb::replay {

// What differs, line by line: the box score of the saved game from that of the board, and that of
// the board from the page, "box.txt" in the folder of the game, if it is there.
[[nodiscard]] QStringList BoxDifferences(Board& board, const QString& page);

}  // namespace dtb::replay
