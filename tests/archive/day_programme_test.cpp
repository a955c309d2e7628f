// The programme of a day of the real calendar.
#include "real/day_programme.h"

#include "archive/schedule.h"
#include "archive/season_test.h"
#include "season/season_figures.h"

namespace dtb::real {
namespace {

// Oakland's first two games: the first as it was but for the winner, the second not played yet.
struct DayProgrammeTest : testing::Test {
  DayProgrammeTest() {
    auto replayed = std::make_shared<SeasonFigures>();
    replayed->games.push_back({.id = "080120101112",
                               .time = {},
                               .day = LocalTime{2020, 7, 24},
                               .sides = {{{.team = 0, .runs = 5}, {.team = 1, .runs = 3}}}});
    replayed->teams = {
        {.name = "Anaheim 2020", .games = {0}, .wins = 1, .runs = 5, .runsAllowed = 3},
        {.name = "Oakland 2020", .games = {0}, .losses = 1, .runs = 3, .runsAllowed = 5}};
    worlds = PairWorlds(replayed, archive);
  }
  DayProgramme On(const char* date) const {
    return ProgrammeOf(worlds, {{"080120101112", "OAK202007240"}}, archive::DayOf(date));
  }

  std::shared_ptr<const archive::Season> archive =
      std::make_shared<const archive::Season>(archive::ReadAll(*archive::PartArchive()));
  BothWorlds worlds;
};

TEST_F(DayProgrammeTest, PlayedGamesAndOpenOnesStandBesideTheRealResults) {
  const DayProgramme first = On("2020-07-24");
  EXPECT_EQ(ProgrammeTitle(first), "24 Jul 2020: 2 games, 1 played");
  const auto table = ProgrammeTable(worlds, first);
  EXPECT_EQ(table[1], (std::vector<std::string>{"Anaheim 2020", "5", "Oakland 2020", "3", "3-7",
                                                "Play again"}));
  EXPECT_EQ(table[2],
            (std::vector<std::string>{"Pittsburgh 2020", "", "St. Louis 2020", "", "4-5", "Play"}));
  EXPECT_EQ(ProgrammeText(worlds, first, StandingsOfBoth(worlds, {Moment::By::Date, first.day})),
            R"(
Not played yet:
  Pittsburgh 2020 at St. Louis 2020

Really:
  Anaheim 2020 at Oakland 2020                                3-7
  Pittsburgh 2020 at St. Louis 2020                           4-5

Standings in the evening:
                                 Replayed     Really      Ahead
Anaheim 2020                          1-0        0-1       +1.0
Oakland 2020                          0-1        1-0       -1.0
)");
}

TEST_F(DayProgrammeTest, DaysWithoutGamesAreSkippedAndThePlayedOnesToo) {
  const auto& games = archive->games;
  const int first = games.front().day;
  const int last = games.back().day;
  EXPECT_EQ(DayBeside(*archive, first, -1), first);
  EXPECT_EQ(DayBeside(*archive, last, 1), last);
  int days = 1;
  for (int day = first; day != last; ++days) {
    const int next = DayBeside(*archive, day, 1);
    ASSERT_GT(next, day);
    EXPECT_EQ(DayBeside(*archive, next, -1), day);
    EXPECT_FALSE(ProgrammeOf(worlds, {}, next).games.empty());
    day = next;
  }
  EXPECT_LT(days, last - first + 1) << "the part has gaps";
  std::vector<bool> played(games.size());
  EXPECT_EQ(DayToPlay(*archive, played, archive::kAllClubs), first);
  for (std::size_t i = 0; i < games.size(); ++i) played[i] = i != 50;
  EXPECT_EQ(DayToPlay(*archive, played, archive::kAllClubs), games[50].day);
  played[50] = true;
  EXPECT_EQ(DayToPlay(*archive, played, archive::kAllClubs), last);
}

}  // namespace
}  // namespace dtb::real
