#include "teams/team_file.h"

#include <array>
#include <fstream>
#include <string_view>
#include <system_error>

#include "platform/paths.h"
#include "shell/program_error.h"

namespace dtb {
namespace {

// The characters of the bytes 0x80 to 0x9F in Windows-1252; the five unassigned bytes stay
// themselves. All other bytes are their own code points.
constexpr std::array<char16_t, 32> kWindows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t kReplacement = 0xFFFD;

void AppendUtf8(std::string& text, char32_t c) {
  const auto add = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (c < 0x80) {
    add(c);
  } else if (c < 0x800) {
    add(0xC0 | (c >> 6U));
    add(0x80 | (c & 0x3FU));
  } else if (c < 0x10000) {
    add(0xE0 | (c >> 12U));
    add(0x80 | ((c >> 6U) & 0x3FU));
    add(0x80 | (c & 0x3FU));
  } else {
    add(0xF0 | (c >> 18U));
    add(0x80 | ((c >> 12U) & 0x3FU));
    add(0x80 | ((c >> 6U) & 0x3FU));
    add(0x80 | (c & 0x3FU));
  }
}

// The length of the UTF-8 sequence at the start of the text; 0 if there is none. The limits of the
// second byte are those of the Unicode standard, table 3-7.
std::size_t Utf8SequenceLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  if (first < 0x80) return 1;
  std::size_t length = 0;
  if (first >= 0xC2 && first <= 0xDF) length = 2;
  if (first >= 0xE0 && first <= 0xEF) length = 3;
  if (first >= 0xF0 && first <= 0xF4) length = 4;
  if (length == 0 || text.size() < length) return 0;
  unsigned char lowest = 0x80;
  unsigned char highest = 0xBF;
  if (first == 0xE0) lowest = 0xA0;
  if (first == 0xED) highest = 0x9F;
  if (first == 0xF0) lowest = 0x90;
  if (first == 0xF4) highest = 0x8F;
  if (byte(1) < lowest || byte(1) > highest) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return 0;
  }
  return length;
}

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
      AppendUtf8(text, c >= 0xD800 && c < 0xE000 ? kReplacement : c);
    }
  }
  return text;
}

std::string Decoded(std::string bytes) {
  // One mark at most: what looks like a second one is text.
  if (bytes.starts_with("\xEF\xBB\xBF")) {
    bytes.erase(0, 3);
  } else if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    return FromUtf16(std::string_view(bytes).substr(2), bytes.front() == '\xFE');
  }
  return IsUtf8(bytes) ? std::move(bytes) : FromWindows1252(bytes);
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

void ReadTeamFile(const std::filesystem::path& file,
                  const std::function<void(std::string line)>& giveLine) {
  const std::string text = Decoded(ReadBytes(file));
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t end = rest.find_first_of("\r\n");
    const std::string_view line = rest.substr(0, end);
    if (!line.empty()) giveLine(std::string(line));
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
}

}  // namespace dtb
