#include "aids/recovery.h"

#include <cstdint>
#include <utility>

#include "aids/crowd.h"
#include "game/field_text.h"
#include "game/game_fields.h"
#include "game/history.h"
#include "game/memento.h"

namespace dtb {
namespace {

// The number goes up whenever the fields, or their order, change.
constexpr std::string_view kHead = "Kelvane Diamond Table, a game in progress, 1\n";
constexpr std::size_t kChecksumBytes = 8;

// FNV-1a, of 64 bits.
std::uint64_t ChecksumOf(std::string_view bytes) {
  std::uint64_t sum = 14695981039346656037U;
  for (const char byte : bytes) {
    sum = (sum ^ static_cast<unsigned char>(byte)) * 1099511628211U;
  }
  return sum;
}

std::string ChecksumText(std::string_view bytes) {
  const std::uint64_t sum = ChecksumOf(bytes);
  std::string text;
  for (std::size_t i = 0; i < kChecksumBytes; ++i) {
    constexpr unsigned kBits = 8;
    text += static_cast<char>(sum >> (i * kBits) & 0xFFU);
  }
  return text;
}

template <class State, class Coder>
void VisitAids(State& aids, Coder& code) {
  code(aids.Check4, aids.faces, aids.lbl_20die, aids.fra_BBgumBB_visible, aids.numbers,
       aids.Picture1, aids.cb_RandParks, aids.cb_Crowd, aids.cb_MuteDice);
}

}  // namespace

std::string TableText(const Board& board, const AidsState& aids) {
  std::string content;
  FieldWriter writer(content);
  VisitFields(std::as_const(board.state), std::as_const(board.sheet), writer, writer);
  writer(board.log.text());
  VisitAids(aids, writer);
  return std::string(kHead).append(ChecksumText(content)).append(content);
}

KeptTable ReadTable(std::string_view bytes, const Board& board, const Aids& aids) {
  if (!bytes.starts_with(kHead)) throw DamagedText();
  bytes.remove_prefix(kHead.size());
  if (bytes.size() < kChecksumBytes) throw DamagedText();
  const std::string_view content = bytes.substr(kChecksumBytes);
  if (bytes.substr(0, kChecksumBytes) != ChecksumText(content)) throw DamagedText();

  KeptTable kept{Remember(board), aids.state};
  FieldReader reader(content);
  VisitFields(kept.game.state, kept.game.sheet, reader, reader);
  std::string log;
  reader(log);
  VisitAids(kept.aids, reader);
  if (!reader.AtEnd()) throw DamagedText();
  kept.game.log = EventLog(std::move(log));
  return kept;
}

void TakeUp(const KeptTable& kept, Board& board, Aids& aids) {
  Restore(board, kept.game);
  aids.state = kept.aids;
  if (board.history != nullptr) board.history->Clear();
  if (aids.state.cb_Crowd.value()) CrowdClicked(aids);
}

void OfferRecovery(Board& board, Aids& aids, RecoveryStore& store) {
  const auto bytes = store.Load();
  if (!bytes) return;
  MessageBoxes& boxes = board.platform.boxes;
  try {
    const KeptTable kept = ReadTable(*bytes, board, aids);
    if (boxes.Ask("A game was still in progress when the program ended. Go on with it?", "")) {
      TakeUp(kept, board, aids);
    } else {
      store.SetAside();
    }
  } catch (const DamagedText&) {
    boxes.Show(
        "A game was still in progress when the program ended, but what is left of it could "
        "not be understood. It is kept as \"" +
            store.SetAside() + "\".",
        BoxIcon::Warning);
  }
}

}  // namespace dtb
