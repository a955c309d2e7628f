// Where the four bases lie in the picture of the ballpark, on which the game pieces stand.
#pragma once

#include <array>

namespace dtb {

struct Aids;

// A place in the picture of the park, as shares, from 0 to 1, of its width and height. The picture
// fills the scene whatever its proportions, so the place has the same shares of the scene.
struct ParkPlace {
  double x = 0;
  double y = 0;

  friend bool operator==(const ParkPlace&, const ParkPlace&) = default;
};

// Home plate, first, second, third base.
using ParkPlaces = std::array<ParkPlace, 4>;

// The usual view, from behind home plate: of a park of which nothing is known.
inline constexpr ParkPlaces kUsualPlaces{{{0.5, 0.88}, {0.69, 0.55}, {0.5, 0.44}, {0.31, 0.55}}};

// The file beside the pictures that ship, with the places in them: a line a park, the picture's
// file name, "=", and across and down for each of the four. "#" begins a remark.
inline constexpr const char* kPlacesFile = "Bases.txt";

// Finds the places of the park that is shown, and from here on those of each park to come.
// The person's own places for a picture of that file name come first, then those of the file
// beside the pictures; where both are missing or damaged, the usual ones are taken and count as not
// known.
void FollowParkPlaces(Aids& aids);

// The person said where the bases of this park lie: the places hold at once and for good, for every
// picture of that file name. Reports settings that cannot be written; then they hold until the
// program ends.
void KeepParkPlaces(Aids& aids, const ParkPlaces& places);

}  // namespace dtb
