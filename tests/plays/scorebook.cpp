#include "plays/scorebook.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <vector>

#include "archive/season.h"

namespace dtb::plays {
namespace {

using archive::kHome;
using archive::kIsOut;
using archive::PlateAppearance;

struct Runner {
  std::string id;
  std::string pitcher;  // whom his run is charged to
};

class Scorebook {
 public:
  Scorebook(const PlayerNames& names, CountRules rules) : names_(names), rules_(rules) {}

  void Take(const Event& event) {
    switch (event.kind) {
      case Event::Kind::Start:
      case Event::Kind::Sub:
        return Enter(event);
      case Event::Kind::Runner:
        waiting_ = event;
        return;
      case Event::Kind::Earned:
        return Charge(event);
      case Event::Kind::Play:
        return Score(event);
    }
  }

  Figures figures;

 private:
  int& Batting(const std::string& id, const char* what) {
    return figures[{atBat_, "BATTING", names_.at(atBat_).at(id), what}];
  }
  int& Pitching(const std::string& id, const char* what) {
    return figures[{1 - atBat_, "PITCHING", names_.at(1 - atBat_).at(id), what}];
  }
  int& Left() { return figures[{atBat_, "LEFT", "", ""}]; }
  [[nodiscard]] const std::string& Pitcher() const { return pitchers_.at(1 - atBat_); }

  void Enter(const Event& event) {
    std::string& place = order_.at(event.side).at(event.order);
    const std::string leaves = place;
    if (open_ && rules_ == CountRules::Kept) NoteCount(event, leaves);
    place = event.id;
    if (event.position == archive::kPitcher) {
      pitchers_.at(event.side) = event.id;
      pitched_.at(event.side).insert(event.id);
    }
    if (event.kind == Event::Kind::Start || leaves.empty()) return;
    if (waiting_.id == leaves) waiting_.id = event.id;
    for (Runner& runner : bases_) {
      if (event.side == atBat_ && runner.id == leaves) runner.id = event.id;
    }
  }

  void NoteCount(const Event& event, const std::string& leaves) {
    const bool favoursBatter = balls_ == 3 || (balls_ == 2 && strikes_ < 2);
    const bool relieves = event.side != atBat_ && event.position == archive::kPitcher;
    if (relieves && event.id != Pitcher() && favoursBatter && owesWalk_.empty()) {
      owesWalk_ = Pitcher();
    }
    if (event.side != atBat_ || leaves != batter_ || event.id == batter_) return;
    if (strikes_ == 2 && owesStrikeout_.empty()) owesStrikeout_ = batter_;
    batter_ = event.id;
  }

  void Charge(const Event& event) {
    for (int side = 0; side < 2; ++side) {
      if (!pitched_.at(side).contains(event.id)) continue;
      figures[{side, "PITCHING", names_.at(side).at(event.id), "ER"}] = event.number;
      return;
    }
    throw std::runtime_error("earned runs of nobody: " + event.id);
  }

  void Score(const Event& event) {
    if (event.inning != inning_ || event.side != atBat_) BeginHalf(event);
    if (event.text == "NP" && !open_) batter_ = event.id;
    if (!waiting_.id.empty() && event.text != "NP") {
      bases_.at(waiting_.number) = {waiting_.id, Pitcher()};
      waiting_.id.clear();
      ++Left();
    }
    const archive::Play& play = event.play;
    if (!play.ended()) {
      open_ = true;
      batter_ = event.id;
      balls_ = event.count.empty() ? 0 : event.count[0] - '0';
      strikes_ = event.count.size() < 2 ? 0 : event.count[1] - '0';
    }
    Move(event);
    outs_ += play.outs();
    Left() -= play.outs() + play.runs();
    Pitching(Pitcher(), "IP") += play.outs();
    if (play.ended()) EndAtBat(event);
  }

  void BeginHalf(const Event& event) {
    inning_ = event.inning;
    atBat_ = event.side;
    outs_ = 0;
    bases_ = {};
    open_ = false;
    owesWalk_.clear();
    owesStrikeout_.clear();
    figures[{atBat_, "LINE", InningName(inning_), ""}] = 0;
  }

  // Who walks is the runner of the pitcher who owes the walk.
  [[nodiscard]] const std::string& PitcherOfBatter(const archive::Play& play) const {
    const bool owed = play.appearance == PlateAppearance::Walk && !owesWalk_.empty();
    return owed ? owesWalk_ : Pitcher();
  }

  void Move(const Event& event) {
    const archive::Play& play = event.play;
    std::array<Runner, 4> before = bases_;
    before[0] = play.ended() ? Runner{event.id, PitcherOfBatter(play)} : Runner{};
    const bool loaded =
        std::ranges::none_of(before, [](const auto& one) { return one.id.empty(); });
    if (play.appearance == PlateAppearance::FieldersChoice) PassOnCharges(play, before);
    bases_ = {};
    int left = 0;
    for (int from = 3; from >= 0; --from) {
      const Runner& runner = before.at(from);
      if (play.steals.at(from)) ++Batting(runner.id, "SB");
      if (runner.id.empty()) continue;
      const int to = GoesTo(play, from);
      if (to == kHome) CountRun(event, from, runner, loaded);
      if (to > 0 && to < kHome) bases_.at(to) = runner;
      left += from > 0 && to > 0 && to < kHome ? 1 : 0;
    }
    const bool byChoice = play.appearance == PlateAppearance::FieldersChoice && play.outs() > 0;
    const bool isOut = play.ended() && GoesTo(play, 0) == kIsOut;
    if (play.countsAsAtBat() && !play.hit() && (isOut || byChoice)) {
      Batting(event.id, "LOB") += left;
    }
    if (event.text.find("GDP") != std::string::npos) ++Batting(event.id, "DP");
  }

  // A pitcher answers for as many runners as he left: whoever reaches base by a choice that puts
  // another out takes over the charge for the runner in front of him.
  static void PassOnCharges(const archive::Play& play, std::array<Runner, 4>& before) {
    if (GoesTo(play, 0) == kIsOut) return;
    for (int out = 3; out > 0; --out) {
      if (before.at(out).id.empty() || GoesTo(play, out) != kIsOut) continue;
      std::string charge = before.at(out).pitcher;
      for (int behind = out - 1; behind >= 0; --behind) {
        if (!before.at(behind).id.empty()) std::swap(charge, before.at(behind).pitcher);
      }
    }
  }

  void CountRun(const Event& event, int from, const Runner& runner, bool loaded) {
    ++figures[{atBat_, "LINE", InningName(inning_), ""}];
    ++Batting(runner.id, "R");
    ++Pitching(runner.pitcher, "R");
    if (!event.marks.at(from).unearned) ++Pitching(runner.pitcher, "ER by marks");
    if (IsBattedIn(event, from, outs_, loaded && from == 3)) ++Batting(event.id, "RBI");
  }

  void EndAtBat(const Event& event) {
    const archive::Play& play = event.play;
    const bool strikeout = play.appearance == PlateAppearance::Strikeout;
    const std::string batter = strikeout && !owesStrikeout_.empty() ? owesStrikeout_ : event.id;
    if (play.countsAsAtBat()) ++Batting(batter, "AB");
    if (play.hit()) {
      constexpr std::array kHits{"1B", "2B", "3B", "HR"};
      const int bases =
          static_cast<int>(play.appearance) - static_cast<int>(PlateAppearance::Single);
      ++Batting(batter, kHits.at(bases));
      ++Pitching(Pitcher(), "H");
      if (play.appearance == PlateAppearance::HomeRun) ++Pitching(Pitcher(), "HR");
    }
    if (strikeout) ++Batting(batter, "K"), ++Pitching(Pitcher(), "K");
    if (play.appearance == PlateAppearance::Walk) {
      ++Batting(batter, "BB");
      ++Pitching(PitcherOfBatter(play), "BB");
    }
    ++Left();
    open_ = false;
    owesWalk_.clear();
    owesStrikeout_.clear();
  }

  const PlayerNames& names_;
  CountRules rules_;
  std::array<std::array<std::string, archive::kHome + 6>, 2> order_;  // 0: who pitches only
  std::array<std::string, 2> pitchers_;
  std::array<std::set<std::string>, 2> pitched_;
  Event waiting_;  // who starts the half-inning on a base
  int inning_ = 0;
  int atBat_ = 0;
  int outs_ = 0;
  std::array<Runner, 4> bases_;
  // The time at bat in progress.
  bool open_ = false;
  std::string batter_;
  int balls_ = 0;
  int strikes_ = 0;
  std::string owesWalk_;
  std::string owesStrikeout_;
};

}  // namespace

Figures KeepScore(const GameEvents& game, const PlayerNames& names, CountRules rules) {
  Scorebook book(names, rules);
  for (const Event& event : game.events) book.Take(event);
  return std::move(book.figures);
}

}  // namespace dtb::plays
