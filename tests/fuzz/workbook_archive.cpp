// Any bytes as a finished workbook: the check finds what is not whole, and falls over nothing.
#include <iterator>

#include "fuzz.h"
#include "platform/xlsx/xlsx_workbooks.h"
#include "platform/xlsx/zip_check.h"

using namespace dtb;

namespace {

std::string GoodWorkbook() {
  const std::filesystem::path file = fuzz::Folder() / "good.xlsx";
  const auto workbook = XlsxWorkbooks().Begin(file);
  const CellLookId look = workbook->AddLook({});
  for (const char* sheet : {"Batting", "Pitching"}) {
    workbook->BeginSheet({sheet});
    for (int row = 0; row < 3; ++row) {
      workbook->Text(row, 0, sheet, look);
      workbook->Number(row, 1, row / 3.0, look);
    }
  }
  fuzz::Require(workbook->Finish([] { return true; }), "a workbook is written");
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string good = GoodWorkbook();
  const auto file = fuzz::WriteInput("any.xlsx", fuzz::Edited(good, fuzz::BytesOf(data, size)));
  static_cast<void>(xlsx::HoldsWholeSheets(file, {}));
  static_cast<void>(xlsx::HoldsWholeSheets(file, {20, 20}));
  return 0;
}
