// What a person does with the runners while the board keeps the bases. Each is one gesture; what
// cannot be is told in a notice, and then nothing changes.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "game/board.h"
#include "game/outcome.h"

namespace dtb {

// Whether a move belongs to the play before it, whose batter then drives a run in, or is one of its
// own, as after a wild pitch.
enum class MoveOf { LastPlay, ItsOwn };

// The runner goes on from a base, 1 to 3, to another one or home, or back to a base. He passes
// nobody and shares no base.
void MoveRunner(Board& board, int from, int to, MoveOf belongs = MoveOf::LastPlay);

// Who came home last in the last play, as far as its outcome took him; "" where nobody did, where
// third base is taken, or where the game has gone on since.
[[nodiscard]] std::string RunnerToHold(const Board& board);
// He stands on third instead, and his run is taken back.
void HoldAtThird(Board& board);

// A player of the side at bat comes on without a time at bat, as the runner does with whom extra
// innings begin; his run is not earned then (Official Baseball Rules, 7.01(b)). Or he was on base
// before the board kept the bases. The base must be empty, and he on no other one.
enum class CameOn { WithoutTimeAtBat, Before };
void PutOnBase(Board& board, const std::string& name, int base,
               CameOn came = CameOn::WithoutTimeAtBat);
// Why he cannot; "": he can.
[[nodiscard]] std::string WhyNotOnBase(const BoardState& state, const std::string& name, int base);

// Which of several runners is out has to be asked before this outcome is recorded.
[[nodiscard]] bool AsksWhoIsOut(const Board& board, Outcome outcome);

// The newest step put out a runner, and there were others: who else it may have been can be chosen.
[[nodiscard]] bool CanPutOutAnother(const Board& board);
// Who stood on a base, 1 to 3, when a play began; "": nobody.
[[nodiscard]] std::string RunnerBefore(const Play& play, int base);
// Undoes that step and records it again, with another runner out; `name` is who. Nothing happens
// where it cannot be, or he is out already.
void PutOutInstead(Board& board, const std::string& name);

// Where a piece, 0 to 3, or a row of a line-up (none) may be let go: bases, home plate, or off the
// field. A runner may also stay on his base.
[[nodiscard]] std::vector<int> PlacesFor(const BoardState& state, std::optional<int> piece);

// A piece, 0 to 3, was let go over a place: a base, home plate, or off the field. The runner on it
// moves, scores or is out; the batter takes first, or is out without an at-bat; who is neither is
// put on the base. `belongs` as above.
void DropPiece(Board& board, int piece, int place, MoveOf belongs);

}  // namespace dtb
