#include "windows/season/pages_writing.h"

#include "book/book_pages.h"
#include "platform/trapped.h"
#include "windows/boxes/busy.h"

namespace dtb {

void WriteUnderProgress(Platform& platform, QWidget* over, const char* caption,
                        const std::function<void(const ExportProgress&)>& write) {
  ProgressPanel panel(QLatin1String(caption), ProgressPanel::Work::Cancellable, over);
  Trapped(platform.boxes, [&] { write([&panel](double share) { return panel.Hear(share); }); });
}

void WriteBookOfSeasons(Platform& platform, QWidget* over) {
  WriteUnderProgress(
      platform, over, "Writing the book of all seasons",
      [&platform](const ExportProgress& progress) { book::WriteBook(platform, progress); });
}

}  // namespace dtb
