// Connections to the database file, and its faults in plain words. Any thread may open one; it
// belongs to that thread alone.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <chrono>
#include <filesystem>
#include <string>

namespace dtb::sqlite {

// Opens the file with our LIKE and the order NAMES. Never makes a file. Throws DatabaseOutOfReach
// for a file that is missing, empty, foreign, damaged or locked longer than the wait.
[[nodiscard]] SQLite::Database Open(const std::filesystem::path& file,
                                    std::chrono::milliseconds longestWait);

// "The statistics database "/.../DTB.mdb"", or "The copy "...""; what a complaint begins with.
[[nodiscard]] std::string Named(const std::filesystem::path& file);

// Throws the ProgramError for what went wrong last on the connection.
[[noreturn]] void ThrowFault(const SQLite::Exception& fault, const std::filesystem::path& file);

// The same for a step that reported a code without throwing.
[[noreturn]] void ThrowFault(const SQLite::Database& database, const std::filesystem::path& file);

// Runs the operation, and tells what SQLite finds wrong with the file in plain words.
template <class Operation>
auto Told(const std::filesystem::path& file, Operation&& operation) {
  try {
    return operation();
  } catch (const SQLite::Exception& fault) {
    ThrowFault(fault, file);
  }
}

// A name of a table or column as it stands in a statement.
[[nodiscard]] std::string Quoted(const std::string& name);

}  // namespace dtb::sqlite
