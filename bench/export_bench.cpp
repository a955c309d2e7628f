// Exports of whole seasons beside the bare library, which writes the same cells in the same looks.
// Goals: 1.2 times in time, and memory that does not grow with the rows.
#include <SQLiteCpp/SQLiteCpp.h>
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <QTemporaryDir>
#include <fstream>
#include <vector>

#include "base/paths.h"
#include "bench/pairs.h"
#include "bench/season.h"
#include "browser/exports.h"
#include "browser/opening.h"
#include "database/saved_tables.h"
#include "platform/qt/qt_text.h"
#include "platform/quiet_desktop.h"
#include "platform/sqlite/sqlite_database.h"
#include "platform/xlsx/xlsx_workbooks.h"

namespace dtb {
namespace {

constexpr double kExportGoal = 1.2;
constexpr double kGrowthGoal = 1.2;

// A cell, or the begin of a sheet.
struct Call {
  enum class Kind : std::uint8_t { Sheet, Text, Number, Blank } kind;
  std::uint16_t column = 0;
  std::uint16_t look = 0;
  std::uint32_t row = 0;
  std::uint32_t text = 0;  // where it begins; the number of a sheet
  double number = 0;
};

struct Notes {
  std::vector<CellLook> looks;
  std::vector<SheetHead> sheets;
  std::vector<Call> calls;
  std::string texts;  // each with a zero behind it
  double typeSize = 11;
};

class NotingWriter : public WorkbookWriter {
 public:
  explicit NotingWriter(Notes& notes) : notes_(notes) {}
  void SetTypeSize(double points) override { notes_.typeSize = points; }
  CellLookId AddLook(const CellLook& look) override {
    notes_.looks.push_back(look);
    return notes_.looks.size() - 1;
  }
  void BeginSheet(const SheetHead& head) override {
    notes_.sheets.push_back(head);
    notes_.calls.push_back({.kind = Call::Kind::Sheet});
  }
  void Text(int row, int column, std::string_view text, CellLookId look) override {
    const auto begin = static_cast<std::uint32_t>(notes_.texts.size());
    notes_.texts.append(text).push_back('\0');
    Add(Call::Kind::Text, row, column, look).text = begin;
  }
  void Number(int row, int column, double number, CellLookId look) override {
    Add(Call::Kind::Number, row, column, look).number = number;
  }
  void Blank(int row, int column, CellLookId look) override {
    Add(Call::Kind::Blank, row, column, look);
  }
  std::size_t shortened() const override { return 0; }
  bool Finish(const std::function<bool()>& /*meanwhile*/) override { return true; }

 private:
  Call& Add(Call::Kind kind, int row, int column, CellLookId look) {
    return notes_.calls.emplace_back(Call{kind, static_cast<std::uint16_t>(column),
                                          static_cast<std::uint16_t>(look),
                                          static_cast<std::uint32_t>(row)});
  }

  Notes& notes_;
};

struct NotingWorkbooks : Workbooks {
  std::unique_ptr<WorkbookWriter> Begin(const std::filesystem::path& /*file*/) override {
    return std::make_unique<NotingWriter>(notes);
  }
  Notes notes;
};

lxw_format* BareLook(lxw_workbook* workbook, const CellLook& look, double typeSize) {
  const auto number = [](Colour colour) {
    return static_cast<lxw_color_t>(colour.red << 16 | colour.green << 8 | colour.blue);
  };
  lxw_format* format = workbook_add_format(workbook);
  format_set_font_size(format, typeSize);
  if (look.border != CellBorder::None) {
    format_set_border(format, look.border == CellBorder::Thin ? LXW_BORDER_THIN : LXW_BORDER_HAIR);
    format_set_border_color(format, number(look.borderColour));
  }
  if (look.fill) {
    format_set_pattern(format, LXW_PATTERN_SOLID);
    format_set_fg_color(format, number(*look.fill));
  }
  if (look.bold) format_set_bold(format);
  if (!look.numberFormat.empty()) format_set_num_format(format, look.numberFormat.c_str());
  return format;
}

void WriteBare(const Notes& notes, const std::filesystem::path& file) {
  lxw_workbook_options options{};
  options.constant_memory = LXW_TRUE;
  std::string folder = file.parent_path().string();
  options.tmpdir = folder.data();
  lxw_workbook* workbook = workbook_new_opt(file.c_str(), &options);
  std::vector<lxw_format*> looks;
  for (const CellLook& look : notes.looks) {
    looks.push_back(BareLook(workbook, look, notes.typeSize));
  }
  lxw_worksheet* sheet = nullptr;
  auto head = notes.sheets.begin();
  for (const Call& call : notes.calls) {
    switch (call.kind) {
      case Call::Kind::Sheet:
        sheet = workbook_add_worksheet(workbook, head->name.c_str());
        if (head->rowHeight) worksheet_set_default_row(sheet, *head->rowHeight, LXW_FALSE);
        ++head;
        break;
      case Call::Kind::Text:
        worksheet_write_string(sheet, call.row, call.column, notes.texts.c_str() + call.text,
                               looks[call.look]);
        break;
      case Call::Kind::Number:
        worksheet_write_number(sheet, call.row, call.column, call.number, looks[call.look]);
        break;
      case Call::Kind::Blank:
        worksheet_write_blank(sheet, call.row, call.column, looks[call.look]);
        break;
    }
  }
  workbook_close(workbook);
}

// Steps through all five tables and looks at each value.
void ReadBare(const std::filesystem::path& file) {
  SQLite::Database database(file.string(), SQLite::OPEN_READONLY);
  for (const TableColumns& table : SavedTables()) {
    SQLite::Statement rows(database, "SELECT * FROM " + table.table + " ORDER BY rowid");
    while (rows.executeStep()) {
      for (int i = 0; i < rows.getColumnCount(); ++i) {
        benchmark::DoNotOptimize(rows.getColumn(i).getText());
      }
    }
  }
}

// A browser with its grids filled, whose exports go into a folder of their own.
struct Exporter {
  explicit Exporter(int games) : database(SeasonOf(games)) { OpenBrowser(browser); }

  void Export(bool grids, Workbooks& to) {
    Platform ports = PlatformOf(quiet, database, to, place);
    Browser exporting{state, ports};
    grids ? static_cast<void>(ExportGrids(exporting)) : ExportTables(exporting);
  }

  QTemporaryDir folder;
  std::filesystem::path place = PathOf(FromQt(folder.path()));
  QuietDesktop quiet;
  SqliteDatabase database;
  XlsxWorkbooks workbooks;
  Platform platform = PlatformOf(quiet, database, workbooks, place);
  BrowserState state;
  Browser browser{state, platform};
};

void Export(benchmark::State& state, const char* name, bool grids, int games) {
  Exporter exporter(games);
  NotingWorkbooks noting;
  exporter.Export(grids, noting);
  MeasurePair(state, name, games, kExportGoal,
              {[&] { return SecondsOf([&] { exporter.Export(grids, exporter.workbooks); }); },
               [&] {
                 return SecondsOf([&] {
                   if (!grids) ReadBare(SeasonOf(games));
                   WriteBare(noting.notes, exporter.place / "bare.xlsx");
                 });
               }});
}

// Bytes of a line "VmRSS:   1234 kB" about this process.
double Memory(const std::string& line) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word == line) break;
  }
  double kilobytes = 0;
  status >> kilobytes;
  return kilobytes * 1024;
}

// The most store that a function takes beyond what is there before, in a process of its own.
double PeakOf(const std::function<void()>& function) {
  int ends[2];
  if (pipe(ends) != 0) return 0;
  const pid_t child = fork();
  if (child == 0) {
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << "5";  // the peak begins again
    const double before = Memory("VmRSS:");
    function();
    const double peak = Memory("VmHWM:") - before;
    _exit(write(ends[1], &peak, sizeof peak) == sizeof peak ? 0 : 1);
  }
  double peak = 0;
  if (read(ends[0], &peak, sizeof peak) != sizeof peak) peak = 0;
  close(ends[0]);
  close(ends[1]);
  waitpid(child, nullptr, 0);
  return peak;
}

// The peak of a large export beside that of a small one, both beyond the grids themselves.
void ExportMemory(benchmark::State& state) {
  double peaks[2]{};
  for (auto _ : state) {
    for (const int games : {1000, 10000}) {
      Exporter exporter(games);
      peaks[games / 10000] = PeakOf([&] { exporter.Export(true, exporter.workbooks); });
    }
  }
  state.counters["bytes"] = peaks[1];
  NoteRatio("peak of the grids' export", 10000, kGrowthGoal, peaks[1], peaks[0]);
}

[[maybe_unused]] const bool registered = [] {
  for (const int games : {1000, 10000}) {
    for (const auto& [name, grids] :
         {std::pair{"export of the grids", true}, {"export of the tables", false}}) {
      benchmark::RegisterBenchmark(
          ("Export/" + std::string(name) + "/" + std::to_string(games)).c_str(),
          [=](benchmark::State& state) { Export(state, name, grids, games); })
          ->Unit(benchmark::kMillisecond)
          ->Iterations(games == 10000 ? 3 : 9)
          ->UseManualTime();
    }
  }
  benchmark::RegisterBenchmark("Export/memory", ExportMemory)->Iterations(1);
  return true;
}();

}  // namespace
}  // namespace dtb
