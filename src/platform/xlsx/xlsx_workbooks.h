// Workbooks in files of the kind .xlsx.
#pragma once

#include "platform/workbook.h"

namespace dtb {

class XlsxWorkbooks : public Workbooks {
 public:
  // Rows go to the disk as they come, in unnamed files of the workbook's folder, so a workbook
  // takes little more memory than its longest row.
  std::unique_ptr<WorkbookWriter> Begin(const std::filesystem::path& file) override;
};

}  // namespace dtb
