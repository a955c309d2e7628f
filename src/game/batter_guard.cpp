#include "game/batter_guard.h"

#include <string>

#include "game/batting_order.h"
#include "game/game_pieces.h"
#include "game/gate.h"
#include "game/play_credits.h"
#include "game/player_name.h"

namespace dtb {
namespace {

constexpr std::size_t kBack = 1;

bool Offer(Board& board, const std::string& sentence, const std::string& answer) {
  return board.platform.boxes.Choose({.text = sentence, .answers = {answer, "Back"}}) != kBack;
}

// The side whose half-inning is in progress; none beyond the twentieth inning.
std::optional<Side> SideOfHalf(const BoardState& state) {
  const int half = HalfInProgress(state);
  if (half >= kHalves) return std::nullopt;
  return half % 2 == 0 ? Side::Visitors : Side::Home;
}

// "the top of inning 3"
std::string HalfInWords(const BoardState& state) {
  const int half = HalfInProgress(state);
  return std::string("the ") + (half % 2 == 0 ? "top" : "bottom") + " of inning " +
         std::to_string(half / 2 + 1);
}

// "EDIT is on, and nobody bats yet."
std::string WithEdit(bool edit, std::string sentence, bool beginsWithName) {
  if (!edit) return sentence;
  if (!beginsWithName) sentence.front() = 'n';
  return "EDIT is on, and " + sentence;
}

// AT BAT was moved to the other side by a slip: the half-inning is not over, and its batter waits.
std::optional<bool> OfferOtherSide(Board& board, Side atBat) {
  const Side other = Other(atBat);
  const SideFields fields = SideOf(board, other);
  const std::string& batter = board.state.lbl_Selected.value();
  const bool waits = board.state.BatterOf.value() == fields.letter &&
                     SideOfHalf(board.state) == other && !batter.empty() && !fields.edit.value();
  if (!waits) return std::nullopt;
  const std::string sentence = "AT BAT of " + SideOf(board, atBat).team.value() + " is on, but " +
                               HalfInWords(board.state) + " belongs to " + fields.team.value() +
                               ".";
  if (!Offer(board, sentence, LastNameOf(batter) + " bats")) return false;
  PutAtBat(board, other);
  return true;
}

// AT BAT was moved by a slip between two half-innings: the same team would bat twice in a row.
bool BattedLast(Board& board, Side atBat) {
  if (board.state.plays.empty() || !board.state.BatterOf.value().empty()) return false;
  const Play last = board.state.plays.Last();
  return last.half + 1 == HalfInProgress(board.state) && SideOfBatter(board, last) == atBat;
}

bool OfferSideDue(Board& board, Side atBat) {
  const SideFields fields = SideOf(board, Other(atBat));
  const int row = fields.list.HasRow(fields.due.value()) ? fields.due.value() : 0;
  const std::string due = PlayerAt(fields.list, row);
  if (due.empty()) {
    PitcherBatterSelectWarn(board);
    return false;
  }
  const std::string sentence = "AT BAT of " + SideOf(board, atBat).team.value() +
                               " is on, but this team batted last. " + due + " is due.";
  if (!Offer(board, sentence, LastNameOf(due) + " bats")) return false;
  PutAtBat(board, Other(atBat));
  fields.edit.Set(false);
  fields.list.Select(row);
  return true;
}

// Nobody was chosen, or the batter has left the order.
bool OfferBatter(Board& board, Side atBat) {
  const SideFields fields = SideOf(board, atBat);
  const int row = RowOfBatterDue(board, atBat).value_or(0);
  const std::string due = PlayerAt(fields.list, row);
  if (due.empty()) {
    PitcherBatterSelectWarn(board);
    return false;
  }
  const bool edit = fields.edit.value();
  const std::string left =
      board.state.BatterOf.value() == fields.letter ? board.state.lbl_Selected.value() : "";
  const std::string sentence = left.empty()
                                   ? WithEdit(edit, "Nobody bats yet. " + due + " is due.", false)
                                   : WithEdit(edit,
                                              LastNameOf(left) + " has left the order; " +
                                                  LastNameOf(due) + " stands in his place.",
                                              true);
  if (!Offer(board, sentence, LastNameOf(due) + " bats")) return false;
  if (!left.empty()) TakeOffBoard(board, left);
  fields.edit.Set(false);
  fields.list.Select(row);
  return true;
}

bool OfferRunInOtherLine(Board& board, Side atBat) {
  const auto half = SideOfHalf(board.state);
  if (!half || *half == atBat || board.state.OtherLineAsked) return true;
  const std::string sentence = SideOf(board, atBat).team.value() + " is at bat in " +
                               HalfInWords(board.state) + ", so the run goes into the line of " +
                               SideOf(board, *half).team.value() + ".";
  if (!Offer(board, sentence, "Record it")) return false;
  board.state.OtherLineAsked = true;
  return true;
}

}  // namespace

bool BatterIsSure(Board& board, bool isRun) {
  if (!BothTeamsLoaded(board.state)) return true;
  auto atBat = SideAtBat(board.state);
  if (!atBat || !PitchersAndBatterChosen(board.state)) return true;
  if (!RowOfBatter(board, *atBat)) {
    const auto otherSide = OfferOtherSide(board, *atBat);
    if (otherSide == false) return false;
    atBat = SideAtBat(board.state);
    if (!RowOfBatter(board, *atBat)) {
      const bool slip = BattedLast(board, *atBat);
      if (!(slip ? OfferSideDue(board, *atBat) : OfferBatter(board, *atBat))) return false;
      atBat = SideAtBat(board.state);
    }
  }
  const SideFields fields = SideOf(board, *atBat);
  if (fields.edit.value()) {
    if (!Offer(board, "EDIT is on, so the batter stays the same.", "Turn EDIT off")) return false;
    fields.edit.Set(false);
  }
  return !isRun || OfferRunInOtherLine(board, *atBat);
}

}  // namespace dtb
