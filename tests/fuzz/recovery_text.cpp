// Any bytes as the game in progress: refused, or taken up and played on.
#include "core/fake_platform.h"
#include "fuzz.h"
#include "game/field_text.h"
#include "game/recovery.h"

using namespace dtb;

namespace {

// Eight bytes behind the head keep out whatever was not written whole; here they are put right, so
// that what comes behind them is looked at.
constexpr std::size_t kChecksumBytes = 8;

void PutChecksumRight(std::string& text, std::size_t place) {
  std::uint64_t sum = 14695981039346656037U;
  for (std::size_t i = place + kChecksumBytes; i < text.size(); ++i) {
    sum = (sum ^ static_cast<unsigned char>(text[i])) * 1099511628211U;
  }
  for (std::size_t i = 0; i < kChecksumBytes; ++i) {
    text[place + i] = static_cast<char>(sum >> (8 * i) & 0xFFU);
  }
}

std::string PlayedText() {
  Game game;
  game.Play("1B GO HR RBI steal:p0 K K pitch:h3 atbat:h row:h0 BB DP digit:3 toggle:v1");
  return TableText(game.board, AidsState());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string good = PlayedText();
  const std::size_t head = good.find('\n') + 1;
  std::string text = good.substr(0, head + kChecksumBytes) +
                     fuzz::Edited(good.substr(head + kChecksumBytes), fuzz::BytesOf(data, size));
  PutChecksumRight(text, head);
  Game game(false);
  AidsState state;
  Aids aids{state, game.fake.ports};
  try {
    TakeUp(ReadTable(text, game.board, aids), game.board, aids);
  } catch (const DamagedText&) {
    return 0;
  }
  const std::string kept = TableText(game.board, state);
  Game other(false);
  AidsState otherState;
  Aids otherAids{otherState, other.fake.ports};
  TakeUp(ReadTable(kept, other.board, otherAids), other.board, otherAids);
  fuzz::Require(TableText(other.board, otherState) == kept, "what is kept is taken up as it was");
  game.Play("1B GO undo: redo: pitch:v3 atbat:h row:h1 HR RBI steal:p1 free:p0 reset: OUT:3");
  return 0;
}
