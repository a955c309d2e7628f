// The decisions of real games, as the plays on the board propose them and as the scorers made them.
#include "record/decisions.h"

#include "archive/season_reader.h"
#include "platform/zip/zip_archives.h"
#include "plays/played_game.h"
#include "record/game_record.h"

namespace dtb::plays {
namespace {

// Where the scorer decided otherwise than the board proposes, and by which judgement.
constexpr const char* kJudgements =
    // He had the lead, two thirds of an inning, and two runs in it, one of them left to him: too
    // little for the board, enough for the scorer.
    "NYA202008200 W: Jalen Beeks, scorer: Diego Castillo\n"
    // Of two relievers with four outs the scorer took the one who came first, run or no run.
    "SLN202009052 W: John Gant, scorer: Ryan Helsley\n";

TEST(Decisions, AreThoseOfTheScorersOfRealGames) {
  const auto archive = ZipArchives().OpenArchive(DTB_PART_ARCHIVE, Always);
  const archive::Season season = *archive::ReadSeason(*archive, Always);
  std::string differences;
  for (const GameEvents& events : ReadGames(*archive)) {
    const GameScript script = MakeScript(season, events, Earned::ByOuts);
    PlayedGame game(script);
    std::map<std::string, std::string> proposed;
    for (const PitcherDecision& one : RecordOf(game.board).decisions) {
      proposed.emplace(DecisionCode(one.decision), one.pitcher);
    }
    for (const char* code : {"W", "L", "S"}) {
      const auto of = [code](std::map<std::string, std::string> all) { return all[code]; };
      if (of(proposed) == of(script.decisions)) continue;
      differences +=
          script.id + ' ' + code + ": " + of(proposed) + ", scorer: " + of(script.decisions) + '\n';
    }
  }
  EXPECT_EQ(differences, kJudgements);
}

// A game as the board plays it, and the decisions that come of it. Pitchers are the last players of
// each list: k, l for the home team, K, L for the visitors.
struct RuleCase {
  const char* what;
  const char* gestures;
  const char* decisions;
};

void PrintTo(const RuleCase& one, std::ostream* out) { *out << one.what; }

class DecisionRules : public testing::TestWithParam<RuleCase> {};

// So many half-innings of three outs, each by the player who is due.
std::string Halves(int count) {
  std::string gestures;
  for (int half = 0; half < count; ++half) gestures += "due: GO GO GO ";
  return gestures;
}

TEST_P(DecisionRules, FollowTheRule) {
  Game game;
  game.Play("keep:on");
  std::istringstream words(GetParam().gestures);
  for (std::string word; words >> word;) {
    game.Play(word.starts_with("halves:") ? Halves(std::stoi(word.substr(7))) : word);
  }
  EXPECT_EQ(DecisionsText(RecordOf(game.board).decisions), GetParam().decisions) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    Rules, DecisionRules,
    testing::Values(
        RuleCase{"a tie has none", "HR GO GO GO due: HR GO GO GO", ""},
        RuleCase{"five innings of the starter", "HR halves:10 pitch:v10 halves:8",
                 "W: L, L: l, S: K"},
        RuleCase{"less than five: the reliever", "HR halves:7 pitch:v10 halves:11", "W: K, L: l"},
        RuleCase{"four are enough in a game of five", "HR halves:8 pitch:v10 halves:2",
                 "W: L, L: l, S: K"},
        RuleCase{"a lead of four and one inning saves nothing",
                 "HR HR HR HR halves:17 pitch:v10 due: "
                 "GO GO GO",
                 "W: L, L: l"},
        RuleCase{"but with the tying run on deck",
                 "HR HR HR HR halves:17 due: BB BB pitch:v10 GO GO GO", "W: L, L: l, S: K"},
        RuleCase{"the lead changes hands: the runner's pitcher loses",
                 "HR halves:16 due: GO GO GO due: BB pitch:v10 BB pitch:v9 HR",
                 "W: l, L: K, BS: J"},
        RuleCase{"a hold and a save",
                 "HR halves:13 pitch:v10 due: GO GO GO halves:1 pitch:v9 halves:3",
                 "W: L, L: l, S: J, H: K"}));

}  // namespace
}  // namespace dtb::plays
