// What holds in every game, however it is played.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "fake_platform.h"

namespace dtb {

RC_GTEST_PROP(EveryGame, KeepsItsBooksAndGoesOnFromAMementoAsItDid, ()) {
  using namespace stat_column;
  using Gestures = std::vector<std::string>;
  // A player makes them in any order, outcomes most often.
  std::istringstream words(R"(
    atbat:v atbat:h reset: edit:v rewrite:vA=y rewrite:hBartholomew=y rewrite:h= show:v2 show:h9
    free:p0 plate:p1 photo:B ctrl:held ctrl:up click:p0 click:p1 drag:v1 drop:v7 dropshift:v10 up:v down:h
    focus:v9 pitch:v9 pitch:v10 pitch:v11 pitch:h0 pitch:h1 pitch:h9 bat:v0 bat:v1 bat:v2 bat:v3
    bat:v8 bat:v9 bat:v11 bat:h0 bat:h1 bat:h2 bat:h3 bat:h8 bat:h9 bat:h11)");
  Gestures all{std::istream_iterator<std::string>(words), {}};
  for (int i = 0; i < 5; ++i) all.insert(all.end(), kLabels.begin(), kLabels.end());
  const auto gestures = *rc::gen::scale(2.0, rc::gen::container<Gestures>(rc::gen::elementOf(all)));
  Game game;
  game.Do(*rc::gen::element<std::string>("MASTER:0", "MASTER:15", "MASTER:108"));
  for (const std::string& gesture : gestures) {
    const GameMemento before = Remember(game.board);
    const bool control = game.fake.control;
    game.Do(gesture);
    const GameMemento after = Remember(game.board);
    const std::string told = game.Look("told");
    Restore(game.board, before);
    RC_ASSERT(Remember(game.board) == before);
    RC_ASSERT(game.fake.told.empty());
    game.fake.control = control;
    game.Do(gesture);
    RC_ASSERT(Remember(game.board) == after);
    RC_ASSERT(game.Look("told") == told);

    const BoardState& state = game.state;
    RC_ASSERT(told.find("Program Error") == told.npos);
    RC_ASSERT(state.Option5.value() != state.Option6.value());
    RC_ASSERT(state.tb_OUT.number() >= 0 && state.tb_OUT.number() < 3);
    const double outs = before.state.tb_OutsCount.number();
    const bool ended = outs < kMostOuts && told.find("END OF INNING.") != told.npos;
    RC_ASSERT(state.tb_OutsCount.value() == DecimalText(outs + (ended ? 3 : 0)));
    RC_ASSERT(game.log.text().starts_with(before.log.text()));
    std::map<int, double> sums;
    for (const auto grid : {&StatSheet::grd_VisStats, &StatSheet::grd_HomeStats}) {
      for (int cell = kCount; cell < kStatRows * kCount; ++cell) {
        const int row = cell / kCount, column = cell % kCount;
        const double was = NumberOf((before.sheet.*grid).Text(row, column));
        const double is = NumberOf((game.sheet.*grid).Text(row, column));
        RC_ASSERT(is >= was || column == kInningsPitched);
        sums[column] += is;
      }
    }
    // What one side's batters did, the other side's pitchers allowed.
    const double hits = sums[kSingles] + sums[kDoubles] + sums[kTriples] + sums[kHomeRuns];
    RC_ASSERT(hits == sums[kPitcherHits] && sums[kHomeRuns] == sums[kPitcherHomeRuns]);
    RC_ASSERT(sums[kWalks] == sums[kPitcherWalks] && sums[kRunsBattedIn] == sums[kEarnedRuns]);
    RC_ASSERT(sums[kStrikeouts] == sums[kPitcherStrikeouts]);
    for (const ScoreRow* row : {&state.tb_BoxScore, &state.tb_BoxScoreBottom}) {
      double runs = 0;
      for (int inning = 0; inning < kInnings; ++inning) runs += row->at(inning).text.number();
      RC_ASSERT(row->at(kTotalRuns).text.number() == runs);
    }
  }
}

}  // namespace dtb
