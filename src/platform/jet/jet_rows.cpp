#include "platform/jet/jet_rows.h"

#include <charconv>
#include <system_error>

#include "base/program_error.h"
#include "base/utf8.h"
#include "database/saved_tables.h"
#include "platform/jet/reader_process.h"

namespace dtb::jet {
namespace {

[[noreturn]] void Damaged() {
  throw ProgramError(error_number::kInvalidFileFormat, "the file is damaged.");
}

// Follows the frames and holds them against what a sound reader says of a file of this size.
class Hearing {
 public:
  Hearing(const RowsHeard& heard, std::uintmax_t fileSize)
      : heard_(heard), rowsLeft_(fileSize / kShortestRow) {}

  // Takes the whole frames off the bytes. True: all tables are through.
  bool Take(std::string& bytes) {
    std::size_t at = 0;
    while (!ended_ && bytes.size() - at >= kFrameHead) {
      const std::size_t size = SizeAt(std::string_view(bytes).substr(at + 1));
      if (size > kLongestFrame) Damaged();
      if (bytes.size() - at < kFrameHead + size) break;
      const auto cells = CellsOf(std::string_view(bytes).substr(at + kFrameHead, size));
      if (!cells) Damaged();
      TakeFrame(static_cast<Frame>(bytes[at]), *cells);
      at += kFrameHead + size;
    }
    bytes.erase(0, at);
    return ended_;
  }

 private:
  static constexpr std::uintmax_t kShortestRow = 4;  // with its place, in bytes

  void TakeFrame(Frame frame, const Cells& cells) {
    const std::vector<TableColumns>& tables = SavedTables();
    if (frame == Frame::Fault && cells.size() == 1 && cells[0] && IsUtf8(*cells[0])) {
      throw ProgramError(error_number::kInvalidFileFormat, *cells[0]);
    }
    if (frame == Frame::End && !within_ && table_ == tables.size()) {
      ended_ = true;
    } else if (frame == Frame::Table && !within_ && table_ < tables.size()) {
      within_ = true;
    } else if (frame == Frame::Row && within_) {
      TakeRow(cells);
    } else if (frame == Frame::Totals && within_) {
      TakeTotals(cells);
    } else {
      Damaged();
    }
  }

  void TakeRow(const Cells& cells) {
    if (cells.size() != SavedTables()[table_].columns.size() || rowsLeft_ == 0) Damaged();
    for (const auto& cell : cells) {
      if (cell && !IsUtf8(*cell)) Damaged();
    }
    --rowsLeft_;
    if (heard_.row) heard_.row(table_, cells);
  }

  void TakeTotals(const Cells& cells) {
    const std::size_t columns = SavedTables()[table_].columns.size();
    if (cells.size() != 1 + 3 * columns) Damaged();
    TableTotals totals;
    totals.rows = static_cast<std::int64_t>(NumberIn(cells[0]));
    for (std::size_t i = 1; i < cells.size(); i += 3) {
      totals.columns.push_back({static_cast<std::int64_t>(NumberIn(cells[i])),
                                NumberIn(cells[i + 1]), NumberIn(cells[i + 2])});
    }
    if (heard_.totals) heard_.totals(table_, totals);
    within_ = false;
    ++table_;
  }

  static double NumberIn(const std::optional<std::string>& cell) {
    double number = 0;
    if (!cell) Damaged();
    const auto read = std::from_chars(cell->data(), cell->data() + cell->size(), number);
    if (read.ec != std::errc() || read.ptr != cell->data() + cell->size()) Damaged();
    return number;
  }

  const RowsHeard& heard_;
  std::uintmax_t rowsLeft_;
  std::size_t table_ = 0;
  bool within_ = false;
  bool ended_ = false;
};

struct State {
  std::uintmax_t size = 0;
  std::filesystem::file_time_type time;
  bool operator==(const State&) const = default;
};

State StateOf(const std::filesystem::path& file) {
  std::error_code error;
  State state{std::filesystem::file_size(file, error), {}};
  if (!error) state.time = std::filesystem::last_write_time(file, error);
  if (error) {
    throw ProgramError(error_number::kPathOrFileAccess,
                       "the file cannot be read: " + error.message() + ".");
  }
  return state;
}

}  // namespace

void ReadRows(const std::filesystem::path& file, const RowsHeard& heard, int longestSilence) {
  const State before = StateOf(file);
  ReaderProcess reader(file);
  Hearing hearing(heard, before.size);
  std::string bytes;
  bool whole = false;
  while (!whole && reader.Hear(bytes, longestSilence)) whole = hearing.Take(bytes);
  if (!whole) Damaged();
  if (!(StateOf(file) == before)) {
    throw ProgramError(error_number::kPermissionDenied,
                       "another program is changing the file. Close it first.");
  }
}

}  // namespace dtb::jet
