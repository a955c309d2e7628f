// Line-ups and the team files made of them.
#include <algorithm>
#include <filesystem>
#include <set>

#include "seasons/season_files.h"
#include "seasons/season_test.h"
#include "seasons/team_text.h"
#include "teams/player_name.h"
#include "teams/team_file.h"

namespace dtb::seasons {
namespace {

std::vector<std::string> NamesIn(const std::filesystem::path& file) {
  std::vector<std::string> names;
  ReadTeamFile(file, [&](const std::string& line) { names.push_back(PlayerNameOf(line)); });
  return names;
}

std::vector<std::string> NamesOf(const TeamText& team) {
  std::vector<std::string> names;
  for (const std::string& line : team.lines) names.push_back(PlayerNameOf(line));
  return names;
}

TeamText TeamOfGame(const Season& season, std::size_t game, int side) {
  const Game& told = season.games.at(game);
  return MakeTeamText(season, told.sides.at(side).club, LineUpOfGame(season, told, side), {});
}

// A club's start lines, as the files beside the sample games name the men.
std::string Starters(int side, const std::vector<std::string>& names,
                     const std::vector<int>& positions) {
  std::string text;
  for (std::size_t i = 0; i < positions.size(); ++i) {
    text += "start,p" + std::to_string(side) + std::to_string(i) + ",\"" + names[i] + "\"," +
            std::to_string(side) + ',' + std::to_string(i + 1) + ',' +
            std::to_string(positions[i]) + "\r\n";
  }
  return text;
}

TEST(LineUps, AreThoseOfTheSampleGames) {
  TextArchive of2020 = OneGame("OAK202008070");
  const Season dh = ReadAll(of2020);
  for (const auto& [side, file] : {std::pair(0, "HOU 2020.txt"), std::pair(1, "OAK 2020.txt")}) {
    const std::vector<std::string> sample =
        NamesIn(std::filesystem::path(DTB_GAMES "2020-08-07") / file);
    const TeamText team = TeamOfGame(dh, 0, side);
    const std::vector<std::string> made = NamesOf(team);
    EXPECT_TRUE(std::equal(sample.begin(), sample.begin() + 9, made.begin())) << file;
    // All others of the sample are there, too, and the tenth of it is the first pitcher.
    for (const std::string& name : sample) EXPECT_EQ(std::ranges::count(made, name), 1) << name;
    const auto pitcher = std::ranges::find_if(
        team.lines, [](const std::string& line) { return line.find("=P ") != std::string::npos; });
    EXPECT_EQ(PlayerNameOf(*pitcher), side == 0 ? "Zack Greinke" : "Chris Bassitt");
  }

  const std::filesystem::path folder(DTB_GAMES "1960-10-05");
  const std::vector<std::string> visitors = NamesIn(folder / "New York 1960.txt");
  const std::vector<std::string> home = NamesIn(folder / "Pittsburgh 1960.txt");
  TextArchive of1960(
      {{"1960WS.EVE", "id,PIT196010050\r\ninfo,visteam,NYA\r\ninfo,hometeam,PIT\r\n" +
                          Starters(0, visitors, {6, 4, 9, 8, 7, 3, 2, 5, 1}) +
                          Starters(1, home, {8, 6, 7, 3, 9, 2, 5, 4, 1})}});
  const Season pitcherBats = ReadAll(of1960);
  for (const auto& [side, sample] : {std::pair(0, visitors), std::pair(1, home)}) {
    const TeamText team = TeamOfGame(pitcherBats, 0, side);
    const std::vector<std::string> made = NamesOf(team);
    ASSERT_EQ(made.size(), 9U);
    EXPECT_TRUE(std::equal(made.begin(), made.end(), sample.begin()));
    EXPECT_EQ(team.lines[8].find(sample[8] + "=P "), 0U) << team.lines[8];
    EXPECT_EQ(team.name, side == 0 ? "NYA 1960" : "PIT 1960");
  }
}

TEST(LineUps, OurOwnReaderReadsTheSameMenOfEveryTeam) {
  const std::unique_ptr<Archive> part = PartArchive();
  const Season season = ReadAll(*part);
  const std::filesystem::path folder =
      std::filesystem::path(testing::TempDir()) / ("teams" + std::to_string(::getpid()));
  std::set<std::string> files;
  for (int club = 0; club < static_cast<int>(season.clubs.size()); ++club) {
    for (const NameForm names : {NameForm::FirstLast, NameForm::LastFirst}) {
      LineForm form;
      form.names = names;
      const TeamText team = MakeTeamText(season, club, LineUpUsedMost(season, club), form);
      const std::filesystem::path file = folder / FileNameOf(team);
      WriteTeamFile(file, BytesOf(team));
      files.insert(file.filename());
      const std::vector<std::string> read = NamesIn(file);
      EXPECT_EQ(read, NamesOf(team));
      EXPECT_EQ(std::set(read.begin(), read.end()).size(), read.size());
      EXPECT_EQ(read.size() + team.leftOut.size(), season.clubs[club].men.size());
      EXPECT_LE(read.size(), kMostMen);
    }
  }
  EXPECT_EQ(files.size(), 30U);
  EXPECT_TRUE(files.contains("Oakland 2020.txt") && files.contains("New York Mets 2020.txt"));
  std::filesystem::remove_all(folder);
}

std::string Nine(const std::string& id, const std::string& first, int pitchersPlace) {
  std::string text = "id," + id + "\ninfo,visteam,BBB\ninfo,hometeam,AAA\n";
  for (int place = 1; place <= 9; ++place) {
    const bool pitcher = place == pitchersPlace;
    const std::string man = place == 1 ? first : "m" + std::to_string(place);
    text += "start," + (pitcher ? "pit" + id.substr(10) : man) + ",\"" + man + "\",1," +
            std::to_string(place) + ',' + std::to_string(pitcher ? 1 : place + 1) + '\n';
  }
  if (pitchersPlace == 0) text += "start,pit" + id.substr(10) + ",\"Pit\",1,0,1\n";
  return text;
}

TEST(LineUps, TheOneUsedMostIsFoundWhoeverPitches) {
  // Three games with "often", one with "once"; three of four without a pitcher among the nine.
  TextArchive archive(
      {{"1975AAA.EVA", Nine("AAA197504010", "once", 0) + Nine("AAA197504020", "often", 0) +
                           Nine("AAA197504030", "often", 0) + Nine("AAA197504040", "once", 9)}});
  const Season season = ReadAll(archive);
  const LineUp lineUp = LineUpUsedMost(season, 1);
  const Club& club = season.clubs[1];
  ASSERT_EQ(lineUp.order.size(), 9U);
  EXPECT_EQ(club.men[lineUp.order[0].man].id, "often");
  EXPECT_EQ(lineUp.order[8], (Placed{lineUp.order[8].man, 10}));
  EXPECT_EQ(lineUp.pitchers.size(), 4U);
}

TEST(LineUps, MenOfOneNameAreToldApartAndWhoPlayedLeastStaysOut) {
  std::string roster =
      "a1,Garcia,Luis,R,R,AAA,SS\na2,Garcia,Luis,L,L,AAA,P\na3,Garcia,Luis,B,R,AAA,C\n"
      "e1,Equal=Sign,\"Ed\nBreak\",R,R,AAA,OF\n";
  for (int i = 10; i < 70; ++i)
    roster += "x" + std::to_string(i) + ",Man,X" + std::to_string(i) + ",R,R,AAA,P\n";
  TextArchive archive({{"AAA1975.ROS", roster},
                       {"TEAM1975", "AAA,A,Some/City,Clubs\n"},
                       {"1975AAA.EVA",
                        "id,AAA197504010\ninfo,visteam,BBB\ninfo,hometeam,AAA\n"
                        "start,x69,\"X\",1,0,1\n"}});
  const Season season = ReadAll(archive);
  const TeamText team = TeamOfGame(season, 0, 1);
  const std::vector<std::string> names = NamesOf(team);
  EXPECT_EQ(FileNameOf(team), "Some_City 1975.txt");
  EXPECT_EQ(names.size(), kMostMen);
  EXPECT_EQ(std::set(names.begin(), names.end()).size(), names.size());
  EXPECT_EQ(std::ranges::count(names, "X69 Man"), 1);  // he alone has played
  EXPECT_EQ(team.leftOut.size() + names.size(), season.clubs[0].men.size());
  const LineUp whole = LineUpOfGame(season, season.games[0], 1);
  for (const char* name : {"Luis Garcia", "Luis Garcia (2)", "Luis Garcia (3)"}) {
    EXPECT_EQ(std::ranges::count(names, name) + std::ranges::count(team.leftOut, name), 1) << name;
  }
}

TEST(Remarks, FollowTheForm) {
  Man man;
  man.first = "Ed";
  man.last = "Low";
  man.bats = "B";
  man.throws = "L";
  man.batting = {.games = 20,
                 .atBats = 60,
                 .hits = 20,
                 .doubles = 3,
                 .triples = 1,
                 .homeRuns = 4,
                 .walks = 5,
                 .strikeouts = 9,
                 .hitByPitch = 1,
                 .stolenBases = 5};
  man.pitching = {.games = 4,
                  .starts = 1,
                  .outs = 31,
                  .hits = 9,
                  .homeRuns = 1,
                  .walks = 3,
                  .strikeouts = 12,
                  .earnedRuns = 4};
  const std::pair<const char*, const char*> batting[] = {
      {"{pos} {bats} {avg} {hr} HR", "SS S .333 4 HR"},
      {"{power} {speed}", "power speed AA"},
      {"{slg} {obp} {3b}{2b}", ".617 .394 13"},
      {"  a   {sh}  = b ", "a 0 = b"},
      {"{era} {nothing", "{era} {nothing"},
      {"", ""}};
  for (const auto& [form, remark] : batting) EXPECT_EQ(Remark(form, man, "SS", false), remark);
  EXPECT_EQ(Remark("{throws} {ip} {h} {bb} {k} {era} {role}", man, "P", true),
            "L 10.1 9 3 12 3.48 relief");
  EXPECT_EQ(Remark("{avg} {obp}", Man{}, "", false), ".--- .---");
  EXPECT_EQ(Remark("{era}|{ip}|{role}", Man{}, "", true), "-.--|0.0|");
  man.batting.atBats = man.batting.hits = 2;
  EXPECT_EQ(Remark("{avg}", man, "", false), "1.000");
  EXPECT_EQ(UnknownWords("{pos} {era} {avg}", false), std::vector<std::string>{"{era}"});
  EXPECT_EQ(NameInFile(man, NameForm::LastFirst), "Low, Ed");
}

}  // namespace
}  // namespace dtb::seasons
