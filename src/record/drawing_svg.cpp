#include "record/drawing_svg.h"

#include <algorithm>

#include "base/html_text.h"
#include "base/text_cell.h"

namespace dtb {
namespace {

// A number with two decimals at the most, and none that it does not need.
std::string Units(double value) {
  std::string text = FixedDecimals(value, 2);
  while (text.ends_with('0')) text.pop_back();
  if (text.ends_with('.')) text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string Point(const DrawnPoint& point) { return Units(point.x) + " " + Units(point.y); }

std::string Attribute(const char* name, const std::string& value) {
  return std::string(" ").append(name).append("=\"").append(value).append("\"");
}

class Svg {
 public:
  explicit Svg(Dress dress) : dress_(dress) {}

  void Page(const Drawing& page) {
    for (const Shape& shape : page.shapes) {
      std::visit([this](const auto& one) { Put(one); }, shape);
    }
    CloseGroup();
  }

  [[nodiscard]] std::string Ground(double width, double height) const {
    return "<rect" + Attribute("width", Units(width)) + Attribute("height", Units(height)) +
           Attribute("fill", Shade(Ink::Ground)) + "/>\n";
  }
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  [[nodiscard]] std::string Shade(Ink ink) const {
    const auto [red, green, blue] = ColourOf(ink, dress_);
    std::string shade = "#";
    for (const int part : {red, green, blue}) {
      constexpr const char* kDigits = "0123456789abcdef";
      shade += kDigits[part / 16];
      shade += kDigits[part % 16];
    }
    return shade;
  }
  [[nodiscard]] std::string Look(const std::optional<Ink>& fill, const std::optional<Ink>& edge,
                                 double width) const {
    std::string look = Attribute("fill", fill ? Shade(*fill) : "none");
    if (!edge) return look;
    return look + Attribute("stroke", Shade(*edge)) + Attribute("stroke-width", Units(width));
  }

  // Shapes of one kind and look that follow each other stand in one group, and lines in one path.
  void OpenGroup(const std::string& begin, const std::string& end) {
    if (begin == begin_) return;
    CloseGroup();
    text_ += begin;
    begin_ = begin;
    end_ = end;
  }
  void CloseGroup() {
    text_ += end_;
    begin_.clear();
    end_.clear();
  }

  void Put(const DrawnLine& line) {
    OpenGroup("<path" + Look({}, line.ink, line.width) + " stroke-linecap=\"round\" d=\"",
              "\"/>\n");
    text_ += "M" + Point(line.from) + "L" + Point(line.to);
  }
  void Put(const DrawnPolygon& polygon) {
    OpenGroup("<path" + Look(polygon.fill, polygon.edge, polygon.width) +
                  " stroke-linejoin=\"round\" d=\"",
              "\"/>\n");
    char command = 'M';
    for (const DrawnPoint& corner : polygon.corners) {
      text_ += command + Point(corner);
      command = 'L';
    }
    text_ += 'Z';
  }
  void Put(const DrawnCircle& circle) {
    OpenGroup("<g" + Look(circle.fill, circle.edge, circle.width) + ">", "</g>\n");
    text_ += "<circle" + Attribute("cx", Units(circle.middle.x)) +
             Attribute("cy", Units(circle.middle.y)) + Attribute("r", Units(circle.radius)) + "/>";
  }
  void Put(const DrawnText& text) {
    constexpr std::size_t kShort = 3;  // bytes
    const char* anchor = text.align == TextAlign::Left     ? "start"
                         : text.align == TextAlign::Middle ? "middle"
                                                           : "end";
    OpenGroup("<g" + Attribute("font-size", Units(text.size)) +
                  (text.bold ? " font-weight=\"bold\"" : "") + Attribute("text-anchor", anchor) +
                  Attribute("fill", Shade(text.ink)) + ">",
              "</g>\n");
    text_ += "<text" + Attribute("x", Units(text.at.x)) + Attribute("y", Units(text.at.y));
    if (text.text.size() > kShort) {
      text_ += Attribute("textLength", Units(text.wide)) + " lengthAdjust=\"spacingAndGlyphs\"";
    }
    text_ += ">" + PageText(text.text) + "</text>";
  }

  Dress dress_;
  std::string text_;
  std::string begin_;
  std::string end_;
};

std::string Whole(const std::vector<Drawing>& pages, Dress dress, const std::string& attributes) {
  double width = 0;
  double height = 0;
  std::string contents;
  for (const Drawing& page : pages) {
    Svg svg(dress);
    svg.Page(page);
    contents += height == 0 ? svg.text()
                            : "<g transform=\"translate(0 " + Units(height) + ")\">\n" +
                                  svg.text() + "</g>\n";
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
         "</title>\n" + Svg(dress).Ground(width, height) + contents + "</svg>\n";
}

}  // namespace

std::string SvgFile(const std::vector<Drawing>& pages, Dress dress) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + Whole(pages, dress, "");
}

std::string SvgOfPage(const std::vector<Drawing>& pages, Dress dress) {
  return Whole(pages, dress, " class=\"scorecard\"");
}

}  // namespace dtb
