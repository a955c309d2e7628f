// The two dice rollers. A roll is for the player's eye alone: nothing else reads a die.
#pragma once

#include "aids/aids_state.h"
#include "base/colour.h"

namespace dtb {

// Intervals of the timers, in milliseconds.
inline constexpr int kFaceDiceInterval = 25;
inline constexpr int kNumberDiceInterval = 100;
inline constexpr int kF12Interval = 100;

struct NumberDie {
  const char* label = "";
  const char* shape = "";
  const char* word = "";  // for screen readers
  int lowest = 0;
  int sides = 0;
  Colour colour;
  Colour figures;
};

// In the order in which they are drawn.
inline constexpr std::array<NumberDie, kNumberDice> kNumberDiceSet{{
    {"lbl_R10", "shp_R10", "Red ten-sided die", 0, 10, {255, 0, 0}, kWhite},
    {"lbl_W10", "shp_W10", "White ten-sided die", 0, 10, kWhite, {0, 0, 0}},
    {"lbl_B10", "shp_B10", "Blue ten-sided die", 0, 10, {0, 0, 255}, kWhite},
    {"lbl_Y10", "shp_Y10", "Yellow ten-sided die", 0, 10, {255, 255, 0}, {0, 0, 0}},
    {"lbl_G20", "shp_G20", "Green twenty-sided die", 1, 20, {0, 255, 0}, {0, 0, 0}},
    {"lbl_BLK4", "shp_BLK4", "Black four-sided die", 1, 4, {0, 0, 0}, kWhite},
    {"lbl_SPECK12",
     "shp_SPECK12",
     "Speckled twelve-sided die",
     1,
     12,
     {224, 224, 224},
     {192, 0, 0}},
    {"lbl_P6", "shp_P6", "Pink six-sided die", 1, 6, {255, 128, 255}, {0, 0, 0}},
}};

// Starts a roll of the face dice, with its sound; a roll in progress goes on and ends when it would
// have ended.
void RollFaceDice(Aids& aids);

// Starts a roll of the numbered dice, with its sound; a roll in progress starts again.
void RollNumberDice(Aids& aids);

// The dice that lie on the board; where both lie there, and where none does, those rolled last.
[[nodiscard]] DiceKind DiceInHand(const AidsState& state);

// Rolls those. Where none lies on the board those are put there first.
void RollDice(Aids& aids);

// One throw of the face dice.
void GetRndNum(Aids& aids);

// The ticks of the two rolls: 2 and 7 throws each.
void TickFaceDice(Aids& aids);
void TickNumberDice(Aids& aids);

// The tick that looks at the keys: each press of Ctrl + F12 shows or hides the numbered dice once.
void DetectF12(Aids& aids);

}  // namespace dtb
