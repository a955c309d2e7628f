// Workbooks as the logic knows them: files of sheets that spreadsheet programs open.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/colour.h"

namespace dtb {

// What a worksheet takes at most, in the format that all spreadsheet programs share.
inline constexpr int kMostSheetRows = 1'048'576;
inline constexpr std::size_t kMostCellCharacters = 32'767;

enum class CellBorder { None, Hair, Thin };

struct CellLook {
  CellBorder border = CellBorder::None;  // on all four edges
  Colour borderColour = kWhite;
  std::optional<Colour> fill = {};
  bool bold = false;
  std::string numberFormat = {};  // ".000", "0.00"; "": as the spreadsheet program likes
  friend bool operator==(const CellLook&, const CellLook&) = default;
};

// The order in which looks were added.
using CellLookId = std::size_t;

struct SheetHead {
  std::string name;  // at most 31 characters, none of []:*?/\ among them
  std::vector<std::optional<double>> columnWidths = {};  // in characters; none: the usual width
  std::optional<double> rowHeight = {};                  // points, of all rows; none: the usual one
};

// A workbook on its way into a file. Until Finish has returned nothing stands at the file's path;
// the end of the object's life before that leaves nothing behind.
class WorkbookWriter {
 public:
  virtual ~WorkbookWriter() = default;

  // Type size in points of all looks that are added later.
  virtual void SetTypeSize(double points) = 0;
  [[nodiscard]] virtual CellLookId AddLook(const CellLook& look) = 0;

  // Sheets stand in the order in which they begin; the first is in front when the file is opened.
  virtual void BeginSheet(const SheetHead& head) = 0;

  // Cells of the sheet begun last, rows and columns from 0. Rows come in ascending order. A text
  // stays a text, whatever it begins with; what the file cannot hold of it stands as U+FFFD, and a
  // text of more than kMostCellCharacters loses its end.
  virtual void Text(int row, int column, std::string_view text, CellLookId look) = 0;
  virtual void Number(int row, int column, double number, CellLookId look) = 0;
  virtual void Blank(int row, int column, CellLookId look) = 0;

  // The number of texts that lost their end.
  [[nodiscard]] virtual std::size_t shortened() const = 0;

  // Writes the file and moves it into its place. Calls `meanwhile` once and then again and again
  // until that is done; where it returns false the file is thrown away, and so is the result. What
  // `meanwhile` does must not touch this workbook, which another thread packs.
  // Throws ProgramError where the file cannot be written, in words that name it.
  [[nodiscard]] virtual bool Finish(const std::function<bool()>& meanwhile) = 0;
};

class Workbooks {
 public:
  virtual ~Workbooks() = default;
  // Throws ProgramError where no file can be made at that place.
  [[nodiscard]] virtual std::unique_ptr<WorkbookWriter> Begin(
      const std::filesystem::path& file) = 0;
};

}  // namespace dtb
