#include "sheet/workbook_export.h"

#include <utility>

#include "base/file_names.h"
#include "base/paths.h"
#include "sheet/report_files.h"

namespace dtb {
namespace {

// Packing takes about as long as writing the rows (measured at 220,000 rows).
constexpr double kWritingShare = 0.5;

}  // namespace

WorkbookExport::WorkbookExport(Platform& platform, const std::string& name, ExportProgress progress)
    : platform_(platform),
      progress_(progress ? std::move(progress) : [](double /*share*/) { return true; }),
      file_(FreeFile(ReportsFolder(platform), name, ".xlsx")),
      writer_(platform.workbooks.Begin(file_)) {}

bool WorkbookExport::Report(double writtenShare) { return progress_(kWritingShare * writtenShare); }

bool WorkbookExport::Add(const SheetPlan& plan, double part) {
  const double before = written_;
  if (!WriteSheet(*writer_, plan, [&](double share) { return Report(before + part * share); })) {
    return false;
  }
  written_ = before + part;
  return Report(written_);
}

bool WorkbookExport::Finish() {
  // Nobody can tell how far the packing is, so the bar creeps.
  double share = kWritingShare;
  const bool done = writer_->Finish([&] {
    constexpr double kCreep = 0.02;
    share += (1 - share) * kCreep;
    return progress_(share);
  });
  if (done && writer_->shortened() > 0) {
    platform_.boxes.Show("A cell takes " + std::to_string(kMostCellCharacters) +
                             " characters. Texts that were longer and lost their end: " +
                             std::to_string(writer_->shortened()) + ".",
                         BoxIcon::Warning);
  }
  return done;
}

bool WantsWorkbookAllTheSame(Platform& platform, const std::string& title) {
  return platform.boxes.Ask(
      {"The workbook can still be written, into the folder \"Game Rpts\". Write it?", title});
}

bool OpenWorkbook(Platform& platform, const std::filesystem::path& file, const std::string& title) {
  if (!platform.spreadsheets.Installed()) {
    TellWhereItLies(platform, "The workbook is written.", file, title);
    return false;
  }
  const bool opened = platform.spreadsheets.OpenWorkbook(file);
  TellWhereItLies(platform,
                  opened ? "The workbook is written, and your spreadsheet program opens it."
                         : "The workbook is written, but the system could not open it.",
                  file, title);
  return opened;
}

}  // namespace dtb
