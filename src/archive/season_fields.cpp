#include "archive/season_fields.h"

#include <algorithm>
#include <charconv>

#include "archive/season.h"
#include "base/decoded_text.h"

namespace dtb::archive {

std::string_view TakeField(std::string_view& line) {
  std::string_view field;
  if (!line.empty() && line.front() == '"') {
    const std::size_t end = std::min(line.find('"', 1), line.size());
    field = line.substr(1, end - 1);
    line.remove_prefix(std::min(end + 1, line.size()));
    line.remove_prefix(std::min(line.find(','), line.size()));
  } else {
    field = line.substr(0, line.find(','));
    line.remove_prefix(field.size());
  }
  if (!line.empty()) line.remove_prefix(1);
  return field;
}

std::optional<int> Number(std::string_view text) {
  int number = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (fault != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<int> SideNumber(std::string_view text) {
  if (text == "0") return 0;
  if (text == "1") return 1;
  return std::nullopt;
}

std::string Readable(std::string_view bytes) {
  std::string text = DecodedText(std::string(bytes));
  std::erase_if(text, [](unsigned char c) { return c < 0x20 || c == 0x7F; });
  const std::size_t start = std::min(text.find_first_not_of(' '), text.size());
  text.erase(0, start);
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

bool IsId(std::string_view text) {
  const auto plain = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '_' || c == '\'' || c == '.';
  };
  const auto letter = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
  };
  return text.size() <= season_limit::kIdBytes && std::ranges::all_of(text, plain) &&
         std::ranges::any_of(text, letter);
}

}  // namespace dtb::archive
