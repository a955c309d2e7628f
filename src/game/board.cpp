#include "game/board.h"

#include "game/history.h"

namespace dtb {

SideFields SideOf(Board& board, Side side) {
  BoardState& state = board.state;
  StatSheet& sheet = board.sheet;
  if (side == Side::Visitors) {
    return {state.List1,
            state.Option5,
            state.lbl_L1current,
            state.VisDue,
            state.Check1,
            state.tb_List1edit,
            state.tb_VisTeam,
            state.VisLoaded,
            state.lbl_VisPitcher,
            state.lbl_VisPitcher_tag,
            state.VisOuts,
            state.img_VisPitch,
            state.img_VisLogo,
            state.tb_BoxScore,
            sheet.grd_VisStats,
            sheet.lbl_VisTeam,
            sheet.Picture3,
            sheet.VisReported,
            1,
            "V",
            "VisLogo.jpg"};
  }
  return {state.List2,
          state.Option6,
          state.lbl_L2current,
          state.HomeDue,
          state.Check2,
          state.tb_List2edit,
          state.tb_HomeTeam,
          state.HomeLoaded,
          state.lbl_HomePitcher,
          state.lbl_HomePitcher_tag,
          state.HomeOuts,
          state.img_HomePitch,
          state.img_HomeLogo,
          state.tb_BoxScoreBottom,
          sheet.grd_HomeStats,
          sheet.lbl_HomeTeam,
          sheet.Picture4,
          sheet.HomeReported,
          2,
          "H",
          "HomeLogo.jpg"};
}

std::optional<Side> SideAtBat(const BoardState& state) {
  if (state.Option5.value()) return Side::Visitors;
  if (state.Option6.value()) return Side::Home;
  return std::nullopt;
}

Colour SideColour(const BoardState& state, Side side) {
  return SideAtBat(state).value_or(Side::Visitors) == side ? kWhite : kGrey;
}

void PutAtBat(Board& board, Side side) {
  const Gesture gesture(board, "AT BAT, " + SideOf(board, side).team.value());
  SideOf(board, Other(side)).atBat.Set(false);
  SideOf(board, side).atBat.Set(true);
}

}  // namespace dtb
