#include "game/player_name.h"

#include <algorithm>
#include <array>

namespace dtb {
namespace {

constexpr std::array<std::string_view, 8> kSuffixes{"Jr.", "Jr",  "Sr.", "Sr",
                                                    "II",  "III", "IV",  "V"};

// Words that begin a family name, behind a first name: "La Stella", "De La Cruz".
constexpr std::array<std::string_view, 18> kParticles{"da",  "de",  "del", "den", "der", "di",
                                                      "dos", "du",  "el",  "la",  "las", "le",
                                                      "los", "san", "st.", "ter", "van", "von"};

bool IsParticle(std::string_view word) {
  std::string small(word);
  if (!small.empty() && small.front() >= 'A' && small.front() <= 'Z') small.front() += 'a' - 'A';
  return std::ranges::find(kParticles, small) != kParticles.end();
}

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

std::string LastNameOf(std::string_view name) {
  const std::string_view whole = Trimmed(name);
  const auto comma = whole.find(',');
  const std::string_view front = Trimmed(whole.substr(0, comma));
  const std::string_view behind =
      comma == std::string_view::npos ? "" : Trimmed(whole.substr(comma + 1));
  const auto isSuffix = [](std::string_view word) {
    return std::ranges::find(kSuffixes, word) != kSuffixes.end();
  };
  // "Maris, Roger", but not "Ken Griffey, Jr."
  if (comma != std::string_view::npos && !isSuffix(behind)) return std::string(front);
  auto blank = front.rfind(' ');
  if (blank == std::string_view::npos) return std::string(whole);
  if (isSuffix(front.substr(blank + 1))) {
    const std::string_view before = Trimmed(front.substr(0, blank));
    if (before.rfind(' ') == std::string_view::npos) return std::string(whole);
    blank = before.rfind(' ');
  }
  while (true) {
    const std::string_view before = Trimmed(front.substr(0, blank));
    const auto earlier = before.rfind(' ');
    if (earlier == std::string_view::npos || !IsParticle(before.substr(earlier + 1))) break;
    blank = earlier;
  }
  return std::string(Trimmed(whole.substr(blank + 1)));
}

}  // namespace dtb
