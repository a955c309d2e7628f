// What holds on the bases in every game, however it is played.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <numeric>

#include "fake_platform.h"
#include "game/play_sums.h"
#include "game/recovery.h"

namespace dtb {
namespace {

using Gestures = std::vector<std::string>;

Gestures RandomGestures() {
  std::istringstream words(R"(
    put:01 put:02 put:03 put:04 put:05 put:11 put:12 put:13 put:14 put:15 put:21 put:22 put:23 put:24
    put:25 put:31 put:32 put:33 put:34 put:35 run:12 run:13 run:14 run:21 run:23 run:24 run:31 run:32
    run:34 run:34 hold: advance:12 advance:23 advance:34 TO:1 TO:2 TO:3 FC:1 FC:2 FC:3 DP:1 DP:2 DP:3
    steal:p0 steal:p1 steal:p2 steal:p3 instead:A instead:B instead:C instead:a instead:b instead:c
    on:J1 on:K2 on:L3 on:k2 in:v90 in:v91 in:h102 in:h113 1ST SAC 1ST SAC pitch:h10 pitch:v10 row:v3
    row:h3 bat:v0 bat:h0 bat:v4 bat:h4 due: due: due: up:v down:h edit:v edit:h reset: ctrl:held ctrl:up
    click:p0 click:p1 click:p2 photo:A photo:C photo:d batted:000 earned:000 batted:101 earned:101)");
  Gestures all{std::istream_iterator<std::string>(words), {}};
  for (int i = 0; i < 8; ++i) {
    for (const std::string& label : kLabels) {
      // A run that the board is only told of belongs to nobody on the bases.
      if (label != "RBI") all.push_back(label);
    }
  }
  return *rc::gen::container<Gestures>(rc::gen::elementOf(all));
}

int PiecesOf(const BoardState& state, const std::string& name) {
  return static_cast<int>(std::ranges::count_if(state.pieces, [&name](const GamePiece& piece) {
    return !piece.free() && piece.tag.value() == name;
  }));
}

// Nobody is on two bases, or on a base and at bat, and each has one piece.
void RequireOrderOnTheField(const BoardState& state) {
  std::set<std::string> names;
  if (!state.BatterOf.value().empty()) names.insert(state.lbl_Selected.value());
  for (int base = kFirstBase; base <= kThirdBase; ++base) {
    const Runner runner = RunnerOn(state, base);
    if (runner.none()) continue;
    RC_ASSERT(names.insert(runner.name).second);
    RC_ASSERT(!runner.pitcher.empty());
  }
  for (const std::string& name : names) RC_ASSERT(PiecesOf(state, name) == 1);
}

// Who came up is out, has scored, or stands on a base still; runs, R and RBI agree.
void RequireBooksInBalance(Game& game, bool wasReset) {
  const BoardState& state = game.state;
  for (const HalfSums& half : HalvesOf(state)) {
    if (!wasReset) RC_ASSERT(half.cameUp == half.outs + half.runs + half.left);
  }
  double scored = 0;
  double batted = 0;
  for (const Side side : {Side::Visitors, Side::Home}) {
    const PlaySums sums = SumsOf(game.board, side);
    const auto total = [](const std::map<std::string, int>& of) {
      return std::accumulate(of.begin(), of.end(), 0,
                             [](int sum, const auto& one) { return sum + one.second; });
    };
    RC_ASSERT(total(sums.runs) == sums.total && total(sums.charged) == sums.total);
    for (int inning = 0; inning < kInnings; ++inning) {
      const ScoreRow& score = SideOf(game.board, side).score;
      RC_ASSERT(score.at(inning).text.number() == sums.innings.at(inning));
    }
    scored += sums.total;
    const StatGrid& grid = SideOf(game.board, side).grid;
    for (int row = 1; row < kStatRows; ++row) {
      batted += NumberOf(grid.Text(row, stat_column::kRunsBattedIn));
    }
  }
  RC_ASSERT(batted <= scored);
}

RC_GTEST_PROP(EveryGameOnTheBases, IsInOrderAfterEachGesture, ()) {
  const Gestures gestures = RandomGestures();
  Game game;
  game.Play("keep:on");
  bool wasReset = false;
  bool editing = false;
  for (const std::string& gesture : gestures) {
    game.Do(gesture);
    wasReset = wasReset || gesture == "reset:";
    // A batter may be chosen out of turn who stands on a base: that is no order any more.
    editing = editing || gesture.starts_with("bat:") || gesture.starts_with("row:") ||
              gesture.starts_with("up:") || gesture.starts_with("down:");
    RC_ASSERT(game.Look("told").find("Program Error") == std::string::npos);
    if (!editing && !wasReset) RequireOrderOnTheField(game.state);
    RequireBooksInBalance(game, wasReset || editing);
  }
}

RC_GTEST_PROP(EveryGameOnTheBases, GoesBackByteForByteAndIsTakenUpAsItWas, ()) {
  const Gestures gestures = RandomGestures();
  Game game;
  game.Play("keep:on");
  game.history.Clear();
  std::map<std::size_t, std::string> games{{0, GameText(game.board)}};
  AidsState aidsState;
  Aids aids{aidsState, game.fake.ports};
  for (const std::string& gesture : gestures) {
    game.Do(gesture);
    const std::size_t steps = game.history.steps();
    games[steps] = GameText(game.board);
    // What a gesture found may be more than the one before it left, such as a held key.
    if (steps > 0) games[steps - 1] = game.history.GameBefore();
  }
  const std::string kept = TableText(game.board, aidsState);
  RC_ASSERT(ReadTable(kept, game.board, aids).game == Remember(game.board));
  while (game.history.CanUndo()) {
    game.history.Undo(game.board);
    RC_ASSERT(GameText(game.board) == games.at(game.history.steps()));
  }
}

}  // namespace
}  // namespace dtb
