#include "aids/dice.h"

#include <cmath>

namespace dtb {
namespace {

constexpr int kFaceThrowsPerTick = 2;
constexpr int kMostFaceThrows = 50;
constexpr int kNumberThrowsPerTick = 7;
constexpr int kMostNumberThrows = 150;
constexpr int kFaces = 6;
constexpr int kTwentySides = 20;

void MakeDiceSound(Aids& aids) {
  if (aids.state.cb_MuteDice.value()) return;
  aids.platform.sounds.PlayOnce(aids.platform.programFolder / "DiceRoll.wav");
}

void ReseedFromClock(Aids& aids) {
  aids.platform.randoms.Reseed(aids.platform.clock.Now().secondsSinceMidnight());
}

int Throw(Aids& aids, int lowest, int sides) {
  return static_cast<int>(std::floor(aids.platform.randoms.Draw() * sides)) + lowest;
}

void ThrowNumberDice(Aids& aids) {
  ReseedFromClock(aids);
  for (std::size_t die = 0; die < kNumberDiceSet.size(); ++die) {
    const NumberDie& kind = kNumberDiceSet[die];
    aids.state.numbers[die].Set(DecimalText(Throw(aids, kind.lowest, kind.sides)));
  }
}

}  // namespace

DiceKind DiceInHand(const AidsState& state) {
  const bool faces = state.Check4.value();
  const bool numbers = state.fra_BBgumBB_visible.value();
  if (faces == numbers) return state.lastRolled.value();
  return faces ? DiceKind::Faces : DiceKind::Numbers;
}

void RollDice(Aids& aids) {
  AidsState& state = aids.state;
  if (!state.Check4.value() && !state.fra_BBgumBB_visible.value()) {
    (DiceInHand(state) == DiceKind::Faces ? state.Check4 : state.fra_BBgumBB_visible).Set(true);
  }
  DiceInHand(state) == DiceKind::Faces ? RollFaceDice(aids) : RollNumberDice(aids);
}

void RollFaceDice(Aids& aids) {
  aids.state.lastRolled.Set(DiceKind::Faces);
  aids.state.tmr_sombb.Set(true);
  MakeDiceSound(aids);
}

void RollNumberDice(Aids& aids) {
  aids.state.lastRolled.Set(DiceKind::Numbers);
  aids.state.lblDiceTime.Set("0");
  aids.state.tmrDice2.Set(true);
  MakeDiceSound(aids);
}

void GetRndNum(Aids& aids) {
  ReseedFromClock(aids);
  for (Field<int>& face : aids.state.faces) face.Set(Throw(aids, 1, kFaces));
  aids.state.lbl_20die.Set(DecimalText(Throw(aids, 1, kTwentySides)));
}

void TickFaceDice(Aids& aids) {
  AidsState& state = aids.state;
  for (int i = 0; i < kFaceThrowsPerTick; ++i) {
    state.tb_DieCount.Raise();
    GetRndNum(aids);
    if (state.tb_DieCount.number() > kMostFaceThrows) {
      state.tmr_sombb.Set(false);
      state.tb_DieCount.Set("0");
    }
  }
}

void TickNumberDice(Aids& aids) {
  AidsState& state = aids.state;
  for (int i = 0; i < kNumberThrowsPerTick; ++i) {
    state.lblDiceTime.Raise();
    if (state.lblDiceTime.number() > kMostNumberThrows) state.tmrDice2.Set(false);
    ThrowNumberDice(aids);
  }
}

void DetectF12(Aids& aids) {
  if (aids.platform.keyboard.TakeControlF12() % 2 == 0) return;
  aids.state.fra_BBgumBB_visible.Set(!aids.state.fra_BBgumBB_visible.value());
}

}  // namespace dtb
