// The gestures of a script for a board that keeps the bases, as single gestures at its controls.
#pragma once

#include <QStringList>
#include <optional>

#include "windows/desk.h"

namespace dtb::replay {

// Taken apart by where everybody stands at the moment; with `keys` as keys, where there are such.
// Nothing for a line that is another gesture. Throws Refused where there is no such runner.
[[nodiscard]] std::optional<QStringList> BaseGesturesOf(const QString& line, Desk& desk, bool keys);

}  // namespace dtb::replay
