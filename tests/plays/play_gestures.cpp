#include "plays/play_gestures.h"

#include <algorithm>
#include <string_view>

namespace dtb::plays {
namespace {

using archive::kHome;
using archive::kIsOut;
using archive::PlateAppearance;

// "GO", "FO", "LO", "PO" by the first modifier that tells, else by who caught the ball.
std::string KindOfOut(std::string_view text) {
  text = text.substr(0, text.find('.'));
  std::string_view fielders = text.substr(0, text.find('/'));
  std::string_view rest = text.substr(fielders.size());
  while (!rest.empty()) {
    rest.remove_prefix(1);
    std::string_view modifier = rest.substr(0, rest.find('/'));
    rest.remove_prefix(modifier.size());
    if (modifier.starts_with('B')) modifier.remove_prefix(1);
    if (modifier == "FO" || modifier == "FL" || modifier == "FINT" || modifier == "PASS") continue;
    if (modifier.starts_with("G")) return "GO";
    if (modifier.starts_with("F") || modifier == "SF") return "FO";
    if (modifier.starts_with("L")) return "LO";
    if (modifier.starts_with("P")) return "PO";
  }
  return fielders.size() == 1 && fielders[0] >= '7' ? "FO" : "GO";
}

class Recorder {
 public:
  Recorder(const Event& event, const BaseBoard& board, const Say& say)
      : event_(event), play_(event.play), board_(board), say_(say), outsBefore_(board.outs()) {
    for (int base = 1; base < kHome; ++base) names_.at(base) = board.NameOn(base);
  }

  void Record(const std::string& batter) {
    names_[0] = batter;
    switch (play_.appearance) {
      case PlateAppearance::None:
        break;
      case PlateAppearance::Strikeout:
        Gesture(To(0) == kIsOut ? "K" : "AB");
        break;
      case PlateAppearance::Walk:
        Gesture("BB");
        break;
      case PlateAppearance::HitByPitch:
      case PlateAppearance::Interference:
        Gesture("RUN BATTER 1");
        break;
      case PlateAppearance::Single:
        return Hit("1B", 1);
      case PlateAppearance::Double:
        return Hit("2B", 2);
      case PlateAppearance::Triple:
        return Hit("3B", 3);
      case PlateAppearance::HomeRun:
        return Hit("HR", kHome);
      default:
        return BattedBall();
    }
    Settle();
  }

  // The board has everybody where the archive has him.
  [[nodiscard]] bool Agrees() const {
    if (board_.HalfIsOver()) return outsBefore_ + play_.outs() == 3;
    int stand = 0;
    for (int from = 0; from < kHome; ++from) {
      if (names_.at(from).empty() || To(from) < 1 || To(from) == kHome) continue;
      ++stand;
      if (BaseOf(from) != To(from)) return false;
    }
    return stand == board_.OnBase() && outsBefore_ + play_.outs() == board_.outs();
  }

 private:
  [[nodiscard]] int To(int from) const { return GoesTo(play_, from); }
  [[nodiscard]] bool Runs(int from) const { return !names_.at(from).empty() && To(from) == kHome; }
  [[nodiscard]] int BaseOf(int from) const { return board_.BaseOf(names_.at(from)); }
  [[nodiscard]] bool BattedIn(int from) const {
    return IsBattedIn(event_, from, outsBefore_, true);
  }
  // Of the runners; 0 for none.
  [[nodiscard]] int FirstOut() const {
    for (int from = 3; from > 0; --from) {
      if (!names_.at(from).empty() && To(from) == kIsOut) return from;
    }
    return 0;
  }
  void Gesture(const std::string& gesture, std::optional<int> out = std::nullopt) {
    if (!board_.HalfIsOver()) say_(gesture, out);
  }
  void Move(const char* verb, int base, int to) {
    const auto word = [](int place) { return place == kHome ? "HOME" : std::to_string(place); };
    Gesture(std::string(verb) + ' ' + word(base) + ' ' + word(to));
  }

  void Hit(const char* code, int bases) {
    RunBefore(bases);
    Gesture(code);
    Settle();
  }

  // Runs that the outcome would bring home, but not batted in: they come first.
  void RunBefore(int bases) {
    for (int from = 3; from > 0 && !names_.at(from).empty(); --from) {
      if (!Runs(from) || BattedIn(from) || from + bases < kHome) return;
      Move("ADVANCE", from, kHome);
    }
  }

  void BattedBall() {
    const bool sacrifice = play_.sacrificeHit || play_.sacrificeFly;
    const int outs = play_.outs();
    const int base = FirstOut();
    const bool batterOut = To(0) == kIsOut;
    if (outs == 0 || (!batterOut && play_.appearance == PlateAppearance::Error)) {
      if (!sacrifice) return Hit("AB", 1);
      Gesture("RUN BATTER 1");
      return Settle();
    }
    // The half-inning would end before they come home.
    if (outsBefore_ == 2) RunsBeforeThirdOut();
    bool batted = false;
    for (int from = 1; from < kHome; ++from) batted = batted || (Runs(from) && BattedIn(from));
    if (outsBefore_ == 2 || (batterOut && (outs == 1 || sacrifice || batted))) {
      Gesture(sacrifice ? "RUN BATTER OUT" : KindOfOut(event_.text));
    } else if (batterOut) {
      if (outsBefore_ + 2 >= 3) RunsBeforeThirdOut();
      const int likely = names_[1].empty() ? FirstOnBase() : 1;
      putOut_ = base;
      Gesture("DP", base == likely ? std::nullopt : std::optional(base));
    } else {
      putOut_ = base;
      if (LikelyChoice() == 3 && base < 3) RunBefore(1);
      Gesture("FC", base == LikelyChoice() ? std::nullopt : std::optional(base));
    }
    Settle();
  }

  [[nodiscard]] int FirstOnBase() const {
    int from = 3;
    while (from > 0 && names_.at(from).empty()) --from;
    return from;
  }
  [[nodiscard]] int LikelyChoice() const {
    int forced = 0;
    while (forced < 3 && !names_.at(forced + 1).empty()) ++forced;
    return forced > 0 ? forced : FirstOnBase();
  }

  void RunsBeforeThirdOut() {
    for (int from = 3; from > 0; --from) {
      if (Runs(from)) Move("ADVANCE", from, kHome);
    }
  }

  // Everybody goes where the archive has him: home first, then out, then the others.
  void Settle() {
    if (board_.HalfIsOver()) return;
    Steals();
    if (play_.ended()) TakeBack();
    for (int from = 3; from >= 0; --from) {
      if (Runs(from) && BaseOf(from) > 0) Move(Verb(from), BaseOf(from), kHome);
    }
    Outs();
    if (board_.HalfIsOver()) return;
    // To a base that a runner had who is out now.
    for (int from = 1; from < kHome; ++from) GoBack(from);
    for (int from = 3; from >= 0; --from) {
      const int base = names_.at(from).empty() ? 0 : BaseOf(from);
      if (base > 0 && To(from) > base) Move(Verb(from), base, To(from));
    }
  }

  // A run is its own play unless it is batted in, a move only while nobody hits.
  [[nodiscard]] const char* Verb(int from) const {
    const bool joins = To(from) == kHome ? BattedIn(from) && !IsWalk() : play_.ended();
    return joins || play_.steals.at(from) ? "RUN" : "ADVANCE";
  }
  [[nodiscard]] bool IsWalk() const {
    return play_.appearance == PlateAppearance::Walk ||
           play_.appearance == PlateAppearance::HitByPitch ||
           play_.appearance == PlateAppearance::Interference;
  }

  void Steals() {
    for (int from = 3; from > 0; --from) {
      if (play_.steals.at(from)) Gesture("SB " + names_.at(from));
    }
  }

  // Whom the outcome moved too far: the last runner first.
  void TakeBack() {
    for (int from = 1; from < kHome; ++from) {
      const bool cameHome = !names_.at(from).empty() && from != putOut_ && BaseOf(from) == 0;
      if (cameHome && To(from) != kHome) Move("RUN", kHome, To(from) == kIsOut ? 3 : To(from));
      if (!cameHome) GoBack(from);
    }
  }
  void GoBack(int from) {
    const int base = names_.at(from).empty() ? 0 : BaseOf(from);
    if (To(from) > 0 && To(from) < base && !IsTaken(To(from))) Move("RUN", base, To(from));
  }

  [[nodiscard]] bool IsTaken(int base) const { return !board_.NameOn(base).empty(); }

  void Outs() {
    for (int from = 3; from >= 0; --from) {
      if (names_.at(from).empty() || To(from) != kIsOut) continue;
      const int base = BaseOf(from);
      if (base == 0) continue;
      Gesture("TO", board_.OnBase() > 1 ? std::optional(base) : std::nullopt);
    }
  }

  const Event& event_;
  const archive::Play& play_;
  const BaseBoard& board_;
  const Say& say_;
  int outsBefore_;
  int putOut_ = 0;  // the base of the runner whom the outcome itself puts out
  std::array<std::string, 4> names_;
};

}  // namespace

void RecordPlay(const Event& event, const BaseBoard& board, const Say& say) {
  Recorder recorder(event, board, say);
  recorder.Record(board.BatterUp());
  if (!recorder.Agrees()) throw std::runtime_error("the board does not come to the same bases");
}

}  // namespace dtb::plays
