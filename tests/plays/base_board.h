// What the board does with the gestures of a table script while it keeps the bases: a model of its
// own, written from what the gestures mean.
#pragma once

#include <array>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "plays/figures.h"

namespace dtb::plays {

// A gesture that the bases do not allow.
struct NotPossible : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class BaseBoard {
 public:
  // Each side's players, in the order of its file; the first nine bat.
  explicit BaseBoard(std::array<std::vector<std::string>, 2> lineUps)
      : lineUps_(std::move(lineUps)) {}

  // One line of a script, with the line behind it where that is an OUT. Throws NotPossible.
  void Do(const std::string& line, std::optional<int> out = std::nullopt);

  // Counts who is left on base when the game ends in the middle of a half-inning.
  void EndGame();

  [[nodiscard]] int outs() const { return outs_; }
  // Where a player stands; 0 for nobody on a base.
  [[nodiscard]] int BaseOf(const std::string& name) const;
  [[nodiscard]] const std::string& NameOn(int base) const { return bases_.at(base).name; }
  [[nodiscard]] int OnBase() const;
  [[nodiscard]] const std::string& PitcherOf(int side) const { return pitchers_.at(side); }
  [[nodiscard]] const std::string& BatterUp() const { return batter_; }
  [[nodiscard]] bool IsAtBat(int side) const { return half_ == Half::Going && side == atBat_; }
  [[nodiscard]] bool HalfIsOver() const { return half_ == Half::Over; }
  [[nodiscard]] const Figures& figures() const { return figures_; }
  // The side's last half-inning is over.
  [[nodiscard]] bool Finished(int side) const { return half_ == Half::Over || side != atBat_; }

 private:
  struct Runner {
    std::string name;
    std::string pitcher;    // whom his run is charged to
    bool unearned = false;  // he reached on an error, or was put on base
  };
  // What joins the play.
  struct Play {
    std::string batter = {};
    bool ofBatter = false;  // he is credited with runs that join it
    bool forces = false;    // only with those that were forced in
    std::vector<Runner> home = {};
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
  void ComesHome(Runner runner);
  void TakeBack(int base);
  void Put(int base, Runner runner);
  void CountOut();
  [[noreturn]] static void Refuse(const std::string& why) { throw NotPossible(why); }

  std::array<std::vector<std::string>, 2> lineUps_;
  std::array<std::string, 2> pitchers_;
  std::array<int, 2> innings_{};
  int atBat_ = 0;
  Half half_ = Half::None;
  std::string batter_;
  int outs_ = 0;
  std::array<Runner, 4> bases_;  // from 1
  Play last_;
  Figures figures_;
};

}  // namespace dtb::plays
