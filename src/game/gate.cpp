#include "game/gate.h"

#include <string>

#include "game/bases.h"
#include "game/batting_order.h"
#include "game/game_pieces.h"
#include "game/played_mark.h"

namespace dtb {
namespace {

void Confirm(Board& board, const std::string& message) {
  board.platform.boxes.Confirm(message, board.counting);
}

// "New York 1960 2, Pittsburgh 1960 3"
std::string Score(const BoardState& state) {
  return state.tb_VisTeam.value() + ' ' + state.tb_BoxScore.at(kTotalRuns).text.value() + ", " +
         state.tb_HomeTeam.value() + ' ' + state.tb_BoxScoreBottom.at(kTotalRuns).text.value();
}

// Raises the at-bats of the current batter. The visitors' table is searched first, whichever side
// is at bat.
bool CountAtBat(Board& board) {
  for (StatGrid* grid : {&board.sheet.grd_VisStats, &board.sheet.grd_HomeStats}) {
    if (const auto row = grid->FindRow(stat_column::kBatter, board.state.lbl_Selected.value())) {
      grid->Raise(*row, stat_column::kAtBats);
      return true;
    }
  }
  return false;
}

}  // namespace

bool BothTeamsLoaded(const BoardState& state) {
  return !state.List1.empty() && !state.List2.empty();
}

bool PitchersAndBatterChosen(const BoardState& state) {
  return !state.lbl_VisPitcher.value().empty() && !state.lbl_HomePitcher.value().empty() &&
         !state.lbl_Selected.value().empty();
}

bool OutcomeGate(Board& board) {
  if (!BothTeamsLoaded(board.state)) return false;
  if (PitchersAndBatterChosen(board.state)) return true;
  PitcherBatterSelectWarn(board);
  return false;
}

void PitcherBatterSelectWarn(Board& board) {
  board.platform.boxes.ShowRecorded(
      "Both pitchers must be selected first. 'AT BAT' button must be selected. Then first batter "
      "must be selected.",
      BoxAlignment::Left);
}

void LogOutcome(Board& board, std::string_view suffix) {
  const auto atBat = SideAtBat(board.state);
  if (!atBat) return;
  const LineupList& list = SideOf(board, *atBat).list;
  const auto batter = RowOfBatter(board, *atBat);
  const std::string& entry =
      batter ? list.entries()[static_cast<std::size_t>(*batter)] : list.SelectedEntry();
  board.log.Append(entry + std::string(suffix));
}

void AdvanceLineup(Board& board) {
  const auto atBat = SideAtBat(board.state);
  if (!atBat) return;
  LineupList& list = SideOf(board, *atBat).list;
  list.Select(NextInOrder(list, PlaceInOrder(board, *atBat)));
}

void AssignAtBat(Board& board) {
  ChangeOfState(board);
  if (CountAtBat(board)) AdvanceLineup(board);
}

void EventMessage(Board& board) {
  Confirm(board, "Stat Recorded.");
  board.state.StolenBasePiece = 0;
}

void HitRecordedMsg(Board& board) { Confirm(board, "HIT recorded."); }

void AtBatRecordedMsg(Board& board) { Confirm(board, "At-Bat recorded."); }

void OutOnBasesMsg(Board& board) { Confirm(board, "OUT recorded."); }

void TakesFirstMsg(Board& board) { Confirm(board, "First base recorded."); }

void OutRecordedMsg(Board& board, CountsAtBat counts) {
  BoardState& state = board.state;
  Confirm(board, "OUT recorded.");
  TakeOffBoard(board, state.lbl_Selected.value());
  if (state.tb_OUT.number() != 3) {
    if (counts == CountsAtBat::Yes) return AssignAtBat(board);
    ChangeOfState(board);
    return AdvanceLineup(board);
  }
  EndOfInning(board);
  // The batter is counted, and his line-up stays on him.
  if (counts == CountsAtBat::Yes) CountAtBat(board);
  RetireBatter(board, true);
  state.tb_OUT.Set("0");
}

void EndOfInning(Board& board) {
  board.platform.boxes.Confirm("END OF INNING.", Score(board.state));
  ResetGamePieces(board);
  const std::string inning = DecimalText(board.state.tb_OutsCount.number() / 6);
  board.log.Append(std::string("[").append(inning).append("]"));
}

}  // namespace dtb
