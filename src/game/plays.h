// The plays of a game, each kept with who moved from where to where.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "game/outcome.h"

namespace dtb {

// Places of a player at bat or on the bases. First, second and third base are 1 to 3.
inline constexpr int kAtBatPlace = 0;
inline constexpr int kFirstBase = 1;
inline constexpr int kSecondBase = 2;
inline constexpr int kThirdBase = 3;
inline constexpr int kHomePlate = 4;  // he has scored
inline constexpr int kPutOut = 5;
inline constexpr int kFromBench = 6;  // he came on without a time at bat, as a drag from the list

inline constexpr int kBases = 3;
inline constexpr int kOutsOfHalf = 3;

// A player on a base.
struct Runner {
  std::string name;      // "": the base is empty
  std::string pitcher;   // who is charged with his run
  bool byError = false;  // his run is not earned
  [[nodiscard]] bool none() const { return name.empty(); }
  friend bool operator==(const Runner&, const Runner&) = default;
};

// Where one player went in a play. The rest tells of a run: who is charged with it, whether the
// batter drove it in, whether it is earned, and whether the runner had come on by an error.
struct Move {
  std::string name;
  int from = kAtBatPlace;
  int to = kFirstBase;
  std::string pitcher;
  bool battedIn = false;
  bool earned = false;
  bool byError = false;
  friend bool operator==(const Move&, const Move&) = default;
};

struct Play {
  int half = 0;  // from 0: even is the top, odd the bottom of an inning
  int outsBefore = 0;
  Outcome outcome = Outcome::Single;
  std::string batter;
  std::string pitcher;
  bool basesKept = false;  // the board kept the bases; else nobody's moves are known
  std::vector<Move> moves;
  std::array<std::string, kBases> after;  // who stands on first, second, third
  friend bool operator==(const Play&, const Play&) = default;
};

// The outs that a play made.
[[nodiscard]] int OutsOf(const Play& play);
// The runner whom a play put out; "" for none. The batter is none.
[[nodiscard]] std::string RunnerOutIn(const Play& play);
// The runs of a play, with that of the label RBI, which tells of no runner.
[[nodiscard]] int RunsOf(const Play& play);

// All plays of a game, the oldest first. They are kept as the bytes that the game is written with:
// each gesture of a game writes all of it, and a play of the past does not change.
class PlayList {
 public:
  [[nodiscard]] std::size_t size() const { return heads_.size(); }
  [[nodiscard]] bool empty() const { return heads_.empty(); }
  // The place must exist.
  [[nodiscard]] Play At(std::size_t place) const;
  [[nodiscard]] Play Last() const { return At(size() - 1); }
  [[nodiscard]] std::vector<Play> All() const;
  // What costs nothing to ask.
  [[nodiscard]] int HalfAt(std::size_t place) const { return heads_.at(place).half; }
  [[nodiscard]] Outcome OutcomeAt(std::size_t place) const { return heads_.at(place).outcome; }

  void Append(const Play& play);
  // The place must exist.
  void Replace(std::size_t place, const Play& play);

  // One play behind the other.
  [[nodiscard]] const std::string& bytes() const { return bytes_; }

  friend bool operator==(const PlayList& a, const PlayList& b) { return a.bytes_ == b.bytes_; }

 private:
  struct Head {
    std::size_t start = 0;  // where the play begins
    int half = 0;
    Outcome outcome = Outcome::Single;
  };
  std::string bytes_;
  std::vector<Head> heads_;
};

}  // namespace dtb
