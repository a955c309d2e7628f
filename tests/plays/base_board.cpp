#include "plays/base_board.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace dtb::plays {
namespace {

constexpr int kPlate = 4;
constexpr int kOrder = 9;

int BaseNamed(const std::string& word) {
  if (word == "HOME") return kPlate;
  if (word.size() == 1 && word[0] >= '1' && word[0] <= '3') return word[0] - '0';
  throw NotPossible("no base: " + word);
}

// "A | B"
std::pair<std::string, std::string> Pair(const std::string& names) {
  const std::size_t bar = names.find(" | ");
  if (bar == std::string::npos) throw NotPossible("no pair of players: " + names);
  return {names.substr(0, bar), names.substr(bar + 3)};
}

}  // namespace

void BaseBoard::Do(const std::string& line, std::optional<int> out) {
  std::istringstream words(line);
  std::string verb;
  std::string word;
  words >> verb;
  const auto next = [&] {
    words >> word;
    return word;
  };
  const auto rest = [&] {
    std::string text;
    std::getline(words >> std::ws, text);
    return text;
  };
  if (verb == "LOAD" || verb == "BASES" || verb == "ATBAT" || verb == "#") return;
  if (verb == "PITCHER" || verb == "BATTER" || verb == "SWAP" || verb == "RUNNER") {
    const int side = next() == "home" ? 1 : 0;
    const std::string players = rest();
    if (verb == "PITCHER") {
      pitchers_.at(side) = players;
      pitched_.at(side).push_back(players);
    }
    if (verb == "BATTER") ChooseBatter(side, players);
    if (verb == "SWAP") Swap(side, Pair(players).first, Pair(players).second);
    if (verb == "RUNNER") ReplaceRunner(side, Pair(players).first, Pair(players).second);
    return;
  }
  if (half_ != Half::Going) Refuse("no half-inning is in progress");
  if (began_.empty()) began_ = Pitcher();
  if (verb == "SB") return Steal(rest());
  if (verb == "PLACE") {
    const int base = BaseNamed(next());
    return Place(base, rest());
  }
  if (verb == "RUN" || verb == "ADVANCE") {
    if (verb == "ADVANCE") last_ = {};
    const std::string from = next();
    const std::string to = next();
    if (from == "BATTER") return to == "OUT" ? BatterOut() : Forced(false);
    if (from == "HOME") return TakeBack(BaseNamed(to));
    return Run(BaseNamed(from), BaseNamed(to));
  }
  Outcome(verb, out);
}

void BaseBoard::EndGame() {
  if (half_ != Half::Going) return;
  figures_[{atBat_, "LEFT", "", ""}] += OnBase();
  figures_[{atBat_, "PITCHING", pitchers_.at(atBat_), "IP"}] += outs_;
}

int BaseBoard::BaseOf(const std::string& name) const {
  for (int base = 1; base < kPlate; ++base) {
    if (bases_.at(base).name == name) return base;
  }
  return 0;
}

int BaseBoard::OnBase() const {
  return static_cast<int>(std::count_if(bases_.begin(), bases_.end(),
                                        [](const Runner& one) { return !one.name.empty(); }));
}

int& BaseBoard::Batting(const std::string& who, const char* what) {
  return figures_[{atBat_, "BATTING", who, what}];
}

int& BaseBoard::Pitching(const std::string& who, const char* what) {
  return figures_[{1 - atBat_, "PITCHING", who, what}];
}

// The first batter of a half-inning begins it.
void BaseBoard::ChooseBatter(int side, const std::string& name) {
  const auto& order = lineUps_.at(side);
  const auto end = order.begin() + kOrder;
  if (std::find(order.begin(), end, name) == end) Refuse(name + " is not in the order");
  if (half_ != Half::Going) {
    half_ = Half::Going;
    atBat_ = side;
    const int inning = ++innings_.at(side);
    figures_[{side, "LINE", InningName(inning), ""}] = 0;
    last_ = {};
    missed_.clear();
    began_.clear();
  }
  if (side != atBat_) Refuse("the other side is at bat");
  batter_ = name;
}

void BaseBoard::Swap(int side, const std::string& one, const std::string& other) {
  auto& players = lineUps_.at(side);
  const auto first = std::ranges::find(players, one);
  const auto second = std::ranges::find(players, other);
  if (first == players.end() || second == players.end()) Refuse("nobody of this name");
  std::iter_swap(first, second);
}

void BaseBoard::ReplaceRunner(int side, const std::string& comes, const std::string& leaves) {
  const int base = BaseOf(leaves);
  if (half_ != Half::Going || side != atBat_) Refuse("the side is not at bat");
  if (base == 0 && batter_ != leaves) Refuse(leaves + " neither bats nor runs");
  Swap(side, leaves, comes);
  if (base > 0) bases_.at(base).name = comes;
  if (batter_ == leaves) batter_ = comes;
}

void BaseBoard::NextBatter() {
  const auto& order = lineUps_.at(atBat_);
  const auto place = std::ranges::find(order, batter_) - order.begin();
  batter_ = order.at((place + 1) % kOrder);
}

void BaseBoard::Outcome(const std::string& code, std::optional<int> out) {
  if (code == "TO") return ThrownOut(out);
  if (code == "DP" && outs_ == 2) Refuse("a double play with two outs");
  if (code == "FC" && outs_ == 2) Refuse("a fielder's choice with two outs");
  last_ = {.batter = batter_};
  constexpr std::array kPutOut{"K", "GO", "FO", "LO", "PO", "DP", "FC"};
  last_.putsOut = std::ranges::count(kPutOut, code) > 0;
  if (code == "BB") {
    ++Batting(batter_, "BB");
    ++Pitching(Pitcher(), "BB");
    return Forced(true);
  }
  ++Batting(batter_, "AB");
  constexpr std::array kHits{"1B", "2B", "3B", "HR"};
  for (int bases = 1; bases <= kPlate; ++bases) {
    if (code != kHits.at(bases - 1)) continue;
    ++Batting(batter_, kHits.at(bases - 1));
    ++Pitching(Pitcher(), "H");
    if (bases == kPlate) ++Pitching(Pitcher(), "HR");
    return Hit(bases, false);
  }
  if (code == "AB") return Hit(1, true);
  if (code == "FC") return FieldersChoice(out);
  if (code == "DP") return DoublePlay(out);
  if (code == "K") {
    ++Batting(batter_, "K");
    ++Pitching(Pitcher(), "K");
  } else if (code == "GO" || code == "FO" || code == "LO" || code == "PO") {
    last_.ofBatter = true;
  } else {
    Refuse("no gesture: " + code);
  }
  NextBatter();
  CountOut();
  CountLeft(OnBase());
}

// The batter who was out leaves them.
void BaseBoard::CountLeft(int runners) {
  last_.left = last_.putsOut;
  if (last_.left) Batting(last_.batter, "LOB") += runners;
}

void BaseBoard::Hit(int bases, bool isError) {
  last_.ofBatter = !isError;
  last_.isError = isError;
  for (int base = 3; base > 0; --base) {
    if (bases_.at(base).name.empty()) continue;
    Put(base + bases, std::exchange(bases_.at(base), {}));
  }
  last_.brought = last_.home.size();
  Runner batter = Batter();
  batter.unearned = isError;
  if (isError) ++missed_[Pitcher()];
  Put(bases, batter);
  NextBatter();
}

// A walk, or first base without a time at bat.
void BaseBoard::Forced(bool walk) {
  if (!walk) last_ = {.batter = batter_};
  last_.ofBatter = true;
  MoveForced();
  last_.ofBatter = false;  // who comes home besides was not forced
  Put(1, Batter());
  NextBatter();
}

void BaseBoard::FieldersChoice(std::optional<int> out) {
  last_.ofBatter = true;
  const int forced = ForemostForced();
  const int base = out.value_or(forced > 0 ? forced : Foremost());
  if (base == 0 || bases_.at(base).name.empty()) Refuse("nobody is put out");
  // Whoever reaches base by the choice takes over the charge for the runner in front of him, and
  // whether it is earned.
  Runner charge = bases_.at(base);
  for (int behind = base - 1; behind > 0; --behind) {
    if (bases_.at(behind).name.empty()) continue;
    std::swap(charge.pitcher, bases_.at(behind).pitcher);
    std::swap(charge.unearned, bases_.at(behind).unearned);
  }
  bases_.at(base) = {};
  MoveForced();
  CountLeft(OnBase());
  charge.name = batter_;
  Put(1, charge);
  NextBatter();
  CountOut();
}

void BaseBoard::DoublePlay(std::optional<int> out) {
  const int base = out.value_or(bases_[1].name.empty() ? Foremost() : 1);
  if (base == 0 || bases_.at(base).name.empty()) Refuse("nobody is put out");
  bases_.at(base) = {};
  ++Batting(batter_, "DP");
  NextBatter();
  CountOut();
  CountOut();
  CountLeft(OnBase());
}

void BaseBoard::ThrownOut(std::optional<int> out) {
  if (!out && OnBase() != 1) Refuse("who is thrown out");
  const int base = out.value_or(Foremost());
  if (bases_.at(base).name.empty()) Refuse("nobody is thrown out");
  last_ = {};
  bases_.at(base) = {};
  CountOut();
}

void BaseBoard::BatterOut() {
  last_ = {.batter = batter_, .ofBatter = true};
  NextBatter();
  CountOut();
}

void BaseBoard::Steal(const std::string& name) {
  const int base = BaseOf(name);
  if (base == 0) Refuse(name + " is on no base");
  last_ = {};
  Run(base, base + 1);
  ++Batting(name, "SB");
}

void BaseBoard::Run(int from, int to) {
  if (from == kPlate || from == to) Refuse("no such run");
  Runner runner = bases_.at(from);
  if (runner.name.empty()) Refuse("nobody is on base " + std::to_string(from));
  const int step = to > from ? 1 : -1;
  for (int base = from + step; base != to && base < kPlate; base += step) {
    if (!bases_.at(base).name.empty()) Refuse("he would pass a runner");
  }
  if (to < kPlate && !bases_.at(to).name.empty()) Refuse("the base is taken");
  bases_.at(from) = {};
  Put(to, std::move(runner));
}

void BaseBoard::Place(int base, const std::string& name) {
  if (!bases_.at(base).name.empty()) Refuse("the base is taken");
  last_ = {};
  Put(base, {name, Pitcher(), true});
}

int BaseBoard::Foremost() const {
  for (int base = 3; base > 0; --base) {
    if (!bases_.at(base).name.empty()) return base;
  }
  return 0;
}

int BaseBoard::ForemostForced() const {
  int base = 0;
  while (base < 3 && !bases_.at(base + 1).name.empty()) ++base;
  return base;
}

void BaseBoard::MoveForced() {
  for (int base = ForemostForced(); base > 0; --base) {
    Put(base + 1, std::exchange(bases_.at(base), {}));
  }
}

void BaseBoard::Put(int base, Runner runner) {
  if (base >= kPlate) return ComesHome(std::move(runner));
  bases_.at(base) = std::move(runner);
}

bool BaseBoard::IsEarned(const Runner& runner) const {
  if (earned_ == Earned::All) return true;
  if (runner.unearned) return false;
  if (earned_ == Earned::UnlessOnError) return true;
  int missed = 0;
  for (const auto& [pitcher, count] : missed_) {
    if (runner.pitcher == began_ || runner.pitcher == pitcher) missed += count;
  }
  return !last_.isError && outs_ + missed < 3;
}

void BaseBoard::ComesHome(Runner runner) {
  if (last_.left) --Batting(last_.batter, "LOB");
  ++figures_[{atBat_, "LINE", InningName(innings_.at(atBat_)), ""}];
  ++Batting(runner.name, "R");
  ++Pitching(runner.pitcher, "R");
  const bool earned = IsEarned(runner);
  if (earned) ++Pitching(runner.pitcher, "ER");
  if (last_.ofBatter) ++Batting(last_.batter, "RBI");
  last_.home.emplace_back(std::move(runner), earned);
}

// Who came home last with this play stands on a base after all.
void BaseBoard::TakeBack(int base) {
  const std::size_t home = last_.home.size();
  if (home == 0 || home > last_.brought) Refuse("the outcome brought nobody home last");
  for (int passed = base; passed < kPlate; ++passed) {
    if (!bases_.at(passed).name.empty()) Refuse("the base is taken");
  }
  auto [runner, earned] = std::move(last_.home.back());
  last_.home.pop_back();
  --figures_[{atBat_, "LINE", InningName(innings_.at(atBat_)), ""}];
  --Batting(runner.name, "R");
  --Pitching(runner.pitcher, "R");
  if (earned) --Pitching(runner.pitcher, "ER");
  if (last_.ofBatter) --Batting(last_.batter, "RBI");
  bases_.at(base) = std::move(runner);
}

// The third out ends the half-inning.
void BaseBoard::CountOut() {
  ++Pitching(Pitcher(), "IP");
  if (++outs_ < 3) return;
  figures_[{atBat_, "LEFT", "", ""}] += OnBase();
  CountLeft(OnBase());
  bases_ = {};
  outs_ = 0;
  last_ = {};
  half_ = Half::Over;
}

}  // namespace dtb::plays
