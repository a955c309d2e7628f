// The head and the tails of every outcome click.
#pragma once

#include <string_view>

#include "game/board.h"

namespace dtb {

// Passes when both teams are loaded, both pitchers named and a batter chosen. Without teams it
// stops silently, otherwise with the warning below.
[[nodiscard]] bool OutcomeGate(Board& board);

// The gate's two tests on their own, for the outcome that asks something else in between.
[[nodiscard]] bool BothTeamsLoaded(const BoardState& state);
[[nodiscard]] bool PitchersAndBatterChosen(const BoardState& state);

// The box that tells what is missing.
void PitcherBatterSelectWarn(Board& board);

// Adds the batter's whole list line and the suffix to the event log, while a side is at bat.
void LogOutcome(Board& board, std::string_view suffix);

// Moves the side at bat to the one who follows its batter, wherever the highlight is.
void AdvanceLineup(Board& board);

// Counts an at-bat for the current batter, wherever his row is, and moves on to the next batter. A
// name that is in neither table counts nothing and moves nothing.
void AssignAtBat(Board& board);

// The boxes "Stat Recorded." and "HIT recorded.".
void EventMessage(Board& board);
void HitRecordedMsg(Board& board);
// The boxes "At-Bat recorded." and, where the batter stays, "OUT recorded.".
void AtBatRecordedMsg(Board& board);
void OutOnBasesMsg(Board& board);
// The box "First base recorded.", of a batter without an at-bat.
void TakesFirstMsg(Board& board);

// The box "OUT recorded.", shown after tb_OUT was raised; then the batter leaves the board, and
// either the half-inning is closed or the next batter comes up. A sacrifice counts no at-bat.
enum class CountsAtBat { Yes, No };
void OutRecordedMsg(Board& board, CountsAtBat counts = CountsAtBat::Yes);

// The close of a half-inning on the board: box, game pieces and bases, log line.
void EndOfInning(Board& board);

}  // namespace dtb
