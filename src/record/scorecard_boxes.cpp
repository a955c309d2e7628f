#include "record/scorecard_boxes.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "record/batting_places.h"

namespace dtb {
namespace {

constexpr std::size_t kNoBox = std::string::npos;

bool IsBase(int place) { return place >= kFirstBase && place <= kThirdBase; }

// Where the outcome alone takes the batter, if the board did not keep the bases.
int BaseByOutcome(Outcome outcome) {
  switch (outcome) {
    case Outcome::Single:
    case Outcome::Walk:
    case Outcome::TakesFirst:
    case Outcome::FieldersChoice:
      return kFirstBase;
    case Outcome::Double:
      return kSecondBase;
    case Outcome::Triple:
      return kThirdBase;
    case Outcome::Homer:
      return kHomePlate;
    default:
      return kAtBatPlace;
  }
}

bool PutsBatterOut(const Play& play) {
  return OutsOf(play) > 0 && play.outcome != Outcome::FieldersChoice &&
         play.outcome != Outcome::ThrownOut;
}

int OutNumber(const Play& play, int number) {
  return std::clamp(play.outsBefore + number, 1, kOutsOfHalf);
}

class Scorer {
 public:
  Scorer(const GameRecord& game, Scorecard& card) : game_(game), card_(card) {}

  void Fill() {
    PlaceBatters();
    for (const Play& play : game_.plays) {
      if (game_.BattingIn(play) != card_.side) continue;
      if (last_ == nullptr || play.half != last_->half) BeginHalf(play);
      NotePitcher(play);
      Record(play);
      last_ = &play;
    }
    if (last_ != nullptr) EndHalf();
    if (leftKnown_ && last_ != nullptr) card_.left = std::to_string(left_);
  }

 private:
  struct OnBase {
    std::size_t box = kNoBox;
    std::string name;
  };
  using Bases = std::array<OnBase, kBases>;

  static OnBase& At(Bases& bases, int base) {
    return bases.at(static_cast<std::size_t>(base - kFirstBase));
  }
  std::vector<ScoreLine>& Lines(int place) {
    return card_.places.at(static_cast<std::size_t>(place - 1));
  }
  bool StandsIn(int place, const std::string& name) {
    return std::ranges::any_of(Lines(place),
                               [&name](const ScoreLine& line) { return line.player.name == name; });
  }

  // Where no place is known at all, the first nine batters stand as the record has them. Three of
  // those whose place nobody knows share a row behind the nine.
  void PlaceBatters() {
    constexpr std::size_t kInRow = 3;
    card_.places.resize(kLineupSlots);
    for (const BattingPlace& one : PlacesOf(game_, card_.side)) entrances_[one.name] = one;
    const auto& batters = game_.side(card_.side).batters;
    const bool known = std::ranges::any_of(batters, [](const auto& one) { return one.place > 0; });
    int next = 0;
    for (const BatterRecord& batter : batters) {
      const bool first = !known && next < kLineupSlots;
      const int place = first ? ++next : batter.place;
      if (place >= 1 && place <= kLineupSlots) {
        Lines(place).push_back(LineOf(batter));
        continue;
      }
      if (card_.places.size() == kLineupSlots || card_.places.back().size() == kInRow) {
        card_.places.emplace_back();
      }
      card_.places.back().push_back({batter, 0, false});
    }
    for (const auto& [name, one] : entrances_) {
      if (StandsIn(one.place, name)) continue;
      auto& lines = Lines(one.place);
      lines.push_back(
          LineOf({.name = name, .place = one.place, .substitute = !lines.empty(), .figures = {}}));
    }
  }
  ScoreLine LineOf(const BatterRecord& batter) const {
    ScoreLine line{.player = batter};
    const auto entrance = entrances_.find(batter.name);
    if (entrance == entrances_.end() || entrance->second.entrance == Entrance::Start) return line;
    line.inning = game_.plays.at(entrance->second.play).half / 2 + 1;
    line.asRunner = entrance->second.entrance == Entrance::Running;
    return line;
  }

  void BeginHalf(const Play& play) {
    if (last_ != nullptr) EndHalf();
    pass_ = 0;
    bases_ = {};
    filled_.clear();
    waiting_ = {};
    firstOfHalf_ = card_.boxes.size();
    hits_ = 0;
    kept_ = true;
    inning_ = play.half / 2 + 1;
  }

  // The mark in the last box, and what stands below the inning.
  void EndHalf() {
    GiveWaitingRuns();
    const bool over = game_.over || game_.plays.back().half > last_->half ||
                      last_->outsBefore + OutsOf(*last_) >= kOutsOfHalf;
    if (over && card_.boxes.size() > firstOfHalf_) card_.boxes.back().endsHalf = true;
    InningSums sums{.inning = inning_, .runs = {}, .hits = std::to_string(hits_), .left = {}};
    if (over && kept_) {
      const auto left = std::ranges::count_if(
          last_->after, [](const std::string& name) { return !name.empty(); });
      sums.left = std::to_string(left);
      left_ += left;
    }
    leftKnown_ = leftKnown_ && kept_;
    card_.innings.push_back(sums);
  }

  void NotePitcher(const Play& play) {
    if (play.pitcher.empty() || play.pitcher == pitcher_) return;
    const auto& pitchers = game_.side(Other(card_.side)).pitchers;
    const auto found = std::ranges::find(pitchers, play.pitcher, &PitcherRecord::name);
    if (!pitcher_.empty()) change_ = static_cast<int>(found - pitchers.begin()) + 1;
    pitcher_ = play.pitcher;
  }

  // The place of a batter; of one who stands in none, that to which the order has come.
  int PlaceOf(const std::string& name) {
    if (const auto known = entrances_.find(name); known != entrances_.end()) {
      return known->second.place;
    }
    const int next = lastPlace_ % kLineupSlots + 1;
    for (int ahead = 0; ahead < kLineupSlots; ++ahead) {
      const int place = (next - 1 + ahead) % kLineupSlots + 1;
      if (StandsIn(place, name)) return place;
    }
    return next;
  }

  // Another name than that of the player who stood there: he runs for him.
  void RunFor(OnBase& there, const std::string& name) {
    if (there.box == kNoBox || there.name == name || name.empty()) return;
    card_.boxes.at(there.box).ranFor = true;
    there.name = name;
  }

  std::size_t NewBox(const Play& play, const std::string& name) {
    const bool bats = play.outcome != Outcome::PutOnBase;
    const int place = PlaceOf(name);
    ScoreBox box{.place = place, .inning = inning_, .sign = SignOf(play)};
    const auto entrance = entrances_.find(name);
    box.substitute = hadBox_.insert(name).second && entrance != entrances_.end() &&
                     entrance->second.entrance == Entrance::Batting;
    for (ScoreLine& line : Lines(place)) {
      const bool entered = line.player.name == name && line.player.substitute && line.inning == 0;
      if (entered) line.inning = inning_;
    }
    // The order goes around: from here on the inning takes another column.
    box.pass = bats ? pass_ : 0;
    while (filled_.contains({box.pass, place})) ++box.pass;
    filled_.insert({box.pass, place});
    if (bats) {
      pass_ = box.pass;
      lastPlace_ = place;
      box.newPitcher = std::exchange(change_, 0);
    }
    card_.boxes.push_back(box);
    return card_.boxes.size() - 1;
  }

  void Record(const Play& play) {
    kept_ = kept_ && play.basesKept;
    hits_ += IsHit(play.outcome) ? 1 : 0;
    std::size_t batter = kNoBox;
    if (play.outcome == Outcome::RunBattedIn) {
      if (waiting_.first != play.batter) GiveWaitingRuns();
      waiting_ = {play.batter, waiting_.second + 1};
    } else if (play.outcome != Outcome::PutOnBase && !SignOf(play).empty()) {
      batter = NewBox(play, play.batter);
      ScoreBox& box = card_.boxes.at(batter);
      if (waiting_.first != play.batter) GiveWaitingRuns();
      box.runsBattedIn = std::exchange(waiting_, {}).second;
      if (!play.basesKept) box.reached = BaseByOutcome(play.outcome);
      if (PutsBatterOut(play)) box.outNumber = OutNumber(play, OutsOf(play));
    }
    if (play.basesKept) {
      MoveAll(play, batter);
    } else {
      bases_ = {};
    }
  }

  // The list may have the moves in another order than that in which they happened, so each is
  // sought where it began before any of them.
  void MoveAll(const Play& play, std::size_t batter) {
    Bases before = bases_;
    for (const Move& move : play.moves) {
      if (IsBase(move.from)) At(bases_, move.from) = {};
    }
    for (const Move& move : play.moves) {
      OnBase runner{batter, move.name};
      if (move.from == kFromBench) runner.box = FromBench(play, move);
      if (IsBase(move.from)) runner = RunnerFrom(move, before);
      if (runner.box == kNoBox) continue;
      RunFor(runner, move.name);
      Draw(play, move, card_.boxes.at(runner.box));
      if (move.battedIn && batter != kNoBox) ++card_.boxes.at(batter).runsBattedIn;
      if (IsBase(move.to)) At(bases_, move.to) = runner;
    }
    // What the board itself says in the end.
    for (int base = kFirstBase; base <= kThirdBase; ++base) {
      const std::string& name = play.after.at(static_cast<std::size_t>(base - kFirstBase));
      if (name.empty()) At(bases_, base) = {};
      RunFor(At(bases_, base), name);
    }
  }

  static void Draw(const Play& play, const Move& move, ScoreBox& box) {
    if (move.to == kPutOut) {
      if (move.from == kAtBatPlace) return;
      box.outBefore = std::min(box.reached + 1, kHomePlate);
      box.outNumber = OutNumber(play, 1);
      return;
    }
    if (play.outcome == Outcome::StolenBase && move.to == move.from + 1) {
      box.stolen.at(static_cast<std::size_t>(move.to)) = true;
    }
    box.reached = move.to;
  }

  // A player who ran for him between two moves of one play came to the base in it.
  OnBase RunnerFrom(const Move& move, Bases& before) {
    OnBase& there = At(before, move.from);
    OnBase& since = At(bases_, move.from);
    const bool came = since.box != kNoBox && there.name != move.name;
    if (came || there.box == kNoBox) return std::exchange(since, {});
    return std::exchange(there, {});
  }

  // A runner with whom the half-inning begins has a box of his own; one who was on base before the
  // board kept the bases has his already.
  std::size_t FromBench(const Play& play, const Move& move) {
    const std::size_t earlier = LastBoxOf(move.name);
    if (earlier != kNoBox && card_.boxes.at(earlier).outNumber == 0 &&
        !card_.boxes.at(earlier).scored()) {
      return earlier;
    }
    const std::size_t box = NewBox(play, move.name);
    card_.boxes.at(box).start = move.to;
    return box;
  }

  // In this half-inning, of him or of whom he came in for.
  std::size_t LastBoxOf(const std::string& name) {
    for (std::size_t box = card_.boxes.size(); box > firstOfHalf_; --box) {
      if (StandsIn(card_.boxes.at(box - 1).place, name)) return box - 1;
    }
    return kNoBox;
  }

  // Runs of the label RBI whose batter has not come to the end of his turn since.
  void GiveWaitingRuns() {
    const auto [name, runs] = std::exchange(waiting_, {});
    const std::size_t box = runs > 0 ? LastBoxOf(name) : kNoBox;
    if (box != kNoBox) card_.boxes.at(box).runsBattedIn += runs;
  }

  const GameRecord& game_;
  Scorecard& card_;
  std::map<std::string, BattingPlace> entrances_;
  std::set<std::string> hadBox_;
  // The half-inning in progress.
  const Play* last_ = nullptr;
  int inning_ = 1;
  int pass_ = 0;
  int hits_ = 0;
  bool kept_ = true;  // the bases, in all of its plays
  Bases bases_;
  std::set<std::pair<int, int>> filled_;  // passes and places that have a box
  std::pair<std::string, int> waiting_;   // runs of the label RBI, before the hit
  std::size_t firstOfHalf_ = 0;
  // The game so far.
  int lastPlace_ = 0;
  std::string pitcher_;
  int change_ = 0;  // the new pitcher's number, until the next box
  std::ptrdiff_t left_ = 0;
  bool leftKnown_ = true;
};

}  // namespace

void FillBoxes(const GameRecord& game, Scorecard& card) { Scorer(game, card).Fill(); }

}  // namespace dtb
