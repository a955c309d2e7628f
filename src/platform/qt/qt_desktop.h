// File dialogs, clipboard, clock and the system's own programs.
#pragma once

#include <QDateTime>
#include <QLocale>
#include <QWidget>

#include "platform/platform.h"

namespace dtb {

class QtFileDialogs : public FileDialogs {
 public:
  std::optional<std::filesystem::path> OpenFile(const OpenFileRequest& request) override;
  std::optional<std::filesystem::path> SaveFile(const SaveFileRequest& request) override;
  std::optional<std::filesystem::path> OpenFolder(const std::string& title,
                                                  const std::filesystem::path& startAt) override;
};

class QtPages : public Pages {
 public:
  void Open(const std::string& addressOrFile) override;
  bool OpenSystemInformation() override;
};

class QtClipboard : public Clipboard {
 public:
  void SetText(const std::string& text) override;
};

// What the desktop starts for workbooks of the kind .xlsx.
class QtSpreadsheetProgram : public SpreadsheetProgram {
 public:
  bool Installed() override;
  bool OpenWorkbook(const std::filesystem::path& file) override;
};

class QtClock : public Clock {
 public:
  LocalTime Now() override;
  std::string NowText() override;
};

// "11/24/2026 8:05:31 PM": the short date, with all digits of the year, and the time with seconds.
[[nodiscard]] QString StandardText(const QDateTime& time, const QLocale& locale);

// "Text (*.txt)|*.txt|Csv (*.csv*)|*.csv*" in Qt's form: "Text (*.txt);;Csv (*.csv*)".
[[nodiscard]] QString ToolkitFilter(const std::string& filter);

}  // namespace dtb
