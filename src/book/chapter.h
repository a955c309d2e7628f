// What one season gives to the book of all seasons.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "book/archive_ids.h"
#include "book/top_list.h"
#include "database/team_groups.h"
#include "season/season_leaders.h"

namespace dtb::book {

// A team of the season, by its place in the standings.
struct Placing {
  std::string team;
  int wins = 0;
  int losses = 0;
  int ties = 0;
  std::optional<Quotient> share;  // of the games won
};

// A league or division; one without a name where the season has none.
struct PlacingGroup {
  std::string name;
  std::vector<Placing> standings = {};
};

// A player of one team in one season.
struct SeasonLine {
  std::string name;
  std::string team;
  double teamGames = 0;
  std::optional<BattingTotals> batting = {};
  std::optional<PitchingTotals> pitching = {};
  int person = 0;  // of his chapter
};

// Whoever is one player in the season, perhaps of several teams.
struct Person {
  std::string name;
  std::string id = {};  // the archive's; "": not known
  std::vector<int> lines = {};
  bool namesake = false;  // another one of the season has his name
};

// Something that a player, a team or several pitchers did in a game, or in a run of games.
struct Feat {
  double value = 0;
  int chapter = 0;              // whose it is, once the chapters are in order
  std::vector<int> lines = {};  // the players', of that chapter; none: a team's
  std::string team = {};
  std::string opponent = {};              // "": not known
  std::optional<LocalTime> day = {};      // of a run of games: the first
  std::optional<LocalTime> last = {};     // of a run of games
  std::vector<std::string> figures = {};  // what else is told of it
};

// Records of a game are kept in these.
inline constexpr std::array kGameLeads{
    SeasonLead::Hits,        SeasonLead::HomeRuns,   SeasonLead::RunsBattedIn, SeasonLead::Runs,
    SeasonLead::StolenBases, SeasonLead::Strikeouts, SeasonLead::Innings};

struct Chapter {
  std::string name;                     // as it is shown
  std::optional<LocalTime> first = {};  // days of the games; none: nothing tells them
  std::optional<LocalTime> last = {};
  int games = 0;
  int gamesWithPlays = 0;
  int mixedGames = 0;             // left out of the records of a game, and of the feats
  std::string archiveFault = {};  // why no player has an id, although there is an archive
  std::vector<PlacingGroup> groups = {};
  std::vector<SeasonLine> lines = {};
  std::vector<Person> persons = {};

  std::array<TopList<Feat>, kGameLeads.size()> bestGames = {};
  TopList<Feat> teamRuns = {};  // in a game
  TopList<Feat> teamHits = {};
  std::vector<Feat> noHitters = {};  // pitchers
  std::vector<Feat> cycles = {};
  TopList<Feat> hitting = {};  // streaks
  TopList<Feat> winning = {};
};

// Reads one season. `goOn` is asked now and then; once it says no, there is none. Throws
// ProgramError.
[[nodiscard]] std::optional<Chapter> ReadChapter(Database& database, const std::string& name,
                                                 const ArchiveIds& ids, const TeamGroups& groups,
                                                 const std::function<bool()>& goOn);

}  // namespace dtb::book
