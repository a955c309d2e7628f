// Every field of a game once more, sorted by what becomes of it.
#pragma once

#include "game/board_state.h"
#include "game/stat_sheet.h"

namespace dtb {

// Calls `game` with the fields that a step back restores, in an order in which what seldom changes
// stands together, and `surroundings` with those that a game is picked up with, but that going back
// leaves alone: a panel that the person opened since does not close, and a saved game stays saved.
// Their order is that of the file of a kept game, whose older forms lack some of the calls of
// `game`; see ReadTable.
// The rest passes: it means something only while a gesture lasts or a text is being edited, or
// lives in the settings.
//
// The bindings name every member, so a new one does not compile until it has its place here.
template <class State, class Sheet, class Game, class Surroundings>
void VisitFields(State& state, Sheet& sheet, Game&& game, Surroundings&& surroundings) {
  auto& [tb_VisTeam, tb_HomeTeam, ArchiveGame, VisLoaded, HomeLoaded, Option5, Option6, List1,
         List2, lbl_Selected, BatterOf, lbl_L1current, lbl_L2current, VisDue, HomeDue,
         tb_ListBoxStatus, Check1, Check2, tb_List1edit, tb_List2edit, DragSourceIndex,
         lbl_VisPitcher, lbl_HomePitcher, lbl_VisPitcher_tag, lbl_HomePitcher_tag, VisOuts,
         HomeOuts, img_VisPitch, img_HomePitch, tb_OUT, tb_OutsCount, cb_Xinnings, tb_BoxScore,
         tb_BoxScoreBottom, lbl_BoxSel, lbl_VisHome, lbl_NumSel, EnteredCell, OtherLineAsked,
         pieces, pieceWidth, pieceHeight, StolenBasePiece, LastRunnerClicked,
         pb_BaseTracker_visible, lbl_tracker, cb_KeepBases, base, BasesHalf, plays, img_VisLogo,
         img_HomeLogo, fra_Options_visible, cb_BaseTracker, chk_Ctrls, lbl_PhotoPath, Text1,
         Text1_visible] = state;
  auto& [grd_VisStats, grd_HomeStats, grd_BoxScore, lbl_VisTeam, lbl_HomeTeam, Picture3, Picture4,
         tb_Comments, ChosenDecisions, Command2_enabled, tb_TimeStamp2, tb_TimeStamp, tb_VisWin,
         tb_VisLoss, tb_HomeWin, tb_HomeLoss, cellText, cellText_visible, lbl_GridSelected,
         editedRow, editedColumn, VisReported, HomeReported] = sheet;
  const auto passes = [](const auto&...) {};

  // The plays only grow, so that of two games in a row all but the last one is the same from the
  // start.
  game(plays, base, BasesHalf);
  game(List1, List2, tb_VisTeam, tb_HomeTeam, lbl_VisTeam, lbl_HomeTeam, img_VisLogo, img_HomeLogo,
       Picture3, Picture4, tb_Comments, tb_List1edit, tb_List2edit, lbl_VisPitcher_tag,
       lbl_HomePitcher_tag, lbl_VisPitcher, lbl_HomePitcher, img_VisPitch, img_HomePitch);
  surroundings(grd_BoxScore);  // a copy of the line score, made again when the sheet opens
  game(tb_BoxScore, tb_BoxScoreBottom, lbl_NumSel, EnteredCell, pieceWidth, pieceHeight, Option5,
       Option6, tb_OutsCount, tb_OUT, lbl_L1current, lbl_L2current, VisDue, HomeDue, lbl_Selected,
       lbl_tracker, StolenBasePiece, pieces, VisOuts, HomeOuts, VisReported, HomeReported,
       grd_VisStats, grd_HomeStats);
  surroundings(Check1, Check2, cb_Xinnings, lbl_BoxSel, lbl_VisHome, LastRunnerClicked,
               pb_BaseTracker_visible, fra_Options_visible, cb_BaseTracker, chk_Ctrls,
               Command2_enabled, tb_TimeStamp2, tb_TimeStamp);
  game(BatterOf, OtherLineAsked, VisLoaded, HomeLoaded, ArchiveGame);
  game(ChosenDecisions);
  passes(cb_KeepBases, tb_ListBoxStatus, DragSourceIndex, lbl_PhotoPath, Text1, Text1_visible,
         tb_VisWin, tb_VisLoss, tb_HomeWin, tb_HomeLoss, cellText, cellText_visible,
         lbl_GridSelected, editedRow, editedColumn);
}

}  // namespace dtb
