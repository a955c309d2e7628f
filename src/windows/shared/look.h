// The looks that all windows share: colours, type and the few shapes that are drawn by hand.
#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <QRectF>
#include <array>

#include "base/colour.h"

namespace dtb::look {

// An old scoreboard at night: dark green slate with cream figures, one accent.
inline constexpr QColor kSlate{22, 38, 31};
inline constexpr QColor kSlateOverPark{22, 38, 31, 224};  // 88 % over the park
inline constexpr QColor kSlateRaised{42, 64, 53};
inline constexpr QColor kSlateHover{58, 84, 70};
inline constexpr QColor kEdge{58, 84, 70};
inline constexpr QColor kEdgeBright{116, 146, 129};
inline constexpr QColor kCream{243, 233, 210};
inline constexpr QColor kCreamDim{176, 178, 160};
inline constexpr QColor kDisabled{144, 154, 144};  // still read easily on slate
inline constexpr QColor kInk{28, 32, 30};
inline constexpr QColor kMarkGreen{16, 122, 68};  // on light grounds: what goes on now
inline constexpr QColor kAccent{255, 200, 60};    // scoreboard yellow: focus, current batter

// Colours that the system fixes.
inline constexpr QColor kBoxGrey{64, 64, 64};  // message box, game piece, base tracker
inline constexpr QColor kPlateGrey{112, 112,
                                   112};  // name plate, visitors' title; white is read on it
inline constexpr QColor kButtonGrey{224, 224, 224};  // face of a label that is clicked
inline constexpr QColor kOutsRed{255, 0, 0};

// Type sizes at the scene's reference size; no others are used.
inline constexpr double kTiny = 10;
inline constexpr double kSmall = 12;
inline constexpr double kBody = 14;
inline constexpr double kLarge = 18;
inline constexpr double kHuge = 24;

// The sizes of the look as shares of a control's own, from which one that fits is chosen.
inline constexpr std::array kFittingSizes{1.0, kBody / kLarge, kSmall / kLarge, kTiny / kLarge};

inline constexpr double kCorner = 6;
inline constexpr int kSpace = 8;  // between controls: pixels, in windows that scale layout units

inline constexpr double kLeastContrast = 4.5;  // of a text and its ground

[[nodiscard]] QFont Font(double pixels, bool bold = false);
// The font, or the next smaller one of the look in which the text has room; the smallest where it
// never has.
[[nodiscard]] QFont FittingFont(QFont font, const QString& text, int room);
// The pixels of a font of that size when it is made smaller by one of the shares above.
[[nodiscard]] int FittingSize(int fullSize, double share);
// The whole pixels that a text takes, and the text as far as it has room. A text whose width lies
// between two pixels counts as the larger, so that what fits is never cut.
[[nodiscard]] int TextWidth(const QFontMetrics& metrics, const QString& text);
[[nodiscard]] QString ElidedText(const QFontMetrics& metrics, const QString& text, int room);
// How well two colours are told apart, from 1 to 21; a text needs 4.5.
[[nodiscard]] double Contrast(const QColor& first, const QColor& second);
// The ink that is read best on a ground: the dark or the light one of the look, and where neither
// is read well enough, black or white.
[[nodiscard]] QColor InkOn(const QColor& ground);
[[nodiscard]] QPalette Palette();
// Menus are slate where fields are light.
[[nodiscard]] QPalette MenuPalette();
[[nodiscard]] inline QColor Shade(Colour colour) { return {colour.red, colour.green, colour.blue}; }

// A rounded plate with an edge of the given width inside the rectangle.
void DrawPlate(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& edge,
               double edgeWidth = 1, double corner = kCorner);

// The ring around what has the keyboard focus, 3 pixels wide or 2: bright, with a dark line inside,
// so that one of both is seen on any ground.
void DrawFocus(QPainter& painter, const QRectF& rect, double corner = kCorner);

}  // namespace dtb::look
