// The one flat record of what helps the player around the game: dice, charts, ballpark and sound.
// None of it belongs to the game itself, so taking back a click never turns a die back.
#pragma once

#include <array>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "aids/park_places.h"
#include "base/field.h"
#include "base/text_cell.h"
#include "platform/platform.h"

namespace dtb {

inline constexpr int kFaceDice = 3;
inline constexpr int kNumberDice = 8;
inline constexpr int kChartButtons = 9;

enum class DiceKind { Faces, Numbers };

struct AidsState {
  // The face dice, panel fra_SOMBBdice.
  Field<bool> Check4;  // "SHOW DICE ROLLER": the panel is shown
  std::array<Field<int>, kFaceDice> faces{Field<int>{1}, Field<int>{1},
                                          Field<int>{1}};  // shown of Image100, Image200, Image300
  Field<std::string> lbl_20die{"0"};                       // the twenty-sided die
  TextCell tb_DieCount{"0"};                               // throws of the roll in progress
  Field<bool> tmr_sombb;                                   // a roll is in progress

  // The numbered dice, panel fra_BBgumBB.
  Field<bool> fra_BBgumBB_visible;
  std::array<Field<std::string>, kNumberDice>
      numbers;                // lbl_R10 and so on; "" before the first roll
  TextCell lblDiceTime{"0"};  // throws of the roll in progress
  Field<bool> tmrDice2;       // a roll is in progress

  Field<DiceKind> lastRolled{DiceKind::Faces};

  // Charts.
  std::array<Field<std::string>, kChartButtons> lbl_chrt;  // names of the buttons
  std::array<Field<std::string>, kChartButtons> tb_chrt;   // names being edited
  std::array<Field<bool>, kChartButtons> tb_chrt_visible;  // the name is edited
  std::array<std::string, kChartButtons> chartTitles;      // what stands there until it is named
  int lastChart = 0;                                       // where the viewer stood, 0 to 8

  // The ballpark. What is known of its bases stands before the picture: when a remembered state is
  // put back, the picture comes last and finds its places.
  std::map<std::string, ParkPlaces> ownPlaces;      // told in this run, by the picture's file name
  Field<ParkPlaces> parkPlaces{kUsualPlaces};       // where the bases lie in it
  Field<bool> parkPlacesKnown;                      // else those are the usual ones
  Field<Picture> Picture1;                          // the park behind the board
  Field<bool> cb_RandParks;                         // "RANDOM BALLPARKS"
  Field<bool> cb_RandParks_visible;                 // there is a folder to draw from
  std::optional<std::filesystem::path> parkChoice;  // what the dialog gave last
  Field<std::string> lbl_Path;                      // folder of the parks, UTF-8
  std::vector<std::string> ParkNames;               // file names of the .jpg files in it, UTF-8

  Field<bool> cb_QuickBoxes;  // "QUICK BOXES": confirmations hold nothing back

  // Sound.
  Field<bool> cb_Crowd;     // "CROWD NOISE"
  Field<bool> cb_MuteDice;  // "MUTE DICE"
};

// The context of the operations on the aids.
struct Aids {
  AidsState& state;
  Platform& platform;
};

}  // namespace dtb
