// Drawings on the screen, on paper and in a PDF.
#pragma once

#include <QByteArray>
#include <QPagedPaintDevice>
#include <QPainter>
#include <vector>

#include "record/drawing.h"
#include "record/scorecard_drawing.h"

namespace dtb {

// Paints with the upper left corner of the page at 0, 0 and a unit for a point; the painter may be
// scaled. The ground is left to the caller.
void PaintDrawing(QPainter& painter, const Drawing& drawing, Dress dress);

// The pages, each whole on one of the device, whose margins are none. False: the device takes none.
bool PaintPages(QPagedPaintDevice& device, const std::vector<Drawing>& pages, Dress dress);

// The bytes of a PDF, with pages as large as the first drawing. There must be one at least.
[[nodiscard]] QByteArray PdfOf(const std::vector<Drawing>& pages, Dress dress,
                               const QString& title);

// A4, or US Letter where paper is measured in inches.
[[nodiscard]] PageSize UsualPage();

}  // namespace dtb
