// "teams" on the command line.
#pragma once

#include <QStringList>

namespace dtb::replay {

inline constexpr const char* kTeamsUsage =
    "teams [--game ID | --usual-nine] [--batters FORM] [--pitchers FORM] [--last-first]\n"
    "             [--batting FILE.csv] [--pitching FILE.csv] [--replace] ARCHIVE FOLDER";

// Makes team files of a season's archive, as MakeTeams tells, and prints what came of it. Returns
// the exit status: 0 done, 1 not, or not all of it, 2 not understood.
int RunTeams(const QStringList& arguments);

}  // namespace dtb::replay
