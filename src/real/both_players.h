// The players of both worlds: what each did on the board and what he really did.
#pragma once

#include <map>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

#include "platform/database.h"
#include "real/both_standings.h"
#include "season/season_leaders.h"

namespace dtb::real {

// How many games each pitcher started, by team and name: he is the first of his side whom the
// database has for a game.
using StartsOfPitchers = std::map<std::pair<std::string, std::string>, double>;
// Throws ProgramError. Any thread may call it; once a stop is asked for, it fails soon.
[[nodiscard]] StartsOfPitchers ReadStarts(DatabaseReader& database,
                                          const std::stop_token& stop = {});

// "Luis Garcia" of "Luis Garcia (2)"; any other name whole.
[[nodiscard]] std::string WithoutNumber(const std::string& name);

// A player of a compared team.
struct BothPlayer {
  std::string name;  // as saved games have him, else as a team file would
  int team = 0;
  int inArchive =
      archive::kNobody;  // a place in Club::players; kNobody: the archive does not have him
  // On the board; nothing where he has no row.
  std::optional<BattingTotals> batting = {};
  std::optional<PitchingTotals> pitching = {};
  double starts = 0;
  // Really, up to the moment.
  archive::Batting reallyBatted = {};
  archive::Pitching reallyPitched = {};
};

// A name on the board is the club's player whose name it is, with or without a number behind it:
// "Luis Garcia (2)" is Luis Garcia where the club has one only. Of several with one name it is the
// one to whom a team file gives the same number; else nobody. In the order of names, then of teams,
// and with all who played in either world, or will.
[[nodiscard]] std::vector<BothPlayer> PlayersOfBoth(const BothWorlds& worlds, const Moment& moment,
                                                    const StartsOfPitchers& starts);

// Gives both worlds their players, in the places that they have in `players`, so that Leaders lists
// them. Plate appearances are those that the board knows, at-bats and walks.
void AddPlayers(BothStandings& both, const std::vector<BothPlayer>& players);

// Of how many games of the compared teams at that moment the archive does not tell a figure that
// the list needs.
struct Untold {
  int games = 0;
  int of = 0;
};
[[nodiscard]] Untold UntoldOf(const BothWorlds& worlds, const Moment& moment, SeasonLead lead);
// "The archive lacks this for 12 of the teams' 60 games."; "" where it tells all.
[[nodiscard]] std::string UntoldText(const Untold& untold);

}  // namespace dtb::real
