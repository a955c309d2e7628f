// The person's seasons, each a database of its own, and the one in use.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace dtb {

class Database;

// A season is known by its name; "" is the one that stands beside the program, for whoever wants no
// more. Names are parts of file names (SafeNamePart). All errors are ProgramErrors that say in
// plain words what is wrong, and then nothing has changed.
class Seasons {
 public:
  virtual ~Seasons() = default;

  // Those on the shelf, in no order, without the one beside the program. Names that differ only in
  // the case of their letters are the same where the file system says so.
  [[nodiscard]] virtual std::vector<std::string> Names() = 0;
  [[nodiscard]] virtual bool Stands(const std::string& name) = 0;
  // Bytes; 0 for one that is not there.
  [[nodiscard]] virtual std::uintmax_t Size(const std::string& name) = 0;
  // A season, to be read.
  [[nodiscard]] virtual std::unique_ptr<Database> OpenSeason(const std::string& name) = 0;

  [[nodiscard]] virtual const std::string& InUse() const = 0;
  // From now on Database, DatabaseCopies and OldDatabase are those of this season, whether its file
  // stands or not. Nobody may be reading meanwhile.
  virtual void Use(const std::string& name) = 0;

  // A new one without games.
  virtual void Create(const std::string& name) = 0;
  // Its copies go with it. One in use stays in use.
  virtual void Rename(const std::string& name, const std::string& to) = 0;
  // Writes it into a file, in place of one that stands there.
  virtual void CopyOut(const std::string& name, const std::filesystem::path& file) = 0;
  // Another database, wherever it lies, to be read.
  [[nodiscard]] virtual std::unique_ptr<Database> OpenDatabaseFile(
      const std::filesystem::path& file) = 0;
  // Makes a database without games, lets `fill` put something into it, and puts it in place of
  // a file, whole or not at all.
  virtual void MakeDatabaseFile(const std::filesystem::path& file,
                                const std::function<void(Database&)>& fill) = 0;

  // Takes it off the shelf into the folder "Put away" there, and its copies; it must not be in use.
  // Returns the file's path.
  virtual std::filesystem::path PutAway(const std::string& name) = 0;
};

}  // namespace dtb
