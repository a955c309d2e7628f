#include "record/short_names.h"

#include "base/utf8.h"
#include "game/player_name.h"

namespace dtb {
namespace {

std::string WithInitial(const std::string& name) {
  const std::string last = LastNameOf(name);
  // "Maris, Roger" has his first name behind.
  const std::size_t comma = name.find(", ");
  const bool behind = comma != std::string::npos && name.starts_with(last);
  const std::string_view first = std::string_view(name).substr(behind ? comma + 2 : 0);
  if (first.empty()) return name;
  return std::string(first.substr(0, FirstCharacter(first).bytes)).append(". ").append(last);
}

}  // namespace

ShortNames::ShortNames(const GameRecord& game) {
  for (const SideRecord& side : game.sides) {
    for (const BatterRecord& batter : side.batters) names_.emplace(batter.name, "");
    for (const PitcherRecord& pitcher : side.pitchers) names_.emplace(pitcher.name, "");
  }
  std::map<std::string, int> count;
  for (auto& [name, text] : names_) ++count[text = LastNameOf(name)];
  for (auto& [name, text] : names_) {
    if (count[text] > 1) ++count[text = WithInitial(name)];
  }
  for (auto& [name, text] : names_) {
    if (count[text] > 1) text = name;
  }
}

const std::string& ShortNames::Of(const std::string& name) const {
  const auto found = names_.find(name);
  return found == names_.end() ? name : found->second;
}

}  // namespace dtb
