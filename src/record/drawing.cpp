#include "record/drawing.h"

#include <array>

#include "base/utf8.h"
#include "game/player_name.h"

namespace dtb {
namespace {

constexpr char32_t kFirstWidth = 0x20;
constexpr char32_t kLastWidth = 0x7E;
// Thousandths of the size, from the blank to "~".
using Widths = std::array<short, kLastWidth - kFirstWidth + 1>;
constexpr Widths kPlain{
    226, 326, 401, 498, 507, 715, 682, 221, 303, 303, 498, 498, 250, 306, 252, 386, 507, 507, 507,
    507, 507, 507, 507, 507, 507, 507, 268, 268, 498, 498, 498, 463, 894, 579, 544, 533, 615, 488,
    459, 631, 623, 252, 319, 520, 420, 855, 646, 662, 517, 673, 543, 459, 487, 642, 567, 890, 519,
    487, 468, 307, 386, 307, 498, 498, 291, 479, 525, 423, 525, 498, 305, 471, 525, 229, 239, 455,
    229, 799, 525, 527, 525, 525, 349, 391, 335, 525, 452, 715, 433, 453, 395, 314, 460, 314, 498};
constexpr Widths kBold{
    226, 326, 438, 498, 507, 729, 705, 233, 312, 312, 498, 498, 258, 306, 267, 430, 507, 507, 507,
    507, 507, 507, 507, 507, 507, 507, 276, 276, 498, 498, 498, 463, 898, 606, 561, 529, 630, 488,
    459, 637, 631, 267, 331, 547, 423, 874, 659, 676, 532, 686, 563, 473, 495, 653, 591, 906, 551,
    520, 478, 325, 430, 325, 498, 498, 300, 494, 537, 418, 537, 503, 316, 474, 537, 246, 255, 480,
    246, 813, 537, 538, 537, 537, 355, 399, 347, 537, 473, 745, 459, 474, 397, 344, 475, 344, 498};

double WidthOf(char32_t code, bool bold) {
  constexpr char32_t kFirstIdeograph = 0x1100;
  constexpr double kLetter = 560;
  constexpr double kIdeograph = 1000;
  if (code >= kFirstWidth && code <= kLastWidth)
    return (bold ? kBold : kPlain).at(code - kFirstWidth);
  return code >= kFirstIdeograph && code != U'\u2026' ? kIdeograph : kLetter;
}

}  // namespace

Colour ColourOf(Ink ink, Dress dress) {
  const bool look = dress == Dress::Look;
  switch (ink) {
    case Ink::Ground:
      return look ? Colour{22, 38, 31} : Colour{255, 255, 255};
    case Ink::Grid:
      return look ? Colour{58, 84, 70} : Colour{198, 198, 198};
    case Ink::Frame:
      return look ? Colour{116, 146, 129} : Colour{96, 96, 96};
    case Ink::Dim:
      return look ? Colour{176, 178, 160} : Colour{88, 88, 88};
    case Ink::Run:
    case Ink::Mark:
      return look ? Colour{255, 200, 60} : Colour{0, 0, 0};
    default:
      return look ? Colour{243, 233, 210} : Colour{0, 0, 0};
  }
}

double TextWidth(std::string_view text, double size, bool bold) {
  constexpr double kThousandths = 1000;
  double width = 0;
  while (!text.empty()) {
    const Utf8Character character = FirstCharacter(text);
    width += WidthOf(character.code, bold);
    text.remove_prefix(character.bytes);
  }
  return width * size / kThousandths;
}

std::string CutText(std::string_view text, double size, bool bold, double room) {
  const std::string dots = "\u2026";
  if (TextWidth(text, size, bold) <= room) return std::string(text);
  std::string cut;
  while (!text.empty()) {
    const std::size_t bytes = FirstCharacter(text).bytes;
    const std::string longer = cut + std::string(text.substr(0, bytes));
    if (TextWidth(longer + dots, size, bold) > room) break;
    cut = longer;
    text.remove_prefix(bytes);
  }
  while (cut.ends_with(' ')) cut.pop_back();
  return cut + dots;
}

std::string FittedName(const std::string& name, double size, bool bold, double room) {
  if (TextWidth(name, size, bold) <= room) return name;
  return CutText(LastNameOf(name), size, bold, room);
}

}  // namespace dtb
