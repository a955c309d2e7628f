// dtb_jet_reader FILE: writes the rows of an old statistics database on its output, in frames. It
// is a program of its own because libmdb may die of a spoiled file, or never come back from one.
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "database/saved_tables.h"
#include "platform/jet/reader/jet_file.h"

namespace dtb::jet {
namespace {

#ifdef DTB_SANITIZED
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

void Limit(decltype(RLIMIT_CPU) what, rlim_t most) {
  const rlimit limit{most, most};
  setrlimit(what, &limit);
}

// What a sound file never needs.
void LimitItself() {
  constexpr rlim_t kSeconds = 120;
  constexpr rlim_t kMemory = rlim_t{1} << 30U;
  Limit(RLIMIT_CPU, kSeconds);
  Limit(RLIMIT_CORE, 0);
  // The sanitizers take more than any file for themselves.
  if (!kSanitized) Limit(RLIMIT_AS, kMemory);
}

void Tell(Frame frame, const Cells& cells = {}) {
  const std::string bytes = FrameText(frame, cells);
  std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

void RequireWhole(const std::string& file, const MdbHandle& mdb) {
  std::error_code error;
  const auto size = std::filesystem::file_size(file, error);
  if (error || size % static_cast<std::uintmax_t>(mdb.fmt->pg_size) != 0) {
    throw Fault("the file is cut off or damaged.");
  }
}

void TellTables(MdbHandle& mdb) {
  if (mdb_read_catalog(&mdb, MDB_TABLE) == nullptr) {
    throw Fault("the file is cut off or damaged.");
  }
  for (const TableColumns& wanted : SavedTables()) {
    Table table(mdb, wanted);
    Tell(Frame::Table);
    table.Read([](const Cells& row) { Tell(Frame::Row, row); });
    Tell(Frame::Totals, table.Totals());
  }
  Tell(Frame::End);
}

void TellFile(const std::string& file) {
  MdbHandle* mdb = mdb_open(file.c_str(), MDB_NOFLAGS);
  if (mdb == nullptr) throw Fault("the file cannot be read, is cut off or damaged.");
  RequireWhole(file, *mdb);
  try {
    TellTables(*mdb);
  } catch (const Fault&) {
    // The simple cipher of the format is no hindrance; whatever else is behind it is.
    if (mdb->f->db_key != 0) throw Fault("it is encrypted or damaged.");
    throw;
  }
}

}  // namespace
}  // namespace dtb::jet

int main(int argc, char** argv) {
  using namespace dtb::jet;
  if (argc != 2) {
    std::fputs("Usage: dtb_jet_reader FILE\n", stderr);
    return 2;
  }
  LimitItself();
  try {
    TellFile(argv[1]);
  } catch (const std::exception& fault) {
    Tell(Frame::Fault, {std::string(fault.what())});
  }
  std::fflush(stdout);
  _exit(0);  // what libmdb has not given back goes with the process
}
