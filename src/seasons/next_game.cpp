#include "seasons/next_game.h"

#include "seasons/season.h"
#include "seasons/team_text.h"

namespace dtb::seasons {

std::string NextGameOffer(Board& board, KeptSeason& kept) {
  if (!kept.season) return "";
  SeasonState state;
  SeasonDesk desk{state, kept, board};
  OpenSeasonDesk(desk);
  if (!state.hasNext.value()) return "";
  if (kept.club == kAllClubs) return "Next game of the season";
  return "Next game of " +
         BoardName(TeamName(*kept.season, kept.season->clubs[static_cast<std::size_t>(kept.club)]));
}

bool LoadNextGame(Board& board, KeptSeason& kept) {
  SeasonState state;
  SeasonDesk desk{state, kept, board};
  OpenSeasonDesk(desk);
  return LoadNextGame(desk);
}

}  // namespace dtb::seasons
