#include "sheet/log_file.h"

#include "base/program_error.h"
#include "base/time_stamp.h"
#include "base/whole_file.h"
#include "platform/trapped.h"
#include "sheet/report_files.h"

namespace dtb {

void SaveLog(Platform& platform, const EventLog& log) {
  Trapped(platform.boxes, [&] {
    const auto file = platform.dialogs.SaveFile({ReportsFolder(platform),
                                                 "Event Log_" + MakeStamp(platform.clock.Now()),
                                                 "Text (*.txt)|*.txt", "txt"});
    if (!file) return;
    WriteWholeFile(*file, log.text(), "log");
    TellWhereItLies(platform, "The log was saved.", *file, "Event Log");
  });
}

}  // namespace dtb
