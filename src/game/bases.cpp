#include "game/bases.h"

#include <algorithm>
#include <utility>

#include "game/game_pieces.h"
#include "game/innings.h"
#include "game/play_credits.h"
#include "game/play_words.h"

namespace dtb {
namespace {

Field<Runner>& FieldOf(BoardState& state, int base) {
  return state.base.at(static_cast<std::size_t>(base - kFirstBase));
}

bool IsBase(int place) { return place >= kFirstBase && place <= kThirdBase; }

// Outs of the half-inning as its earned runs see them, with those of the play itself: an at-bat on
// which an error let the batter live counts as one. A pitcher who came in the middle of it has no
// use of the errors before him (Official Baseball Rules, 9.16(i)).
int OutsWithErrors(const Board& board, const Play& play, const std::string& pitcher) {
  const int outs = play.outsBefore + OutsOf(play);
  const PlayList& plays = board.state.plays;
  std::size_t first = plays.size();
  while (first > 0 && plays.HalfAt(first - 1) == play.half) --first;
  const std::string began = first < plays.size() ? plays.At(first).pitcher : play.pitcher;
  int errors = 0;
  for (std::size_t place = first; place < plays.size(); ++place) {
    if (plays.OutcomeAt(place) != Outcome::AtBat) continue;
    errors += began == pitcher || plays.At(place).pitcher == pitcher ? 1 : 0;
  }
  return outs + errors;
}

// Whether a run on such a play is the batter's work (9.04): on hits and outs, and where he forces
// it in with a walk, but not on a double play, an error, or while he does nothing.
bool GivesRunBattedIn(const Play& play) {
  // Once the play has ended, a further move is by hand.
  const bool forced = play.after == std::array<std::string, kBases>{};
  switch (play.outcome) {
    case Outcome::Walk:
    case Outcome::TakesFirst:
      return forced;
    case Outcome::Single:
    case Outcome::Double:
    case Outcome::Triple:
    case Outcome::Homer:
    case Outcome::Groundout:
    case Outcome::Flyout:
    case Outcome::Lineout:
    case Outcome::Popout:
    case Outcome::FieldersChoice:
    case Outcome::Sacrifice:
      return true;
    default:
      return false;
  }
}

bool IsEarned(const Board& board, const Play& play, const Runner& runner) {
  return !runner.byError && play.outcome != Outcome::AtBat &&
         OutsWithErrors(board, play, runner.pitcher) < kOutsOfHalf;
}

void CountRun(Board& board, const Play& play, const Runner& runner, Move& move) {
  move.pitcher = runner.pitcher;
  move.byError = runner.byError;
  move.battedIn = GivesRunBattedIn(play);
  move.earned = IsEarned(board, play, runner);
  if (play.half < kHalves) Cell(board.state, play.half).text.Raise();
  ScoreUpdate(board);
  CreditRun(board, play, move, 1);
  board.log.Append(runner.name + "_____R");
}

// A player who goes on in the same play has one move; one who is back where he was has none.
void AddMove(Play& play, Move move) {
  const auto before = std::ranges::find_if(play.moves, [&move](const Move& earlier) {
    return earlier.name == move.name && earlier.to == move.from;
  });
  if (before == play.moves.end()) {
    play.moves.push_back(std::move(move));
    return;
  }
  move.from = before->from;
  *before = std::move(move);
  if (before->from == before->to) play.moves.erase(before);
}

void ReleasePiece(BoardState& state, const std::string& name) {
  if (const auto piece = PieceOf(state, name)) {
    EmptyPiece(state.pieces.at(static_cast<std::size_t>(*piece)));
  }
}

void ShowOnTracker(BoardState& state) {
  for (std::size_t base = 0; base < state.base.size(); ++base) {
    state.lbl_tracker.at(base).Set(state.base.at(base).value().none() ? kWhite : kOccupiedGreen);
  }
}

// Whoever comes to bat takes part in the game.
void NotePart(Board& board, const std::string& name) {
  const auto atBat = SideAtBat(board.state);
  if (!atBat || name.empty()) return;
  StatGrid& grid = SideOf(board, *atBat).grid;
  if (const auto row = grid.FindRow(stat_column::kBatter, name)) {
    grid.SetText(*row, stat_column::kPlayed, "1");
  }
}

// The pitchers answer for as many runs as they put on, not for these very players: who takes the
// place of one who is put out takes over whose run he was (9.16(g)). The batter comes last.
Runner HandOver(BoardState& state, int out, Runner batter) {
  Runner carried = RunnerOn(state, out);
  for (int base = out - 1; base >= kFirstBase; --base) {
    Runner runner = RunnerOn(state, base);
    if (runner.none()) continue;
    std::swap(runner.pitcher, carried.pitcher);
    std::swap(runner.byError, carried.byError);
    FieldOf(state, base).Set(runner);
  }
  batter.pitcher = carried.pitcher;
  batter.byError = carried.byError;
  return batter;
}

}  // namespace

Runner RunnerOn(const BoardState& state, int base) {
  const bool fresh = state.BasesHalf == HalfInProgress(state);
  return fresh ? state.base.at(static_cast<std::size_t>(base - kFirstBase)).value() : Runner{};
}

Occupied OccupiedBases(const BoardState& state) {
  Occupied occupied{};
  for (int base = kFirstBase; base <= kThirdBase; ++base) {
    occupied.at(static_cast<std::size_t>(base - kFirstBase)) = !RunnerOn(state, base).none();
  }
  return occupied;
}

bool AnyoneOn(const BoardState& state) { return OccupiedBases(state) != Occupied{}; }

int BaseOf(const BoardState& state, const std::string& name) {
  for (int base = kFirstBase; base <= kThirdBase && !name.empty(); ++base) {
    if (RunnerOn(state, base).name == name) return base;
  }
  return 0;
}

Runner RunnerPutOutNow(const Board& board, Outcome outcome, int out) {
  const BoardState& state = board.state;
  if (!KeepsBases(state)) return {};
  const int base = out > 0 ? out : RunnerPutOut(outcome, OccupiedBases(state));
  return base > 0 ? RunnerOn(state, base) : Runner{};
}

std::optional<int> PieceOf(const BoardState& state, const std::string& name) {
  const auto piece = std::ranges::find_if(state.pieces, [&name](const GamePiece& one) {
    return !one.free() && one.tag.value() == name;
  });
  if (piece == state.pieces.end()) return std::nullopt;
  return static_cast<int>(piece - state.pieces.begin());
}

void Go(Board& board, Play& play, Way way, const Runner& runner) {
  BoardState& state = board.state;
  if (IsBase(way.from)) FieldOf(state, way.from).Set({});
  Move move{runner.name, way.from, way.to, {}, false, false, false};
  if (IsBase(way.to)) {
    FieldOf(state, way.to).Set(runner);
    PlaceBatterPhoto(board, runner.name);  // a reset, or a turn at bat out of order, took his piece
  } else {
    if (way.to == kHomePlate) CountRun(board, play, runner, move);
    ReleasePiece(state, runner.name);
  }
  AddMove(play, std::move(move));
}

Play BeginPlay(Board& board, Outcome outcome) {
  BoardState& state = board.state;
  Play play;
  play.half = HalfInProgress(state);
  play.outsBefore = std::clamp(static_cast<int>(state.tb_OUT.number()), 0, 3);
  play.outcome = outcome;
  play.batter = state.lbl_Selected.value();
  if (const auto atBat = SideAtBat(state)) {
    play.pitcher = SideOf(board, Other(*atBat)).pitcher.value();
  }
  play.basesKept = KeepsBases(state);
  if (play.basesKept && state.BasesHalf != play.half) ClearBases(board);
  if (play.basesKept) state.BasesHalf = play.half;
  return play;
}

void EndPlay(Board& board, Play& play) {
  if (!play.basesKept) return;
  for (std::size_t base = 0; base < play.after.size(); ++base) {
    play.after.at(base) = board.state.base.at(base).value().name;
  }
  ShowOnTracker(board.state);
  board.counting = PlayInShort(play);
}

void KeepPlay(Board& board, Outcome outcome, int out) {
  BoardState& state = board.state;
  if (!SideAtBat(state)) return;
  Play play = BeginPlay(board, outcome);
  if (play.basesKept) {
    const Occupied occupied = OccupiedBases(state);
    if (out == 0) out = RunnerPutOut(outcome, occupied);
    Runner batter{play.batter, play.pitcher, outcome == Outcome::AtBat};
    if (outcome == Outcome::FieldersChoice && out > 0) batter = HandOver(state, out, batter);
    std::vector<Way> ways = WaysOf(outcome, occupied, out);
    if (outcome == Outcome::StolenBase) ways = {{out, out + 1}};
    for (const Way way : ways) {
      const Runner runner = way.from == kAtBatPlace ? batter : RunnerOn(state, way.from);
      Go(board, play, way, runner);
    }
  }
  EndPlay(board, play);
  if (play.basesKept) NotePart(board, play.batter);
  state.plays.Append(play);
}

void TakeBackRun(Board& board, Play& play, std::size_t move, int base) {
  Move& back = play.moves.at(move);
  CreditRun(board, play, back, -1);
  if (play.half < kHalves) {
    TextCell& runs = Cell(board.state, play.half).text;
    runs.Set(runs.number() == 1 ? "" : RaisedText(runs.value(), -1));
  }
  ScoreUpdate(board);
  FieldOf(board.state, base).Set({back.name, back.pitcher, back.byError});
  PlaceBatterPhoto(board, back.name);
  back = {back.name, back.from, base, {}, false, false, false};
  // One who is back where he was has not moved.
  if (back.from == base) play.moves.erase(play.moves.begin() + static_cast<std::ptrdiff_t>(move));
}

void ClearBases(Board& board) {
  for (Field<Runner>& base : board.state.base) base.Set({});
  if (KeepsBases(board.state)) ShowOnTracker(board.state);
}

void TakeOverBase(BoardState& state, const std::string& runner, const std::string& name) {
  const int base = BaseOf(state, runner);
  if (base == 0) return;
  Runner now = RunnerOn(state, base);
  now.name = name;
  FieldOf(state, base).Set(now);
}

void LeaveTheBox(Board& board) {
  const std::string& batter = board.state.lbl_Selected.value();
  if (KeepsBases(board.state) && BaseOf(board.state, batter) == 0) {
    ReleasePiece(board.state, batter);
  }
}

}  // namespace dtb
