#include "shell/log_file.h"

#include <fstream>

#include "platform/paths.h"
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
    std::ofstream stream(*file, std::ios::binary | std::ios::trunc);
    stream << log.text();
    stream.close();
    if (!stream) {
      throw ProgramError(error_number::kPathOrFileAccess,
                         "The log \"" + TextOf(*file) +
                             "\" cannot be written. Its folder may take no files, or the disk is "
                             "full.");
    }
    TellWhereItLies(platform, "The log is written.", *file, "Event Log");
  });
}

}  // namespace dtb
