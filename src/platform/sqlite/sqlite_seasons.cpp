#include "platform/sqlite/sqlite_seasons.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <system_error>
#include <utility>

#include "base/file_names.h"
#include "base/paths.h"
#include "base/program_error.h"
#include "platform/sqlite/schema.h"

namespace dtb {
namespace {

namespace fs = std::filesystem;

constexpr const char* kShelf = "Seasons";
constexpr const char* kPutAway = "Put away";
constexpr const char* kEnding = ".mdb";
constexpr const char* kDraft = ".new";  // behind the name of a file that is being written

void MakeFolders(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) ThrowFileError("The folder \"" + TextOf(folder) + "\" cannot be made", error);
}

void Move(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::rename(from, to, error);
  if (error) ThrowFileError("\"" + TextOf(from) + "\" cannot be moved", error);
}

// What SQLite was about to take back in a file belongs to it.
void MoveDatabase(const fs::path& from, const fs::path& to) {
  Move(from, to);
  for (const char* suffix : {"-journal", "-wal", "-shm"}) {
    fs::path beside = from;
    fs::path target = to;
    beside += suffix;
    target += suffix;
    std::error_code ignored;
    if (fs::exists(beside, ignored)) fs::rename(beside, target, ignored);
  }
}

void MakeEmpty(const fs::path& file) {
  PutNewDatabase(file, TextOf(file.filename()), [](SQLite::Database& made) {
    made.exec(std::string("BEGIN; ") + sqlite::kSchema + " COMMIT;");
  });
}

}  // namespace

SqliteSeasons::SqliteSeasons(fs::path programFolder, SqliteDatabase& database, SqliteCopies& copies,
                             std::function<void(const fs::path&)> moved)
    : programFolder_(std::move(programFolder)),
      shelf_(programFolder_ / kShelf),
      database_(database),
      copies_(copies),
      moved_(std::move(moved)) {}

fs::path SqliteSeasons::FileOf(const std::string& name) const {
  return name.empty() ? programFolder_ / kDatabaseFile : shelf_ / PathOf(name + kEnding);
}

fs::path SqliteSeasons::CopiesOf(const std::string& name) const {
  return name.empty() ? programFolder_ / kCopiesFolder : shelf_ / kCopiesFolder / PathOf(name);
}

void SqliteSeasons::MakeShelf() const { MakeFolders(shelf_); }

std::vector<std::string> SqliteSeasons::Names() {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(shelf_, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code ignored;
    const fs::path& file = entry->path();
    if (file.extension() == kEnding && entry->is_regular_file(ignored)) {
      names.push_back(TextOf(file.stem()));
    }
  }
  return names;
}

bool SqliteSeasons::Stands(const std::string& name) {
  std::error_code ignored;
  return fs::exists(FileOf(name), ignored);
}

std::uintmax_t SqliteSeasons::Size(const std::string& name) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(FileOf(name), error);
  return error ? 0 : size;
}

std::unique_ptr<Database> SqliteSeasons::OpenSeason(const std::string& name) {
  return std::make_unique<SqliteDatabase>(FileOf(name));
}

void SqliteSeasons::Use(const std::string& name) {
  inUse_ = name;
  database_.MoveTo(FileOf(name));
  copies_.MoveTo(FileOf(name), CopiesOf(name));
  moved_(FileOf(name));
}

void SqliteSeasons::Create(const std::string& name) {
  MakeShelf();
  if (Stands(name)) {
    throw ProgramError(error_number::kPathOrFileAccess,
                       "There is a season \"" + name + "\" already.");
  }
  MakeEmpty(FileOf(name));
}

void SqliteSeasons::Rename(const std::string& name, const std::string& to) {
  std::error_code ignored;
  // Its own name in other letters is the same file, where the system does not tell them apart.
  if (Stands(to) && !fs::equivalent(FileOf(name), FileOf(to), ignored)) {
    throw ProgramError(error_number::kPathOrFileAccess,
                       "There is a season \"" + to + "\" already.");
  }
  MoveDatabase(FileOf(name), FileOf(to));
  if (fs::exists(CopiesOf(name), ignored)) fs::rename(CopiesOf(name), CopiesOf(to), ignored);
  if (inUse_ == name) Use(to);
}

void SqliteSeasons::CopyOut(const std::string& name, const fs::path& file) {
  CopyDatabase(FileOf(name), file);
}

std::unique_ptr<Database> SqliteSeasons::OpenDatabaseFile(const fs::path& file) {
  return std::make_unique<SqliteDatabase>(file);
}

void SqliteSeasons::MakeDatabaseFile(const fs::path& file,
                                     const std::function<void(Database&)>& fill) {
  fs::path draft = file;
  draft += kDraft;
  std::error_code ignored;
  fs::remove(draft, ignored);
  try {
    MakeEmpty(draft);
    SqliteDatabase made(draft);
    fill(made);
    Move(draft, file);
  } catch (...) {
    fs::remove(draft, ignored);
    throw;
  }
}

fs::path SqliteSeasons::PutAway(const std::string& name) {
  const fs::path folder = shelf_ / kPutAway;
  MakeFolders(folder);
  fs::path place = FreeFile(folder, name, kEnding);
  MoveDatabase(FileOf(name), place);
  // A later season of that name must not be offered these copies as its own.
  std::error_code ignored;
  if (fs::exists(CopiesOf(name), ignored)) {
    Move(CopiesOf(name), FreeFile(folder, TextOf(place.stem()) + " copies", ""));
  }
  return place;
}

}  // namespace dtb
