// Where the player's lasting choices stand in the settings store.
#pragma once

namespace dtb::settings {

inline constexpr const char* kLabels = "labels";    // section of choices and texts
inline constexpr const char* kWindows = "windows";  // section of places of windows, by their name
inline constexpr const char* kParkPlaces = "park_places";  // section of bases, by the park's file
inline constexpr const char* kPhotoPath = "lbl_PhotoPath";
inline constexpr const char* kQuickBoxes = "quick_boxes";
inline constexpr const char* kKeepBases = "keep_bases";
inline constexpr const char* kKeepBasesOffered = "keep_bases_offered";
inline constexpr const char* kSeasonInUse = "season_in_use";  // its name on the shelf
inline constexpr const char* kSeasonArchive = "season_archive";
inline constexpr const char* kSeasonBatters = "season_batters";
inline constexpr const char* kSeasonPitchers = "season_pitchers";
inline constexpr const char* kSeasonNames = "season_names";
inline constexpr const char* kSeasonNine = "season_nine";        // which nine of a club is shown
inline constexpr const char* kSeasonClub = "season_club";        // "OAK 2020=Oakland 2020"
inline constexpr const char* kSeasonLeagues = "season_leagues";  // of the archive
inline constexpr const char* kSeasonGroups = "season_groups";    // made in older versions
// Games of archives with their GameIDs, written by older versions.
inline constexpr const char* kSeasonPlayed = "season_played";

}  // namespace dtb::settings
