// Where the bases lie in the picture of the park.
#include "aids/ballparks.h"
#include "fake_platform.h"
#include "game/recovery.h"

namespace dtb {
namespace {

struct ParkPlacesTest : testing::Test {
  ParkPlacesTest() {
    AddPark(kDefaultPark);
    std::ofstream(fake.folder / "Ballparks" / kPlacesFile)
        << "# remark = 0 0 0 0 0 0 0 0\r\nno park\n\n"
           "A = B (day).jpg = .1 .2 .3 .4 .5 .6 .7 .8\r\n"
           "Broken.jpg = 0.5 0.9 0.7 0.5 0.5 1.4 0.3 0.5\n";
  }
  std::filesystem::path AddPark(const std::string& name) {
    auto file = fake.folder / "Ballparks" / PathOf(name);
    std::filesystem::create_directories(file.parent_path());
    fake.photos.insert(TextOf(file));
    return file;
  }
  void Show(const std::string& name) { state.Picture1.Set({TextOf(AddPark(name)), 1}); }
  // "known 0.5 0.88 ..." in hundredths: "known 50,88 69,55 50,44 31,55".
  std::string Places() const {
    std::string text = state.parkPlacesKnown.value() ? "known" : "usual";
    for (const ParkPlace& place : state.parkPlaces.value()) {
      text += " " + FixedDecimals(place.x * 100, 0) + "," + FixedDecimals(place.y * 100, 0);
    }
    return text;
  }

  FakePlatform fake;
  AidsState state;
  Aids aids{state, fake.ports};
  const std::string usual = "usual 50,88 69,55 50,44 31,55";
  const std::string shipped = "known 10,20 30,40 50,60 70,80";
};

TEST_F(ParkPlacesTest, SettingsAreTakenOrPassedOverInSilence) {
  SetUpBallparks(aids);
  const std::string own = "known 50,90 70,50 50,40 30,50";
  const std::vector<std::pair<const char*, bool>> cases{
      {"0.5 0.9 0.7 0.5 0.5 0.4 0.3 0.5", true},
      {" .5\t.9 .7 .5 .5 .4 .3 5e-1 ", true},
      {"", false},
      {"bases", false},
      {"0.5 0.9 0.7 0.5 0.5 0.4 0.3", false},
      {"0.5 0.9 0.7 0.5 0.5 0.4 0.3 0.5 0.5", false},
      {"0.5 0.9 0.7 0.5 0.5 0.4 0.3 0.5 x", false},
      {"0.5 0.9 0.7 0.5 0.5 0.4 0.3 1.01", false},
      {"0.5 0.9 -0.1 0.5 0.5 0.4 0.3 0.5", false},
      {"nan 0.9 0.7 0.5 0.5 0.4 0.3 0.5", false},
      {"inf 0.9 0.7 0.5 0.5 0.4 0.3 0.5", false},
      {"0,5 0,9 0,7 0,5 0,5 0,4 0,3 0,5", false}};
  for (const auto& [text, good] : cases) {
    for (const char* park : {"Mine.png", "A = B (day).jpg", "Broken.jpg"}) {
      fake.settings = {{std::string("park_places/") + park, text}};
      Show(park);
      const bool ships = park == std::string("A = B (day).jpg");
      EXPECT_EQ(Places(), good ? own : ships ? shipped : usual) << park << ": " << text;
    }
  }
  EXPECT_EQ(fake.told, "");
}

TEST_F(ParkPlacesTest, OwnPlacesGoFirstAndHoldForTheirPark) {
  SetUpBallparks(aids);
  EXPECT_EQ(Places(), usual) << "a park of which nothing is told";
  Show("A = B (day).jpg");
  EXPECT_EQ(Places(), shipped);
  KeepParkPlaces(aids, {{{0, 1}, {1, 0.5}, {0.5, 0}, {0.12346, 0.5}}});
  const std::string own = "known 0,100 100,50 50,0 12,50";
  EXPECT_EQ(Places(), own);
  EXPECT_EQ(fake.settings["park_places/A = B (day).jpg"],
            "0.0000 1.0000 1.0000 0.5000 0.5000 0.0000 0.1235 0.5000");
  Show("Mine.png");
  EXPECT_EQ(Places(), usual);
  fake.settingsFail = true;
  KeepParkPlaces(aids, {{{.5, .8}, {.8, .5}, {.5, .2}, {.2, .5}}});
  EXPECT_EQ(fake.told, "x: Program Error: The following error has occurred: 75, no settings");
  Show("A = B (day).jpg");
  EXPECT_EQ(Places(), own);
  Show("Mine.png");
  EXPECT_EQ(Places(), "known 50,80 80,50 50,20 20,50") << "they hold until the program ends";
}

// A game that is taken up brings its park with it.
TEST_F(ParkPlacesTest, AreThoseOfTheParkOfAGameThatIsTakenUp) {
  Game game(false);
  Aids before{state, game.fake.ports};
  SetUpBallparks(aids);
  Show("A = B (day).jpg");
  const std::string text = TableText(game.board, state);
  Show("Mine.png");
  KeepParkPlaces(aids, kUsualPlaces);
  TakeUp(ReadTable(text, game.board, before), game.board, before);
  EXPECT_EQ(Places(), shipped);
}

}  // namespace
}  // namespace dtb
