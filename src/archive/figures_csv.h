// The counted figures as tables of comma-separated values.
#pragma once

#include <string>

#include "archive/season.h"

namespace dtb::archive {

// "player,team,name,G,AB,H,2B,3B,HR,BB,K,HBP,SB": a row for each player and club who was in a game,
// by club and player, with the archive's own ids. Lines end at LF; the text is UTF-8.
[[nodiscard]] std::string BattingTable(const Season& season);

// "player,team,name,G,GS,outs,H,HR,BB,K,ER": the same for those who pitched. ER is empty
// for who pitched only where the archive does not tell it.
[[nodiscard]] std::string PitchingTable(const Season& season);

}  // namespace dtb::archive
