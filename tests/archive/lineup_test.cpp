// Line-ups and the team files made of them.
#include <algorithm>
#include <filesystem>
#include <set>

#include "archive/season_files.h"
#include "archive/season_test.h"
#include "archive/team_text.h"
#include "game/player_name.h"
#include "teams/team_file.h"
#include "temporary_folder.h"

namespace dtb::archive {
namespace {

std::vector<std::string> NamesIn(const std::filesystem::path& file) {
  std::vector<std::string> names;
  ReadTeamFile(file, [&](const std::string& line) { names.push_back(PlayerNameOf(line)); });
  return names;
}

TeamText TeamOfGame(const Season& season, std::size_t game, int side) {
  const Game& told = season.games.at(game);
  return MakeGameTeams(season, told, {}).teams.at(static_cast<std::size_t>(side));
}

// A club's start lines, as the files beside the sample games name the players.
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

TEST(LineUps, OurOwnReaderReadsTheSamePlayersOfEveryTeam) {
  const std::unique_ptr<Archive> part = PartArchive();
  const Season season = ReadAll(*part);
  const std::filesystem::path folder = MakeTemporaryFolder("teams");
  std::set<std::string> files;
  for (int club = 0; club < static_cast<int>(season.clubs.size()); ++club) {
    for (const NameForm names : {NameForm::FirstLast, NameForm::LastFirst}) {
      LineForm form;
      form.names = names;
      const TeamText team =
          MakeTeamText(season, club, LineUpOfSeason(season, club, SeasonNine::UsedMost), form);
      const std::filesystem::path file = folder / FileNameOf(team);
      WriteTeamFile(file, BytesOf(team));
      files.insert(file.filename().string());
      const std::vector<std::string> read = NamesIn(file);
      EXPECT_EQ(read, NamesOf(team));
      EXPECT_EQ(std::set(read.begin(), read.end()).size(), read.size());
      EXPECT_EQ(read.size() + team.leftOut.size(), season.clubs[club].players.size());
      EXPECT_LE(read.size(), kMostPlayers);
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
    const std::string player = place == 1 ? first : "m" + std::to_string(place);
    text += "start," + (pitcher ? "pit" + id.substr(10) : player) + ",\"" + player + "\",1," +
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
  const LineUp lineUp = LineUpOfSeason(season, 1, SeasonNine::UsedMost);
  const Club& club = season.clubs[1];
  ASSERT_EQ(lineUp.order.size(), 9U);
  EXPECT_EQ(club.players[lineUp.order[0].player].id, "often");
  EXPECT_EQ(lineUp.order[8], (Placed{lineUp.order[8].player, 10}));
  EXPECT_EQ(lineUp.pitchers.size(), 4U);
}

TEST(LineUps, PlayersOfOneNameAreToldApartAndWhoPlayedLeastStaysOut) {
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
  EXPECT_EQ(names.size(), kMostPlayers);
  EXPECT_EQ(std::set(names.begin(), names.end()).size(), names.size());
  EXPECT_EQ(std::ranges::count(names, "X69 Man"), 1);  // he alone has played
  EXPECT_EQ(team.leftOut.size() + names.size(), season.clubs[0].players.size());
  for (const char* name : {"Luis Garcia", "Luis Garcia (2)", "Luis Garcia (3)"}) {
    EXPECT_EQ(std::ranges::count(names, name) + std::ranges::count(team.leftOut, name), 1) << name;
  }
}

std::string Line(const char* kind, const std::string& player, int side, int place, int position) {
  return std::string(kind) + ',' + player + ",\"\"," + std::to_string(side) + ',' +
         std::to_string(place) + ',' + std::to_string(position) + '\n';
}

// A game of the month's day at AAA or BBB against CCC, in which these play for the home team.
std::string Day(const std::string& home, int day, const std::string& starts) {
  const std::string number = (day < 10 ? "0" : "") + std::to_string(day);
  return "id," + home + "197504" + number + "0\ninfo,visteam,CCC\ninfo,hometeam," + home + '\n' +
         starts;
}

TEST(LineUps, WhoBelongedToTheOtherClubThatDayStaysOut) {
  // Moved played for AAA until the 10th and for BBB from the 20th on. Late came on the 29th. Both
  // clubs have a Hal One; Twice is in both rosters and was in no game.
  std::string games;
  for (int day = 1; day <= 29; ++day) {
    games += Day("AAA", day, Line("start", day <= 10 ? "moved" : "a1", 1, 1, 6));
    games += Day("BBB", day,
                 Line("start", day >= 20 ? "moved" : "b1", 1, 1, 6) +
                     (day == 29 ? Line("sub", "late", 1, 1, 11) : ""));
  }
  const auto against = [&](int day) {
    return "id,AAA197504" + std::to_string(day) + "1\ninfo,visteam,BBB\ninfo,hometeam,AAA\n" +
           Line("start", "b1", 0, 2, 4) + Line("start", "a1", 1, 2, 4);
  };
  TextArchive archive(
      {{"TEAM1975", "AAA,A,Aston,As\nBBB,A,Bexley,Bs\n"},
       {"AAA1975.ROS",
        "a1,One,Hal,R,R,AAA,SS\nmoved,Moved,Max,R,R,AAA,SS\n"
        "twice,Twice,Ty,R,R,AAA,C\n"},
       {"BBB1975.ROS",
        "b1,One,Hal,R,R,BBB,SS\nmoved,Moved,Max,R,R,BBB,SS\n"
        "twice,Twice,Ty,R,R,BBB,C\nlate,Late,Lou,R,R,BBB,OF\n"},
       {"1975AAA.EVA", games + against(11) + against(14) + against(16) + against(28)}});
  const Season season = ReadAll(archive);
  const auto told = [&](const std::string& id) {
    const auto game = std::ranges::find(season.games, id, &Game::id);
    const GameTeams made = MakeGameTeams(season, *game, {});
    std::string text;
    for (const TeamText& team : made.teams) {
      for (const std::string& name : NamesOf(team)) text += name.empty() ? "" : name + ", ";
      text += "| ";
    }
    return text + std::to_string(made.alike.size());
  };
  const std::string with = "Hal One (2), ";
  EXPECT_EQ(told("AAA197504111"), with + "Ty Twice, | Hal One, Max Moved, Ty Twice (2), | 2");
  EXPECT_EQ(told("AAA197504141"), with + "Ty Twice, | Hal One, Max Moved, Ty Twice (2), | 2");
  EXPECT_EQ(told("AAA197504161"), with + "Max Moved, Ty Twice, | Hal One, Ty Twice (2), | 2");
  EXPECT_EQ(told("AAA197504281"),
            with + "Max Moved, Lou Late, Ty Twice, | Hal One, Ty Twice (2), | 2");
}

TEST(LineUps, WhereRoomIsShortTheyGoWhoWereAwayLongest) {
  // Four players each were in a game up to 14 days before and after the 15th; those of 13 days
  // played most.
  std::string games;
  for (int day = 1; day <= 29; ++day) {
    std::string lines = Line("start", "pitcher", 1, 0, 1);
    for (int away = 1; away <= 14; ++away) {
      if (std::abs(day - 15) != away && (away != 13 || std::abs(day - 15) != 14)) continue;
      for (const char* who : {"a", "b", "c", "d"}) {
        lines += Line("sub", std::to_string(away) + who, 1, 1, 11);
      }
    }
    games += Day("AAA", day, lines);
  }
  TextArchive archive({{"1975AAA.EVA", games}});
  const Season season = ReadAll(archive);
  const TeamText team = MakeGameTeams(season, season.games.at(14), {}).teams[1];
  const std::set<std::string> left(team.leftOut.begin(), team.leftOut.end());
  EXPECT_EQ(left, (std::set<std::string>{"13a", "13b", "13c", "13d", "14a", "14b", "14c", "14d"}));
}

TEST(LineUps, TheUsualNinePlayWhereTheirTeamMissesThemMost) {
  // A began most games at short; but with B there and A at second more of their games count than
  // with A at short and one of four others at second. T began most games at third, never beside B.
  std::string games;
  for (int day = 1; day <= 7; ++day) {
    const bool first = day <= 4;
    const std::string other = "other" + std::to_string(day);
    const std::array<std::pair<std::string, int>, 9> nine{{{first ? "a" : "b", 6},
                                                           {first ? other : "a", 4},
                                                           {"m", 8},
                                                           {"l", 3},
                                                           {"n", 7},
                                                           {"o", 9},
                                                           {first ? "t" : "u", 5},
                                                           {"k", 2},
                                                           {first ? "p" : "q", 1}}};
    std::string lines;
    for (int place = 1; place <= 9; ++place) {
      const auto& [player, position] = nine.at(static_cast<std::size_t>(place - 1));
      lines += Line("start", player, 1, place, position);
    }
    games += Day("AAA", day, lines);
  }
  TextArchive archive({{"1975AAA.EVA", games}});
  const Season season = ReadAll(archive);
  const auto told = [&](SeasonNine nine) {
    std::string text;
    const int club = season.games[0].sides[1].club;
    for (const Placed& one : LineUpOfSeason(season, club, nine).order) {
      text += season.clubs[club].players[one.player].id + ' ' + PositionName(one.position) + ", ";
    }
    return text;
  };
  EXPECT_EQ(told(SeasonNine::UsedMost), "b SS, a 2B, m CF, l 1B, n LF, o RF, u 3B, k C, p P, ");
  EXPECT_EQ(told(SeasonNine::UsualNine), "b SS, a 2B, m CF, l 1B, n LF, o RF, t 3B, k C, p P, ");
}

TEST(LineUps, NoTwoTeamsOfAGameShareAName) {
  const std::unique_ptr<Archive> part = PartArchive();
  const Season season = ReadAll(*part);
  int alike = 0;
  for (const Game& game : season.games) {
    const GameTeams made = MakeGameTeams(season, game, {});
    const std::vector<std::string> visitors = NamesOf(made.teams[0]);
    for (const std::string& name : NamesOf(made.teams[1])) {
      EXPECT_EQ(std::ranges::count(visitors, name), 0) << game.id << ' ' << name;
    }
    alike += static_cast<int>(made.alike.size());
  }
  EXPECT_EQ(alike, 0) << "no namesakes met, and nobody of both clubs is in both files";
}

TEST(LineUps, PIsForPitchersAndAnOpenPlaceStaysOpen) {
  // Two days of a club: "two" starts as pitcher and bats as DH; "bat" pitches an inning once;
  // "run", a pitcher, only runs; "dh" is a pitcher in the roster alone; nobody is told who batted
  // third.
  const std::string day = Line("start", "two", 1, 1, 10) + Line("start", "two", 1, 0, 1) +
                          Line("start", "bat", 1, 2, 6) + Line("start", "m4", 1, 4, 3) +
                          Line("start", "m5", 1, 5, 4) + Line("start", "m6", 1, 6, 5) +
                          Line("start", "m7", 1, 7, 7) + Line("start", "m8", 1, 8, 8) +
                          Line("start", "m9", 1, 9, 9);
  TextArchive archive(
      {{"AAA1975.ROS",
        "two,Two,T,L,R,AAA,P\nbat,Bat,B,R,R,AAA,SS\nrun,Run,R,R,R,AAA,P\n"
        "dh,Dh,D,R,R,AAA,P\nrel,Rel,R,R,R,AAA,P\n"},
       {"1975AAA.EVA", Day("AAA", 1,
                           day + Line("sub", "rel", 1, 0, 1) + Line("sub", "run", 1, 4, 12) +
                               Line("sub", "dh", 1, 1, 10) + Line("sub", "bat", 1, 2, 1)) +
                           Day("AAA", 2, day)}});
  const Season season = ReadAll(archive);
  LineForm form;
  form.batters = "{pos}";
  form.pitchers = "{pos} {ip}";
  const TeamText team = MakeGameTeams(season, season.games[0], form).teams[1];
  std::string all;
  for (const std::string& line : team.lines) all += line + "; ";
  EXPECT_EQ(all,
            "T Two=P/DH / P 0.0; B Bat=SS; =not known who batted 3rd; m4=1B; m5=2B; m6=3B; "
            "m7=LF; m8=CF; m9=RF; D Dh=DH; R Rel=P 0.0; R Run=P 0.0; ");
  EXPECT_EQ(team.gaps, std::vector<std::string>{"who bats 3rd"});
  EXPECT_EQ(team.inOrder, 9);
}

TEST(Remarks, FollowTheForm) {
  Player player;
  player.first = "Ed";
  player.last = "Low";
  player.bats = "B";
  player.throws = "L";
  player.batting = {.games = 20,
                    .atBats = 60,
                    .hits = 20,
                    .doubles = 3,
                    .triples = 1,
                    .homeRuns = 4,
                    .walks = 5,
                    .strikeouts = 9,
                    .hitByPitch = 1,
                    .stolenBases = 5,
                    .gamesAt = {0, 2, 0, 0, 12, 0, 12, 0, 0, 0, 0, 30, 0}};
  player.pitching = {.games = 4,
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
      {"{at}", "2B 12, SS 12, P 2"},
      {"{avg}{few} {pa}", ".333? 66"},
      {"  a   {sh}  = b ", "a 0 = b"},
      {"{era} {nothing", "{era} {nothing"},
      {"", ""}};
  for (const auto& [form, remark] : batting) EXPECT_EQ(Remark(form, player, "SS", false), remark);
  for (const auto& [steals, triples, speed] : {std::tuple{4, 0, "speed AA"},
                                               {3, 0, "speed A"},
                                               {2, 0, "speed A"},
                                               {1, 2, "speed A"},
                                               {1, 1, ""}}) {
    Player runner = player;
    runner.batting.stolenBases = steals;
    runner.batting.triples = triples;
    EXPECT_EQ(Remark("{speed}", runner, "SS", false), speed) << steals << ", " << triples;
  }
  EXPECT_EQ(Remark("{throws} {ip} {h} {bb} {k} {era}{few} {role}", player, "P", true),
            "L 10.1 9 3 12 3.48? relief");
  EXPECT_EQ(Remark("{avg}{few} {obp} {at}", Player{}, "", false), ".--- .---");
  EXPECT_EQ(Remark("{era}{few}|{ip}|{role}", Player{}, "", true), "-.--|0.0|");
  // A hundred plate appearances, and thirty innings, are no small sample any more.
  for (const int more : {33, 34}) {
    player.batting.walks = 5 + more;
    player.pitching.outs = 56 + more;
    const std::string mark = more == 33 ? "?" : "";
    EXPECT_EQ(Remark("{few}", player, "", false) + '|' + Remark("{few}", player, "", true),
              mark + '|' + mark);
  }
  player.batting.atBats = player.batting.hits = 2;
  EXPECT_EQ(Remark("{avg}", player, "", false), "1.000");
  EXPECT_EQ(UnknownWords("{pos} {era} {avg}", false), std::vector<std::string>{"{era}"});
  EXPECT_EQ(NameInFile(player, NameForm::LastFirst), "Low, Ed");
}

}  // namespace
}  // namespace dtb::archive
