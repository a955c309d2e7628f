// The notation of plays, one after the other, against what a person reads in them.
#include "archive/play.h"

#include <gtest/gtest.h>

namespace dtb::archive {
namespace {

// "B1 1- 2X 3H": where each man goes; a man who is not named stays, "s" behind a base is a steal.
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
  AtBat atBat;
  bool countsAsAtBat;
  const char* moves;
};

TEST(Plays, ReadAsAPersonReadsThem) {
  constexpr bool kAtBat = true;
  constexpr bool kNoAtBat = false;
  const Row rows[] = {
      {"K", AtBat::Strikeout, kAtBat, "BX"},
      {"K23", AtBat::Strikeout, kAtBat, "BX"},
      {"K+WP.B-1", AtBat::Strikeout, kAtBat, "B1"},
      {"K2E3.1-2", AtBat::Strikeout, kAtBat, "B1 12"},
      {"K+PB.2-3;B-1", AtBat::Strikeout, kAtBat, "B1 23"},
      {"K.BX1(23)", AtBat::Strikeout, kAtBat, "BX"},
      {"K+SB2.1-3(E2/TH)", AtBat::Strikeout, kAtBat, "BX 13s"},
      {"K+CS2(26)/DP", AtBat::Strikeout, kAtBat, "BX 1X"},
      {"K+PO1(23)/DP", AtBat::Strikeout, kAtBat, "BX 1X"},
      {"W.1-2", AtBat::Walk, kNoAtBat, "B1 12"},
      {"W+WP.2-3", AtBat::Walk, kNoAtBat, "B1 23"},
      {"W+SB3", AtBat::Walk, kNoAtBat, "B1 23s"},
      {"IW", AtBat::Walk, kNoAtBat, "B1"},
      {"I.1-2", AtBat::Walk, kNoAtBat, "B1 12"},
      {"IW+WP.3-H(NR)", AtBat::Walk, kNoAtBat, "B1 3H"},
      {"HP.1-2", AtBat::HitByPitch, kNoAtBat, "B1 12"},
      {"C/E2.B-1", AtBat::Interference, kNoAtBat, "B1"},
      {"S8/L8.2-H;1XH(9362)", AtBat::Single, kAtBat, "B1 1X 2H"},
      {"S/L", AtBat::Single, kAtBat, "B1"},
      {"S7+/L+.BX2(74)", AtBat::Single, kAtBat, "BX"},
      {"S9.1-3;B-2(E9/TH)", AtBat::Single, kAtBat, "B2 13"},
      {"S8.1X3(8E5)", AtBat::Single, kAtBat, "B1 13"},
      {"S8.1XH(E8)(862)(UR)", AtBat::Single, kAtBat, "B1 1X"},
      {"S8.1X3(E8/TH)(NR)", AtBat::Single, kAtBat, "B1 13"},
      {"D7/L7L+", AtBat::Double, kAtBat, "B2"},
      {"DGR/L78XD+.2-H", AtBat::Double, kAtBat, "B2 2H"},
      {"T9!/F9LD#.1-H", AtBat::Triple, kAtBat, "B3 1H"},
      {"HR/F7L.1-H", AtBat::HomeRun, kAtBat, "BH 1H"},
      {"H9/L9", AtBat::HomeRun, kAtBat, "BH"},
      {"8/F+", AtBat::Out, kAtBat, "BX"},
      {"63/G6", AtBat::Out, kAtBat, "BX"},
      {"13/G-/FL", AtBat::Out, kAtBat, "BX"},
      {"8/SF/L.3-H(UR)", AtBat::Out, kNoAtBat, "BX 3H"},
      {"3/SH/BG23-.2-3", AtBat::Out, kNoAtBat, "BX 23"},
      {"E3/SH/BG3.1-3;B-1", AtBat::Error, kNoAtBat, "B1 13"},
      {"FC1/SH/BG1.2-3;B-1", AtBat::FieldersChoice, kNoAtBat, "B1 23"},
      {"64(1)/FO/G.B-1", AtBat::FieldersChoice, kAtBat, "B1 1X"},
      {"64(1)/FO/G", AtBat::FieldersChoice, kAtBat, "B1 1X"},
      {"64(1)3/GDP/G6", AtBat::Out, kAtBat, "BX 1X"},
      {"54(1)3/GDP.2-3", AtBat::Out, kAtBat, "BX 1X 23"},
      {"3(B)6(1)/GDP/G3+", AtBat::Out, kAtBat, "BX 1X"},
      {"8(B)84(2)/LDP/L8", AtBat::Out, kAtBat, "BX 2X"},
      {"5(2)4(1)/GDP.B-1", AtBat::FieldersChoice, kAtBat, "B1 1X 2X"},
      {"5(2)4(1)3/GTP", AtBat::Out, kAtBat, "BX 1X 2X"},
      {"1(B)16(2)63(1)/LTP/L1", AtBat::Out, kAtBat, "BX 1X 2X"},
      {"6E3/G6", AtBat::Error, kAtBat, "B1"},
      {"64(1)E3/G.B-2", AtBat::Error, kAtBat, "B2 1X"},
      {"E5/TH/G.B-2", AtBat::Error, kAtBat, "B2"},
      {"FC5/G5.3XH(52);B-1", AtBat::FieldersChoice, kAtBat, "B1 3X"},
      {"FC/G3/DP.3XH(35);BX1(3)", AtBat::FieldersChoice, kAtBat, "BX 3X"},
      {"FC1/G1S-.3XH(1E2)(NR)(UR);2-3;1-2;B-1", AtBat::FieldersChoice, kAtBat, "B1 12 23 3H"},
      {"SB2", AtBat::None, kNoAtBat, "12s"},
      {"SBH(UR);SB2", AtBat::None, kNoAtBat, "12s 3Hs"},
      {"SB3;SB2", AtBat::None, kNoAtBat, "12s 23s"},
      {"SB2.1X3(25)", AtBat::None, kNoAtBat, "1Xs"},
      {"CS2(26)", AtBat::None, kNoAtBat, "1X"},
      {"CSH(12)", AtBat::None, kNoAtBat, "3X"},
      {"CS2(2E6).1-3", AtBat::None, kNoAtBat, "13"},
      {"CS2(2E4)", AtBat::None, kNoAtBat, "12"},
      {"POCS2(1364)", AtBat::None, kNoAtBat, "1X"},
      {"PO1(13)", AtBat::None, kNoAtBat, "1X"},
      {"PO1(E3).1-2", AtBat::None, kNoAtBat, "12"},
      {"PO2(1E4)", AtBat::None, kNoAtBat, ""},
      {"WP.3-H(NR);2-3", AtBat::None, kNoAtBat, "23 3H"},
      {"PB.1-2", AtBat::None, kNoAtBat, "12"},
      {"BK.3-H(NR);2-3;1-2", AtBat::None, kNoAtBat, "12 23 3H"},
      {"DI.1-2", AtBat::None, kNoAtBat, "12"},
      {"OA.2X3(25)", AtBat::None, kNoAtBat, "2X"},
      {"FLE5/P5F", AtBat::None, kNoAtBat, ""},
      {"NP", AtBat::None, kNoAtBat, ""},
  };
  for (const Row& row : rows) {
    Play play;
    EXPECT_TRUE(ReadPlay(row.text, play)) << row.text;
    EXPECT_EQ(play.atBat, row.atBat) << row.text;
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
