#include "platform/sqlite/connection.h"

#include <sqlite3.h>

#include <array>
#include <memory>
#include <new>
#include <string_view>
#include <system_error>

#include "base/letters.h"
#include "base/paths.h"
#include "base/text_order.h"
#include "platform/database.h"
#include "platform/sqlite/jet_head.h"
#include "platform/sqlite/sqlite_database.h"

namespace dtb::sqlite {
namespace {

std::string_view TextOfValue(sqlite3_value* value) {
  // The text first: it is what converts the value and so settles the length.
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

LikePattern MakePattern(int arguments, sqlite3_value** values, LikePattern::Accents accents) {
  const std::string_view escape = arguments == 3 ? TextOfValue(values[2]) : std::string_view();
  return LikePattern(TextOfValue(values[0]),
                     escape.empty() ? LikePattern::kNoEscape : char32_t(escape.front()), accents);
}

// "text LIKE pattern" is the call like(pattern, text), and finds(pattern, text) looks through
// accents. The pattern is read once for a statement.
template <LikePattern::Accents accents>
void Like(sqlite3_context* context, int arguments, sqlite3_value** values) {
  for (int i = 0; i < arguments; ++i) {
    if (sqlite3_value_type(values[i]) == SQLITE_NULL) return;
  }
  const std::string_view text = TextOfValue(values[1]);
  auto* pattern = static_cast<LikePattern*>(sqlite3_get_auxdata(context, 0));
  if (pattern != nullptr) return sqlite3_result_int(context, pattern->Matches(text) ? 1 : 0);
  try {
    auto made = std::make_unique<LikePattern>(MakePattern(arguments, values, accents));
    sqlite3_result_int(context, made->Matches(text) ? 1 : 0);
    sqlite3_set_auxdata(context, 0, made.release(),
                        [](void* old) { delete static_cast<LikePattern*>(old); });
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  }
}

int InOrderOfNames(void* /*unused*/, int firstSize, const void* first, int secondSize,
                   const void* second) {
  return CompareNames({static_cast<const char*>(first), static_cast<std::size_t>(firstSize)},
                      {static_cast<const char*>(second), static_cast<std::size_t>(secondSize)});
}

[[noreturn]] void OutOfReach(int number, const std::filesystem::path& file,
                             const std::string& complaint) {
  throw DatabaseOutOfReach(number, Named(file) + " " + complaint);
}

void RequireFile(const std::filesystem::path& file) {
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  if (status.type() == std::filesystem::file_type::not_found) {
    OutOfReach(error_number::kFileNotFound, file, "is missing.");
  }
  if (!std::filesystem::is_regular_file(status)) {
    OutOfReach(error_number::kPathOrFileAccess, file, "cannot be opened: it is not a file.");
  }
  // SQLite would take an empty file for an empty database.
  if (std::filesystem::file_size(file, error) == 0 && !error) {
    OutOfReach(error_number::kInvalidFileFormat, file, "is empty: there is no database in it.");
  }
}

struct Complaint {
  int code;  // SQLite's
  int number;
  const char* text;
};

constexpr std::array<Complaint, 9> kComplaints{{
    {SQLITE_BUSY, error_number::kPermissionDenied, "is in use by another program."},
    {SQLITE_LOCKED, error_number::kPermissionDenied, "is in use by another program."},
    {SQLITE_PERM, error_number::kPermissionDenied, "cannot be opened: you lack permission."},
    {SQLITE_READONLY, error_number::kPathOrFileAccess,
     "can only be read: the file or its folder is write-protected."},
    {SQLITE_CANTOPEN, error_number::kPathOrFileAccess,
     "cannot be opened: you may not read the file or write to its folder."},
    {SQLITE_NOTADB, error_number::kInvalidFileFormat,
     "is not a database that this program can read."},
    {SQLITE_CORRUPT, error_number::kInvalidFileFormat, "is damaged."},
    {SQLITE_FULL, error_number::kDiskFull, "cannot be written: the disk is full."},
    {SQLITE_IOERR, error_number::kDeviceFault,
     "cannot be read or written: the disk reports an error."},
}};

[[noreturn]] void Throw(int code, const std::string& message, const std::filesystem::path& file) {
  constexpr int kPrimaryCode = 0xFF;
  if ((code & kPrimaryCode) == SQLITE_NOTADB && IsOfJetFormat(file)) {
    OutOfReach(error_number::kInvalidFileFormat, file, "is an old one, in the Jet format.");
  }
  for (const Complaint& complaint : kComplaints) {
    if ((code & kPrimaryCode) == complaint.code) {
      OutOfReach(complaint.number, file, complaint.text);
    }
  }
  if (code == SQLITE_NOMEM) throw std::bad_alloc();
  constexpr std::string_view kNoTable = "no such table: ";
  std::string complaint = "does not understand the request: " + message + ".";
  if (message.starts_with(kNoTable)) {
    complaint = "has no table \"" + message.substr(kNoTable.size()) + "\".";
  } else if (message.find("no column named") != std::string::npos ||
             message.starts_with("no such column")) {
    complaint = "lacks a column: " + message + ".";
  }
  throw ProgramError(error_number::kInvalidCall, Named(file) + " " + complaint);
}

}  // namespace

// A copy is known by its folder; those of a season on the shelf have one of their own in it.
std::string Named(const std::filesystem::path& file) {
  const std::filesystem::path folder = file.parent_path();
  const bool copy =
      folder.filename() == kCopiesFolder || folder.parent_path().filename() == kCopiesFolder;
  return (copy ? "The copy \"" : "The statistics database \"") + TextOf(file) + "\"";
}

SQLite::Database Open(const std::filesystem::path& file, std::chrono::milliseconds longestWait) {
  RequireFile(file);
  try {
    // One thread uses a connection, so SQLite need not lock it for each value that is read.
    SQLite::Database database(TextOf(file), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX,
                              static_cast<int>(longestWait.count()));
    for (const int arguments : {2, 3}) {
      database.createFunction("like", arguments, true, nullptr, Like<LikePattern::Accents::Count>);
    }
    database.createFunction("finds", 2, true, nullptr, Like<LikePattern::Accents::AreFound>);
    database.check(sqlite3_create_collation(database.getHandle(), "NAMES", SQLITE_UTF8, nullptr,
                                            InOrderOfNames));
    // Triggers that stand in the file would do what nobody has asked for: take away what is saved.
    sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    // Also the folder's entry of the journal goes to the disk, so that what is committed stays so.
    database.exec("PRAGMA synchronous = EXTRA");
    return database;
  } catch (const SQLite::Exception& fault) {
    ThrowFault(fault, file);
  }
}

void ThrowFault(const SQLite::Exception& fault, const std::filesystem::path& file) {
  Throw(fault.getErrorCode(), fault.what(), file);
}

void ThrowFault(const SQLite::Database& database, const std::filesystem::path& file) {
  Throw(database.getErrorCode(), database.getErrorMsg(), file);
}

std::string Quoted(const std::string& name) {
  std::string quoted = "\"";
  for (const char character : name) {
    if (character == '"') quoted += '"';
    quoted += character;
  }
  return quoted + '"';
}

}  // namespace dtb::sqlite
