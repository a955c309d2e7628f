#include "teams/team_file.h"

#include <array>
#include <fstream>
#include <string_view>
#include <system_error>

#include "platform/paths.h"
#include "shell/program_error.h"
#include "shell/utf8.h"

namespace dtb {
namespace {

// The characters of the bytes 0x80 to 0x9F in Windows-1252; the five unassigned bytes stay
// themselves. All other bytes are their own code points.
constexpr std::array<char16_t, 32> kWindows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = Utf8SequenceLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string FromWindows1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() * 2);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool mapped = byte >= 0x80 && byte < 0xA0;
    AppendUtf8(text, mapped ? kWindows1252.at(byte - 0x80U) : byte);
  }
  return text;
}

std::string FromUtf16(std::string_view bytes, bool bigEndian) {
  const auto unit = [&](std::size_t i) -> char32_t {
    const auto a = static_cast<unsigned char>(bytes[i]);
    const auto b = static_cast<unsigned char>(bytes[i + 1]);
    return bigEndian ? (a << 8U | b) : (b << 8U | a);
  };
  std::string text;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const char32_t c = unit(i);
    const bool high = c >= 0xD800 && c < 0xDC00;
    const char32_t low = high && i + 3 < bytes.size() ? unit(i + 2) : 0;
    if (low >= 0xDC00 && low < 0xE000) {
      AppendUtf8(text, 0x10000 + ((c - 0xD800) << 10U) + (low - 0xDC00));
      i += 2;
    } else {
      AppendUtf8(text, c >= 0xD800 && c < 0xE000 ? kReplacementCharacter : c);
    }
  }
  return text;
}

std::string ReadBytes(const std::filesystem::path& file) {
  const std::string name = std::string("\"").append(TextOf(file)).append("\"");
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  if (!std::filesystem::exists(status)) {
    const bool denied = error == std::errc::permission_denied;
    throw ProgramError(denied ? error_number::kPermissionDenied : error_number::kFileNotFound,
                       "The file " + name + (denied ? " may not be read." : " does not exist."));
  }
  if (!std::filesystem::is_regular_file(status)) {
    throw ProgramError(error_number::kPathOrFileAccess, name + " is not a file.");
  }
  const auto size = std::filesystem::file_size(file, error);
  if (!error && size > kLargestTeamFile) {
    throw ProgramError(error_number::kPathOrFileAccess,
                       "The file " + name + " is far too large to be a team file.");
  }
  std::ifstream stream(file, std::ios::binary);
  if (!stream) {
    throw ProgramError(error_number::kPermissionDenied, "The file " + name + " may not be read.");
  }
  std::string bytes(static_cast<std::size_t>(error ? 0 : size), '\0');
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (stream.bad()) {
    throw ProgramError(error_number::kDeviceFault, "The file " + name + " could not be read.");
  }
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

}  // namespace

std::string DecodedText(std::string bytes) {
  // One mark at most: what looks like a second one is text.
  if (bytes.starts_with("\xEF\xBB\xBF")) {
    bytes.erase(0, 3);
  } else if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    return FromUtf16(std::string_view(bytes).substr(2), bytes.front() == '\xFE');
  }
  return IsUtf8(bytes) ? std::move(bytes) : FromWindows1252(bytes);
}

void ReadTeamFile(const std::filesystem::path& file,
                  const std::function<void(std::string line)>& giveLine) {
  const std::string text = DecodedText(ReadBytes(file));
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t end = rest.find_first_of("\r\n");
    const std::string_view line = rest.substr(0, end);
    if (!line.empty()) giveLine(std::string(line));
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
}

}  // namespace dtb
