#include "game/recovery.h"

#include <cstdint>
#include <system_error>
#include <type_traits>
#include <utility>

#include "aids/ballparks.h"
#include "aids/crowd.h"
#include "base/checksum.h"
#include "base/file_names.h"
#include "base/paths.h"
#include "base/whole_file.h"
#include "game/batting_order.h"
#include "game/field_text.h"
#include "game/game_fields.h"
#include "game/history.h"
#include "game/memento.h"

namespace dtb {
namespace {

// The form of the text stands at the end of its head, and goes up whenever the fields, or their
// order, change.
constexpr std::string_view kHead = "Kelvane Diamond Table, a game in progress, ";
constexpr char kForm = '5';
// Form 4 had no decisions of the pitchers.
constexpr char kFormWithoutDecisions = '4';
// Form 3 had no plays, but most games had that of the archive once more at their end.
constexpr char kFormWithoutPlays = '3';
// Form 2, of version 1.0.2, also lacked whose batter it is, and the teams as they were loaded.
constexpr char kOldestForm = '2';
constexpr std::size_t kChecksumBytes = 8;

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

// Whose batter the name is, as far as an older game tells: that of the side at bat.
void TellWhoseBatter(BoardState& state) {
  const bool visitors = state.Option5.value();
  const LineupList& list = visitors ? state.List1 : state.List2;
  const int due = (visitors ? state.VisDue : state.HomeDue).value();
  const bool bats =
      !state.lbl_Selected.value().empty() && PlayerAt(list, due) == state.lbl_Selected.value();
  state.BatterOf.Set(!bats ? "" : visitors ? "V" : "H");
}

// The form of a kept game; 0 for what is none.
char FormOf(std::string_view bytes) {
  const bool begins = bytes.starts_with(kHead) && bytes.size() > kHead.size() + 1;
  return begins && bytes[kHead.size() + 1] == '\n' ? bytes[kHead.size()] : '\0';
}

// Whether a form has the fields of the n-th call of VisitFields for the game, from 1.
bool HasGroup(char form, int group) {
  constexpr int kPlays = 1;
  constexpr int kWhoseBatter = 4;
  constexpr int kDecisions = 5;
  if (group == kPlays) return form > kFormWithoutPlays;
  if (group == kDecisions) return form > kFormWithoutDecisions;
  return group != kWhoseBatter || form > kOldestForm;
}

// What an older form does not tell; a grid is told by all of them.
template <class Value>
void Empty(Value& value) {
  if constexpr (std::is_default_constructible_v<Value>) value = Value();
}

// Moves a game that is not wanted to a file with the names of its teams; where that cannot be
// written, to one without them.
std::string DeclinedAside(const std::string& bytes, const KeptTable& kept, RecoveryStore& store) {
  std::string aside = store.PutAside(bytes, AsideTitle(kept.game.state));
  if (aside.empty()) return store.SetAside();
  std::error_code stays;  // it is offered again then
  std::filesystem::remove(store.File(), stays);
  return aside;
}

}  // namespace

std::string TableText(const Board& board, const AidsState& aids) {
  std::string content;
  FieldWriter writer(content);
  VisitFields(std::as_const(board.state), std::as_const(board.sheet), writer, writer);
  writer(board.log.text());
  VisitAids(aids, writer);
  writer(aids.parkChoice ? TextOf(*aids.parkChoice) : std::string());
  return std::string(kHead).append({kForm, '\n'}).append(ChecksumText(content)).append(content);
}

KeptTable ReadTable(std::string_view bytes, const Board& board, const Aids& aids) {
  const char form = FormOf(bytes);
  if (form < kOldestForm || form > kForm) throw DamagedText();
  bytes.remove_prefix(kHead.size() + 2);
  if (bytes.size() < kChecksumBytes) throw DamagedText();
  const std::string_view content = bytes.substr(kChecksumBytes);
  if (bytes.substr(0, kChecksumBytes) != ChecksumText(content)) throw DamagedText();

  KeptTable kept{Remember(board), aids.state};
  FieldReader reader(content);
  int group = 0;
  const auto game = [&reader, &group, form](auto&... fields) {
    if (HasGroup(form, ++group)) return reader(fields...);
    (Empty(fields), ...);
  };
  VisitFields(kept.game.state, kept.game.sheet, game, reader);
  if (form == kOldestForm) TellWhoseBatter(kept.game.state);
  std::string log;
  reader(log);
  VisitAids(kept.aids, reader);
  std::string parkChoice;
  reader(parkChoice);
  kept.aids.parkChoice = parkChoice.empty() ? std::nullopt : std::optional(PathOf(parkChoice));
  if (form <= kFormWithoutPlays && !reader.AtEnd()) reader(kept.game.state.ArchiveGame);
  if (!reader.AtEnd()) throw DamagedText();
  kept.game.log = EventLog(std::move(log));
  return kept;
}

void TakeUp(const KeptTable& kept, Board& board, Aids& aids) {
  Restore(board, kept.game);
  aids.state = kept.aids;
  board.savedTold.clear();
  if (board.history != nullptr) board.history->Clear();
  if (aids.state.cb_Crowd.value()) CrowdClicked(aids);
  Random_Ballparks(aids);
  // Without a park to draw from, the button would do nothing.
  if (!aids.state.parkChoice || aids.state.ParkNames.empty()) aids.state.cb_RandParks.Set(false);
}

std::string AsideTitle(const BoardState& state) {
  return SafeNamePart(state.tb_VisTeam.value() + " at " + state.tb_HomeTeam.value());
}

void OfferRecovery(Board& board, Aids& aids, RecoveryStore& store) {
  const auto bytes = store.Load();
  if (!bytes) return;
  MessageBoxes& boxes = board.platform.boxes;
  try {
    const KeptTable kept = ReadTable(*bytes, board, aids);
    const bool saved = !kept.game.sheet.Command2_enabled.value();
    const std::string question =
        saved ? "The game that was on the board when the program ended is saved in the database "
                "already. Put it on the board again?"
              : "A game was still in progress when the program ended. Go on with it?";
    if (boxes.Ask({.text = question, .yesIsUsual = true})) return TakeUp(kept, board, aids);
    boxes.Show("The game is kept as \"" + DeclinedAside(*bytes, kept, store) + "\". \"" +
                   kTakeUpSetAside + "\" in the menu \"Edit\" brings it back.",
               BoxIcon::Information);
  } catch (const DamagedText&) {
    boxes.Show(
        "A game was still in progress when the program ended, "
        "but what is left of it cannot be read. It is kept as \"" +
            store.SetAside() + "\".",
        BoxIcon::Warning);
  }
}

void TakeUpSetAside(Board& board, Aids& aids, RecoveryStore& store) {
  MessageBoxes& boxes = board.platform.boxes;
  const std::filesystem::path own = store.File();
  const auto file =
      board.platform.dialogs.OpenFile({"Resume a game set aside", own.parent_path(),
                                       "Games set aside|" + TextOf(own.filename()) + ".2*"});
  if (!file) return;
  try {
    const KeptTable kept = ReadTable(ReadWholeFile(*file).value_or(""), board, aids);
    const BoardState& state = board.state;
    const bool gameOnBoard =
        !state.List1.empty() || !state.List2.empty() || !board.log.text().empty();
    if (gameOnBoard) {
      if (!boxes.Ask({.text = "The game on the board is set aside, too, and can be taken up again "
                              "in the same way. Put the other one on the board?"})) {
        return;
      }
      if (store.PutAside(TableText(board, aids.state), AsideTitle(board.state)).empty()) {
        boxes.Show(
            "The game on the board cannot be set aside; the disk may be full. "
            "It stays on the board.",
            BoxIcon::Warning);
        return;
      }
    }
    TakeUp(kept, board, aids);
  } catch (const DamagedText&) {
    boxes.Show(
        "The file \"" + TextOf(*file) + "\" is not a game that was set aside, or it is damaged.",
        BoxIcon::Warning);
  }
}

}  // namespace dtb
