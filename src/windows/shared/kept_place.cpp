#include "windows/shared/kept_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <algorithm>
#include <array>

#include "base/program_error.h"
#include "base/settings_keys.h"
#include "platform/qt/qt_text.h"

namespace dtb {
namespace {

constexpr int kNumbers = 5;  // left, top, width, height, and 1 for a maximised window

// So much of the window's upper edge has to lie on a screen.
bool CanBeReached(const QRect& place) {
  constexpr QSize kLeast(120, 24);  // pixels
  return std::ranges::any_of(QGuiApplication::screens(), [&](const QScreen* screen) {
    const QRect top(place.topLeft(), QSize(place.width(), kLeast.height()));
    const QRect seen = top & screen->availableGeometry();
    return seen.width() >= kLeast.width() && seen.height() >= kLeast.height();
  });
}

// More than the frame that a window manager puts around the window.
bool Moved(const QRect& before, const QRect& now) {
  constexpr int kFrame = 64;  // pixels
  return before.size() != now.size() ||
         (before.topLeft() - now.topLeft()).manhattanLength() > kFrame;
}

}  // namespace

void KeepPlace(const QWidget& window, SettingsStore& settings) {
  const QRect place =
      window.isMaximized() || window.isMinimized() ? window.normalGeometry() : window.geometry();
  const QString text = QStringLiteral("%1 %2 %3 %4 %5")
                           .arg(place.x())
                           .arg(place.y())
                           .arg(place.width())
                           .arg(place.height())
                           .arg(window.isMaximized() ? 1 : 0);
  try {
    settings.Write(settings::kWindows, FromQt(window.objectName()), FromQt(text));
  } catch (const ProgramError&) {
    return;  // a box at the end of the evening would be worse
  }
}

bool TakeUpPlace(QWidget& window, SettingsStore& settings) {
  const QString text =
      ToQt(settings.Read(settings::kWindows, FromQt(window.objectName()), std::string()));
  std::array<int, kNumbers> numbers{};
  const QStringList words = text.split(QLatin1Char(' '));
  if (words.size() != kNumbers) return false;
  for (int i = 0; i < kNumbers; ++i) {
    bool isNumber = false;
    numbers.at(static_cast<std::size_t>(i)) = words[i].toInt(&isNumber);
    if (!isNumber) return false;
  }
  const QRect place(numbers[0], numbers[1], numbers[2], numbers[3]);
  const QSize least = window.minimumSize();
  if (place.width() < least.width() || place.height() < least.height() || !CanBeReached(place)) {
    return false;
  }
  window.setGeometry(place);
  if (numbers[4] == 1) window.setWindowState(Qt::WindowMaximized);
  return true;
}

void KeepPlaceIfMoved(const QWidget& window, const QRect& before, SettingsStore& settings) {
  if (Moved(before, window.geometry())) KeepPlace(window, settings);
}

void RunInPlace(QDialog& window, SettingsStore& settings, const std::function<void()>& usual) {
  if (!TakeUpPlace(window, settings)) usual();
  const QRect before = window.geometry();
  const bool maximised = window.isMaximized();
  window.exec();
  if (maximised != window.isMaximized() || Moved(before, window.geometry())) {
    KeepPlace(window, settings);
  }
}

}  // namespace dtb
