#include "platform/sqlite/sqlite_copies.h"

#include <SQLiteCpp/Backup.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <span>
#include <system_error>

#include "base/paths.h"
#include "base/program_error.h"
#include "base/system.h"
#include "platform/database.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/schema.h"

namespace dtb {
namespace {

namespace fs = std::filesystem;
using sqlite::Told;
using system::FolderHeld;
using system::SyncFolder;

constexpr const char* kUnfinished = ".new";

// The pages of a database as SQLite reads them, whether they stand in the file itself or beside it
// in a write-ahead log.
class Pages {
 public:
  explicit Pages(const SQLite::Database& database)
      : bytes_(sqlite3_serialize(database.getHandle(), "main", &size_, 0), sqlite3_free) {
    if (bytes_ != nullptr) return;
    const int code = sqlite3_errcode(database.getHandle());
    const bool read = code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE;
    throw SQLite::Exception("serialize", read ? SQLITE_NOMEM : code);
  }
  [[nodiscard]] std::span<unsigned char> bytes() const {
    return {bytes_.get(), static_cast<std::size_t>(size_)};
  }

 private:
  sqlite3_int64 size_ = 0;
  std::unique_ptr<unsigned char, decltype(&sqlite3_free)> bytes_;
};

// Keeps the file as it is for all, until the connection closes.
void HoldStill(SQLite::Database& database) {
  database.exec("BEGIN");
  static_cast<void>(database.execAndGet("SELECT count(*) FROM sqlite_master"));
}

// Two databases that are held still hold the same. What SQLite keeps in the head, as the number of
// changes and the kind of the journal, is the file's own.
bool SameContents(const SQLite::Database& one, const SQLite::Database& other) {
  constexpr std::array<std::pair<std::size_t, std::size_t>, 4> kOwn{
      {{18, 20}, {24, 28}, {40, 44}, {92, 100}}};
  const Pages first(one);
  const Pages second(other);
  if (first.bytes().size() != second.bytes().size()) return false;
  for (const auto& [from, to] : kOwn) {
    for (const Pages* pages : {&first, &second}) {
      if (pages->bytes().size() >= to) {
        std::ranges::fill(pages->bytes().subspan(from, to - from), '\0');
      }
    }
  }
  return std::ranges::equal(first.bytes(), second.bytes());
}

// The target takes part of the head as well, but has a journal of its own kind.
void BackUp(SQLite::Database& from, SQLite::Database& into) {
  SQLite::Backup backup(into, from);
  const int code = backup.executeStep(-1);
  if (code != SQLITE_DONE && code != SQLITE_OK) throw SQLite::Exception("backup", code);
}

// The first fault in the structure of a database; "ok" for none. The numbers in its columns were
// checked when they were stored.
std::string QuickCheck(SQLite::Database& database) {
  database.exec("PRAGMA ignore_check_constraints = ON");
  return database.execAndGet("PRAGMA quick_check(1)").getString();
}

// A new file, written beside its place. What lives on when it is given up is nothing.
class Beside {
 public:
  explicit Beside(const fs::path& place) : place_(place), file_(place) {
    file_ += kUnfinished;
    std::error_code ignored;
    fs::remove(file_, ignored);
  }
  ~Beside() {
    if (moved_) return;
    std::error_code ignored;
    fs::remove(file_, ignored);
  }
  Beside(const Beside&) = delete;
  Beside& operator=(const Beside&) = delete;

  // Half a file is thrown away, so it needs no journal; but a commit goes to the disk.
  [[nodiscard]] SQLite::Database Open() const {
    SQLite::Database database(TextOf(file_), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    database.exec("PRAGMA journal_mode = OFF; PRAGMA synchronous = FULL");
    return database;
  }

  void MoveIntoPlace() {
    std::error_code error;
    fs::rename(file_, place_, error);
    if (error) ThrowFileError("\"" + TextOf(place_) + "\" cannot be put in place", error);
    moved_ = true;
    SyncFolder(place_.parent_path());
  }

 private:
  fs::path place_;
  fs::path file_;
  bool moved_ = false;
};

// What keeps a copy from being put in place; "" for nothing.
std::string FaultOf(SQLite::Database& copy) {
  copy.exec("PRAGMA ignore_check_constraints = ON");
  if (copy.execAndGet("PRAGMA integrity_check(1)").getString() != "ok") return "is damaged.";
  for (const char* table : {"Batting", "Pitching", "BoxScores", "WinLoss", "Matchups"}) {
    if (!copy.tableExists(table)) return std::string("has no table \"") + table + "\".";
  }
  return {};
}

fs::path FolderOf(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

// What stands at the end of a chain of symbolic links, which stay as they are.
fs::path Target(fs::path file) {
  constexpr int kMostLinks = 40;
  std::error_code error;
  for (int links = 0; links < kMostLinks && fs::is_symlink(file, error); ++links) {
    const fs::path next = fs::read_symlink(file, error);
    if (error) break;
    file = file.parent_path() / next;  // an absolute one replaces all
  }
  return file;
}

// A file that is known to be sound.
SQLite::Database OpenSound(const fs::path& file, std::chrono::milliseconds longestWait) {
  SQLite::Database database = sqlite::Open(file, longestWait);
  Told(file, [&] {
    if (QuickCheck(database) != "ok") throw SQLite::Exception("damaged", SQLITE_CORRUPT);
  });
  return database;
}

// A name in the folder that nobody has: "DTB damaged.mdb", "DTB damaged (2).mdb".
fs::path FreePath(const fs::path& folder, const std::string& name) {
  const fs::path wanted = folder / PathOf(name);
  fs::path free = wanted;
  for (int number = 2; fs::exists(fs::symlink_status(free)); ++number) {
    free = wanted;
    free.replace_filename(PathOf(TextOf(wanted.stem()) + " (" + std::to_string(number) + ")" +
                                 TextOf(wanted.extension())));
  }
  return free;
}

// Gives a file a second name, so that the first one can be taken over in one step. Where the disk
// knows no second names, the file gets another one. What SQLite was about to take back in the
// old file goes with it: in the new one it must not be taken back.
void SetAside(const fs::path& file, const fs::path& aside) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(file))) {
    fs::create_hard_link(file, aside, error);
    if (error) fs::rename(file, aside, error);
    if (error) ThrowFileError("\"" + TextOf(file) + "\" cannot be set aside", error);
  }
  for (const char* suffix : {"-journal", "-wal", "-shm"}) {
    fs::path from = file;
    fs::path to = aside;
    from += suffix;
    to += suffix;
    if (!fs::exists(from)) continue;
    fs::rename(from, to, error);
    if (error) ThrowFileError("\"" + TextOf(from) + "\" cannot be set aside", error);
  }
  SyncFolder(file.parent_path());
}

void CopyHeldStill(SQLite::Database& source, const fs::path& place) {
  Beside beside(place);
  Told(place, [&] {
    SQLite::Database copy = beside.Open();
    BackUp(source, copy);
    copy.exec("PRAGMA journal_mode = DELETE");  // also of a database with a write-ahead log
    HoldStill(copy);
    if (!SameContents(source, copy)) throw SQLite::Exception("not the same", SQLITE_IOERR);
  });
  beside.MoveIntoPlace();
}

}  // namespace

fs::path SqliteCopies::PathOfCopy(const std::string& name) const { return folder_ / PathOf(name); }

std::vector<std::string> SqliteCopies::CopyNames() {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(folder_, error), end; !error && entry != end;
       entry.increment(error)) {
    names.push_back(TextOf(entry->path().filename()));
  }
  return names;
}

std::uintmax_t SqliteCopies::CopySize(const std::string& name) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(PathOfCopy(name), error);
  return error ? 0 : size;
}

std::unique_ptr<Database> SqliteCopies::OpenCopy(const std::string& name) {
  return std::make_unique<SqliteDatabase>(PathOfCopy(name), longestWait_);
}

std::string SqliteCopies::FaultOfCopy(const std::string& name) {
  const fs::path path = PathOfCopy(name);
  try {
    SQLite::Database copy = sqlite::Open(path, longestWait_);
    const std::string fault = Told(path, [&] { return FaultOf(copy); });
    return fault.empty() ? "" : sqlite::Named(path) + " " + fault;
  } catch (const ProgramError& failure) {
    return failure.what();
  }
}

bool SqliteCopies::EqualsCopy(const std::string& name) {
  try {
    SQLite::Database database = sqlite::Open(file_, longestWait_);
    SQLite::Database copy = sqlite::Open(PathOfCopy(name), longestWait_);
    HoldStill(database);
    HoldStill(copy);
    return SameContents(database, copy);
  } catch (const ProgramError&) {
    return false;
  } catch (const SQLite::Exception&) {
    return false;
  }
}

void SqliteCopies::MakeFolder() const {
  std::error_code error;
  if (fs::create_directories(folder_, error)) SyncFolder(folder_.parent_path());
  if (error) {
    ThrowFileError("The folder \"" + TextOf(folder_) + "\" for the copies cannot be made", error);
  }
}

// Programs that died while they made a copy leave these.
void SqliteCopies::RemoveUnfinished() const {
  std::error_code error;
  for (fs::directory_iterator entry(folder_, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code ignored;
    if (entry->path().extension() == kUnfinished) fs::remove(entry->path(), ignored);
  }
}

void SqliteCopies::MakeCopy(const std::string& name) {
  SQLite::Database source = sqlite::Open(file_, longestWait_);
  MakeFolder();
  const FolderHeld held(folder_);
  Told(file_, [&] { HoldStill(source); });
  RemoveUnfinished();
  const fs::path place = PathOfCopy(name);
  if (fs::exists(place)) {
    throw ProgramError(error_number::kPathOrFileAccess,
                       "\"" + TextOf(place) + "\" exists already.");
  }
  CopyHeldStill(source, place);
}

void CopyDatabase(const fs::path& from, const fs::path& to) {
  SQLite::Database source = sqlite::Open(from, SqliteDatabase::kLongestWait);
  Told(from, [&] { HoldStill(source); });
  CopyHeldStill(source, to);
}

void SqliteCopies::RemoveCopy(const std::string& name) {
  std::error_code ignored;
  fs::remove(PathOfCopy(name), ignored);
}

DatabaseHealth SqliteCopies::Examine() {
  try {
    SQLite::Database database = sqlite::Open(file_, longestWait_);
    return Told(file_, [&] {
      return QuickCheck(database) == "ok" ? DatabaseHealth::Sound : DatabaseHealth::Damaged;
    });
  } catch (const DatabaseOutOfReach& fault) {
    if (fault.number() == error_number::kFileNotFound) return DatabaseHealth::Missing;
    if (fault.number() == error_number::kInvalidFileFormat) return DatabaseHealth::Damaged;
    throw;
  }
}

void SqliteCopies::BringBack(const std::string& name) {
  SQLite::Database copy = OpenSound(PathOfCopy(name), longestWait_);
  SQLite::Database database = sqlite::Open(file_, longestWait_);
  Told(file_, [&] { BackUp(copy, database); });
}

std::string SqliteCopies::Renew(const std::optional<std::string>& copy,
                                const std::string& asideName) {
  return PutNewDatabase(file_, asideName, [&](SQLite::Database& made) {
    if (copy) {
      SQLite::Database source = OpenSound(PathOfCopy(*copy), longestWait_);
      BackUp(source, made);
      HoldStill(source);
      HoldStill(made);
      if (!SameContents(source, made)) throw SQLite::Exception("not the same", SQLITE_IOERR);
    } else {
      made.exec(std::string("BEGIN; ") + sqlite::kSchema + " COMMIT;");
    }
    RequireLost();
  });
}

void SqliteCopies::RequireLost() {
  if (Examine() != DatabaseHealth::Sound) return;
  throw ProgramError(error_number::kPermissionDenied,
                     sqlite::Named(file_) + " is back and undamaged.");
}

std::string PutNewDatabase(const fs::path& file, const std::string& asideName,
                           const std::function<void(SQLite::Database&)>& fill) {
  const fs::path place = Target(file);
  const FolderHeld held(FolderOf(place));
  Beside beside(place);
  Told(file, [&] {
    SQLite::Database made = beside.Open();
    fill(made);
  });
  const bool stood = fs::exists(fs::symlink_status(place));
  const fs::path aside = FreePath(place.parent_path(), asideName);
  SetAside(place, aside);
  beside.MoveIntoPlace();
  return stood ? TextOf(aside.filename()) : std::string();
}

}  // namespace dtb
