#include "base/file_names.h"

#include <algorithm>
#include <array>
#include <system_error>

#include "base/paths.h"
#include "base/utf8.h"

namespace dtb {
namespace {

constexpr std::size_t kLongestPart = 80;

bool IsForbidden(unsigned char character) {
  constexpr std::string_view kForbidden = R"(<>:"/\|?*)";
  constexpr unsigned char kFirstPrintable = 0x20;
  constexpr unsigned char kDelete = 0x7F;
  return character < kFirstPrintable || character == kDelete ||
         kForbidden.find(static_cast<char>(character)) != std::string_view::npos;
}

// Windows has devices of these names, with whatever ending.
bool NamesDevice(std::string_view part) {
  constexpr std::array kDevices{"CON", "PRN", "AUX", "NUL"};
  constexpr std::array kNumbered{"COM", "LPT"};  // and a digit
  std::string stem(part.substr(0, part.find('.')));
  while (stem.ends_with(' ')) stem.pop_back();
  for (char& letter : stem) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  }
  const auto isOf = [](std::string_view name, const auto& devices) {
    return std::ranges::find(devices, name) != devices.end();
  };
  const bool numbered = stem.size() == 4 && stem[3] >= '0' && stem[3] <= '9';
  return isOf(stem, kDevices) || (numbered && isOf(stem.substr(0, 3), kNumbered));
}

// The start of the text, with no character cut in two.
std::string_view Start(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text;
  while (most > 0 && ContinuesCharacter(text[most])) --most;
  return text.substr(0, most);
}

}  // namespace

std::string SafeNamePart(std::string_view text) {
  std::string part;
  for (std::string_view rest = Start(text, kLongestPart); !rest.empty();) {
    const std::size_t bytes = Utf8SequenceLength(rest);
    if (bytes == 0 || IsForbidden(static_cast<unsigned char>(rest.front()))) {
      part += '_';
    } else {
      part += rest.substr(0, bytes);
    }
    rest.remove_prefix(std::max<std::size_t>(bytes, 1));
  }
  while (part.ends_with(' ') || part.ends_with('.')) part.pop_back();
  return NamesDevice(part) ? '_' + part : part;
}

std::filesystem::path FreeFile(const std::filesystem::path& folder, const std::string& name,
                               const std::string& ending) {
  std::filesystem::path file = folder / PathOf(name + ending);
  std::error_code fault;
  for (int number = 2; std::filesystem::exists(file, fault); ++number) {
    file = folder / PathOf(std::string(name)
                               .append(" (")
                               .append(std::to_string(number))
                               .append(")")
                               .append(ending));
  }
  return file;
}

}  // namespace dtb
