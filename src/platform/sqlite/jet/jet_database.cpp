#include "platform/sqlite/jet/jet_database.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <system_error>

#include "base/paths.h"
#include "base/program_error.h"
#include "database/saved_games.h"
#include "database/saved_tables.h"
#include "platform/jet/jet_rows.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/jet_head.h"
#include "platform/sqlite/schema.h"
#include "platform/sqlite/sqlite_copies.h"

namespace dtb {
namespace {

namespace fs = std::filesystem;

// Counts the rows of each table, and the games as PairLines does.
class Counting {
 public:
  void Row(std::size_t table, const jet::Cells& row) {
    if (SavedTables()[table].table != table::kBoxScores) return;
    Lines& lines = linesOf_[row.back().value_or("")];
    const int before = std::max(lines.visitors, lines.home);
    const Side side = SideOfHost(row[row.size() - 2].value_or(""));
    ++(side == Side::Visitors ? lines.visitors : lines.home);
    contents_.games += std::max(lines.visitors, lines.home) - before;
  }
  void Totals(const jet::TableTotals& totals) { contents_.rows.push_back(totals.rows); }
  [[nodiscard]] const OldContents& Contents() const { return contents_; }

 private:
  struct Lines {
    int visitors = 0;
    int home = 0;
  };
  OldContents contents_;
  std::map<std::string, Lines> linesOf_;  // by GameID
};

// Writes the rows of one table after the other into a database, and holds what it then has against
// what the reader added up in the old file.
class Filling {
 public:
  explicit Filling(SQLite::Database& made) : made_(made) {}

  void Row(std::size_t table, const jet::Cells& row) {
    if (table_ != table || !insert_) Begin(table);
    insert_->reset();
    for (std::size_t i = 0; i < row.size(); ++i) {
      const int mark = static_cast<int>(i) + 1;
      row[i] ? insert_->bind(mark, *row[i]) : insert_->bind(mark);
    }
    ++rows_;
    try {
      insert_->exec();
    } catch (const SQLite::Exception& fault) {
      if (fault.getErrorCode() != SQLITE_CONSTRAINT) throw;
      throw ProgramError(error_number::kTypeMismatch,
                         "in its table \"" + SavedTables()[table].table + "\", row " +
                             std::to_string(rows_) +
                             ", a number belongs where a text stands, or it is too large (" +
                             std::string(fault.what()) + ").");
    }
  }

  void Compare(std::size_t table, const jet::TableTotals& old) {
    insert_.reset();
    const TableColumns& columns = SavedTables()[table];
    const std::string from = " FROM " + sqlite::Quoted(columns.table);
    bool same = made_.execAndGet("SELECT count(*)" + from).getInt64() == old.rows;
    for (std::size_t i = 0; same && i < columns.columns.size(); ++i) {
      const std::string name = sqlite::Quoted(columns.columns[i]);
      const bool letters = HoldsLetters(columns.table, columns.columns[i]);
      const auto around = [&name](const char* before, const char* behind) {
        return std::string(before).append(name).append(behind);
      };
      std::string texts = around("SELECT count(", "), total(");
      texts += letters ? around("length(CAST(", " AS BLOB))")
                       : around("CASE typeof(", ") WHEN 'text' THEN 0 ELSE ") + name + " END";
      SQLite::Statement query(made_, texts.append(")").append(from));
      query.executeStep();
      const jet::ColumnTotals& told = old.columns[i];
      same = query.getColumn(0).getInt64() == told.cells &&
             Equal(query.getColumn(1).getDouble(), letters ? told.bytes : told.sum);
    }
    if (same) return;
    throw ProgramError(error_number::kInternal, "the table \"" + columns.table +
                                                    "\" did not come out the same; please tell "
                                                    "the authors of this program.");
  }

 private:
  void Begin(std::size_t table) {
    std::string marks;
    std::string names;
    for (const std::string& column : SavedTables()[table].columns) {
      names += (names.empty() ? "" : ", ") + sqlite::Quoted(column);
      marks += marks.empty() ? "?" : ", ?";
    }
    insert_.emplace(made_, "INSERT INTO " + sqlite::Quoted(SavedTables()[table].table) + " (" +
                               names + ") VALUES (" + marks + ")");
    table_ = table;
    rows_ = 0;
  }

  bool HoldsLetters(const std::string& table, const std::string& column) {
    SQLite::Statement query(made_, "SELECT type FROM pragma_table_info(?) WHERE name = ?");
    query.bind(1, table);
    query.bind(2, column);
    return query.executeStep() && query.getColumn(0).getString() == "TEXT";
  }

  // A number of four bytes is a little beside the decimals that stand for it.
  static bool Equal(double one, double other) {
    constexpr double kClose = 1e-6;
    return std::abs(one - other) <= kClose * std::max(1.0, std::abs(other));
  }

  SQLite::Database& made_;
  std::optional<SQLite::Statement> insert_;
  std::size_t table_ = 0;
  std::int64_t rows_ = 0;
};

OldContents Fill(SQLite::Database& made, const fs::path& old) {
  Counting counting;
  Filling filling(made);
  made.exec(std::string("BEGIN; ") + sqlite::kSchema);
  jet::ReadRows(old, {[&](std::size_t table, const jet::Cells& row) {
                        counting.Row(table, row);
                        filling.Row(table, row);
                      },
                      [&](std::size_t table, const jet::TableTotals& totals) {
                        counting.Totals(totals);
                        filling.Compare(table, totals);
                      }});
  made.exec("COMMIT");
  return counting.Contents();
}

}  // namespace

bool JetDatabase::StandsInPlace() { return IsOfJetFormat(file_); }

OldContents JetDatabase::Contents() {
  Counting counting;
  jet::ReadRows(file_, {[&](std::size_t table, const jet::Cells& row) { counting.Row(table, row); },
                        [&](std::size_t /*table*/, const jet::TableTotals& totals) {
                          counting.Totals(totals);
                        }});
  return counting.Contents();
}

std::string JetDatabase::TakeOver(const std::string& asideName) {
  // A program that died in the last step has given the file this second name already.
  std::error_code error;
  const fs::path aside = fs::canonical(file_, error).parent_path() / PathOf(asideName);
  if (fs::is_regular_file(fs::symlink_status(aside, error)) &&
      fs::hard_link_count(aside, error) > 1 && fs::equivalent(file_, aside, error)) {
    fs::remove(aside, error);
  }
  return PutNewDatabase(file_, asideName, [&](SQLite::Database& made) { Fill(made, file_); });
}

OldContents ImportJet(const fs::path& old, const fs::path& made) {
  const auto refuse = [](int number, const fs::path& file, const std::string& why) {
    throw ProgramError(number, "\"" + TextOf(file) + "\" " + why);
  };
  std::error_code error;
  if (!fs::exists(old, error)) refuse(error_number::kFileNotFound, old, "is missing.");
  if (!IsOfJetFormat(old)) {
    refuse(error_number::kInvalidFileFormat, old, "is not a database in the Jet format.");
  }
  if (fs::exists(fs::symlink_status(made, error))) {
    refuse(error_number::kPathOrFileAccess, made, "exists already and was not changed.");
  }
  OldContents contents;
  try {
    // Where no file stands, the other name is for what may be left of one: its journal.
    PutNewDatabase(made, TextOf(made.stem()) + " (before)",
                   [&](SQLite::Database& database) { contents = Fill(database, old); });
  } catch (const DatabaseOutOfReach&) {
    throw;  // says itself which file cannot be written
  } catch (const ProgramError& fault) {
    refuse(fault.number(), old, "cannot be imported: " + std::string(fault.what()));
  }
  return contents;
}

}  // namespace dtb
