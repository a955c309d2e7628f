// What an outcome does to the runners by itself.
#pragma once

#include <array>
#include <vector>

#include "game/plays.h"

namespace dtb {

// Whether first, second and third base have a runner.
using Occupied = std::array<bool, kBases>;

// A way from place to place: from the plate or a base, to a base, home, or out.
struct Way {
  int from = kAtBatPlace;
  int to = kPutOut;
  friend bool operator==(const Way&, const Way&) = default;
};

// An outcome by which a runner is put out: a double play, a fielder's choice, a runner thrown out.
[[nodiscard]] bool PutsRunnerOut(Outcome outcome);

// The base of the runner whom such an outcome puts out unless somebody else is meant: the foremost
// of those who are forced by a fielder's choice, the one forced from first in a double play, else
// the foremost of all. 0 for empty bases.
[[nodiscard]] int RunnerPutOut(Outcome outcome, const Occupied& occupied);

// Where the batter and the runners go who must, the foremost first. On a hit or an error every
// runner takes as many bases as the batter; a walk and a fielder's choice push who is forced. `out`
// is the base of the runner who is put out, where the outcome does so: RunnerPutOut, or the
// person's choice. Who is not named stays.
[[nodiscard]] std::vector<Way> WaysOf(Outcome outcome, const Occupied& occupied, int out);

// An outcome takes a runner from a base home, without a force: he might have stopped at third.
[[nodiscard]] bool TakesHome(Outcome outcome, int from);

// Nobody stands between the two places or at the end, and the way leads somewhere: forward from a
// base to a base or home, or back to a base.
[[nodiscard]] bool IsFree(const Occupied& occupied, Way way);

}  // namespace dtb
