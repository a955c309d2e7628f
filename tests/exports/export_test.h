// Exports of a real database, read back by another program.
#pragma once

#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "browser/exports.h"
#include "browser/queries.h"
#include "database/database_test.h"

namespace dtb {

// What a script of this folder, or one after "-c", prints about a file.
inline Strings Lines(const std::string& script, const std::string& file,
                     const std::string& more = "") {
  const std::string path = script.starts_with("-c") ? script : "'" DTB_READERS + script + "'";
  std::FILE* output = popen((DTB_PYTHON + path + " '" + file + "' " + more).c_str(), "r");
  std::string text;
  std::array<char, 4096> piece{};
  while (const auto read = std::fread(piece.data(), 1, piece.size(), output)) {
    text.append(piece.data(), read);
  }
  EXPECT_EQ(pclose(output), 0) << script << " cannot read " << file;
  Strings lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

struct Book {
  // Of the whole workbook, or those rows alone, of a "SHEET FIRST LAST", '' for all sheets.
  explicit Book(const std::string& file, const std::string& part = "") {
    for (const std::string& line : Lines("read_workbook.py", file, part)) {
      const std::size_t bar = line.find('|');
      const std::size_t end = line.rfind('|');
      const std::string head = line.substr(0, bar);
      if (head == "sheet") {
        sheets.push_back(line.substr(bar + 1));
      } else {
        cells[head] = line.substr(bar + 1, end - bar - 1);
        looks[head] = line.substr(end + 1);
      }
    }
  }

  // The sheet's cells that are not blank, row by row from the first, parted by ", ".
  [[nodiscard]] Strings Rows(const std::string& sheet, int first, int last) const {
    Strings rows;
    for (int row = first; row <= last; ++row) {
      std::string text;
      for (const char* column :
           {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "K", "L", "M", "N",
            "O", "P", "Q", "R", "S", "T", "U", "V", "W", "X", "Y", "Z", "AA"}) {
        const auto cell = cells.find(sheet + "!" + column + std::to_string(row));
        if (cell == cells.end() || cell->second == "blank|") continue;
        text += (text.empty() ? "" : ", ") + std::string(column) + " " + cell->second;
      }
      rows.push_back(text);
    }
    return rows;
  }

  Strings sheets;                            // "LineScores|11|C:K=3|visible front"
  std::map<std::string, std::string> cells;  // "LineScores!A1" has "s|text", "n|3" or "blank|"
  std::map<std::string, std::string> looks;  // "0.00 bold thin:99CCFF fill:FEFEFE"
};

class ExportTest : public DatabaseTest {
 protected:
  [[nodiscard]] std::string Report(const std::string& name) const {
    return (folder / "Game Rpts" / name).string();
  }
  // Names of the files in the folder for reports.
  [[nodiscard]] Strings Reports() const {
    Strings names;
    if (!std::filesystem::exists(folder / "Game Rpts")) return names;
    for (const auto& entry : std::filesystem::directory_iterator(folder / "Game Rpts")) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }

  BrowserState state;
  Browser browser{state, ports};
};

}  // namespace dtb
