#include "record/drawing_svg.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "base/html_text.h"

namespace dtb {
namespace {

// A number with one decimal at the most, and none that it does not need: a season's pages have
// millions of them.
void AppendUnits(std::string& text, double value) {
  constexpr double kTenths = 10;
  constexpr std::size_t kLongest = 24;
  std::array<char, kLongest> digits{};
  const long long tenths = std::llround(value * kTenths);
  if (tenths < 0) text += '-';
  const long long size = std::abs(tenths);
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), size / 10).ptr;
  text.append(digits.data(), end);
  if (size % 10 == 0) return;
  text += '.';
  text += static_cast<char>('0' + size % 10);
}

std::string Units(double value) {
  std::string text;
  AppendUnits(text, value);
  return text;
}

void AppendPoint(std::string& text, char command, const DrawnPoint& point) {
  text += command;
  AppendUnits(text, point.x);
  text += ' ';
  AppendUnits(text, point.y);
}

void AppendNumber(std::string& text, const char* before, double value) {
  text += before;
  AppendUnits(text, value);
}

std::string Attribute(const char* name, const std::string& value) {
  return std::string(" ").append(name).append("=\"").append(value).append("\"");
}

std::string ShadeText(Ink ink, Dress dress) {
  const auto [red, green, blue] = ColourOf(ink, dress);
  std::string shade = "#";
  for (const int part : {red, green, blue}) {
    constexpr const char* kDigits = "0123456789abcdef";
    shade += kDigits[part / 16];
    shade += kDigits[part % 16];
  }
  return shade;
}

// What lies below what: the grid, the frames, the runs, all other shapes, the texts.
enum class Layer { Grid, Frame, Run, Shape, Text };

Layer LayerOf(Ink ink) {
  if (ink == Ink::Grid) return Layer::Grid;
  return ink == Ink::Frame ? Layer::Frame : Layer::Shape;
}

// The shapes of a page, those of one look together: lines and polygons in one path.
class SvgPage {
 public:
  explicit SvgPage(Dress dress) : dress_(dress) {}

  std::string Text(const Drawing& page) {
    for (const Shape& shape : page.shapes) {
      std::visit([this](const auto& one) { Put(one); }, shape);
    }
    std::ranges::stable_sort(groups_, {}, [](const Group& group) { return group.style.layer; });
    std::string text;
    for (const Group& group : groups_) text += group.begin + group.contents + group.end;
    return text;
  }

 private:
  // What the shapes of a group have in common.
  struct Style {
    Layer layer = Layer::Shape;
    std::size_t kind = 0;  // of shape
    std::optional<Ink> fill = {};
    std::optional<Ink> edge = {};
    double size = 0;  // of the edge or the type
    bool bold = false;
    TextAlign align = TextAlign::Left;
    friend bool operator==(const Style&, const Style&) = default;
  };
  struct Group {
    Style style;
    std::string begin;
    std::string contents;
    const char* end = "";
  };

  template <class Begin>
  std::string& In(const Style& style, const Begin& begin, const char* end) {
    auto group = std::ranges::find(groups_, style, &Group::style);
    if (group == groups_.end()) {
      groups_.push_back({style, begin(), {}, end});
      group = groups_.end() - 1;
    }
    return group->contents;
  }

  [[nodiscard]] std::string Look(const Style& style) const {
    std::string look = Attribute("fill", style.fill ? ShadeText(*style.fill, dress_) : "none");
    if (!style.edge) return look;
    return look + Attribute("stroke", ShadeText(*style.edge, dress_)) +
           Attribute("stroke-width", Units(style.size));
  }

  void Put(const DrawnLine& line) {
    const Style style{.layer = LayerOf(line.ink), .kind = 0, .edge = line.ink, .size = line.width};
    std::string& path = In(
        style, [&] { return "<path" + Look(style) + " stroke-linecap=\"round\" d=\""; }, "\"/>\n");
    AppendPoint(path, 'M', line.from);
    AppendPoint(path, 'L', line.to);
  }
  void Put(const DrawnPolygon& polygon) {
    const Layer layer = polygon.fill == Ink::Run ? Layer::Run
                        : polygon.fill           ? Layer::Shape
                                                 : LayerOf(polygon.edge.value_or(Ink::Path));
    const Style style{layer, 1, polygon.fill, polygon.edge, polygon.width};
    std::string& path = In(
        style, [&] { return "<path" + Look(style) + " stroke-linejoin=\"round\" d=\""; }, "\"/>\n");
    char command = 'M';
    for (const DrawnPoint& corner : polygon.corners) {
      AppendPoint(path, command, corner);
      command = 'L';
    }
    path += 'Z';
  }
  void Put(const DrawnCircle& circle) {
    const Style style{Layer::Shape, 2, circle.fill, circle.edge, circle.width};
    std::string& circles = In(
        style, [&] { return "<g" + Look(style) + ">"; }, "</g>\n");
    AppendNumber(circles, "<circle cx=\"", circle.middle.x);
    AppendNumber(circles, "\" cy=\"", circle.middle.y);
    AppendNumber(circles, "\" r=\"", circle.radius);
    circles += "\"/>";
  }
  void Put(const DrawnText& text) {
    constexpr double kLong = 50;  // points; what is short has room in any type
    const Style style{Layer::Text, 3, text.ink, {}, text.size, text.bold, text.align};
    const auto begin = [&] {
      const char* anchor = text.align == TextAlign::Left     ? "start"
                           : text.align == TextAlign::Middle ? "middle"
                                                             : "end";
      return "<g" + Attribute("font-size", Units(text.size)) +
             (text.bold ? " font-weight=\"bold\"" : "") + Attribute("text-anchor", anchor) +
             Look({.fill = text.ink}) + ">";
    };
    std::string& texts = In(style, begin, "</g>\n");
    AppendNumber(texts, "<text x=\"", text.at.x);
    AppendNumber(texts, "\" y=\"", text.at.y);
    if (text.wide > kLong) {
      AppendNumber(texts, "\" textLength=\"", text.wide);
      texts += "\" lengthAdjust=\"spacingAndGlyphs";
    }
    texts.append("\">").append(PageText(text.text)).append("</text>");
  }

  Dress dress_;
  std::vector<Group> groups_;
};

std::string Whole(const std::vector<Drawing>& pages, Dress dress, const std::string& attributes) {
  double width = 0;
  double height = 0;
  std::string contents;
  for (const Drawing& page : pages) {
    const std::string text = SvgPage(dress).Text(page);
    contents += height == 0
                    ? text
                    : "<g transform=\"translate(0 " + Units(height) + ")\">\n" + text + "</g>\n";
    width = std::max(width, page.width);
    height += page.height;
  }
  const std::string title = PageText(pages.at(0).title);
  return "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
         (attributes.empty()
              ? Attribute("width", Units(width) + "pt") + Attribute("height", Units(height) + "pt")
              : attributes) +
         Attribute("viewBox", "0 0 " + Units(width) + " " + Units(height)) + " role=\"img\"" +
         Attribute("aria-label", title) +
         " font-family=\"Carlito, Calibri, 'Liberation Sans', sans-serif\">\n<title>" + title +
         "</title>\n" + "<rect" + Attribute("width", Units(width)) +
         Attribute("height", Units(height)) + Attribute("fill", ShadeText(Ink::Ground, dress)) +
         "/>\n" + contents + "</svg>\n";
}

}  // namespace

std::string SvgFile(const std::vector<Drawing>& pages, Dress dress) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + Whole(pages, dress, "");
}

std::string SvgOfPage(const std::vector<Drawing>& pages, Dress dress) {
  return Whole(pages, dress, " class=\"scorecard\"");
}

}  // namespace dtb
