#include "aids/park_places.h"

#include <optional>
#include <sstream>
#include <string>

#include "aids/aids_state.h"
#include "base/decoded_text.h"
#include "base/paths.h"
#include "base/settings_keys.h"
#include "base/whole_file.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

// Eight numbers, each a share. Nothing: they are not that.
std::optional<ParkPlaces> PlacesOf(const std::string& text) {
  std::istringstream words(text);
  const auto share = [&words]() -> std::optional<double> {
    std::string word;
    words >> word;
    const auto number = WholeNumberOf(word);
    return number && *number >= 0 && *number <= 1 ? number : std::nullopt;
  };
  ParkPlaces places;
  for (ParkPlace& place : places) {
    const auto x = share();
    const auto y = share();
    if (!x || !y) return std::nullopt;
    place = {*x, *y};
  }
  std::string more;
  return words >> more ? std::nullopt : std::optional(places);
}

std::string TextOfPlaces(const ParkPlaces& places) {
  constexpr int kDecimals = 4;  // a fifth of a unit of the scene
  std::string text;
  for (const ParkPlace& place : places) {
    text += (text.empty() ? "" : " ") + FixedDecimals(place.x, kDecimals) + " " +
            FixedDecimals(place.y, kDecimals);
  }
  return text;
}

std::string Trimmed(const std::string& text) {
  constexpr const char* kBlanks = " \t\r";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

// What the file beside the pictures says of a park.
std::optional<ParkPlaces> ShippedPlaces(const Aids& aids, const std::string& park) {
  constexpr std::size_t kMostBytes = std::size_t{1} << 18U;  // some thousand parks
  const auto file = aids.platform.programFolder / "Ballparks" / kPlacesFile;
  std::istringstream lines(DecodedText(ReadWholeFile(file, kMostBytes).value_or("")));
  for (std::string line; std::getline(lines, line);) {
    const auto sign = line.rfind('=');  // a file's name may have one, too
    if (line.starts_with('#') || sign == std::string::npos) continue;
    if (Trimmed(line.substr(0, sign)) == park) return PlacesOf(line.substr(sign + 1));
  }
  return std::nullopt;
}

std::string ParkName(const Aids& aids) {
  return TextOf(PathOf(aids.state.Picture1.value().path).filename());
}

std::optional<ParkPlaces> KnownPlaces(const Aids& aids, const std::string& park) {
  const auto told = aids.state.ownPlaces.find(park);
  if (told != aids.state.ownPlaces.end()) return told->second;
  if (park.empty()) return std::nullopt;
  const auto own = PlacesOf(aids.platform.settings.Read(settings::kParkPlaces, park, ""));
  return own ? own : ShippedPlaces(aids, park);
}

void FindParkPlaces(const Aids& aids) {
  const auto known = KnownPlaces(aids, ParkName(aids));
  aids.state.parkPlacesKnown.Set(known.has_value());
  aids.state.parkPlaces.Set(known.value_or(kUsualPlaces));
}

}  // namespace

void FollowParkPlaces(Aids& aids) {
  FindParkPlaces(aids);
  aids.state.Picture1.Observe([aids] { FindParkPlaces(aids); });
}

void KeepParkPlaces(Aids& aids, const ParkPlaces& places) {
  const std::string park = ParkName(aids);
  aids.state.ownPlaces[park] = places;
  aids.state.parkPlacesKnown.Set(true);
  aids.state.parkPlaces.Set(places);
  if (park.empty()) return;  // no picture that could be remembered
  Trapped(aids.platform.boxes,
          [&] { aids.platform.settings.Write(settings::kParkPlaces, park, TextOfPlaces(places)); });
}

}  // namespace dtb
