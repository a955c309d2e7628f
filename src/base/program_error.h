// Errors that end an operation.
#pragma once

#include <exception>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>

namespace dtb {

// Ends an operation at its failing step; what was done before stays. The numbers are those of the
// runtime that people of this field know from their error messages.
class ProgramError : public std::runtime_error {
 public:
  ProgramError(int number, const std::string& description)
      : std::runtime_error(description), number_(number) {}
  [[nodiscard]] int number() const { return number_; }

 private:
  int number_;
};

namespace error_number {
inline constexpr int kInvalidCall = 5;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscriptOutOfRange = 9;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kInternal = 51;
inline constexpr int kFileNotFound = 53;
inline constexpr int kDeviceFault = 57;
inline constexpr int kDiskFull = 61;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathOrFileAccess = 75;
inline constexpr int kInvalidFileFormat = 321;
inline constexpr int kNoComponent = 429;  // a program that the work needs is not there
}  // namespace error_number

// Throws the error of an operation on a file or folder: "`what`: the system's reason."
[[noreturn]] inline void ThrowFileError(const std::string& what, const std::error_code& error) {
  const bool full = error == std::errc::no_space_on_device;
  throw ProgramError(full ? error_number::kDiskFull : error_number::kPathOrFileAccess,
                     what + ": " + error.message() + ".");
}

// Runs one whole operation. An error that leaves it is given to `report` as a number and a
// description, and goes no further.
template <class Operation, class Report>
void TrappedBy(Report&& report, Operation&& operation) {
  try {
    operation();
  } catch (const ProgramError& error) {
    report(error.number(), std::string(error.what()));
  } catch (const std::bad_alloc&) {
    report(error_number::kOutOfMemory, std::string("Out of memory"));
  } catch (const std::exception& error) {
    report(error_number::kInternal, std::string(error.what()));
  }
}

}  // namespace dtb
