// Dice, charts, ballparks, logos and sound.
#include <cmath>

#include "aids/ballparks.h"
#include "aids/charts.h"
#include "aids/crowd.h"
#include "aids/dice.h"
#include "fake_platform.h"
#include "platform/random_generator.h"
#include "teams/logos.h"

namespace dtb {
namespace {

struct AidsTest : testing::Test {
  std::string Told() { return std::exchange(fake.told, ""); }
  std::string Faces() const {
    std::string text;
    for (const Field<int>& face : state.faces) text += DecimalText(face.value());
    return text + "/" + state.lbl_20die.value();
  }
  std::string Numbers() const {
    std::string text;
    for (const auto& number : state.numbers) text += number.value() + " ";
    return text;
  }
  // Ticks until the roll ends; no roll is longer than 99.
  static int Ticks(const Field<bool>& rolling, const std::function<void()>& tick) {
    int ticks = 0;
    for (; rolling.value() && ticks < 99; ++ticks) tick();
    return ticks;
  }
  std::filesystem::path Place(const std::string& name) const {
    return (fake.folder / name).make_preferred();
  }
  void AddFile(const std::string& name) {
    std::filesystem::create_directories(Place(name).parent_path());
    std::ofstream(Place(name)) << "x";
    fake.photos.insert(Place(name).string());
  }
  std::string Park() const {
    return std::filesystem::path(state.Picture1.value().path).filename().string();
  }

  FakePlatform fake;
  AidsState state;
  Aids aids{state, fake.ports};
};

TEST_F(AidsTest, FaceDiceRollInTurnsOf52And50Throws) {
  // What one throw draws, in order: red, green and white die, then the twenty-sided one.
  fake.draws = {0, 0.5, 1 - 0x1p-24, 1 - 0x1p-24};
  for (const std::string expected : {"26 52 1", "25 50 0", "26 52 1"}) {
    RollFaceDice(aids);
    const int ticks = Ticks(state.tmr_sombb, [&] { TickFaceDice(aids); });
    EXPECT_EQ(DecimalText(ticks) + " " + DecimalText(std::exchange(fake.reseeds, 0)) + " " +
                  state.tb_DieCount.value(),
              expected);
  }
  EXPECT_EQ(Faces(), "146/20");
  EXPECT_EQ(Told(), "once DiceRoll.wav | once DiceRoll.wav | once DiceRoll.wav");
  // A second press does not lengthen the roll.
  state.tb_DieCount.Set("0");
  RollFaceDice(aids);
  for (int tick = 0; tick < 10; ++tick) TickFaceDice(aids);
  RollFaceDice(aids);
  EXPECT_EQ(Ticks(state.tmr_sombb, [&] { TickFaceDice(aids); }), 16);
  RollDice(aids);
  EXPECT_TRUE(state.Check4.value()) << "dice in hand that are put away come out";
}

TEST_F(AidsTest, NumberDiceRollFor22TicksAfterTheLastPress) {
  EXPECT_EQ(Numbers(), "        ");
  state.cb_MuteDice.Set(true);
  RollNumberDice(aids);
  const auto tick = [&] { TickNumberDice(aids); };
  tick();
  EXPECT_EQ(Numbers(), "0 0 0 0 1 1 1 1 ") << "they show from the first tick";
  RollNumberDice(aids);
  fake.draws = {1 - 0x1p-24};
  EXPECT_EQ(Ticks(state.tmrDice2, tick), 22);
  EXPECT_EQ(state.lblDiceTime.value(), "154");
  EXPECT_EQ(Numbers(), "9 9 9 9 20 4 12 6 ");
  EXPECT_EQ(Told(), "") << "muted";
  EXPECT_FALSE(state.tmr_sombb.value());
}

TEST_F(AidsTest, NumberDiceFlipOnceForEachPressOfTheirKeys) {
  std::string shown;
  for (const int presses : {0, 1, 0, 1, 2, 3}) {  // between two ticks
    fake.controlF12 = presses;
    DetectF12(aids);
    shown += state.fra_BBgumBB_visible.value() ? '1' : '0';
  }
  EXPECT_EQ(shown, "011001");
}

TEST_F(AidsTest, ThrowsAreUniformAndDoNotMarchInStep) {
  // Re-seeded in every throw with the same second, as in a roll. Chi-square at 1 in 10,000.
  RandomGenerator generator(20261124);
  constexpr int kThrows = 20000;
  const std::map<int, double> limits{{4, 21.1}, {6, 25.7}, {10, 33.7}, {12, 37.4}, {20, 50.8}};
  for (const auto& [sides, limit] : limits) {
    std::vector<int> counts(static_cast<std::size_t>(sides));
    std::vector<int> pairs(static_cast<std::size_t>(sides * sides));
    for (int i = 0; i < kThrows; ++i) {
      generator.Reseed(43200);
      const auto first = static_cast<std::size_t>(generator.Draw() * sides);
      const auto second = static_cast<std::size_t>(generator.Draw() * sides);
      ++counts.at(first);
      ++pairs.at(first * static_cast<std::size_t>(sides) + second);
    }
    const auto chiSquare = [](const std::vector<int>& seen) {
      const double expected = kThrows / static_cast<double>(seen.size());
      double sum = 0;
      for (const int count : seen) sum += (count - expected) * (count - expected) / expected;
      return sum;
    };
    EXPECT_LT(chiSquare(counts), limit) << sides;
    // Of many kinds of pairs, chi-square is nearly normal: mean n - 1, variance 2 (n - 1).
    const double kinds = static_cast<double>(pairs.size()) - 1;
    EXPECT_LT(chiSquare(pairs), kinds + 4 * std::sqrt(2 * kinds)) << sides;
  }
}

TEST_F(AidsTest, ChartButtonsKeepTheirNames) {
  fake.settings["labels/lbl_chrt2"] = "BUNTS";
  ReadChartNames(aids);
  EXPECT_EQ(state.lbl_chrt[0].value() + "," + state.lbl_chrt[1].value(), ",BUNTS");
  EXPECT_FALSE(BeginEdit(fake.ports, ChartName(state, 1))) << "without Ctrl the chart opens";
  fake.control = true;
  EXPECT_TRUE(BeginEdit(fake.ports, ChartName(state, 1)));
  EXPECT_EQ(state.tb_chrt[1].value(), "BUNTS");
  EXPECT_FALSE(BeginEdit(fake.ports, ChartName(state, 1))) << "it is edited already";
  state.tb_chrt[1].Set("STEALS");
  SaveEdit(fake.ports, ChartName(state, 1));
  EXPECT_FALSE(state.tb_chrt_visible[1].value());
  EXPECT_EQ(fake.settings["labels/lbl_chrt2"], "STEALS");
  fake.settingsFail = true;
  SaveEdit(fake.ports, ChartName(state, 1));
  EXPECT_EQ(Told(), "x: Program Error: The following error has occurred: 75, no settings");
  EXPECT_EQ(ChartFile(fake.ports, 8), fake.folder / "Charts" / "Chart09.jpg");
}

TEST_F(AidsTest, ParksAreChosenOrDrawn) {
  for (const char* name : {"Ballparks/DEFAULT1679X974.jpg", "parks/A.jpg", "parks/B.JPG",
                           "parks/c.png", "png/only.png"}) {
    AddFile(name);
  }
#ifndef _WIN32
  AddFile("parks/\xE9t\xE9.jpg");  // in an encoding that leads to no file
#endif
  SetUpBallparks(aids);
  EXPECT_EQ(Park(), kDefaultPark);
  EXPECT_EQ(NameOfPark(state.Picture1.value()), "");
  EXPECT_EQ(NameOfPark({"/parks/Foundry Park (night).jpg", 1}), "Foundry Park (night)");
  ChoosePark(aids);  // cancelled
  EXPECT_FALSE(state.cb_RandParks_visible.value());
  fake.chosen = Place("parks/c.txt");
  ChoosePark(aids);
  EXPECT_EQ(Told(), "w: BALLPARKS: no picture");
  fake.chosen = Place("parks/c.png");
  ChoosePark(aids);
  EXPECT_EQ(Park(), "c.png");
  EXPECT_TRUE(state.cb_RandParks_visible.value());
  state.cb_RandParks.Set(true);
  for (const auto& [draw, park] : {std::pair{0.0, "A.jpg"}, {1 - 0x1p-24, "B.JPG"}}) {
    fake.draws = {draw};
    ChoosePark(aids);
    EXPECT_EQ(Park(), park);
  }
  state.cb_RandParks.Set(false);
  fake.chosen.reset();
  ChoosePark(aids);
  EXPECT_FALSE(state.cb_RandParks_visible.value()) << "a cancelled choice ends the series";
  EXPECT_EQ(Park(), "B.JPG");
  fake.chosen = Place("png/only.png");
  ChoosePark(aids);
  state.cb_RandParks.Set(true);
  ChoosePark(aids);
  EXPECT_EQ(Park(), "only.png") << "an empty list leaves the park";
  std::filesystem::remove_all(fake.folder / "png");
  ChoosePark(aids);
  EXPECT_NE(Told().find("png\" cannot be read."), std::string::npos);
}

TEST_F(AidsTest, CrowdPlaysWhileItsBoxIsChecked) {
  state.cb_Crowd.Set(true);
  CrowdClicked(aids);
  EXPECT_EQ(Told(), "x: Program Error: The following error has occurred: 53, no file");
  AddFile("BaseballCrowd.wav");
  CrowdClicked(aids);
  state.cb_Crowd.Set(false);
  CrowdClicked(aids);
  EXPECT_EQ(Told(), "loop BaseballCrowd.wav | stop");
}

TEST(Logos, ArePickedForBoardAndSheet) {
  Game game;
  game.fake.photos = {(game.fake.folder / "Logos" / "VisLogo.jpg").string()};
  ShowDefaultLogos(game.board);
  EXPECT_FALSE(game.state.img_VisLogo.value().empty());
  EXPECT_TRUE(game.sheet.Picture3.value().empty()) << "a default is for the board alone";
  game.fake.chosen.reset();
  ChooseLogo(game.board, Side::Home);
  EXPECT_TRUE(game.state.img_HomeLogo.value().empty());
  game.fake.chosen = "/new.jpg";
  ChooseLogo(game.board, Side::Home);
  EXPECT_TRUE(game.state.img_HomeLogo.value().empty()) << "no picture";
  game.fake.photos = {"/new.jpg"};
  ChooseLogo(game.board, Side::Home);
  EXPECT_EQ(game.state.img_HomeLogo.value().path + game.sheet.Picture4.value().path,
            "/new.jpg/new.jpg");
}

}  // namespace
}  // namespace dtb
