// Back through the gestures of a game, and forward again; and the game that outlives its program.
#include "fake_platform.h"
#include "game/field_text.h"
#include "game/recovery.h"
#include "sheet/cell_edit.h"
// After the test library's own header, which the one above includes.
#include <rapidcheck/gtest.h>

#include <random>

namespace dtb {
namespace {

TEST(History, OneGestureIsOneStepWithItsNameAndTheLogIsNeverCut) {
  Check("steps log clock", R"(
1B => 1 1B, A; / A=x_____1B; / 0 0 V B
1B undo: => 0 ;1B, A / A=x_____1B;A=x_____1B [UNDONE]; / 0 0 V A
1B undo: redo: => 1 1B, A; / A=x_____1B;A=x_____1B [UNDONE];A=x_____1B [REDONE]; / 0 0 V B
1B undo: 2B => 1 2B, A; / A=x_____1B;A=x_____1B [UNDONE];A=x_____2B; / 0 0 V B
undo: redo: => 0 ; / - / 0 0 V A
GO GO GO => 3 GO, C; / A=x_____GO;B=x_____GO;C=x_____GO;[0.5]; / 0 3 H C
GO GO GO undo: => 2 GO, B;GO, C /
  A=x_____GO;B=x_____GO;C=x_____GO;[0.5];C=x_____GO [UNDONE]; / 2 0 V C
toggle:v3 => 1 mark of inning 4; / - / 0 0 V A
row:v4 row:v5 row:v6 => 1 row, G; / - / 0 0 V G
row:v4 seal: row:v5 => 2 row, F; / - / 0 0 V F
row:v4 seal: free:p3 => 1 row, E; / - / 0 0 V E
edit:v drag:v1 drop:v7 => 1 drag, B; / - / 0 0 V A
up:v => 0 ; / - / 0 0 V A
down:v undo: => 0 ;DN, A / DN, A [UNDONE]; / 0 0 V A
atbat:h => 1 AT BAT, Elks; / - / 0 0 H A
unload:v 1B => 0 ; / - / 0 0 V A
steal:p0 undo: => 0 ;SB, A / A_____SB;A_____SB [UNDONE]; / 0 0 V A)");
}

TEST(History, GoesBackToTheEmptyBoardAndLeavesSurroundingsAlone) {
  Game game(false);
  const std::string empty = GameText(game.board);
  game.Load(Side::Visitors, "Owls.txt", "A=x\nB=x");
  game.Load(Side::Home, "Elks.txt", "a=x\nb=x");
  game.Play("pitch:v1 pitch:h1 atbat:v row:v0 1B HR RBI toggle:v0 move:p1 base:p2 reset:");
  const std::string full = GameText(game.board);
  game.state.fra_Options_visible.Set(true);
  game.sheet.Text1_visible.Set(true);
  while (game.history.CanUndo()) game.history.Undo(game.board);
  EXPECT_TRUE(GameText(game.board) == empty);
  EXPECT_TRUE(game.state.fra_Options_visible.value() && game.sheet.Text1_visible.value());
  while (game.history.CanRedo()) game.history.Redo(game.board);
  EXPECT_TRUE(GameText(game.board) == full);
}

TEST(History, ABoxInAGestureSeesNoStepAndAWallEndsAll) {
  Game game;
  game.fake.whileOpen = [&] {
    game.history.Undo(game.board);
    EXPECT_EQ(game.history.steps(), 0U);
  };
  game.Play("1B");
  game.fake.whileOpen = nullptr;
  EXPECT_EQ(game.history.steps(), 1U);
  {
    const Gesture save(game.board, "SAVE");
    game.state.tb_OUT.Set("1");
    game.history.Clear();
  }
  EXPECT_EQ(game.Look("steps"), "0 ;");
  game.Play("undo: GO");
  EXPECT_EQ(game.Look("steps"), "1 GO, B;");
}

TEST(History, CellsOfTheSheetAreTakenBack) {
  Game game;
  BeginCellEdit(game.board, Side::Visitors, 1, stat_column::kHomeRuns);
  game.sheet.Text1.Set("7");
  CommitCellEdit(game.board);
  ClearCell(game.board, Side::Visitors, 2, stat_column::kBatter);
  EXPECT_EQ(game.history.UndoName(), "VIS_Player, B");
  game.Play("undo: undo:");
  EXPECT_EQ(game.history.RedoName(), "HR, A");
  EXPECT_EQ(game.sheet.grd_VisStats.Text(1, stat_column::kHomeRuns), "");
  EXPECT_EQ(game.sheet.grd_VisStats.Text(2, stat_column::kBatter), "B");
}

// The gestures of a game, outcomes most often.
rc::Gen<std::vector<std::string>> AnyGestures() {
  std::istringstream words(R"(
    undo: undo: undo: undo: undo: undo: redo: redo: redo: redo: seal: atbat:v atbat:h reset: edit:v
    rewrite:vA=y rewrite:hBob=z free:p0 plate:p1 photo:B steal:p0 steal:p1 drag:v1 drop:v7 up:v
    down:h digit:7 toggle:v3 pitch:v9 pitch:h0 move:p0 move:p0
    move:p2 base:p1 show:v2 row:v0 row:v1 row:v8 row:h0 row:h3 row:h11)");
  std::vector<std::string> all{std::istream_iterator<std::string>(words), {}};
  for (int i = 0; i < 3; ++i) all.insert(all.end(), kLabels.begin(), kLabels.end());
  return rc::gen::scale(2.0, rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(all)));
}

RC_GTEST_PROP(EveryGame, IsTakenBackAndDoneAgainAsItWasRemembered, ()) {
  Game game;
  std::vector<std::string> states{GameText(game.board)};  // after so many steps
  bool goes = false, right = true;
  game.history.Observe([&] {
    const std::size_t steps = game.history.steps();
    if (!goes) states.resize(steps + 1);
    if (!goes) states[steps] = GameText(game.board);
    right = right && states[steps] == GameText(game.board) && game.history.stepped() == goes;
  });
  for (const std::string& gesture : *AnyGestures()) {
    const std::string log = game.log.text();
    const std::size_t steps = game.history.steps();
    goes = gesture == "undo:" || gesture == "redo:";
    game.Do(gesture);
    RC_ASSERT(right);
    RC_ASSERT(game.log.text().starts_with(log));
    RC_ASSERT((states[game.history.steps()] == GameText(game.board)));
    if (gesture == "undo:") RC_ASSERT(game.history.steps() + 1 == std::max<std::size_t>(steps, 1));
    RC_ASSERT(game.history.CanRedo() == (game.history.steps() + 1 < states.size()));
  }
}

RC_GTEST_PROP(EveryGame, IsTakenUpElsewhereAsItWasKept, ()) {
  Game game;
  AidsState aidsState;
  for (const std::string& gesture : *AnyGestures()) game.Do(gesture);
  aidsState.faces[1].Set(5);
  aidsState.cb_MuteDice.Set(true);
  const std::string kept = TableText(game.board, aidsState);
  Game other(false);
  AidsState otherAids;
  Aids aids{otherAids, other.fake.ports};
  TakeUp(ReadTable(kept, other.board, aids), other.board, aids);
  RC_ASSERT((TableText(other.board, otherAids) == kept));
  RC_ASSERT(other.log == game.log && !other.history.CanUndo());
  RC_ASSERT(otherAids.faces[1].value() == 5 && otherAids.cb_MuteDice.value());
  game.fake.control = other.fake.control;
  for (const char* outcome : {"1B", "GO", "HR", "DP", "RBI"}) {
    game.Do(outcome);
    other.fake.photos = game.fake.photos;
    other.Do(outcome);
  }
  RC_ASSERT((GameText(other.board) == GameText(game.board)));
}

struct ForgettingStore : RecoveryStore {
  std::optional<std::string> Load() override { return kept; }
  void Keep(std::string bytes, bool /*gestureGoesOn*/) override { kept = std::move(bytes); }
  bool Safe() override { return true; }
  std::string SetAside() override {
    kept.reset();
    return "aside";
  }
  std::string PutAside(const std::string& /*bytes*/, const std::string& /*title*/) override {
    return "aside";
  }
  std::filesystem::path File() override { return "DTB_v102.game"; }
  std::optional<std::string> kept;
};

TEST(Recovery, AGameSetAsideIsTakenUp) {
  Game game;
  game.Play("1B HR GO");
  AidsState aidsState;
  aidsState.cb_RandParks.Set(true);  // of a folder that is gone: it would be a dead button
  aidsState.parkChoice = game.fake.folder / "gone" / "park.jpg";
  const std::string kept = TableText(game.board, aidsState);
  const auto takeUp = [&](Game& other, const std::string& bytes) {
    other.fake.chosen = other.fake.folder / "DTB_v102.game.20261125-120000";
    std::ofstream(*other.fake.chosen, std::ios::binary) << bytes;
    AidsState state;
    Aids aids{state, other.fake.ports};
    ForgettingStore store;
    TakeUpSetAside(other.board, aids, store);
    EXPECT_FALSE(state.cb_RandParks.value());
    EXPECT_FALSE(store.kept);
  };
  Game empty(false);
  takeUp(empty, kept);
  EXPECT_TRUE(GameText(empty.board) == GameText(game.board));
  Game busy;
  const std::string before = GameText(busy.board);
  takeUp(busy, kept);  // the question is answered with No
  EXPECT_TRUE(GameText(busy.board) == before);
  takeUp(busy, kept.substr(0, 300));
  EXPECT_TRUE(busy.Look("told").ends_with("or it is damaged."));
  EXPECT_TRUE(GameText(busy.board) == before);
}

TEST(Recovery, DamageOfAnyKindIsToldAndChangesNothing) {
  Game game;
  game.Play("1B HR GO");
  AidsState aidsState;
  const std::string kept = TableText(game.board, aidsState);
  Game other(false);
  Aids aids{aidsState, other.fake.ports};
  const std::string before = TableText(other.board, aidsState);
  const auto expectDamaged = [&](const std::string& bytes, const std::string& what) {
    EXPECT_THROW((void)ReadTable(bytes, other.board, aids), DamagedText) << what;
  };
  for (std::size_t size = 0; size < kept.size(); ++size) {
    expectDamaged(kept.substr(0, size), "cut after " + std::to_string(size));
  }
  std::mt19937 random(1960);
  for (int i = 0; i < 500; ++i) {
    std::string flipped = kept;
    flipped[random() % flipped.size()] ^= static_cast<char>(1U << random() % 8);
    expectDamaged(flipped, "flipped");
  }
  expectDamaged(kept + "x", "longer");

  ForgettingStore store;
  store.kept = kept.substr(0, 500);
  OfferRecovery(other.board, aids, store);
  EXPECT_EQ(other.Look("told"),
            "w: A game was still in progress when the program ended, but what is left of it cannot "
            "be read. It is kept as \"aside\".");
  EXPECT_FALSE(store.kept);
  EXPECT_EQ(TableText(other.board, aidsState), before);
}

}  // namespace
}  // namespace dtb
