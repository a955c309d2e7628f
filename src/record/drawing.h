// A page as a list of lines, shapes and texts, which the screen, a printer and a file show alike.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/colour.h"

namespace dtb {

// What a stroke or a text is for; the dress gives it its colour.
enum class Ink { Ground, Grid, Frame, Text, Dim, Path, Run, Mark };

// The looks of a page: that of the program, or black on white for paper.
enum class Dress { Look, Paper };
[[nodiscard]] Colour ColourOf(Ink ink, Dress dress);

// Points of 1/72 inch, from the upper left corner of the page.
struct DrawnPoint {
  double x = 0;
  double y = 0;
};

struct DrawnLine {
  DrawnPoint from;
  DrawnPoint to;
  double width = 0.5;
  Ink ink = Ink::Grid;
};

struct DrawnPolygon {
  std::vector<DrawnPoint> corners;
  std::optional<Ink> fill = {};
  std::optional<Ink> edge = {};
  double width = 0.5;
};

struct DrawnCircle {
  DrawnPoint middle;
  double radius = 1;
  std::optional<Ink> fill = {};
  std::optional<Ink> edge = {};
  double width = 0.5;
};

enum class TextAlign { Left, Middle, Right };

// One line of text, which takes `wide` at its size: whoever shows it in another type than the one
// that was reckoned with makes it so wide.
struct DrawnText {
  DrawnPoint at;  // on the base line
  std::string text;
  double size = 8;
  bool bold = false;
  TextAlign align = TextAlign::Left;
  Ink ink = Ink::Text;
  double wide = 0;
};

using Shape = std::variant<DrawnLine, DrawnPolygon, DrawnCircle, DrawnText>;

// Later shapes lie over earlier ones. The ground is not among them.
struct Drawing {
  double width = 0;
  double height = 0;
  std::string title;  // in words, for those who do not see it
  std::vector<Shape> shapes = {};
};

// How wide a text is in the type of the program, Carlito. Letters beyond ASCII are reckoned, not
// looked up.
[[nodiscard]] double TextWidth(std::string_view text, double size, bool bold);

// The text, cut behind as many letters as have room, with "..." as one character at its end.
[[nodiscard]] std::string CutText(std::string_view text, double size, bool bold, double room);

// A name as far as it has room: whole, else the last name, else that cut.
[[nodiscard]] std::string FittedName(const std::string& name, double size, bool bold, double room);

}  // namespace dtb
