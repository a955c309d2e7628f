// The season on the board and the real one that it is tied to: which teams are in both, and both as
// they stood at one moment.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "archive/remarks.h"
#include "season/season_figures.h"

namespace dtb::real {

inline constexpr int kNoClub = -1;

// Both are there. They do not change, so any thread may look at them.
struct BothWorlds {
  std::shared_ptr<const SeasonFigures> replayed;
  std::shared_ptr<const archive::Season> archive;
  archive::NameForm names = archive::NameForm::FirstLast;  // of players who are not replayed yet
  std::vector<int> clubs = {};  // of each team of `replayed`: its club in the archive, or kNoClub

  [[nodiscard]] bool Compares(int team) const { return clubs[team] != kNoClub; }
};

// A team is compared with the club from which the board would make a team of that name. Any thread
// may call it.
[[nodiscard]] BothWorlds PairWorlds(std::shared_ptr<const SeasonFigures> replayed,
                                    std::shared_ptr<const archive::Season> archive,
                                    archive::NameForm names = archive::NameForm::FirstLast);

// The teams that have played and are not compared, in the order of names.
[[nodiscard]] std::vector<std::string> NotCompared(const BothWorlds& worlds);

// How far both worlds are looked at.
struct Moment {
  enum class By {
    Games,  // each team's first games, as many of them as are replayed
    Date,   // the games up to a day
  };
  By by = By::Games;
  // At most so many games of each team; or the last day that counts, as archive::DayOf has it.
  // None: all that are replayed; or the last day that is.
  std::optional<int> last = {};
};

// The day of a game as archive::DayOf has it; nothing for a game without one.
[[nodiscard]] std::optional<int> DayOfGame(const SeasonGame& game);
// "7 Aug 2020"
[[nodiscard]] std::string TextOfDay(int day);

// The last day, of those on which the archive has games, on which a compared team is replayed;
// nothing where none is.
[[nodiscard]] std::optional<int> LastDayReplayed(const BothWorlds& worlds);

// 1: the side won, -1: it lost, 0: a tie, or given to nobody; nothing where the archive does not
// tell. A game that was given to a side is won by it whatever the runs.
[[nodiscard]] std::optional<int> ResultOf(const archive::Game& game, int side);

// The compared teams at that moment, in each of the worlds. All teams of `replayed` have their
// places; one that is not compared has no games. Without players. A team's games, wins, losses and
// runs are those that count for it; of a game between two teams each counts it by itself, since one
// may have played more games than the other. Real games whose result is not told are left out.
[[nodiscard]] SeasonFigures ReplayedAt(const BothWorlds& worlds, const Moment& moment);
[[nodiscard]] SeasonFigures ReallyAt(const BothWorlds& worlds, const Moment& moment);

// How many games of the team's club count at that moment; places of Club::games before it.
[[nodiscard]] int RealGamesAt(const BothWorlds& worlds, int team, const Moment& moment);
// How many of these have no result in the archive.
[[nodiscard]] int ResultsNotTold(const BothWorlds& worlds, int team, const Moment& moment);

}  // namespace dtb::real
