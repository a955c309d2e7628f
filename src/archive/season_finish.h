// What follows of a season as a whole, once all of it is read.
#pragma once

#include "archive/season.h"

namespace dtb::archive {

// Puts the games by date, lists each club's own, names the clubs, and numbers the players of one
// name of a year, by club and roster; a player of several clubs has one number.
void FinishSeason(Season& season);

}  // namespace dtb::archive
