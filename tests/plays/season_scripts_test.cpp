// The part archive as table scripts: the model of the board comes to what the scorebook has, but
// for what the scripts tell that the board cannot know.
#include "plays/season_scripts.h"

#include <gtest/gtest.h>

#include <tuple>

#include "archive/season_reader.h"
#include "platform/zip/zip_archives.h"

namespace dtb::plays {

void PrintTo(const Figure& figure, std::ostream* out) {
  *out << figure.side << ' ' << figure.kind << ' ' << figure.who << ' ' << figure.what;
}

namespace {

// Less the figures that are nothing.
Figures Counted(Figures figures) {
  std::erase_if(figures, [](const auto& one) {
    return one.first.what == "ER by marks" || (one.second == 0 && one.first.kind != "LINE");
  });
  return figures;
}

class SeasonScripts : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    const auto archive = ZipArchives().OpenArchive(DTB_PART_ARCHIVE, Always);
    season_ = *archive::ReadSeason(*archive, Always);
    for (const GameEvents& game : ReadGames(*archive)) {
      scripts_.push_back(MakeScript(season_, game, Earned::ByOuts));
    }
  }
  static void TearDownTestSuite() {
    season_ = {};
    scripts_.clear();
  }

  static inline archive::Season season_;
  static inline std::vector<GameScript> scripts_;
};

TEST_F(SeasonScripts, BoardComesToTheArchivesFigures) {
  ASSERT_EQ(scripts_.size(), 120U);
  for (const GameScript& script : scripts_) {
    Figures expected = script.archive;
    for (const Difference& one : script.differences) expected[one.figure] += one.delta;
    EXPECT_EQ(Counted(Replay(script).figures()), Counted(expected)) << script.id;
  }
}

// What the board cannot know: no new kind creeps in, and none grows.
TEST_F(SeasonScripts, DifferencesAreFewAndHaveAReason) {
  std::map<std::string, int> counts;
  for (const GameScript& script : scripts_) {
    for (const Difference& one : script.differences) {
      ++counts[one.figure.kind + ' ' + one.figure.what];
    }
  }
  EXPECT_EQ(counts, (std::map<std::string, int>{{"BATTING DP", 29},
                                                {"BATTING K", 5},
                                                {"BATTING LOB", 85},
                                                {"BATTING RBI", 9},
                                                {"PITCHING ER", 27},
                                                {"PITCHING IP", 14},
                                                {"PITCHING K", 5}}));
}

// The archive tells each pitcher's earned runs twice: in sum, and run by run. Only if every run is
// charged to the right pitcher are both the same.
TEST_F(SeasonScripts, RunsAreChargedAsTheArchiveSumsThem) {
  for (const GameScript& script : scripts_) {
    Figures sums;
    Figures marks;
    for (const auto& [figure, value] : script.archive) {
      if (figure.what != "ER" && figure.what != "ER by marks") continue;
      Figures& told = figure.what == "ER" ? sums : marks;
      if (value > 0) told[{figure.side, figure.kind, figure.who, ""}] = value;
    }
    EXPECT_EQ(sums, marks) << script.id;
  }
}

// The scorebook against the figures of the season, which are counted by other code.
TEST_F(SeasonScripts, ScorebookAddsUpToTheSeason) {
  std::map<std::string, int> sums;
  for (const GameScript& script : scripts_) {
    for (const auto& [figure, value] : script.archive) {
      sums[figure.kind + ' ' + figure.what] += value;
    }
  }
  std::map<std::string, int> season;
  for (const archive::Club& club : season_.clubs) {
    for (const archive::Player& player : club.players) {
      season["BATTING AB"] += player.batting.atBats;
      season["BATTING HR"] += player.batting.homeRuns;
      season["BATTING BB"] += player.batting.walks;
      season["BATTING K"] += player.batting.strikeouts;
      season["BATTING SB"] += player.batting.stolenBases;
      season["BATTING DP"] += player.batting.intoDoublePlays;
      season["BATTING LOB"] += player.batting.leftOnBase;
      season["PITCHING IP"] += player.pitching.outs;
      season["PITCHING H"] += player.pitching.hits;
      season["PITCHING ER"] += player.pitching.earnedRuns;
      season["PITCHING R"] += player.pitching.runs;
    }
  }
  for (const archive::Game& game : season_.games) {
    for (const archive::GameSide& side : game.sides) season["LINE "] += side.runs;
  }
  for (const auto& [what, sum] : season) EXPECT_EQ(sums[what], sum) << what;
}

struct OneFile : Archive {
  explicit OneFile(std::string lines) : text(std::move(lines)) {}
  const std::vector<ArchivedFile>& files() const override { return names; }
  bool Read(std::size_t /*file*/, std::string& bytes, const GoOn& /*goOn*/) override {
    bytes = text;
    return true;
  }
  std::string text;
  std::vector<ArchivedFile> names{{"2020AAA.EVA", 0}};
};

// The part has no change in the middle of a time at bat that the count decides.
TEST(CountRules, ChargeWalkAndStrikeoutToWhoLeft) {
  OneFile archive(
      "id,AAA202004010\nstart,v1,,0,1,3\nstart,v2,,0,2,4\nstart,p1,,1,0,1\n"
      "play,1,0,v1,30,BBB,NP\nsub,p2,,1,0,1\nplay,1,0,v1,40,BBB.B,W\n"
      "play,1,0,v2,02,CC,NP\nsub,v3,,0,2,11\nplay,1,0,v3,03,CC.C,K\nplay,1,0,v1,00,,BK.1-H(NR)\n");
  const PlayerNames names{
      {{{"v1", "v1"}, {"v2", "v2"}, {"v3", "v3"}}, {{"p1", "p1"}, {"p2", "p2"}}}};
  for (const auto& [rules, pitcher, batter] :
       {std::tuple{CountRules::Kept, "p1", "v2"}, {CountRules::LeftOut, "p2", "v3"}}) {
    const Figures figures = KeepScore(ReadGames(archive).at(0), names, rules);
    EXPECT_EQ(ValueOf(figures, {1, "PITCHING", pitcher, "BB"}), 1);
    EXPECT_EQ(ValueOf(figures, {1, "PITCHING", pitcher, "R"}), 1);
    EXPECT_EQ(ValueOf(figures, {0, "BATTING", batter, "K"}), 1);
    EXPECT_EQ(ValueOf(figures, {1, "PITCHING", "p2", "K"}), 1);
  }
}

}  // namespace
}  // namespace dtb::plays
