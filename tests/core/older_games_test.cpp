// Games in progress as older versions of the program kept them.
#include "fake_platform.h"
#include "game/field_text.h"
#include "game/recovery.h"

namespace dtb {
namespace {

// Each file was kept by that version after these gestures, with the third die on 5.
struct OlderGame {
  const char* file;
  const char* gestures;
  // Takes from such a game of today what that form does not tell.
  void (*lacks)(Game& game);
};

constexpr const char* kArchiveGame = "OAK202008070\nOwls\nElks";

void LacksPlays(Game& game) {
  BoardState& state = game.board.state;
  state.plays = PlayList();
  state.ArchiveGame = kArchiveGame;
}

const std::vector<OlderGame> kOlderGames{
    {"form-2.game", "bat:v0 1B bat:v1 HR bat:v2 GO bat:v3 BB",
     [](Game& game) {
       LacksPlays(game);
       BoardState& state = game.board.state;
       state.ArchiveGame.clear();
       state.VisLoaded = state.HomeLoaded = LineupList();
     }},
    {"form-3.game", "bat:v0 1B bat:v1 HR bat:v2 GO bat:v3 BB", LacksPlays},
    {"form-4.game", "keep:on bat:v0 1B bat:v1 HR bat:v2 GO bat:v3 BB",
     [](Game& game) { game.board.state.ArchiveGame = kArchiveGame; }}};

TEST(Recovery, GamesOfOlderVersionsAreTakenUpWithAllThatTheyHad) {
  for (const OlderGame& older : kOlderGames) {
    std::ifstream stream(std::string(DTB_OLDER_GAMES) + older.file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    Game taken(false);
    AidsState takenAids;
    Aids aids{takenAids, taken.fake.ports};
    TakeUp(ReadTable(bytes, taken.board, aids), taken.board, aids);
    Game now;
    AidsState nowAids;
    nowAids.faces[1].Set(5);
    now.Play(older.gestures);
    older.lacks(now);
    const auto sameAs = [&](const char* when) {
      EXPECT_EQ(taken.Look("counters"), now.Look("counters")) << older.file << when;
      EXPECT_EQ(taken.log.text(), now.log.text()) << older.file << when;
      EXPECT_TRUE(TableText(taken.board, takenAids) == TableText(now.board, nowAids))
          << older.file << when;
    };
    sameAs(", taken up");
    taken.board.state.cb_KeepBases = now.board.state.cb_KeepBases;  // lives in the settings
    for (Game* game : {&taken, &now}) game->Play("bat:v4 2B GO HR");
    sameAs(", played on");
    // Cut short it is damaged, whatever its form.
    EXPECT_THROW((void)ReadTable(bytes.substr(0, bytes.size() - 1), taken.board, aids),
                 DamagedText);
  }
}

}  // namespace
}  // namespace dtb
