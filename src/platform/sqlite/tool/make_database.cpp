// Makes an empty statistics database from a schema, where none stands:
//   dtb_make_database SCHEMA FILE
#include <SQLiteCpp/SQLiteCpp.h>

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "base/whole_file.h"

namespace {

void MakeDatabase(const std::filesystem::path& schema, const std::filesystem::path& file) {
  if (std::filesystem::exists(std::filesystem::symlink_status(file))) {
    throw std::runtime_error(file.string() + " exists already and was not changed");
  }
  std::ifstream stream(schema);
  const std::string text{std::istreambuf_iterator<char>(stream), {}};
  if (text.empty()) throw std::runtime_error(schema.string() + " cannot be read");

  // Made under another name, so that no half database ever has the right one.
  dtb::FileBeside beside(file, "database");
  SQLite::Database(beside.path().string(), SQLite::OPEN_READWRITE)
      .exec("BEGIN; " + text + " COMMIT;");
  beside.MoveIntoPlace();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "Usage: dtb_make_database SCHEMA FILE\n";
    return 2;
  }
  try {
    MakeDatabase(argv[1], argv[2]);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "dtb_make_database: " << error.what() << '\n';
    return 1;
  }
}
