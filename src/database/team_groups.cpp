#include "database/team_groups.h"

#include <algorithm>
#include <optional>
#include <set>

#include "base/program_error.h"
#include "base/settings_keys.h"
#include "base/text_parts.h"
#include "database/rows.h"
#include "database/season_shelf.h"
#include "platform/seasons.h"

namespace dtb {
namespace {

// A line for each group, its name and its teams between tabs, behind this one. So no groups at all
// are told from groups that nobody has made.
constexpr std::string_view kFirstWord = "groups";

// Tabs and line ends stand between the names.
std::string Plain(std::string text) {
  std::ranges::replace_if(
      text, [](char letter) { return letter >= 0 && letter < ' '; }, ' ');
  return text;
}

// A row for each team, and one without a team for a group that has none; no groups at all are one
// row without a name, so that they are told from groups that nobody has made.
constexpr const char* kMakeTable =
    "CREATE TABLE IF NOT EXISTS TeamGroups (Place INTEGER, GroupName TEXT, Team TEXT)";

// A table of that name may be somebody else's.
bool HasTable(DatabaseReader& database) {
  return CountOf(database, {"SELECT count(*) FROM pragma_table_info('TeamGroups')"
                            " WHERE name IN ('Place', 'GroupName', 'Team')"}) == 3;
}

// Nothing: nobody has made any.
std::optional<TeamGroups> ReadGroups(DatabaseReader& database) {
  if (!HasTable(database)) return std::nullopt;
  std::optional<TeamGroups> groups;
  std::set<std::string> known;
  ForEachRow(database, {"SELECT GroupName, Team FROM TeamGroups ORDER BY Place"},
             [&](std::span<const DatabaseValue> row) {
               if (!groups) groups.emplace();
               const std::string name = TextIn(row[0]);
               const std::string team = TextIn(row[1]);
               if (name.empty()) return;
               if (groups->empty() || groups->back().name != name) groups->push_back({name});
               // A team stands in one group.
               if (!team.empty() && known.insert(team).second) groups->back().teams.push_back(team);
             });
  return groups;
}

void WriteGroups(Database& database, const std::optional<TeamGroups>& groups) {
  const std::unique_ptr<DatabaseChange> change = database.BeginChange();
  change->Execute({kMakeTable});
  change->Execute({"DELETE FROM TeamGroups"});
  int place = 0;
  const auto add = [&](const std::string& name, const std::string& team) {
    change->Execute({"INSERT INTO TeamGroups (Place, GroupName, Team) VALUES (" +
                         std::to_string(++place) + ", ?1, ?2)",
                     {name, team}});
  };
  if (groups && groups->empty()) add("", "");
  for (const TeamGroup& group : groups.value_or(TeamGroups())) {
    if (group.teams.empty()) add(group.name, "");
    for (const std::string& team : group.teams) add(group.name, team);
  }
  change->Commit();
}

}  // namespace

std::string GroupsText(const TeamGroups& groups) {
  std::string text(kFirstWord);
  for (const TeamGroup& group : groups) {
    text += '\n' + Plain(group.name);
    for (const std::string& team : group.teams) text += '\t' + Plain(team);
  }
  return text;
}

TeamGroups GroupsIn(std::string_view text) {
  if (TakeUpTo(text, '\n') != kFirstWord) return {};
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
  try {
    return GroupsOfSeason(platform, platform.seasons.InUse(), platform.database);
  } catch (const ProgramError&) {
    return LeaguesOfSeason(platform);  // whoever shows the games tells what is wrong
  }
}

TeamGroups GroupsOfSeason(const Platform& platform, const std::string& season,
                          DatabaseReader& database) {
  const std::string older = SettingOfSeason(platform, settings::kSeasonGroups, season);
  if (!older.empty()) return GroupsIn(older);
  const std::optional<TeamGroups> own = ReadGroups(database);
  return own ? *own : GroupsIn(SettingOfSeason(platform, settings::kSeasonLeagues, season));
}

void KeepGroups(const Platform& platform, const TeamGroups& groups) {
  // The archive's own leagues go on to follow the archive.
  const bool asInArchive = groups == LeaguesOfSeason(platform);
  if (!asInArchive || HasTable(platform.database)) {
    WriteGroups(platform.database, asInArchive ? std::nullopt : std::optional(groups));
  }
  ForgetForSeason(platform, settings::kSeasonGroups, platform.seasons.InUse());
}

void MoveGroups(const Platform& platform, const std::string& season) {
  const std::string older = SettingOfSeason(platform, settings::kSeasonGroups, season);
  if (older.empty() || !platform.seasons.Stands(season)) return;
  try {
    WriteGroups(*platform.seasons.OpenSeason(season), GroupsIn(older));
    ForgetForSeason(platform, settings::kSeasonGroups, season);
  } catch (const ProgramError&) {
    // The next start tries again.
  }
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
