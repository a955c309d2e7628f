// Copies of the statistics database, and what can be put in its place.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace dtb {

class Database;

enum class DatabaseHealth { Sound, Missing, Damaged };

// The copies are files of a folder of their own beside the database, known by their names. Nothing
// here leaves half a file behind, whenever the program dies: a copy is there whole or not at all,
// and the database is what it was or what it shall be. All errors are ProgramErrors that say in
// plain words what is wrong, and then nothing has changed.
class DatabaseCopies {
 public:
  virtual ~DatabaseCopies() = default;

  // The names of the files in the folder, in no order; none where there is no such folder.
  [[nodiscard]] virtual std::vector<std::string> CopyNames() = 0;
  // Bytes; 0 for a copy that is not there.
  [[nodiscard]] virtual std::uintmax_t CopySize(const std::string& name) = 0;
  // A copy, to be read.
  [[nodiscard]] virtual std::unique_ptr<Database> OpenCopy(const std::string& name) = 0;
  // Looks through the whole of a copy. What keeps it from being put in place, in plain words; ""
  // for nothing.
  [[nodiscard]] virtual std::string FaultOfCopy(const std::string& name) = 0;
  // The database holds what the copy holds. False where either cannot be read.
  [[nodiscard]] virtual bool EqualsCopy(const std::string& name) = 0;
  // Copies the database under a name that is free. On return the copy survives a power cut.
  // DatabaseOutOfReach with kFileNotFound: there is no database.
  virtual void MakeCopy(const std::string& name) = 0;
  // Failure is silent.
  virtual void RemoveCopy(const std::string& name) = 0;

  // How the database's file is. Throws ProgramError where that cannot be told: locked, say.
  [[nodiscard]] virtual DatabaseHealth Examine() = 0;
  // Puts what a copy holds into a sound database, in one transaction. A copy that is damaged is
  // refused.
  virtual void BringBack(const std::string& name) = 0;
  // Puts a copy, or an empty database where no copy is named, in place of a file that is
  // missing or damaged. That file goes on beside it as `asideName`, or with a number behind it
  // where the name is taken. Returns its name; "" where there was none. A symbolic link stays, and
  // what it points at is replaced. Refused where the database is sound by now.
  virtual std::string Renew(const std::optional<std::string>& copy,
                            const std::string& asideName) = 0;
};

}  // namespace dtb
