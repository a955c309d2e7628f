// A window stands where the person left it.
#pragma once

#include <QWidget>

#include "platform/platform.h"

namespace dtb {

// Stores size and place of a window, and whether it is maximised. Where nothing can be stored, the
// window starts as usual the next time.
void KeepPlace(const QWidget& window, SettingsStore& settings);

// Puts a window that is not shown yet where it stood last. False, and nothing is done: nothing was
// stored, or the screens have changed so that its title bar could not be reached.
[[nodiscard]] bool TakeUpPlace(QWidget& window, SettingsStore& settings);

}  // namespace dtb
