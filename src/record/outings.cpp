#include "record/outings.h"

#include <algorithm>

namespace dtb {
namespace {

// The batter is on base by what he did himself, or by an error.
bool Reaches(const Play& play) {
  return std::ranges::any_of(
      play.moves, [](const Move& move) { return move.from == kAtBatPlace && move.to != kPutOut; });
}

class Reader {
 public:
  explicit Reader(const GameRecord& game) : game_(game) {}

  GameOutings All() {
    for (const Play& play : game_.plays) Take(play);
    // A side that has not been in the field yet has the starter who was named.
    for (std::size_t side = 0; side < 2; ++side) {
      std::vector<Outing>& own = outings_.sides.at(side);
      const std::vector<PitcherRecord>& named = game_.sides.at(side).pitchers;
      if (own.empty() && !named.empty()) own.push_back({.pitcher = named.front().name});
    }
    for (RunOfGame& run : outings_.runs) {
      // Nobody had pitched for them yet: their starter will.
      const auto& own = outings_.side(run.scoring);
      if (run.pitcherOfScoring.empty() && !own.empty()) run.pitcherOfScoring = own.front().pitcher;
    }
    outings_.complete = !game_.plays.empty() && score_[0] == game_.sides[0].runs &&
                        score_[1] == game_.sides[1].runs;
    return std::move(outings_);
  }

 private:
  static std::size_t Index(Side side) { return side == Side::Visitors ? 0 : 1; }
  std::vector<Outing>& Own(Side side) { return outings_.sides.at(Index(side)); }

  void Take(const Play& play) {
    const Side batting = game_.BattingIn(play);
    if (play.half != half_) onBase_ = 0;
    half_ = play.half;
    Outing& outing = OutingOf(Other(batting), play.pitcher);
    for (const Move& move : play.moves) {
      if (move.to == kHomePlate) Score(batting, outing, move.pitcher, move.earned);
    }
    if (play.outcome == Outcome::RunBattedIn) Score(batting, outing, play.pitcher, true);
    outing.outs += OutsOf(play);
    outing.runnersAllowed += Reaches(play) ? 1 : 0;
    onBase_ = static_cast<int>(
        std::ranges::count_if(play.after, [](const auto& name) { return !name.empty(); }));
  }

  Outing& OutingOf(Side fielding, const std::string& pitcher) {
    std::vector<Outing>& outings = Own(fielding);
    const auto found = std::ranges::find(outings, pitcher, &Outing::pitcher);
    if (found != outings.end()) return *found;
    const int lead = score_.at(Index(fielding)) - score_.at(Index(Other(fielding)));
    return outings.emplace_back(
        Outing{.pitcher = pitcher, .lead = lead, .runners = onBase_, .keptLead = lead > 0});
  }

  void Score(Side batting, Outing& outing, const std::string& answers, bool earned) {
    const auto& own = Own(batting);
    outings_.runs.push_back({batting, own.empty() ? "" : own.back().pitcher, answers});
    ++score_.at(Index(batting));
    outing.earnedWhilePitching += earned ? 1 : 0;
    const auto charged = std::ranges::find(Own(Other(batting)), answers, &Outing::pitcher);
    if (earned && charged != Own(Other(batting)).end()) ++charged->earned;
    if (score_[0] == score_[1]) outing.keptLead = false;
  }

  const GameRecord& game_;
  GameOutings outings_;
  std::array<int, 2> score_{};
  int half_ = -1;
  int onBase_ = 0;
};

}  // namespace

GameOutings OutingsOf(const GameRecord& game) { return Reader(game).All(); }

}  // namespace dtb
