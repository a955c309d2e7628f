#include "database/team_groups.h"

#include <algorithm>
#include <set>

#include "base/settings_keys.h"
#include "database/season_shelf.h"
#include "platform/seasons.h"

namespace dtb {
namespace {

// A line for each group, its name and its teams between tabs, behind this one. So no groups at all
// are told from groups that nobody has made.
constexpr std::string_view kHead = "groups";

// Tabs and line ends stand between the names.
std::string Plain(std::string text) {
  std::ranges::replace_if(
      text, [](char letter) { return letter >= 0 && letter < ' '; }, ' ');
  return text;
}

std::string_view TakeUpTo(std::string_view& text, char sign) {
  const std::string_view part = text.substr(0, text.find(sign));
  text.remove_prefix(std::min(part.size() + 1, text.size()));
  return part;
}

}  // namespace

std::string GroupsText(const TeamGroups& groups) {
  std::string text(kHead);
  for (const TeamGroup& group : groups) {
    text += '\n' + Plain(group.name);
    for (const std::string& team : group.teams) text += '\t' + Plain(team);
  }
  return text;
}

TeamGroups GroupsIn(std::string_view text) {
  if (TakeUpTo(text, '\n') != kHead) return {};
  TeamGroups groups;
  std::set<std::string, std::less<>> known;
  while (!text.empty()) {
    std::string_view line = TakeUpTo(text, '\n');
    TeamGroup group{std::string(TakeUpTo(line, '\t'))};
    if (group.name.empty()) continue;
    while (!line.empty()) {
      // A team stands in one group.
      const auto [team, first] = known.insert(std::string(TakeUpTo(line, '\t')));
      if (first && !team->empty()) group.teams.push_back(*team);
    }
    groups.push_back(std::move(group));
  }
  return groups;
}

TeamGroups LeaguesOfSeason(const Platform& platform) {
  return GroupsIn(SettingOfSeason(platform, settings::kSeasonLeagues));
}

TeamGroups GroupsOfSeason(const Platform& platform) {
  return GroupsOfSeason(platform, platform.seasons.InUse());
}

TeamGroups GroupsOfSeason(const Platform& platform, const std::string& season) {
  const std::string own = SettingOfSeason(platform, settings::kSeasonGroups, season);
  return GroupsIn(own.empty() ? SettingOfSeason(platform, settings::kSeasonLeagues, season) : own);
}

void KeepGroups(const Platform& platform, const TeamGroups& groups) {
  // The archive's own leagues go on to follow the archive.
  const bool asInArchive = groups == LeaguesOfSeason(platform);
  KeepForSeason(platform, settings::kSeasonGroups, asInArchive ? "" : GroupsText(groups));
}

void KeepLeagues(const Platform& platform, const TeamGroups& leagues) {
  KeepForSeason(platform, settings::kSeasonLeagues, leagues.empty() ? "" : GroupsText(leagues));
}

std::string FaultOfGroups(const TeamGroups& groups) {
  std::set<std::string> names;
  for (const TeamGroup& group : groups) {
    if (group.name.find_first_not_of(" \t\r\n") == std::string::npos) {
      return "A group needs a name.";
    }
    if (!names.insert(Plain(group.name)).second) {
      return "Two groups are called \"" + group.name + "\".";
    }
  }
  return {};
}

}  // namespace dtb
