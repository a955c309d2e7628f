// Bytes as the gestures of a whole game: its books are kept, and all of it is taken back and done
// again.
#include <iterator>

#include "core/fake_platform.h"
#include "fuzz.h"
#include "game/recovery.h"
#include "sheet/cell_edit.h"

using namespace dtb;

namespace {

// A byte chooses a verb, and where it takes a row, the next one chooses that.
std::string NextWord(fuzz::Input& input) {
  static const std::vector<std::string> verbs = [] {
    std::istringstream words(R"(
      undo: redo: seal: reset: atbat:v atbat:h edit:v edit:h up:v up:h down:v down:h ctrl:fresh
      ctrl:up rewrite:v rewrite:vA=y rewrite:hBob=z unload:v OUT:0 OUT:2 OUT:3 OUT:x MASTER:0
      MASTER:15 MASTER:117 photo:B row:v# row:h# bat:v# bat:h# pitch:v# pitch:h# free:p# plate:p#
      click:p# steal:p# move:p# base:p# show:v# drag:v# drop:v# dropshift:h# toggle:v# toggle:h#
      focus:v# focus:h# digit:# type:v#=4 type:h#=)");
    std::vector<std::string> all{std::istream_iterator<std::string>(words), {}};
    for (int i = 0; i < 4; ++i) all.insert(all.end(), kLabels.begin(), kLabels.end());
    return all;
  }();
  std::string verb = verbs[input.Below(verbs.size())];
  const std::size_t hash = verb.find('#');
  if (hash == verb.npos) return verb;
  const char what = verb[hash - 1];
  const std::size_t most = what == 'p' ? kPieces : what == ':' ? 10 : 20;
  const bool base = verb.starts_with("base");
  return verb.replace(hash, 1, std::to_string(input.Below(base ? 3 : most)));
}

// In the windows a text field makes its own gestures; the focus of a cell brings the copy of the
// line score on the sheet up to date, which is no step.
bool IsTyped(const std::string& word) {
  return word.starts_with("OUT") || word.starts_with("MASTER") || word.starts_with("type") ||
         word.starts_with("unload") || word.starts_with("edit") || word.starts_with("focus");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMostGestures = 400;
  fuzz::Input input(fuzz::BytesOf(data, size));
  Game game;
  const std::string start = GameText(game.board);
  for (std::size_t made = 0; !input.AtEnd() && made < kMostGestures; ++made) {
    const std::string log = game.log.text();
    const std::string word = NextWord(input);
    fuzz::Show(word);
    if (IsTyped(word)) {
      const Gesture typing(game.board, word);
      game.Do(word);
    } else {
      game.Do(word);
    }
    fuzz::Require(game.log.text().starts_with(log), "the log is never cut");
    fuzz::Require(!(game.state.Option5.value() && game.state.Option6.value()), "one side bats");
  }
  fuzz::Require(game.Look("told").find("Program Error") == std::string::npos, "no program error");
  AidsState aidsState;
  const std::string kept = TableText(game.board, aidsState);
  Game other(false);
  AidsState otherState;
  Aids otherAids{otherState, other.fake.ports};
  TakeUp(ReadTable(kept, other.board, otherAids), other.board, otherAids);
  fuzz::Require(TableText(other.board, otherState) == kept, "a kept game is taken up as it was");
  std::size_t steps = 0;
  while (game.history.CanRedo()) game.history.Redo(game.board);
  const std::string last = GameText(game.board);
  for (; game.history.CanUndo(); ++steps) game.history.Undo(game.board);
  fuzz::Require(GameText(game.board) == start || steps >= 500, "all is taken back");
  for (; steps > 0; --steps) game.history.Redo(game.board);
  fuzz::Require(GameText(game.board) == last, "and done again");
  return 0;
}
