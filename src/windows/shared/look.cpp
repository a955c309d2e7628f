#include "windows/shared/look.h"

#include <QtMath>
#include <algorithm>
#include <cmath>

namespace dtb::look {

QFont Font(double pixels, bool bold) {
  QFont font(QStringLiteral("Carlito"));
  font.setStyleHint(QFont::SansSerif);
  // Below 7 pixels no letter of the face can be read, whatever the scale of the form.
  font.setPixelSize(std::max(7, qRound(pixels)));
  font.setBold(bold);
  return font;
}

int TextWidth(const QFontMetrics& metrics, const QString& text) {
  return qCeil(QFontMetricsF(metrics).horizontalAdvance(text));
}

QString ElidedText(const QFontMetrics& metrics, const QString& text, int room) {
  return TextWidth(metrics, text) <= room ? text : metrics.elidedText(text, Qt::ElideRight, room);
}

double Contrast(const QColor& first, const QColor& second) {
  const auto light = [](const QColor& colour) {
    const auto part = [](double share) {
      return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
           0.0722 * part(colour.blueF()) + 0.05;
  };
  const auto [darker, lighter] = std::minmax({light(first), light(second)});
  return lighter / darker;
}

QColor InkOn(const QColor& ground) {
  const auto better = [&ground](const QColor& a, const QColor& b) {
    return Contrast(a, ground) >= Contrast(b, ground) ? a : b;
  };
  const QColor ink = better(kInk, kCream);
  return Contrast(ink, ground) >= kLeastContrast ? ink : better(Qt::black, Qt::white);
}

QPalette Palette() {
  QPalette palette;
  palette.setColor(QPalette::Window, kSlate);
  palette.setColor(QPalette::WindowText, kCream);
  palette.setColor(QPalette::Base, QColor(250, 246, 235));
  palette.setColor(QPalette::AlternateBase, QColor(236, 232, 220));
  palette.setColor(QPalette::Text, kInk);
  palette.setColor(QPalette::PlaceholderText, QColor(96, 100, 96));
  palette.setColor(QPalette::Button, kSlateRaised);
  palette.setColor(QPalette::ButtonText, kCream);
  palette.setColor(QPalette::BrightText, Qt::white);
  palette.setColor(QPalette::Highlight, kAccent);
  palette.setColor(QPalette::HighlightedText, kInk);
  palette.setColor(QPalette::ToolTipBase, QColor(250, 246, 235));
  palette.setColor(QPalette::ToolTipText, kInk);
  palette.setColor(QPalette::Link, kAccent);
  palette.setColor(QPalette::Light, kEdgeBright);
  palette.setColor(QPalette::Midlight, kEdge);
  palette.setColor(QPalette::Mid, QColor(36, 54, 45));
  palette.setColor(QPalette::Dark, QColor(14, 24, 20));
  palette.setColor(QPalette::Shadow, QColor(6, 12, 9));
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, kDisabled);
  }
  palette.setColor(QPalette::Disabled, QPalette::Text, QColor(78, 80, 76));
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(200, 200, 190));
  return palette;
}

int FittingSize(int fullSize, double share) {
  constexpr int kLeast = 7;  // pixels; below that no letter can be told
  return std::max(kLeast, qRound(fullSize * share));
}

QFont FittingFont(QFont font, const QString& text, int room) {
  const int full = font.pixelSize();
  for (const double share : kFittingSizes) {
    font.setPixelSize(FittingSize(full, share));
    if (TextWidth(QFontMetrics(font), text) <= room) break;
  }
  return font;
}

QPalette MenuPalette() {
  QPalette palette = Palette();
  palette.setColor(QPalette::Base, kSlateRaised);
  palette.setColor(QPalette::Text, kCream);
  palette.setColor(QPalette::Disabled, QPalette::Base, kSlateRaised);
  palette.setColor(QPalette::Disabled, QPalette::Text, kCreamDim);
  return palette;
}

void DrawPlate(QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& edge,
               double edgeWidth, double corner) {
  const double inset = edgeWidth / 2;
  // On a small form the usual corner would make a pill of a button.
  if (corner == kCorner) corner = std::min(corner, std::min(rect.width(), rect.height()) * 0.18);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(edgeWidth > 0 ? QPen(edge, edgeWidth) : QPen(Qt::NoPen));
  painter.setBrush(fill);
  painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), corner, corner);
}

void DrawFocus(QPainter& painter, const QRectF& rect, double corner) {
  const auto line = [&](double inset, const QColor& colour, double width) {
    DrawPlate(painter, rect.adjusted(inset, inset, -inset, -inset), Qt::transparent, colour, width,
              corner);
  };
  // A low control has no room for the usual ring.
  constexpr double kLow = 22;
  const double bright = rect.height() < kLow ? 1 : 2;
  line(0, kAccent, bright);
  line(bright, kInk, 1);
}

}  // namespace dtb::look
