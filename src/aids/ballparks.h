// The picture of the ballpark behind the board.
#pragma once

#include "aids/aids_state.h"

namespace dtb {

inline constexpr const char* kDefaultPark = "DEFAULT1679X974.jpg";

// The park folder, the park with which the board starts, and from then on the places of its bases.
void SetUpBallparks(Aids& aids);

// The name of a park: its picture's without the kind of file. "" for the picture with which the
// board starts, which is no park in particular.
[[nodiscard]] std::string NameOfPark(const Picture& park);

// The button "BALLPARKS": draws a park at random while "RANDOM BALLPARKS" is on, otherwise lets the
// person choose one. A file that is no picture leaves the park as it is, in silence.
void ChoosePark(Aids& aids);

// Takes the folder of the last choice for the random draw; without a choice there is no draw.
// Reports a folder that cannot be read.
void Random_Ballparks(Aids& aids);

}  // namespace dtb
