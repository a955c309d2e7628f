// The teams of a season in groups, such as leagues and divisions.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"
#include "platform/platform.h"

namespace dtb {

struct TeamGroup {
  std::string name;
  std::vector<std::string> teams = {};  // by their names
  friend bool operator==(const TeamGroup&, const TeamGroup&) = default;
};
using TeamGroups = std::vector<TeamGroup>;  // in the order in which they are shown

// The groups of the season in use: those that the person made, which its database has, else the
// leagues that its archive of real games tells, else none. Of a database that cannot be read, those
// leagues.
[[nodiscard]] TeamGroups GroupsOfSeason(const Platform& platform);
// Of the season of that name, which has this database. Throws ProgramError if that cannot be read.
[[nodiscard]] TeamGroups GroupsOfSeason(const Platform& platform, const std::string& season,
                                        DatabaseReader& database);

// The leagues of the archive that is tied to the season in use, alone.
[[nodiscard]] TeamGroups LeaguesOfSeason(const Platform& platform);

// Keeps groups that the person made; none are a choice as well. The database of the season in use
// gets a table for them, so that they go wherever it goes. Throws ProgramError if it cannot be
// written.
void KeepGroups(const Platform& platform, const TeamGroups& groups);
// Puts groups that an older version kept in the settings into the database of that season. They
// stay in the settings, and count, for as long as that cannot be written.
void MoveGroups(const Platform& platform, const std::string& season);

// Keeps the leagues of an archive. They count until the person makes groups. Throws ProgramError if
// the settings cannot be written.
void KeepLeagues(const Platform& platform, const TeamGroups& leagues);

// What is wrong with such names of groups, in a sentence; "" for nothing. Each needs one of its
// own.
[[nodiscard]] std::string FaultOfGroups(const TeamGroups& groups);

// As the settings keep them. A text that makes no sense is no groups.
[[nodiscard]] std::string GroupsText(const TeamGroups& groups);
[[nodiscard]] TeamGroups GroupsIn(std::string_view text);

}  // namespace dtb
