// dtb_jet_reader FILE: writes the rows of an old statistics database on its output, in frames. It
// is a program of its own because libmdb may die of a spoiled file, or never come back from one.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "base/child_process.h"
#include "database/saved_tables.h"
#include "platform/jet/reader/jet_file.h"

namespace dtb::jet {
namespace {

#ifdef DTB_SANITIZED
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

// What a sound file never needs. The sanitizers take more memory than any file for themselves.
constexpr unsigned kMostSeconds = 120;
constexpr std::size_t kMostMemory = kSanitized ? 0 : std::size_t{1} << 30U;

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
  dtb::system::BeAChild(kMostSeconds, kMostMemory);
  try {
    TellFile(argv[1]);
  } catch (const std::exception& fault) {
    Tell(Frame::Fault, {std::string(fault.what())});
  }
  std::fflush(stdout);
  std::_Exit(0);  // what libmdb has not given back goes with the process
}
