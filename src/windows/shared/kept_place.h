// A window stands where the person left it.
#pragma once

#include <QDialog>
#include <QRect>
#include <functional>

#include "platform/platform.h"

namespace dtb {

// Stores size and place of a window, and whether it is maximised. Where nothing can be stored, the
// window starts as usual the next time.
void KeepPlace(const QWidget& window, SettingsStore& settings);

// Puts a window that is not shown yet where it stood last. False, and nothing is done: nothing was
// stored, or the screens have changed so that its title bar could not be reached.
[[nodiscard]] bool TakeUpPlace(QWidget& window, SettingsStore& settings);

// The same where the person has moved or sized the window since it was shown with `before`. Else
// nothing is stored, so that it goes on following the board.
void KeepPlaceIfMoved(const QWidget& window, const QRect& before, SettingsStore& settings);

// Runs a window that waits, where it was left the last time, else where `usual` puts it, and keeps
// its place as above.
void RunInPlace(QDialog& window, SettingsStore& settings, const std::function<void()>& usual);

}  // namespace dtb
