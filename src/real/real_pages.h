// "Real and replayed" among the web pages of the season.
#pragma once

#include <string>
#include <vector>

#include "archive/kept_season.h"
#include "real/both_players.h"
#include "real/team_games.h"
#include "season/season_pages.h"

namespace dtb::real {

// Both standings and leaders, and a page for each compared team: its course, its games, its
// players' use. Empty where no team is compared.
[[nodiscard]] std::vector<SeasonPage> RealPages(const BothWorlds& worlds,
                                                const StartsOfPitchers& starts,
                                                const ArchiveIds& ids);

// Writes the season's pages as WriteSeasonPages does, with these pages among them where the season
// in use is tied to an archive; it is read if the program has not read it yet. Where it cannot be
// read, that is told, and the pages are written without them.
void WritePagesWithReal(Platform& platform, archive::KeptSeason& kept, const std::string& title,
                        const ExportProgress& progress);

}  // namespace dtb::real
