// Teams in groups, and the standings of each.
#include "database/team_groups.h"

#include <gtest/gtest.h>

#include "season/season_standings.h"

namespace dtb {
namespace {

TEST(TeamGroups, TheirTextComesBackAndNonsenseIsNoGroup) {
  const TeamGroups groups{{"East\tside", {"Ants", "Bees\n2"}}, {"West"}};
  EXPECT_EQ(GroupsIn(GroupsText(groups)),
            (TeamGroups{{"East side", {"Ants", "Bees 2"}}, {"West"}}));
  EXPECT_NE(GroupsText({}), "") << "none at all are a choice";
  EXPECT_EQ(GroupsIn("groups\n\tAnts\nA\tBees\t\t\nB\tBees\tCats"),
            (TeamGroups{{"A", {"Bees"}}, {"B", {"Cats"}}}));
  for (const char* text : {"", "A\tBees", "group\nA"}) EXPECT_EQ(GroupsIn(text), TeamGroups{});
}

TEST(TeamGroups, EachHasAFirstOfItsOwn) {
  SeasonFigures season;
  int game = 0;
  for (const auto& [name, wins, losses] :
       {std::tuple{"Ants", 5, 1}, {"Bees", 3, 3}, {"Cats", 2, 2}, {"Dogs", 0, 4}, {"Emus", 0, 0}}) {
    season.teams.push_back({.name = name, .wins = wins, .losses = losses});
    season.teams.back().games.assign(static_cast<std::size_t>(wins + losses), game);
  }
  std::string text;
  const TeamGroups groups{{"West", {"Dogs", "Bees"}}, {"Idle", {"Emus"}}, {"East", {"Zebras"}}};
  for (const GroupStandings& group : StandingsByGroup(season, groups)) {
    text += group.name + ":";
    for (const Standing& standing : group.standings) {
      text += " " + season.teams[standing.team].name + " " + std::to_string(standing.behind)[0];
    }
    text += "\n";
  }
  EXPECT_EQ(text, "West: Bees 0 Dogs 2\nOther teams: Ants 0 Cats 2\n");
  EXPECT_EQ(StandingsByGroup(season, {}).front().name, "");
}

TEST(TeamGroups, PicturesHaveShortNames) {
  const auto shortened = [](std::vector<std::string> names) {
    std::vector<SeasonTeam> teams;
    for (const std::string& name : names) teams.push_back({name});
    return PictureNames(teams);
  };
  using Names = std::vector<std::string>;
  EXPECT_EQ(shortened({"Oakland 2020", "Philadelphia Athletics 2020"}),
            (Names{"Oakland", "P. Athletics"}));
  EXPECT_EQ(shortened({"Oakland 2020", "Oakland 1972"}), (Names{"Oakland 2020", "Oakland 1972"}));
  EXPECT_EQ(
      shortened({"New Amsterdam Giants", "North Avon Park Giants", "\u00c9toile du Nord Expos"}),
      (Names{"NA Giants", "NAP Giants", "\u00c9dN Expos"}));
  EXPECT_EQ(shortened({"Northern Lights East", "Neverland Lost East"}),
            (Names{"Northern Lights East", "Neverland Lost East"}))
      << "no two become the same";
  EXPECT_EQ(shortened({}), Names{});
}

}  // namespace
}  // namespace dtb
