#include "base/file_names.h"

#include <algorithm>
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
  return part;
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
