// Seasons as files of SQLite on a shelf, the folder "Seasons".
#pragma once

#include <filesystem>
#include <functional>

#include "platform/seasons.h"
#include "platform/sqlite/sqlite_copies.h"
#include "platform/sqlite/sqlite_database.h"

namespace dtb {

class SqliteSeasons : public Seasons {
 public:
  // `moved` hears of the file of the season that comes into use.
  SqliteSeasons(std::filesystem::path programFolder, SqliteDatabase& database, SqliteCopies& copies,
                std::function<void(const std::filesystem::path&)> moved);

  std::vector<std::string> Names() override;
  bool Stands(const std::string& name) override;
  std::uintmax_t Size(const std::string& name) override;
  std::unique_ptr<Database> OpenSeason(const std::string& name) override;
  const std::string& InUse() const override { return inUse_; }
  void Use(const std::string& name) override;
  void Create(const std::string& name) override;
  void Rename(const std::string& name, const std::string& to) override;
  void CopyOut(const std::string& name, const std::filesystem::path& file) override;
  std::unique_ptr<Database> OpenDatabaseFile(const std::filesystem::path& file) override;
  void MakeDatabaseFile(const std::filesystem::path& file,
                        const std::function<void(Database&)>& fill) override;
  std::filesystem::path PutAway(const std::string& name) override;

 private:
  [[nodiscard]] std::filesystem::path FileOf(const std::string& name) const;
  [[nodiscard]] std::filesystem::path CopiesOf(const std::string& name) const;
  void MakeShelf() const;

  std::filesystem::path programFolder_;
  std::filesystem::path shelf_;
  SqliteDatabase& database_;
  SqliteCopies& copies_;
  std::function<void(const std::filesystem::path&)> moved_;
  std::string inUse_;
};

}  // namespace dtb
