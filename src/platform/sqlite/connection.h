// Connections to the database file, and its faults in plain words.
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

// Throws the ProgramError for what went wrong last on the connection.
[[noreturn]] void ThrowFault(const SQLite::Exception& fault, const std::filesystem::path& file);

// The same for a step that reported a code without throwing.
[[noreturn]] void ThrowFault(const SQLite::Database& database, const std::filesystem::path& file);

// A name of a table or column as it stands in a statement.
[[nodiscard]] std::string Quoted(const std::string& name);

}  // namespace dtb::sqlite
