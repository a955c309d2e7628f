// One game after another, and players who come in.
#include "game/new_game.h"

#include "core/fake_platform.h"
#include "game/recovery.h"
#include "teams/pinch_runner.h"

namespace dtb {
namespace {

struct FakeStore final : RecoveryStore {
  std::optional<std::string> Load() override { return std::nullopt; }
  void Keep(std::string, bool) override {}
  std::filesystem::path File() override { return "game"; }
  bool Safe() override { return true; }
  std::string SetAside() override { return {}; }
  std::string PutAside(const std::string& bytes, const std::string& title) override {
    if (full) return {};
    aside = bytes;
    return "game.2 " + title;
  }
  bool full = false;
  std::string aside;
};

struct NewGameTest : testing::Test {
  NewGameTest() { game.board.newGames = &newGames; }
  AidsState aids;
  FakeStore store;
  NewGames newGames{aids, store};
  Game game;
};

TEST_F(NewGameTest, OptionsStayAndAllElseIsAsAfterAStart) {
  BoardState& state = game.state;
  state.chk_Ctrls.Set(true);
  state.lbl_PhotoPath.Set("photos");
  EnlargePieces(game.board);
  game.Play("1B K RBI type:v3=2 move:p1 base:p2 edit:h rewrite:hX cell:h20,3=1");
  EXPECT_FALSE(IsFresh(game.board));
  game.Look("told");
  ASSERT_TRUE(NewGame(game.board));
  EXPECT_TRUE(IsFresh(game.board));
  EXPECT_EQ(game.Look("told"),
            "i: New game: The game that was on the board is set aside as \"game.2 "
            "Owls at Elks\". \"Resume a game set aside...\" in the menu \"Edit\" brings it back.");
  EXPECT_EQ(game.history.steps(), 0U);
  EXPECT_TRUE(state.chk_Ctrls.value());
  EXPECT_EQ(state.lbl_PhotoPath.value(), "photos");
  EXPECT_GT(state.pieceWidth.value(), kPieceWidth);
  Aids context{aids, game.fake.ports};
  const KeptTable kept = ReadTable(store.aside, game.board, context);
  EXPECT_EQ(kept.game.sheet.grd_VisStats.Text(1, stat_column::kSingles), "1");
  store.aside.clear();
  ASSERT_TRUE(NewGame(game.board));
  EXPECT_EQ(store.aside, "") << "an empty board is not set aside";
}

TEST_F(NewGameTest, AGameThatCannotBeSetAsideIsNotLost) {
  store.full = true;
  game.Play("1B");
  const GameMemento before = Remember(game.board);
  EXPECT_FALSE(NewGame(game.board));  // the question got a No
  EXPECT_EQ(Remember(game.board), before);
}

// Rows and pieces count from 0; piece 1 has the batter, piece 0 the player on base.
TEST_F(NewGameTest, WhoComesInForWhom) {
  game.Play("1B");
  struct Case {
    Side side;
    int row;
    int piece;
    const char* words;
  };
  for (const Case& one :
       std::initializer_list<Case>{{Side::Visitors, 9, 0, "J runs for A"},
                                   {Side::Visitors, 9, 1, "J bats for B"},
                                   {Side::Visitors, 4, 0, "E is in the batting order already."},
                                   {Side::Visitors, 9, 3, "There is nobody on this game piece."},
                                   {Side::Visitors, 40, 0, "There is no player in this row."},
                                   {Side::Home, 9, 0, "j plays for the team in the field."}}) {
    EXPECT_EQ(ReplacementOn(game.board, one.side, one.row, one.piece).words, one.words);
  }
  EXPECT_EQ(PiecesToComeInOn(game.board, Side::Visitors, 9), (std::vector{0, 1}));
  ComeIn(game.board, Side::Visitors, 9, 0);
  EXPECT_EQ(ReplacementOn(game.board, Side::Visitors, 10, 0).words, "K runs for J");
  EXPECT_EQ(game.sheet.grd_VisStats.Text(10, stat_column::kPlayed), "1");
  EXPECT_EQ(game.Look("clock"), "0 0 V B");
}

TEST_F(NewGameTest, ALineIsGivenAsLongAsOneIsFree) {
  StatGrid& grid = game.sheet.grd_VisStats;
  for (int row = 13; row < grid.rows(); ++row) {
    // Figures without a name are somebody's, too.
    grid.SetText(row, row % 2 == 0 ? stat_column::kBatter : stat_column::kWalks, "1");
  }
  grid.SetText(49, stat_column::kWalks, "");
  game.Play("edit:v rewrite:vX=1 edit:v bat:v0");
  EXPECT_EQ(grid.Text(49, stat_column::kBatter), "X");
  // Without a row a hit is only logged, and the line-up stays.
  game.Play("edit:v rewrite:vY=1 edit:v bat:v0 HR");
  EXPECT_EQ(game.Look("clock"), "0 0 V Y");
  EXPECT_EQ(grid.FindRow(stat_column::kBatter, "Y"), std::nullopt);
}

}  // namespace
}  // namespace dtb
