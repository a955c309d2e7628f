#include "shell/log_file.h"

#include "platform/whole_file.h"
#include "shell/program_error.h"
#include "shell/report_files.h"
#include "shell/time_stamp.h"

namespace dtb {

void SaveLog(Platform& platform, const EventLog& log) {
  Trapped(platform.boxes, [&] {
    const auto file = platform.dialogs.SaveFile({ReportsFolder(platform),
                                                 "Event Log_" + MakeStamp(platform.clock.Now()),
                                                 "Text (*.txt)|*.txt", "txt"});
    if (!file) return;
    WriteWholeFile(*file, log.text(), "log");
    TellWhereItLies(platform, "The log is written.", *file, "Event Log");
  });
}

}  // namespace dtb
