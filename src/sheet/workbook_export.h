// One workbook on its way out of the program.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/platform.h"
#include "sheet/sheet_plan.h"

namespace dtb {

// Writes sheet after sheet into a new file of the folder "Game Rpts", and closes it. Its progress
// tells one share for all sheets and the packing of the file. The end of the object's life before
// Finish, or a cancelled step, leaves no file behind.
class WorkbookExport {
 public:
  // The file is "name.xlsx", or "name (2).xlsx" where that is there. Throws ProgramError where it
  // cannot be made.
  WorkbookExport(Platform& platform, const std::string& name, ExportProgress progress);

  [[nodiscard]] WorkbookWriter& writer() { return *writer_; }

  // Adds a sheet whose rows are so large a part of all, from 0 to 1. False: cancelled.
  [[nodiscard]] bool Add(const SheetPlan& plan, double part);

  // False: cancelled. On true the file stands whole. Tells the person of texts that were too long
  // for a cell.
  [[nodiscard]] bool Finish();

  [[nodiscard]] const std::filesystem::path& file() const { return file_; }

 private:
  [[nodiscard]] bool Report(double writtenShare);

  Platform& platform_;
  ExportProgress progress_;
  std::filesystem::path file_;
  std::unique_ptr<WorkbookWriter> writer_;
  double written_ = 0;
};

// Where no program takes a workbook: the person wants it written all the same.
[[nodiscard]] bool WantsWorkbookAllTheSame(Platform& platform, const std::string& title = {});

// Starts the spreadsheet program with a finished workbook and tells where the file is. False:
// there is no such program, or the system could not start it, which is told, too.
bool OpenWorkbook(Platform& platform, const std::filesystem::path& file,
                  const std::string& title = {});

// What the person hears where no program for workbooks is installed.
inline constexpr const char* kNoSpreadsheetProgram = "Excel is not installed";

}  // namespace dtb
