// Table scripts looked at without being played.
#pragma once

#include <QStringList>

#include "replay/gesture_forms.h"

namespace dtb::replay {

// The lines of a text file, with line ends of either kind. Throws Refused where it cannot be read.
[[nodiscard]] QStringList LinesOf(const QString& file);

// "FILE:LINE: WHAT", and below it what stands there and what was expected.
[[nodiscard]] QString FaultText(const QString& file, qsizetype line, const QString& what,
                                const QString& standing, const QString& expected);

// All faults of a script, and of the figures that it is compared with ("": none): lines without
// their form, and team files that are not there.
[[nodiscard]] QStringList FaultsOfScript(const QString& script, const QString& figures,
                                         const QDir& program);

}  // namespace dtb::replay
