// The figures of a finished game, against those that were counted elsewhere.
#pragma once

#include <QStringList>

#include "game/board.h"

namespace dtb::replay {

// What the sheet and the line score show differently from the file, one sentence each.
[[nodiscard]] QStringList Differences(Board& board, const QString& expectedFile);

}  // namespace dtb::replay
