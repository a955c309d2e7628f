// Printing, by the dialog of the system.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

#include "platform/platform.h"
#include "record/drawing.h"
#include "record/scorecard_drawing.h"

namespace dtb {

// Asks for a printer, or a file for the PDF, and prints the pages that `draw` makes for its paper,
// in black on white and lying on their side. `title` names the job. Without a printer the file in
// the reports' folder is proposed. Tells what goes wrong, and where a file lies.
void PrintPages(Platform& platform, QWidget* over, const QString& title,
                const std::function<std::vector<Drawing>(PageSize)>& draw);

}  // namespace dtb
