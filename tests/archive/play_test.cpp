// The notation of plays, one after the other, against what a person reads in them.
#include "archive/play.h"

#include <gtest/gtest.h>

namespace dtb::archive {
namespace {

// "B1 1- 2X 3H": where each player goes; a player who is not named stays, "s" behind a base is a
// steal.
std::string Moves(const Play& play) {
  std::string text;
  for (int base = 0; base < kHome; ++base) {
    const int to = play.goes.at(base);
    if (to == kStays && !play.steals.at(base)) continue;
    if (!text.empty()) text += ' ';
    text += "B123"[base];
    text += to == kIsOut ? 'X' : to == kStays ? '-' : "0123H"[to];
    if (play.steals.at(base)) text += 's';
  }
  return text;
}

struct Row {
  const char* text;
  PlateAppearance appearance;
  bool countsAsAtBat;
  const char* moves;
};

TEST(Plays, ReadAsAPersonReadsThem) {
  constexpr bool kAtBat = true;
  constexpr bool kNoAtBat = false;
  const Row rows[] = {
      {"K", PlateAppearance::Strikeout, kAtBat, "BX"},
      {"K23", PlateAppearance::Strikeout, kAtBat, "BX"},
      {"K+WP.B-1", PlateAppearance::Strikeout, kAtBat, "B1"},
      {"K2E3.1-2", PlateAppearance::Strikeout, kAtBat, "B1 12"},
      {"K+PB.2-3;B-1", PlateAppearance::Strikeout, kAtBat, "B1 23"},
      {"K.BX1(23)", PlateAppearance::Strikeout, kAtBat, "BX"},
      {"K+SB2.1-3(E2/TH)", PlateAppearance::Strikeout, kAtBat, "BX 13s"},
      {"K+CS2(26)/DP", PlateAppearance::Strikeout, kAtBat, "BX 1X"},
      {"K+PO1(23)/DP", PlateAppearance::Strikeout, kAtBat, "BX 1X"},
      {"W.1-2", PlateAppearance::Walk, kNoAtBat, "B1 12"},
      {"W+WP.2-3", PlateAppearance::Walk, kNoAtBat, "B1 23"},
      {"W+SB3", PlateAppearance::Walk, kNoAtBat, "B1 23s"},
      {"IW", PlateAppearance::Walk, kNoAtBat, "B1"},
      {"I.1-2", PlateAppearance::Walk, kNoAtBat, "B1 12"},
      {"IW+WP.3-H(NR)", PlateAppearance::Walk, kNoAtBat, "B1 3H"},
      {"HP.1-2", PlateAppearance::HitByPitch, kNoAtBat, "B1 12"},
      {"C/E2.B-1", PlateAppearance::Interference, kNoAtBat, "B1"},
      {"S8/L8.2-H;1XH(9362)", PlateAppearance::Single, kAtBat, "B1 1X 2H"},
      {"S/L", PlateAppearance::Single, kAtBat, "B1"},
      {"S7+/L+.BX2(74)", PlateAppearance::Single, kAtBat, "BX"},
      {"S9.1-3;B-2(E9/TH)", PlateAppearance::Single, kAtBat, "B2 13"},
      {"S8.1X3(8E5)", PlateAppearance::Single, kAtBat, "B1 13"},
      {"S8.1XH(E8)(862)(UR)", PlateAppearance::Single, kAtBat, "B1 1X"},
      {"S8.1X3(E8/TH)(NR)", PlateAppearance::Single, kAtBat, "B1 13"},
      {"D7/L7L+", PlateAppearance::Double, kAtBat, "B2"},
      {"DGR/L78XD+.2-H", PlateAppearance::Double, kAtBat, "B2 2H"},
      {"T9!/F9LD#.1-H", PlateAppearance::Triple, kAtBat, "B3 1H"},
      {"HR/F7L.1-H", PlateAppearance::HomeRun, kAtBat, "BH 1H"},
      {"H9/L9", PlateAppearance::HomeRun, kAtBat, "BH"},
      {"8/F+", PlateAppearance::Out, kAtBat, "BX"},
      {"63/G6", PlateAppearance::Out, kAtBat, "BX"},
      {"13/G-/FL", PlateAppearance::Out, kAtBat, "BX"},
      {"8/SF/L.3-H(UR)", PlateAppearance::Out, kNoAtBat, "BX 3H"},
      {"3/SH/BG23-.2-3", PlateAppearance::Out, kNoAtBat, "BX 23"},
      {"E3/SH/BG3.1-3;B-1", PlateAppearance::Error, kNoAtBat, "B1 13"},
      {"FC1/SH/BG1.2-3;B-1", PlateAppearance::FieldersChoice, kNoAtBat, "B1 23"},
      {"64(1)/FO/G.B-1", PlateAppearance::FieldersChoice, kAtBat, "B1 1X"},
      {"64(1)/FO/G", PlateAppearance::FieldersChoice, kAtBat, "B1 1X"},
      {"64(1)3/GDP/G6", PlateAppearance::Out, kAtBat, "BX 1X"},
      {"54(1)3/GDP.2-3", PlateAppearance::Out, kAtBat, "BX 1X 23"},
      {"3(B)6(1)/GDP/G3+", PlateAppearance::Out, kAtBat, "BX 1X"},
      {"8(B)84(2)/LDP/L8", PlateAppearance::Out, kAtBat, "BX 2X"},
      {"5(2)4(1)/GDP.B-1", PlateAppearance::FieldersChoice, kAtBat, "B1 1X 2X"},
      {"5(2)4(1)3/GTP", PlateAppearance::Out, kAtBat, "BX 1X 2X"},
      {"1(B)16(2)63(1)/LTP/L1", PlateAppearance::Out, kAtBat, "BX 1X 2X"},
      {"6E3/G6", PlateAppearance::Error, kAtBat, "B1"},
      {"64(1)E3/G.B-2", PlateAppearance::Error, kAtBat, "B2 1X"},
      {"E5/TH/G.B-2", PlateAppearance::Error, kAtBat, "B2"},
      {"FC5/G5.3XH(52);B-1", PlateAppearance::FieldersChoice, kAtBat, "B1 3X"},
      {"FC/G3/DP.3XH(35);BX1(3)", PlateAppearance::FieldersChoice, kAtBat, "BX 3X"},
      {"FC1/G1S-.3XH(1E2)(NR)(UR);2-3;1-2;B-1", PlateAppearance::FieldersChoice, kAtBat,
       "B1 12 23 3H"},
      {"SB2", PlateAppearance::None, kNoAtBat, "12s"},
      {"SBH(UR);SB2", PlateAppearance::None, kNoAtBat, "12s 3Hs"},
      {"SB3;SB2", PlateAppearance::None, kNoAtBat, "12s 23s"},
      {"SB2.1X3(25)", PlateAppearance::None, kNoAtBat, "1Xs"},
      {"CS2(26)", PlateAppearance::None, kNoAtBat, "1X"},
      {"CSH(12)", PlateAppearance::None, kNoAtBat, "3X"},
      {"CS2(2E6).1-3", PlateAppearance::None, kNoAtBat, "13"},
      {"CS2(2E4)", PlateAppearance::None, kNoAtBat, "12"},
      {"POCS2(1364)", PlateAppearance::None, kNoAtBat, "1X"},
      {"PO1(13)", PlateAppearance::None, kNoAtBat, "1X"},
      {"PO1(E3).1-2", PlateAppearance::None, kNoAtBat, "12"},
      {"PO2(1E4)", PlateAppearance::None, kNoAtBat, ""},
      {"WP.3-H(NR);2-3", PlateAppearance::None, kNoAtBat, "23 3H"},
      {"PB.1-2", PlateAppearance::None, kNoAtBat, "12"},
      {"BK.3-H(NR);2-3;1-2", PlateAppearance::None, kNoAtBat, "12 23 3H"},
      {"DI.1-2", PlateAppearance::None, kNoAtBat, "12"},
      {"OA.2X3(25)", PlateAppearance::None, kNoAtBat, "2X"},
      {"FLE5/P5F", PlateAppearance::None, kNoAtBat, ""},
      {"NP", PlateAppearance::None, kNoAtBat, ""},
  };
  for (const Row& row : rows) {
    Play play;
    EXPECT_TRUE(ReadPlay(row.text, play)) << row.text;
    EXPECT_EQ(play.appearance, row.appearance) << row.text;
    EXPECT_EQ(play.countsAsAtBat(), row.countsAsAtBat) << row.text;
    EXPECT_EQ(Moves(play), row.moves) << row.text;
  }
}

TEST(Plays, NonsenseIsToldAndTheRestStands) {
  const std::pair<const char*, const char*> rows[] = {{"", ""},
                                                      {"X9", ""},
                                                      {"SB9", ""},
                                                      {"64(7)3", "B1"},
                                                      {"S8.1-9;2-H", "B1 2H"},
                                                      {"S8.nonsense", "B1"},
                                                      {"W+QQ.1-2", "B1 12"},
                                                      {"6(1", "B1"},
                                                      {"CS", ""},
                                                      {"K+SB2;1-2", "BX 12s"},
                                                      {".", ""}};
  for (const auto& [text, moves] : rows) {
    Play play;
    EXPECT_FALSE(ReadPlay(text, play)) << text;
    EXPECT_EQ(Moves(play), moves) << text;
  }
}

}  // namespace
}  // namespace dtb::archive
