#include "aids/ballparks.h"

#include <algorithm>

#include "base/paths.h"
#include "base/program_error.h"
#include "base/utf8.h"
#include "platform/trapped.h"

namespace dtb {
namespace {

constexpr const char* kFilter =
    "All Picture Files|*.bmp;*.jpg;*.gif;*.png|JPEG (*.jpg)|*.jpg|Bitmap (*.bmp)|*.bmp|"
    "Graphics Interchange Format (*.gif)|*.gif|Portable Network Graphic (*.png)|*.png";

std::filesystem::path ParksBesideProgram(const Aids& aids) {
  return aids.platform.programFolder / "Ballparks";
}

// False: it is no picture.
bool ShowPark(Aids& aids, const std::filesystem::path& file) {
  const auto park = aids.platform.pictures.Recognise(file);
  if (park) aids.state.Picture1.Set(*park);
  return park.has_value();
}

// What a person chose is shown, or he learns why it is not.
void ShowChosen(Aids& aids, const std::filesystem::path& file) {
  if (ShowPark(aids, file)) return;
  aids.platform.boxes.Show(aids.platform.pictures.WhyNone(file), BoxIcon::Warning, "BALLPARKS");
}

void DrawPark(Aids& aids) {
  aids.platform.randoms.Reseed(aids.platform.clock.Now().secondsSinceMidnight());
  const auto& names = aids.state.ParkNames;
  const double draw = aids.platform.randoms.Draw() * static_cast<double>(names.size());
  if (names.empty()) return;
  ShowChosen(aids,
             PathOf(aids.state.lbl_Path.value()) / PathOf(names[static_cast<std::size_t>(draw)]));
}

bool IsJpeg(const std::string& name) {
  constexpr std::string_view kJpeg = ".jpg";
  if (name.size() < kJpeg.size()) return false;
  // Capital letters of these four characters differ from the small ones in one bit.
  return std::equal(kJpeg.begin(), kJpeg.end(), name.end() - kJpeg.size(),
                    [](char small, char any) { return small == (any == '.' ? any : any | 0x20); });
}

}  // namespace

void SetUpBallparks(Aids& aids) {
  aids.state.lbl_Path.Set(TextOf(ParksBesideProgram(aids)));
  ShowPark(aids, ParksBesideProgram(aids) / kDefaultPark);
  FollowParkPlaces(aids);
}

std::string NameOfPark(const Picture& park) {
  const std::filesystem::path file = PathOf(park.path).filename();
  return TextOf(file) == kDefaultPark ? "" : TextOf(file.stem());
}

void ChoosePark(Aids& aids) {
  if (aids.state.cb_RandParks.value()) {
    DrawPark(aids);
  } else {
    aids.state.parkChoice =
        aids.platform.dialogs.OpenFile({"BALLPARKS", ParksBesideProgram(aids), kFilter, true});
    if (aids.state.parkChoice) ShowChosen(aids, *aids.state.parkChoice);
  }
  Random_Ballparks(aids);
}

void Random_Ballparks(Aids& aids) {
  AidsState& state = aids.state;
  state.cb_RandParks_visible.Set(state.parkChoice.has_value());
  if (!state.parkChoice) return;
  Trapped(aids.platform.boxes, [&] {
    const auto folder = state.parkChoice->parent_path();
    state.lbl_Path.Set(TextOf(folder));
    std::vector<std::string> names;
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(folder, failure), end; entry != end;
         entry.increment(failure)) {
      const std::string name = TextOf(entry->path().filename());
      // A name in another encoding would not lead back to its file.
      std::error_code ignored;
      if (IsJpeg(name) && IsUtf8(name) && entry->is_regular_file(ignored)) names.push_back(name);
    }
    if (failure) {
      throw ProgramError(error_number::kPathOrFileAccess,
                         "The folder \"" + state.lbl_Path.value() + "\" cannot be read.");
    }
    // Folders come in any order; a fixed one makes the same draw give the same park.
    std::sort(names.begin(), names.end());
    state.ParkNames = std::move(names);
  });
}

}  // namespace dtb
