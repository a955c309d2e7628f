// The figures of whole games: against a second count of the same lines by another road, against a
// game that was counted elsewhere, and by hand.
#include <map>
#include <regex>

#include "archive/remarks.h"
#include "archive/season_test.h"

namespace dtb::archive {
namespace {

struct Tally {
  int runs = 0;
  int hits = 0;
  int atBats = 0;
  friend bool operator==(const Tally&, const Tally&) = default;
};

// Counts a play by patterns over its whole text, with no notion of bases.
void CountByPattern(const std::string& text, Tally& tally) {
  static const std::regex noEnd("^(NP|SB|CS|PO|WP|PB|BK|DI|OA|FLE).*");
  static const std::regex noAtBat("^(W|I|HP|C).*|.*/S[HF]([/.+-].*|$)");
  static const std::regex hit("^(S|D|T|H).*");
  static const std::regex homeRun("^(HR|H[0-9/]).*");
  static const std::regex home("[.;][B123](-H|XH\\([0-9]*E)");
  static const std::regex stolenHome("(^|[+;])SBH(?!.*3-H)");
  tally.runs += static_cast<int>(
      std::distance(std::sregex_iterator(text.begin(), text.end(), home), std::sregex_iterator()));
  if (std::regex_search(text, stolenHome)) ++tally.runs;
  if (std::regex_match(text, noEnd)) return;
  if (std::regex_match(text, homeRun) && text.find("B-H") == std::string::npos) ++tally.runs;
  if (std::regex_match(text, noAtBat)) return;
  ++tally.atBats;
  if (std::regex_match(text, hit)) ++tally.hits;
}

std::vector<std::string> Fields(const std::string& line, char mark) {
  std::vector<std::string> fields;
  std::istringstream stream(line);
  for (std::string field; std::getline(stream, field, mark);) fields.push_back(field);
  return fields;
}

TEST(Counts, EveryGameOfThePartArchiveByTwoRoads) {
  const std::unique_ptr<Archive> part = PartArchive();
  std::string bytes;
  int games = 0;
  for (std::size_t i = 0; i < part->files().size(); ++i) {
    if (part->files()[i].name.find(".EV") == std::string::npos) continue;
    part->Read(i, bytes, Always);
    for (std::size_t start = 0; start < bytes.size();) {
      const std::size_t end = std::min(bytes.find("\nid,", start), bytes.size() - 1) + 1;
      const std::string text = bytes.substr(start, end - start);
      start = end;
      ++games;
      std::array<Tally, 2> expected;
      std::string winner;
      std::istringstream lines(text);
      for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        const std::vector<std::string> fields = Fields(line, ',');
        if (line.starts_with("info,wp,")) winner = fields.at(2);
        if (fields[0] == "play") CountByPattern(fields.at(6), expected.at(fields[2] == "1"));
      }
      TextArchive alone({{"2020XXX.EVA", text}});
      const Season season = ReadAll(alone);
      ASSERT_EQ(season.games.size(), 1U);
      const Game& game = season.games[0];
      EXPECT_EQ(season.faultCount, 0) << game.id;
      for (int side = 0; side < 2; ++side) {
        Tally counted;
        counted.runs = game.sides.at(side).runs;
        int earned = 0;
        bool won = false;
        for (const Player& player : season.clubs[game.sides.at(side).club].players) {
          counted.hits += player.batting.hits;
          counted.atBats += player.batting.atBats;
          earned += player.pitching.earnedRuns;
          won = won || (player.id == winner && player.pitching.wins == 1);
        }
        EXPECT_EQ(counted, expected.at(side)) << game.id << " side " << side;
        EXPECT_LE(earned, game.sides.at(1 - side).runs) << game.id;
        EXPECT_EQ(won, game.sides.at(side).runs > game.sides.at(1 - side).runs) << game.id;
      }
    }
  }
  EXPECT_EQ(games, 120);
}

// "AB=4 2B=1 K=2": what is nought is not told.
std::string Told(const std::vector<std::pair<const char*, int>>& figures) {
  std::string text;
  for (const auto& [name, number] : figures) {
    if (number != 0) text += std::string(" ") + name + '=' + std::to_string(number);
  }
  return text;
}

TEST(Counts, TheRealGameAsItWasCountedElsewhere) {
  TextArchive alone = OneGame("OAK202008070");
  const Season season = ReadAll(alone);
  std::map<std::string, std::string> counted;
  for (const Club& club : season.clubs) {
    for (const Player& player : club.players) {
      const Batting& b = player.batting;
      const Pitching& p = player.pitching;
      const std::string who = club.id + " 2020 | " + FullName(player) + " |";
      const int singles = b.hits - b.doubles - b.triples - b.homeRuns;
      counted["BATTING " + who] = Told({{"AB", b.atBats},
                                        {"1B", singles},
                                        {"2B", b.doubles},
                                        {"3B", b.triples},
                                        {"HR", b.homeRuns},
                                        {"BB", b.walks},
                                        {"K", b.strikeouts},
                                        {"SB", b.stolenBases}});
      counted["PITCHING " + who] =
          Told({{"K", p.strikeouts}, {"BB", p.walks}, {"H", p.hits}, {"HR", p.homeRuns}});
    }
  }
  std::ifstream file(DTB_GAMES "2020-08-07/expected.txt");
  int rows = 0;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("LINE")) continue;
    ++rows;
    const std::size_t bar = line.rfind('|') + 1;
    // The board has rules of its own for earned runs and innings.
    const std::string expected =
        std::regex_replace(line.substr(bar), std::regex(" (RBI|ER|IP)=[0-9.]+"), "");
    EXPECT_EQ(counted[line.substr(0, bar)], expected) << line;
    counted.erase(line.substr(0, bar));
  }
  EXPECT_EQ(rows, 33);
  // Nobody else has a figure.
  for (const auto& [who, figures] : counted) EXPECT_EQ(figures, "") << who;
  EXPECT_EQ(season.games[0].sides[0].runs, 2);
  EXPECT_EQ(season.games[0].sides[1].runs, 3);
  EXPECT_EQ(PlayerNamed(season, "OAK", "wendj001").pitching.outs, 9);
  EXPECT_EQ(PlayerNamed(season, "HOU", "sneec001").pitching.outs, 2);
  EXPECT_EQ(PlayerNamed(season, "HOU", "sneec001").pitching.earnedRuns, 1);
}

constexpr const char* kHead =
    "id,AAA202004010\r\ninfo,visteam,BBB\r\ninfo,hometeam,AAA\r\n"
    "start,v1,\"V One\",0,1,4\r\nstart,v2,\"V Two\",0,2,6\r\nstart,vp,\"V Pitch\",0,9,1\r\n"
    "start,hp,\"H Pitch\",1,0,1\r\nstart,h1,\"H One\",1,1,2\r\n";

// After the head, one time at bat with a change in its midst; who is charged with its end?
TEST(Counts, AChangeInMidCountIsChargedByTheRules) {
  struct Row {
    const char* count;
    const char* change;
    const char* end;  // of the time at bat
    const char* batter;
    const char* pitcher;
  };
  constexpr const char* kPinch = "sub,px,\"P X\",0,1,11";
  constexpr const char* kRelief = "sub,rx,\"R X\",1,0,1";
  const Row rows[] = {
      {"12", kPinch, "K", "v1", "hp"},   {"11", kPinch, "K", "px", "hp"},
      {"32", kPinch, "K", "v1", "hp"},   {"12", kPinch, "W", "px", "hp"},
      {"02", kPinch, "S7", "px", "hp"},  {"20", kRelief, "W", "v1", "hp"},
      {"21", kRelief, "W", "v1", "hp"},  {"30", kRelief, "IW", "v1", "hp"},
      {"31", kRelief, "W", "v1", "hp"},  {"32", kRelief, "W", "v1", "hp"},
      {"22", kRelief, "W", "v1", "rx"},  {"11", kRelief, "W", "v1", "rx"},
      {"10", kRelief, "W", "v1", "rx"},  {"32", kRelief, "K", "v1", "rx"},
      {"30", kRelief, "S8", "v1", "rx"}, {"31", kRelief, "HP", "v1", "rx"},
      {"??", kRelief, "W", "v1", "rx"},
  };
  for (const Row& row : rows) {
    const std::string batter = std::string(row.change).starts_with("sub,px") ? "px" : "v1";
    TextArchive archive(
        {{"2020AAA.EVA", std::string(kHead) + "play,1,0,v1," + row.count + ",,NP\r\n" + row.change +
                             "\r\nplay,1,0," + batter + ",,," + row.end + "\r\n"}});
    const Season season = ReadAll(archive);
    ASSERT_EQ(season.faultCount, 0) << row.count << row.change << season.faults[0].what;
    for (const Club& club : season.clubs) {
      for (const Player& player : club.players) {
        const Batting& b = player.batting;
        const Pitching& p = player.pitching;
        EXPECT_EQ(b.atBats + b.walks + b.hitByPitch, player.id == row.batter)
            << row.count << row.end << player.id;
        if (*row.end == 'H') continue;
        EXPECT_EQ(p.strikeouts + p.walks + p.hits, player.id == row.pitcher)
            << row.count << row.end << player.id;
      }
    }
  }
}

TEST(Counts, RunnersAreFollowedThroughSubstitutesAndInnings) {
  TextArchive archive(
      {{"2020AAA.EVA",
        std::string(kHead) +
            "play,1,0,v1,,,S7\nplay,1,0,v2,00,,NP\nsub,pr,\"P R\",0,1,12\nbadj,v2,L\n"
            "play,1,0,v2,01,,SB2\nplay,1,0,v2,,,HR/L7\nplay,1,0,vp,,,3/G3\nplay,1,0,pr,,,K\n"
            "play,1,0,v2,,,64/G6\nradj,h1,2\ncom,\"he starts on second\"\n"
            "sub,p2,\"P Two\",1,1,12\nplay,1,1,h1,,,NP\nplay,1,1,p2,,,SB3\n"
            "data,er,hp,2\ndata,er,nobody,1\n"}});
  const Season season = ReadAll(archive);
  EXPECT_EQ(season.games[0].sides[0].runs, 2);
  EXPECT_EQ(PlayerNamed(season, "BBB", "pr").batting.stolenBases, 1);
  EXPECT_EQ(PlayerNamed(season, "BBB", "pr").batting.strikeouts, 1);
  EXPECT_EQ(PlayerNamed(season, "BBB", "v1").batting.stolenBases, 0);
  EXPECT_EQ(PlayerNamed(season, "BBB", "v1").batting.games, 1);
  EXPECT_EQ(PlayerNamed(season, "AAA", "hp").pitching.outs, 3);
  EXPECT_EQ(PlayerNamed(season, "AAA", "hp").pitching.earnedRuns, 2);
  EXPECT_EQ(PlayerNamed(season, "AAA", "hp").pitching.starts, 1);
  EXPECT_EQ(PlayerNamed(season, "AAA", "p2").batting.stolenBases, 1);
  ASSERT_EQ(season.faultCount, 1);
  EXPECT_EQ(season.faults[0].what, "earned runs of a pitcher who is not in the game");
}

TEST(Counts, AGameWithoutPlaysHasTheFiguresOfItsBoxScore) {
  // Then a game with plays of which no earned runs are told, and one that was given away.
  TextArchive archive(
      {{"2020AAA.EBA",
        std::string(kHead) +
            "stat,bline,v1,0,1,1,4,1,3,1,0,1,2,0,1,1,2,-1,1,2,0,1,0\r\n"
            "stat,bline,v2,0,2,1,2,0,5,0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n"
            "stat,bline,late,0,2,2,-1,0,1,0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n"
            "stat,phline,late,7,0,1,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n"
            "stat,dline,v2,0,1,6,27,1,2,0,0,0,0\r\nstat,dline,v2,0,2,4,3,1,2,0,0,0,0\r\n"
            "stat,pline,hp,1,1,20,0,30,7,1,0,1,4,3,2,0,6,0,0,0,0,0\r\n"
            "stat,pline,rel,1,2,7,0,8,1,0,0,0,1,-1,0,0,2,0,0,0,0,0\r\n"
            "line,0,0,2,(10),x,1\r\nline,1,0,0,0\r\nplay,1,0,v1,,,HR\r\n"
            "id,AAA202004020\r\ninfo,visteam,BBB\r\ninfo,hometeam,AAA\r\ninfo,forfeit,V\r\n"
            "start,hp,\"H Pitch\",1,0,1\r\nplay,1,0,v1,,,K\r\n"}});
  const Season season = ReadAll(archive);
  const Game& game = season.games[0];
  EXPECT_EQ(game.account, Account::BoxScore);
  EXPECT_EQ(game.sides[0].runs, 3);
  const auto told = [&](const char* club, const char* id) {
    const Player& player = PlayerNamed(season, club, id);
    const Batting& b = player.batting;
    const Pitching& p = player.pitching;
    return Told({{"AB", b.atBats},         {"H", b.hits},
                 {"2B", b.doubles},        {"HR", b.homeRuns},
                 {"SF", b.sacrificeFlies}, {"HP", b.hitByPitch},
                 {"BB", b.walks},          {"K", b.strikeouts},
                 {"SB", b.stolenBases},    {"DP", b.intoDoublePlays},
                 {"SS", b.gamesAt[6]},     {"PH", b.gamesAt[kPinchHitter]},
                 {"G", p.games},           {"GS", p.starts},
                 {"outs", p.outs},         {"h", p.hits},
                 {"hr", p.homeRuns},       {"bb", p.walks},
                 {"k", p.strikeouts},      {"r", p.runs},
                 {"er", p.earnedRuns}});
  };
  EXPECT_EQ(told("BBB", "v1"), " AB=5 H=3 2B=1 HR=1 SF=1 HP=1 BB=2 K=2 SB=2 DP=1");
  EXPECT_EQ(told("BBB", "v2"), " SS=1") << "five hits in two at-bats are no figures";
  EXPECT_EQ(told("BBB", "late"), " PH=1");
  EXPECT_EQ(told("AAA", "hp"), " G=2 GS=2 outs=21 h=7 hr=1 bb=2 k=7 r=4 er=3");
  EXPECT_EQ(told("AAA", "rel"), " G=1 outs=7 h=1 k=2 r=1");
  EXPECT_EQ(season.games[1].forfeit, Forfeit::ToVisitors);
  // Runs over the outs of the games that tell them; "-.--" where none does.
  const auto era = [&](const char* id) {
    return Remark("{era} {er}", PlayerNamed(season, "AAA", id), "P", true);
  };
  EXPECT_EQ(era("hp"), "4.05 3");
  EXPECT_EQ(era("rel"), "-.-- -");
}

}  // namespace
}  // namespace dtb::archive
