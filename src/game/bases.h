// The bases, while the board keeps them, and the plays, which it keeps in any case.
#pragma once

#include <optional>
#include <string>

#include "game/base_moves.h"
#include "game/board.h"

namespace dtb {

// "KEEP THE BASES" is on.
[[nodiscard]] inline bool KeepsBases(const BoardState& state) { return state.cb_KeepBases.value(); }

// The runner on first, second or third base, 1 to 3; none where the base is empty or what stands
// there is left from another half-inning.
[[nodiscard]] Runner RunnerOn(const BoardState& state, int base);
[[nodiscard]] Occupied OccupiedBases(const BoardState& state);
[[nodiscard]] bool AnyoneOn(const BoardState& state);

// The base of a player, 1 to 3; 0: he is on none.
[[nodiscard]] int BaseOf(const BoardState& state, const std::string& name);

// Keeps an outcome as a play, before its outs are counted. Where the board keeps the bases, it
// moves who must go, counts the runs and takes the pieces of those off who scored or are out. `out`
// is the base of the runner who is put out, 0 for the likeliest; for a steal the runner's base.
// While nobody is at bat nothing happens.
void KeepPlay(Board& board, Outcome outcome, int out = 0);

// The runner whom such an outcome puts out, with `out` as above; none where the board does not keep
// the bases, or they are empty.
[[nodiscard]] Runner RunnerPutOutNow(const Board& board, Outcome outcome, int out);

// One way of a runner, of a player from the bench, or of the batter, in a play: counts his run.
void Go(Board& board, Play& play, Way way, const Runner& runner);

// A player who came home in a play stands on a base after all, which must be empty: his run is
// taken back.
void TakeBackRun(Board& board, Play& play, std::size_t move, int base);

// A play that begins now, without moves. Runners of another half-inning are gone then.
[[nodiscard]] Play BeginPlay(Board& board, Outcome outcome);
// Its end: who stands where.
void EndPlay(Board& board, Play& play);

// Everybody leaves the bases: the half-inning is over, or the pieces are reset.
void ClearBases(Board& board);

// The batter gives place to another one: his piece is free, unless he stands on a base. Only where
// the board keeps the bases.
void LeaveTheBox(Board& board);

// Another player stands where a runner stood; the run stays that of the same pitcher.
void TakeOverBase(BoardState& state, const std::string& runner, const std::string& name);

// The piece of a player that is in use, 0 to 3.
[[nodiscard]] std::optional<int> PieceOf(const BoardState& state, const std::string& name);

}  // namespace dtb
