#include "replay/import_command.h"

#include <cstdio>
#include <new>

#include "base/paths.h"
#include "base/program_error.h"
#include "database/old_database.h"
#include "platform/sqlite/jet/jet_database.h"

namespace dtb::replay {

int RunImport(const std::vector<std::string>& arguments) {
  const bool marked = !arguments.empty() && arguments[0] == "--";
  const std::vector<std::string> files(arguments.begin() + (marked ? 1 : 0), arguments.end());
  const auto isFile = [marked](const std::string& name) {
    return !name.empty() && (marked || name.front() != '-');
  };
  if (files.size() != 2 || !isFile(files[0]) || !isFile(files[1])) {
    std::fprintf(stderr, "Usage: %s\n", kImportUsage);
    return 2;
  }
  try {
    const OldContents contents = ImportJet(PathOf(files[0]), PathOf(files[1]));
    std::printf("%s.\nThey stand in \"%s\"; counts and sums are the same.\n",
                WordsOf(contents).c_str(), files[1].c_str());
    return 0;
  } catch (const ProgramError& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
  } catch (const std::bad_alloc&) {
    std::fputs("The computer is out of memory.\n", stderr);
  }
  return 1;
}

}  // namespace dtb::replay
