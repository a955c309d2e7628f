// Where the player's lasting choices stand in the settings store.
#pragma once

namespace dtb::settings {

inline constexpr const char* kLabels = "labels";  // the one section in use
inline constexpr const char* kPhotoPath = "lbl_PhotoPath";

}  // namespace dtb::settings
