#include "game/base_running.h"

#include <algorithm>
#include <optional>

#include "game/bases.h"
#include "game/batter_guard.h"
#include "game/game_pieces.h"
#include "game/gate.h"
#include "game/history.h"
#include "game/new_game.h"
#include "game/outcomes.h"
#include "game/play_words.h"
#include "game/player_name.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

// Who is in the way, from place to place; "" for nobody.
std::string InTheWay(const BoardState& state, Way way) {
  const int step = way.to > way.from ? 1 : -1;
  for (int base = way.from + step; base != way.to + step; base += step) {
    if (base < kFirstBase || base > kThirdBase) continue;
    const Runner runner = RunnerOn(state, base);
    if (!runner.none()) return runner.name;
  }
  return "";
}

// Why the way is no way: "Varrow is on third; Hathersby cannot pass him."
std::string Refusal(const BoardState& state, Way way) {
  const Runner runner = RunnerOn(state, way.from);
  if (runner.none()) return std::string("Nobody is on ") + BaseName(way.from) + ".";
  const std::string other = InTheWay(state, way);
  if (other.empty()) return "";
  const int base = BaseOf(state, other);
  return LastNameOf(other) + " is on " + BaseName(base) + "; " + LastNameOf(runner.name) +
         (base == way.to ? " cannot go there." : " cannot pass him.");
}

// The last play is still that of the batter and the runners: what moves now belongs to it.
bool IsOpen(const BoardState& state) {
  if (state.plays.empty()) return false;
  const Play last = state.plays.Last();
  return last.basesKept && last.half == HalfInProgress(state) &&
         last.outcome != Outcome::RunBattedIn && last.outcome != Outcome::PutOnBase;
}

// The last run of a play, where the outcome took the runner home.
std::optional<std::size_t> LastRunOf(const Play& play) {
  for (std::size_t move = play.moves.size(); move > 0; --move) {
    const Move& run = play.moves[move - 1];
    if (run.to != kHomePlate) continue;
    return TakesHome(play.outcome, run.from) ? std::optional(move - 1) : std::nullopt;
  }
  return std::nullopt;
}

bool Bats(const BoardState& state, const std::string& name) {
  return name == state.lbl_Selected.value() && !state.BatterOf.value().empty();
}

bool CanMove(Board& board) {
  if (!KeepsBases(board.state) || !SideAtBat(board.state)) return false;
  return !RefusesAfterSave(board);
}

void LogMove(Board& board, const std::string& name, int to) {
  if (to != kHomePlate) board.log.Append(name + "_____[to " + BaseName(to) + "]");
}

// Where a player stood when the last play began; 0: on no base.
int BaseBefore(const Play& play, const std::string& name) {
  const auto move = std::ranges::find(play.moves, name, &Move::name);
  if (move != play.moves.end()) return move->from <= kThirdBase ? move->from : 0;
  const auto stayed = std::ranges::find(play.after, name);
  return stayed == play.after.end() ? 0 : static_cast<int>(stayed - play.after.begin()) + 1;
}

}  // namespace

void MoveRunner(Board& board, int from, int to, MoveOf belongs) {
  if (!CanMove(board)) return;
  BoardState& state = board.state;
  const Way way{from, to};
  if (const std::string why = Refusal(state, way); !why.empty() || from == to) {
    if (!why.empty()) board.platform.boxes.Notify(why);
    return;
  }
  if (!IsFree(OccupiedBases(state), way)) return;
  Trapped(board.platform.boxes, [&] {
    const Runner runner = RunnerOn(state, from);
    const Gesture gesture(board, std::string("to ") + BaseName(to) + ", " + runner.name);
    const bool joins = belongs == MoveOf::LastPlay && IsOpen(state);
    Play play = joins ? state.plays.Last() : BeginPlay(board, Outcome::Advance);
    LogMove(board, runner.name, to);
    Go(board, play, way, runner);
    EndPlay(board, play);
    if (joins) {
      state.plays.Replace(state.plays.size() - 1, play);
    } else {
      state.plays.Append(play);
    }
    // One who is back where he was has not moved.
    const std::string words = MoveInWords(play, runner.name);
    if (!words.empty()) board.platform.boxes.Notify(words);
  });
}

std::string RunnerToHold(const Board& board) {
  const BoardState& state = board.state;
  if (!KeepsBases(state) || !IsOpen(state) || !RunnerOn(state, kThirdBase).none()) return "";
  const Play last = state.plays.Last();
  const auto move = LastRunOf(last);
  return move ? last.moves.at(*move).name : "";
}

void HoldAtThird(Board& board) {
  const std::string name = RunnerToHold(board);
  if (name.empty() || !CanMove(board)) return;
  Trapped(board.platform.boxes, [&] {
    BoardState& state = board.state;
    const Gesture gesture(board, "back to third, " + name);
    Play play = state.plays.Last();
    board.log.Append(name + "_____[back to third]");
    TakeBackRun(board, play, LastRunOf(play).value(), kThirdBase);
    EndPlay(board, play);
    state.plays.Replace(state.plays.size() - 1, play);
    board.platform.boxes.Notify(LastNameOf(name) + " stands on third.");
  });
}

std::string WhyNotOnBase(const BoardState& state, const std::string& name, int base) {
  if (Bats(state, name)) return LastNameOf(name) + " bats.";
  if (BaseOf(state, name) > 0) return LastNameOf(name) + " is on base already.";
  const Runner there = RunnerOn(state, base);
  return there.none() ? "" : LastNameOf(there.name) + " is on " + BaseName(base) + ".";
}

void PutOnBase(Board& board, const std::string& name, int base, CameOn came) {
  if (!CanMove(board) || name.empty()) return;
  BoardState& state = board.state;
  const std::string why = WhyNotOnBase(state, name, base);
  if (!why.empty()) return board.platform.boxes.Notify(why);
  Trapped(board.platform.boxes, [&] {
    const Gesture gesture(board, std::string("on ") + BaseName(base) + ", " + name);
    Play play = BeginPlay(board, Outcome::PutOnBase);
    if (!PieceOf(state, name)) PlaceBatterPhoto(board, name);
    board.log.Append(name + std::string(LogSuffix(Outcome::PutOnBase)));
    Go(board, play, {kFromBench, base}, {name, play.pitcher, came == CameOn::WithoutTimeAtBat});
    EndPlay(board, play);
    state.plays.Append(play);
    board.platform.boxes.Notify(PlayInWords(play));
  });
}

bool AsksWhoIsOut(const Board& board, Outcome outcome) {
  if (outcome != Outcome::ThrownOut || !KeepsBases(board.state)) return false;
  const Occupied occupied = OccupiedBases(board.state);
  return PitchersAndBatterChosen(board.state) && std::ranges::count(occupied, true) > 1;
}

std::string RunnerBefore(const Play& play, int base) {
  for (const Move& move : play.moves) {
    if (BaseBefore(play, move.name) == base) return move.name;
  }
  const std::string& stayed = play.after.at(static_cast<std::size_t>(base - kFirstBase));
  return BaseBefore(play, stayed) == base ? stayed : "";
}

bool CanPutOutAnother(const Board& board) {
  const PlayList& plays = board.state.plays;
  if (board.history == nullptr || plays.empty() || !KeepsBases(board.state)) return false;
  if (board.choice.steps != board.history->steps() || board.choice.plays != plays.size()) {
    return false;
  }
  const Play last = plays.Last();
  int runners = 0;
  for (int base = kFirstBase; base <= kThirdBase; ++base) {
    runners += RunnerBefore(last, base).empty() ? 0 : 1;
  }
  return runners > 1;
}

void PutOutInstead(Board& board, const std::string& name) {
  if (!CanPutOutAnother(board)) return;
  const Play last = board.state.plays.Last();
  const int base = BaseBefore(last, name);
  const bool out = std::ranges::any_of(
      last.moves, [&name](const Move& move) { return move.name == name && move.to == kPutOut; });
  if (base == 0 || out) return;
  board.history->Undo(board);
  RecordOutcome(board, last.outcome, base);
}

std::vector<int> PlacesFor(const BoardState& state, std::optional<int> piece) {
  const std::string name =
      piece ? state.pieces.at(static_cast<std::size_t>(*piece)).tag.value() : "";
  const int base = BaseOf(state, name);
  const bool bats = piece && Bats(state, name);
  const Occupied occupied = OccupiedBases(state);
  std::vector<int> places;
  for (int place = kFirstBase; place <= kHomePlate; ++place) {
    const bool empty = place <= kThirdBase && RunnerOn(state, place).none();
    const bool free = base > 0 ? place == base || IsFree(occupied, {base, place})
                      : bats   ? place == kFirstBase
                               : empty;
    if (free) places.push_back(place);
  }
  if (piece) places.push_back(kPutOut);
  return places;
}

void DropPiece(Board& board, int piece, int place, MoveOf belongs) {
  if (!KeepsBases(board.state)) return;
  const GamePiece& dropped = board.state.pieces.at(static_cast<std::size_t>(piece));
  if (dropped.free()) return;
  const std::string name = dropped.tag.value();
  const int base = BaseOf(board.state, name);
  const bool onField = place >= kFirstBase && place <= kThirdBase;
  if (base > 0 && place == kPutOut) return RecordOutcome(board, Outcome::ThrownOut, base);
  if (base > 0) return MoveRunner(board, base, place, belongs);
  if (!Bats(board.state, name)) {
    if (onField) PutOnBase(board, name, place, CameOn::Before);
    if (place == kPutOut) FreePiece(board, piece);
    return;
  }
  if (place == kFirstBase) return RecordOutcome(board, Outcome::TakesFirst);
  if (place == kPutOut) return RecordOutcome(board, Outcome::Sacrifice);
  board.platform.boxes.Notify("Click the hit that takes " + LastNameOf(name) + " there.");
}

}  // namespace dtb
