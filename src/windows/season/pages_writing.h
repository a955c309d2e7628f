// Web pages, written under a bar that can be cancelled.
#pragma once

#include <QWidget>
#include <functional>

#include "platform/platform.h"
#include "sheet/sheet_plan.h"

namespace dtb {

// Does the work over the window, with the bar and its caption; an error is told.
void WriteUnderProgress(Platform& platform, QWidget* over, const char* caption,
                        const std::function<void(const ExportProgress&)>& write);

// The menu entry and the button "The book of all seasons...".
void WriteBookOfSeasons(Platform& platform, QWidget* over);

}  // namespace dtb
