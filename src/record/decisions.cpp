#include "record/decisions.h"

#include <algorithm>
#include <array>
#include <optional>

#include "game/player_name.h"
#include "record/game_record.h"
#include "record/outings.h"

namespace dtb {
namespace {

// The lead that the winners did not give up again: who pitched for them when they took it, and who
// is charged with that run.
struct LastingLead {
  std::string winner;
  std::string loser;
};

// Outs that a starter needs for a win, and how long the game must last in the field for it (9.17b).
double OutsOfStarterForWin(double outsOfSide) {
  constexpr double kFiveInnings = 15;
  constexpr double kFourInnings = 12;
  return outsOfSide > kFiveInnings ? kFiveInnings : kFourInnings;
}

LastingLead FindLastingLead(const GameOutings& outings, Side winners) {
  LastingLead lead;
  std::array<int, 2> score{};
  for (const RunOfGame& run : outings.runs) {
    const bool ofWinners = run.scoring == winners;
    int& own = score.at(ofWinners ? 0 : 1);
    ++own;
    if (ofWinners && own == score[1] + 1) lead = {run.pitcherOfScoring, run.pitcher};
  }
  return lead;
}

// A reliever who pitched little, and badly: less than an inning and two earned runs or more, also
// those charged to others (comment on 9.17c).
bool BriefAndIneffective(const Outing& outing) {
  constexpr int kRunsOfIneffective = 2;
  return outing.outs < kOutsOfHalf && outing.earnedWhilePitching >= kRunsOfIneffective;
}

// How well a reliever did, for the scorer's choice among several (comment on 9.17b): runs weigh
// most, then the length of his work, then the runners.
double EffectOf(const Outing& outing) {
  constexpr double kWeightOfRun = 3;
  constexpr double kWeightOfRunner = 0.4;
  return outing.outs - kWeightOfRun * outing.earned - kWeightOfRunner * outing.runnersAllowed;
}

// The most effective of some relievers; of equal ones the first, as the comment presumes.
const Outing& MostEffective(const std::vector<const Outing*>& relievers) {
  return **std::ranges::max_element(relievers, {},
                                    [](const Outing* one) { return EffectOf(*one); });
}

bool Saves(const Outing& outing) {
  constexpr double kThreeInnings = 9;
  if (outing.outs < 1 || outing.lead < 1) return false;
  return (outing.lead <= kLeadOfSave && outing.outs >= kOutsOfHalf) || outing.TyingRunIsNear() ||
         outing.outs >= kThreeInnings;
}

const Outing& WinnerOf(const std::vector<Outing>& outings, const std::string& ofRecord) {
  const auto found = std::ranges::find(outings, ofRecord, &Outing::pitcher);
  const Outing& candidate = found == outings.end() ? outings.front() : *found;
  const bool isStarter = &candidate == &outings.front();
  double outsOfSide = 0;
  for (const Outing& one : outings) outsOfSide += one.outs;
  if (isStarter && candidate.outs >= OutsOfStarterForWin(outsOfSide)) return candidate;
  if (!isStarter && !BriefAndIneffective(candidate)) return candidate;
  std::vector<const Outing*> others;
  for (const Outing& one : outings) {
    // The last one may have a save instead.
    const bool closes = &one == &outings.back() && Saves(one);
    if (&one > &candidate && !BriefAndIneffective(one) && !closes) others.push_back(&one);
  }
  if (others.empty() && outings.size() > 1 && &candidate != &outings.back()) {
    others.push_back(&outings.back());
  }
  return others.empty() ? candidate : MostEffective(others);
}

class Decisions {
 public:
  explicit Decisions(const GameRecord& game) : outings_(OutingsOf(game)) {
    const double visitors = game.side(Side::Visitors).runs;
    const double home = game.side(Side::Home).runs;
    if (visitors == home || !outings_.complete) return;
    const Side winners = visitors > home ? Side::Visitors : Side::Home;
    const auto& winning = outings_.side(winners);
    if (winning.empty() || outings_.side(Other(winners)).empty()) return;
    const LastingLead lead = FindLastingLead(outings_, winners);
    winner_ = WinnerOf(winning, lead.winner).pitcher;
    Add(winners, winner_, Decision::Win);
    Add(Other(winners), lead.loser, Decision::Loss);
    const Outing& last = winning.back();
    if (winning.size() > 1 && last.pitcher != winner_ && Saves(last)) {
      Add(winners, last.pitcher, Decision::Save);
    }
    for (const Decision custom : {Decision::Hold, Decision::BlownSave}) {
      for (const Side side : {Side::Visitors, Side::Home}) AddOfCustom(side, custom);
    }
  }

  std::vector<PitcherDecision> all;

 private:
  void Add(Side side, const std::string& pitcher, Decision decision) {
    all.push_back({side, pitcher, decision});
  }

  // Whoever comes in with a lead that could be saved holds it, or blows it.
  void AddOfCustom(Side side, Decision decision) {
    const std::vector<Outing>& outings = outings_.side(side);
    for (const Outing& one : outings) {
      if (&one == &outings.front() || one.lead < 1) continue;
      if (one.lead > kLeadOfSave && !one.TyingRunIsNear()) continue;
      const bool holds =
          one.keptLead && one.outs >= 1 && one.pitcher != winner_ && &one != &outings.back();
      if (decision == Decision::Hold ? holds : !one.keptLead) Add(side, one.pitcher, decision);
    }
  }

  GameOutings outings_;
  std::string winner_;
};

}  // namespace

const char* DecisionCode(Decision decision) {
  switch (decision) {
    case Decision::Win:
      return "W";
    case Decision::Loss:
      return "L";
    case Decision::Save:
      return "S";
    case Decision::Hold:
      return "H";
    case Decision::BlownSave:
      return "BS";
  }
  return "";
}

std::vector<PitcherDecision> ProposedDecisions(const GameRecord& game) {
  return Decisions(game).all;
}

std::string DecisionsText(const std::vector<PitcherDecision>& decisions) {
  std::string text;
  std::optional<Decision> last;
  for (const PitcherDecision& one : decisions) {
    if (one.decision != last) {
      text.append(text.empty() ? "" : ", ").append(DecisionCode(one.decision)).append(": ");
    } else {
      text += " and ";
    }
    text += LastNameOf(one.pitcher);
    last = one.decision;
  }
  return text;
}

}  // namespace dtb
