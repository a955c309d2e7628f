#include "platform/xlsx/xlsx_workbooks.h"

#include <xlsxwriter.h>

#include <cerrno>
#include <chrono>
#include <future>
#include <system_error>
#include <utility>

#include "base/paths.h"
#include "base/program_error.h"
#include "base/whole_file.h"
#include "platform/xlsx/xlsx_text.h"
#include "platform/xlsx/zip_check.h"

namespace dtb {
namespace {

// Between two calls of `meanwhile`: 30 a second, as often as a bar can be seen to move.
constexpr std::chrono::milliseconds kMeanwhile{33};

[[noreturn]] void ThrowFault(const std::filesystem::path& file, int fault) {
  ThrowWriteFault("workbook", file, fault);
}

lxw_color_t ColourOf(Colour colour) {
  return static_cast<lxw_color_t>(colour.red << 16 | colour.green << 8 | colour.blue);
}

class XlsxWriter : public WorkbookWriter {
 public:
  explicit XlsxWriter(std::filesystem::path file)
      : file_(std::move(file)), beside_(file_, "workbook") {
    const std::string folder = TextOf(file_.parent_path());
    std::string folderText = folder.empty() ? "." : folder;
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folderText.data();  // copied by libxlsxwriter
    workbook_ = workbook_new_opt(TextOf(beside_.path()).c_str(), &options);
    if (workbook_ == nullptr) throw std::bad_alloc();
  }

  ~XlsxWriter() override {
    if (workbook_ != nullptr) {
      CloseRowFiles();
      lxw_workbook_free(workbook_);
    }
  }

  XlsxWriter(const XlsxWriter&) = delete;
  XlsxWriter& operator=(const XlsxWriter&) = delete;

  void SetTypeSize(double points) override { typeSize_ = points; }

  CellLookId AddLook(const CellLook& look) override {
    lxw_format* format = workbook_add_format(workbook_);
    if (format == nullptr) throw std::bad_alloc();
    if (typeSize_ > 0) format_set_font_size(format, typeSize_);
    if (look.border != CellBorder::None) {
      format_set_border(format,
                        look.border == CellBorder::Thin ? LXW_BORDER_THIN : LXW_BORDER_HAIR);
      format_set_border_color(format, ColourOf(look.borderColour));
    }
    if (look.fill) {
      format_set_pattern(format, LXW_PATTERN_SOLID);
      format_set_fg_color(format, ColourOf(*look.fill));
    }
    if (look.bold) format_set_bold(format);
    if (!look.numberFormat.empty()) format_set_num_format(format, look.numberFormat.c_str());
    formats_.push_back(format);
    return formats_.size() - 1;
  }

  void BeginSheet(const SheetHead& head) override {
    FlushSheet();
    sheet_ = workbook_add_worksheet(workbook_, head.name.c_str());
    if (sheet_ == nullptr) {
      // Its rows wait in a file of their own, and none could be made.
      ThrowFault(file_, errno == 0 ? EIO : errno);
    }
    if (head.rowHeight) worksheet_set_default_row(sheet_, *head.rowHeight, LXW_FALSE);
    for (std::size_t i = 0; i < head.columnWidths.size(); ++i) {
      const auto column = static_cast<lxw_col_t>(i);
      if (head.columnWidths[i]) {
        worksheet_set_column(sheet_, column, column, *head.columnWidths[i], nullptr);
      }
    }
    // A game's number is a text of digits, and no mistake.
    worksheet_ignore_errors(sheet_, LXW_IGNORE_NUMBER_STORED_AS_TEXT, "A1:XFD1048576");
  }

  void Text(int row, int column, std::string_view text, CellLookId look) override {
    const xlsx::StorableText storable = xlsx::Storable(text, kMostCellCharacters);
    if (!storable.whole) ++shortened_;
    Check(worksheet_write_string(sheet_, static_cast<lxw_row_t>(row),
                                 static_cast<lxw_col_t>(column), storable.text.c_str(),
                                 formats_[look]));
  }

  void Number(int row, int column, double number, CellLookId look) override {
    Check(worksheet_write_number(sheet_, static_cast<lxw_row_t>(row),
                                 static_cast<lxw_col_t>(column), number, formats_[look]));
  }

  void Blank(int row, int column, CellLookId look) override {
    Check(worksheet_write_blank(sheet_, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                                formats_[look]));
  }

  std::size_t shortened() const override { return shortened_; }

  bool Finish(const std::function<bool()>& meanwhile) override {
    FlushSheet();
    // libxlsxwriter packs in one long call, which would keep the window from being painted.
    auto packing = std::async(std::launch::async, [this] { Pack(); });
    bool wanted = true;
    do {  // once at least, so that no machine is too quick to be told "Cancel"
      wanted = meanwhile() && wanted;
    } while (packing.wait_for(kMeanwhile) != std::future_status::ready);
    packing.get();
    if (!wanted) return false;
    beside_.MoveIntoPlace();
    return true;
  }

 private:
  void Check(lxw_error fault) const {
    if (fault == LXW_ERROR_MEMORY_MALLOC_FAILED) throw std::bad_alloc();
    if (fault != LXW_NO_ERROR) {
      throw ProgramError(error_number::kInternal, lxw_strerror(fault));
    }
  }

  // libxlsxwriter does not look whether the rows of a sheet reached the disk.
  void FlushSheet() {
    if (sheet_ == nullptr) return;
    errno = 0;
    const bool failed = std::fflush(sheet_->optimize_tmpfile) != 0;
    if (failed || std::ferror(sheet_->optimize_tmpfile) != 0) {
      ThrowFault(file_, errno == 0 ? ENOSPC : errno);
    }
    sheetSizes_.push_back(static_cast<std::uint64_t>(std::ftell(sheet_->optimize_tmpfile)));
    sheet_ = nullptr;
  }

  // libxlsxwriter closes them only when it packs. They have no names, so the disk would hold them
  // for as long as the program runs.
  void CloseRowFiles() {
    lxw_worksheet* sheet = nullptr;
    STAILQ_FOREACH(sheet, workbook_->worksheets, list_pointers) {
      if (sheet->optimize_tmpfile != nullptr) std::fclose(sheet->optimize_tmpfile);
      sheet->optimize_tmpfile = nullptr;
    }
  }

  void Pack() {
    errno = 0;
    const lxw_error fault = workbook_close(std::exchange(workbook_, nullptr));
    const int cause = errno;
    if (fault == LXW_ERROR_MEMORY_MALLOC_FAILED) throw std::bad_alloc();
    if (fault != LXW_NO_ERROR) ThrowFault(file_, cause == 0 ? ENOSPC : cause);
    if (!xlsx::HoldsWholeSheets(beside_.path(), sheetSizes_)) ThrowFault(file_, ENOSPC);
  }

  std::filesystem::path file_;
  FileBeside beside_;  // made at once: libxlsxwriter tells of a bad place only at the end
  lxw_workbook* workbook_ = nullptr;
  lxw_worksheet* sheet_ = nullptr;
  std::vector<lxw_format*> formats_;
  std::vector<std::uint64_t> sheetSizes_;  // bytes of the rows of each finished sheet
  double typeSize_ = 0;                    // 0: libxlsxwriter's own
  std::size_t shortened_ = 0;
};

}  // namespace

std::unique_ptr<WorkbookWriter> XlsxWorkbooks::Begin(const std::filesystem::path& file) {
  return std::make_unique<XlsxWriter>(file);
}

}  // namespace dtb
