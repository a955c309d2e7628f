#include "windows/scorecard/paint_drawing.h"

#include <QBuffer>
#include <QLocale>
#include <QPageLayout>
#include <QPdfWriter>
#include <algorithm>

#include "base/version.h"
#include "platform/qt/qt_text.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

class Painting {
 public:
  Painting(QPainter& painter, Dress dress) : painter_(painter), dress_(dress) {}

  void operator()(const DrawnLine& line) {
    painter_.setPen(QPen(Shade(line.ink), line.width, Qt::SolidLine, Qt::RoundCap));
    painter_.drawLine(QPointF(line.from.x, line.from.y), QPointF(line.to.x, line.to.y));
  }
  void operator()(const DrawnPolygon& polygon) {
    QPolygonF corners;
    for (const DrawnPoint& corner : polygon.corners) corners << QPointF(corner.x, corner.y);
    SetLook(polygon.fill, polygon.edge, polygon.width);
    painter_.drawPolygon(corners);
  }
  void operator()(const DrawnCircle& circle) {
    SetLook(circle.fill, circle.edge, circle.width);
    painter_.drawEllipse(QPointF(circle.middle.x, circle.middle.y), circle.radius, circle.radius);
  }
  // In a type of 100 pixels, made smaller by the painter: pixels are whole, points need not be.
  void operator()(const DrawnText& text) {
    constexpr double kPixels = 100;
    QFont font = look::Font(kPixels, text.bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    const QString words = ToQt(text.text);
    const double wide = QFontMetricsF(font, painter_.device()).horizontalAdvance(words);
    const double full = text.wide / text.size * kPixels;
    // Another face than the one that was reckoned with may be wider.
    const double narrow = wide > full && wide > 0 ? full / wide : 1;
    const double back = text.align == TextAlign::Left    ? 0
                        : text.align == TextAlign::Right ? wide
                                                         : wide / 2;
    painter_.save();
    painter_.translate(text.at.x, text.at.y);
    painter_.scale(text.size / kPixels * narrow, text.size / kPixels);
    painter_.setFont(font);
    painter_.setPen(Shade(text.ink));
    painter_.drawText(QPointF(-back, 0), words);
    painter_.restore();
  }

 private:
  [[nodiscard]] QColor Shade(Ink ink) const { return look::Shade(ColourOf(ink, dress_)); }
  void SetLook(const std::optional<Ink>& fill, const std::optional<Ink>& edge, double width) {
    painter_.setBrush(fill ? QBrush(Shade(*fill)) : QBrush(Qt::NoBrush));
    painter_.setPen(edge ? QPen(Shade(*edge), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
                         : QPen(Qt::NoPen));
  }

  QPainter& painter_;
  Dress dress_;
};

}  // namespace

void PaintDrawing(QPainter& painter, const Drawing& drawing, Dress dress) {
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  Painting painting(painter, dress);
  for (const Shape& shape : drawing.shapes) std::visit(painting, shape);
}

bool PaintPages(QPagedPaintDevice& device, const std::vector<Drawing>& pages, Dress dress) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  bool first = true;
  for (const Drawing& page : pages) {
    if (!first && !device.newPage()) return false;
    first = false;
    const QRectF sheet(0, 0, device.width(), device.height());
    const double scale = std::min(sheet.width() / page.width, sheet.height() / page.height);
    painter.save();
    if (dress == Dress::Look) painter.fillRect(sheet, look::Shade(ColourOf(Ink::Ground, dress)));
    painter.scale(scale, scale);
    PaintDrawing(painter, page, dress);
    painter.restore();
  }
  return painter.end();
}

QByteArray PdfOf(const std::vector<Drawing>& pages, Dress dress, const QString& title) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  {
    constexpr int kResolution = 1200;  // per inch
    QPdfWriter writer(&buffer);
    const Drawing& first = pages.at(0);
    // A page lies on its side: its size is that of the page upright.
    writer.setPageSize(QPageSize(QSizeF(first.height, first.width), QPageSize::Point));
    writer.setPageOrientation(QPageLayout::Landscape);
    writer.setPageMargins(QMarginsF());
    writer.setResolution(kResolution);
    writer.setTitle(title);
    writer.setCreator(ToQt(WindowTitle()));
    PaintPages(writer, pages, dress);
  }
  return buffer.data();
}

PageSize UsualPage() {
  return QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? kLetterLandscape
                                                                            : kA4Landscape;
}

}  // namespace dtb
