// What the board does with the gestures of a table script while it keeps the bases: a model of its
// own, written from what the gestures mean.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "plays/figures.h"

namespace dtb::plays {

// A gesture that the bases do not allow.
struct NotPossible : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Which of the runs charged to a pitcher are earned.
enum class Earned {
  All,
  UnlessOnError,  // the runner did not reach by AB and was not put on base
  // Nor did he score on an AB, nor would the half-inning be over, had each AB been an out; a
  // pitcher who came in the middle of it has no use of those before him.
  ByOuts,
};

class BaseBoard {
 public:
  // Each side's players, in the order of its file; the first nine bat.
  BaseBoard(std::array<std::vector<std::string>, 2> lineUps, Earned earned)
      : lineUps_(std::move(lineUps)), earned_(earned) {}

  // One line of a script, with the line behind it where that is an OUT. Throws NotPossible.
  void Do(const std::string& line, std::optional<int> out = std::nullopt);

  // Counts who is left on base when the game ends in the middle of a half-inning. The outs of such
  // a half-inning count for the pitchers of both sides.
  void EndGame();

  [[nodiscard]] int outs() const { return outs_; }
  // Where a player stands; 0 for nobody on a base.
  [[nodiscard]] int BaseOf(const std::string& name) const;
  [[nodiscard]] const std::string& NameOn(int base) const { return bases_.at(base).name; }
  [[nodiscard]] int OnBase() const;
  [[nodiscard]] const std::string& PitcherOf(int side) const { return pitchers_.at(side); }
  [[nodiscard]] const std::string& BatterUp() const { return batter_; }
  // In the order in which they came in.
  [[nodiscard]] const std::vector<std::string>& Pitched(int side) const {
    return pitched_.at(side);
  }
  [[nodiscard]] bool IsAtBat(int side) const { return half_ == Half::Going && side == atBat_; }
  [[nodiscard]] bool HalfIsOver() const { return half_ == Half::Over; }
  [[nodiscard]] const Figures& figures() const { return figures_; }
  // The side's last half-inning is over.
  [[nodiscard]] bool Finished(int side) const { return half_ == Half::Over || side != atBat_; }

 private:
  struct Runner {
    std::string name;
    std::string pitcher;    // whom his run is charged to
    bool unearned = false;  // should he come home
  };
  // What joins the play.
  struct Play {
    std::string batter = {};
    bool putsOut = false;   // himself or, by his choice, a runner
    bool left = false;      // the runners whom he leaves are counted
    bool ofBatter = false;  // he is credited with runs that join it
    bool isError = false;
    std::size_t brought = 0;  // how many a hit or an error brought home, without the batter
    std::vector<std::pair<Runner, bool>> home = {};  // and whether the run is earned
  };
  enum class Half { None, Going, Over };

  int& Batting(const std::string& who, const char* what);
  int& Pitching(const std::string& who, const char* what);
  const std::string& Pitcher() const { return pitchers_.at(1 - atBat_); }
  Runner Batter() const { return {batter_, Pitcher(), false}; }

  void ChooseBatter(int side, const std::string& name);
  void Swap(int side, const std::string& one, const std::string& other);
  void ReplaceRunner(int side, const std::string& comes, const std::string& leaves);
  void NextBatter();

  void Outcome(const std::string& code, std::optional<int> out);
  void Hit(int bases, bool isError);
  void Forced(bool walk);
  void FieldersChoice(std::optional<int> out);
  void DoublePlay(std::optional<int> out);
  void ThrownOut(std::optional<int> out);
  void BatterOut();
  void Steal(const std::string& name);
  void Run(int from, int to);
  void Place(int base, const std::string& name);

  int Foremost() const;
  int ForemostForced() const;  // 0 for nobody
  void MoveForced();
  [[nodiscard]] bool IsEarned(const Runner& runner) const;
  void ComesHome(Runner runner);
  void TakeBack(int base);
  void Put(int base, Runner runner);
  void CountOut();
  void CountLeft(int runners);
  [[noreturn]] static void Refuse(const std::string& why) { throw NotPossible(why); }

  std::array<std::vector<std::string>, 2> lineUps_;
  Earned earned_;
  std::array<std::string, 2> pitchers_;
  std::array<std::vector<std::string>, 2> pitched_;
  std::array<int, 2> innings_{};
  int atBat_ = 0;
  Half half_ = Half::None;
  std::string batter_;
  int outs_ = 0;
  std::map<std::string, int> missed_;  // outs that errors cost each pitcher in this half-inning
  std::string began_;                  // who pitched its first play
  std::array<Runner, 4> bases_;        // from 1
  Play last_;
  Figures figures_;
};

}  // namespace dtb::plays
