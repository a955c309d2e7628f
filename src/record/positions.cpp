#include "record/positions.h"

#include <algorithm>
#include <array>

namespace dtb {
namespace {

constexpr std::array<std::string_view, 16> kPositions{
    "P", "C", "1B", "2B", "3B", "SS", "LF", "CF", "RF", "DH", "OF", "IF", "UT", "PH", "PR", "INF"};
constexpr std::string_view kBlanks = " \t";

// Takes the first word off the text, and the blanks around it.
std::string_view TakeWord(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text.remove_prefix(word.size());
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return word;
}

bool IsDigit(char letter) { return letter >= '0' && letter <= '9'; }

// One position, or several as in "2B-SS" or "LF/CF".
bool ArePositions(std::string_view word) {
  while (true) {
    const std::size_t end = word.find_first_of("-/,");
    if (std::ranges::find(kPositions, word.substr(0, end)) == kPositions.end()) return false;
    if (end == std::string_view::npos) return true;
    word.remove_prefix(end + 1);
  }
}

}  // namespace

std::string PositionIn(std::string_view entry) {
  const std::size_t sign = entry.find('=');
  if (sign == std::string_view::npos) return "";
  std::string_view remark = entry.substr(sign + 1);
  std::string_view word = TakeWord(remark);
  while (word.ends_with(',') || word.ends_with(':')) word.remove_suffix(1);
  if (word.empty() || !ArePositions(word)) return "";
  const bool mayCount = IsDigit(word.front());
  const std::string_view next = remark.substr(0, remark.find_first_of(kBlanks));
  if (mayCount && !next.empty() && std::ranges::all_of(next, IsDigit)) return "";
  return std::string(word);
}

}  // namespace dtb
