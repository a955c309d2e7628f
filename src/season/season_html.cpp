#include "season/season_html.h"

#include <algorithm>
#include <numeric>

#include "base/text_cell.h"
#include "base/utf8.h"
#include "season/season_standings.h"
#include "season/season_words.h"

namespace dtb {
namespace {

std::string Tag(const char* name, const std::string& contents) {
  return std::string("<")
      .append(name)
      .append(">")
      .append(contents)
      .append("</")
      .append(name)
      .append(">");
}

std::string Class(const LineLook& look) {
  return "class=\"line c" + std::to_string(look.colour) + " d" + std::to_string(look.dash) + "\"";
}

// A drawing's own units.
struct Sheet {
  const char* name;  // of the style
  double wide;
  double high;          // more where that many names do not fit
  double names;         // the room at the right
  std::size_t letters;  // of a name
  int marks;            // at the left, at most
};
constexpr Sheet kWideSheet{"wide", 900, 420, 180, 24, 9};
constexpr Sheet kNarrowSheet{"narrow", 340, 320, 104, 13, 6};
constexpr double kLeft = 32;
constexpr double kTop = 10;
constexpr double kFoot = 30;
constexpr double kNameHeight = 15;

std::string Units(double value) { return FixedDecimals(value, 1); }

std::string LineAcross(double x1, double y1, double x2, double y2) {
  return "<line class=\"grid\" x1=\"" + Units(x1) + "\" y1=\"" + Units(y1) + "\" x2=\"" +
         Units(x2) + "\" y2=\"" + Units(y2) + "\"/>";
}

std::string TextAt(double x, double y, const char* anchor, const std::string& text) {
  return "<text x=\"" + Units(x) + "\" y=\"" + Units(y) + "\" text-anchor=\"" + anchor + "\">" +
         PageText(text) + "</text>";
}

// The first letters of a name that is too long.
std::string Shortened(std::string_view name, std::size_t letters) {
  std::string kept;
  std::string_view rest = name;
  for (std::size_t i = 0; i < letters && !rest.empty(); ++i) {
    const std::size_t bytes = FirstCharacter(rest).bytes;
    kept.append(rest.substr(0, bytes));
    rest.remove_prefix(bytes);
  }
  if (rest.empty()) return kept;
  while (kept.ends_with(' ')) kept.pop_back();
  return kept + "\u2026";
}

// Where names stand beside the ends of their lines, none over another.
std::vector<double> Spread(const std::vector<double>& wanted, double lowest) {
  std::vector<std::size_t> order(wanted.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, {}, [&](std::size_t i) { return wanted[i]; });
  std::vector<double> places = wanted;
  double next = kTop;
  for (const std::size_t i : order) {
    places[i] = std::max(places[i], next);
    next = places[i] + kNameHeight;
  }
  double last = lowest;
  for (std::size_t i = order.size(); i-- > 0;) {
    double& place = places[order[i]];
    place = std::min(place, last);
    last = place - kNameHeight;
  }
  return places;
}

class Drawing {
 public:
  Drawing(const SeasonFigures& season, const Sheet& sheet)
      : season_(season), sheet_(sheet), standings_(Standings(season)) {
    for (const Standing& standing : standings_) {
      courses_.push_back(CourseOf(season, standing.team));
      for (const CoursePoint& point : courses_.back()) {
        lowest_ = std::min(lowest_, point.above);
        highest_ = std::max(highest_, point.above);
      }
    }
    const double names = double(standings_.size()) * kNameHeight;
    high_ = std::max(sheet.high, kTop + names + kFoot);
  }

  [[nodiscard]] std::string Text() const {
    return std::string("<svg class=\"").append(sheet_.name) + "\" viewBox=\"0 0 " +
           DecimalText(sheet_.wide) + " " + DecimalText(high_) +
           "\" role=\"img\" aria-label=\"Games above .500\">\n" + Axes() + Lines() + Names() +
           "\n</svg>\n";
  }

 private:
  [[nodiscard]] double right() const { return sheet_.wide - sheet_.names; }
  [[nodiscard]] double bottom() const { return high_ - kFoot; }
  [[nodiscard]] double Across(int game) const {
    const double games = std::max<double>(1, static_cast<double>(season_.games.size()));
    return kLeft + (right() - kLeft) * game / games;
  }
  [[nodiscard]] double Up(double above) const {
    return bottom() - (bottom() - kTop) * (above - lowest_) / std::max(1, highest_ - lowest_);
  }
  [[nodiscard]] const std::string& NameOf(std::size_t place) const {
    return season_.teams[standings_[place].team].name;
  }

  [[nodiscard]] std::string Axes() const {
    std::string axes;
    for (const double mark : AxisMarks(lowest_, highest_, sheet_.marks, 1)) {
      axes += LineAcross(kLeft, Up(mark), right(), Up(mark)) +
              TextAt(kLeft - 6, Up(mark) + 4, "end", DecimalText(mark));
    }
    double free = 0;
    constexpr double kMonthRoom = 80;  // less than the names have beside the last line
    for (const MonthMark& mark : MonthMarks(season_)) {
      const double x = Across(mark.game);
      axes += LineAcross(x, kTop, x, bottom());
      if (x < free) continue;
      axes += TextAt(x, bottom() + 20, "start", mark.month);
      free = x + kMonthRoom;
    }
    return axes;
  }

  [[nodiscard]] std::string Lines() const {
    std::string lines;
    for (std::size_t place = courses_.size(); place-- > 0;) {
      lines += "\n<polyline " + Class(LineLookOf(static_cast<int>(place))) + " points=\"";
      for (const CoursePoint& point : LineOf(courses_[place])) {
        lines += Units(Across(point.game)) + "," + Units(Up(point.above)) + " ";
      }
      lines += "\"><title>" + PageText(NameOf(place)) + "</title></polyline>";
    }
    return lines;
  }

  // Each beside the end of its line, to which a short one leads.
  [[nodiscard]] std::string Names() const {
    std::vector<double> ends;
    for (const auto& course : courses_)
      ends.push_back(Up(course.empty() ? 0 : course.back().above));
    const std::vector<double> places = Spread(ends, bottom());
    std::string names;
    for (std::size_t place = 0; place < courses_.size(); ++place) {
      constexpr double kLead = 12;
      const double from = courses_[place].empty() ? right() : Across(courses_[place].back().game);
      names += "\n<polyline " + Class(LineLookOf(static_cast<int>(place))) + " points=\"" +
               Units(from) + "," + Units(ends[place]) + " " + Units(right() + 2) + "," +
               Units(ends[place]) + " " + Units(right() + kLead) + "," + Units(places[place]) +
               "\"/>" +
               TextAt(right() + kLead + 4, places[place] + 4, "start",
                      Shortened(NameOf(place), sheet_.letters));
    }
    return names;
  }

  const SeasonFigures& season_;
  const Sheet& sheet_;
  std::vector<Standing> standings_;
  std::vector<std::vector<CoursePoint>> courses_;
  int lowest_ = 0;
  int highest_ = 0;
  double high_ = 0;
};

// "leaders-2", the name of a place of its page.
std::string PartName(std::size_t number, std::string_view title) {
  const std::string name = PageFileName(title, number);
  return name.substr(0, name.size() - std::string_view(".html").size());
}

}  // namespace

std::string PageFileName(std::string_view name, std::size_t number) {
  constexpr std::size_t kLongest = 40;
  std::string file;
  for (const char letter : name) {
    if (file.size() >= kLongest) break;
    const bool capital = letter >= 'A' && letter <= 'Z';
    const bool plain = (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9');
    if (capital) file += static_cast<char>(letter - 'A' + 'a');
    if (plain) file += letter;
    if (!capital && !plain && !file.empty() && file.back() != '-') file += '-';
  }
  if (!file.empty() && file.back() != '-') file += '-';
  return file + std::to_string(number) + ".html";
}

std::string PageLink(std::string_view file, std::string_view text) {
  return std::string("<a href=\"").append(file).append("\">").append(PageText(text)).append("</a>");
}

std::string WholePage(std::string_view title, std::string_view root, std::string_view body) {
  const std::string name = PageText(title);
  std::string page =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
      "<title>" +
      name + "</title>\n<link rel=\"stylesheet\" href=\"";
  page.append(root).append("style.css\">\n</head>\n<body>\n");
  if (!root.empty()) {
    page.append("<nav><a href=\"").append(root).append("index.html\">The season</a></nav>\n");
  }
  return page.append("<h1>").append(name).append("</h1>\n").append(body).append(
      "</body>\n</html>\n");
}

std::string PageTable(const std::vector<std::vector<std::string>>& rows, LastRow last) {
  std::string table = "<div class=\"scroll\" tabindex=\"0\"><table>\n<thead>";
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const bool sum = last == LastRow::Sum && row > 0 && row + 1 == rows.size();
    std::string cells;
    for (const std::string& cell : rows[row]) cells += Tag(row == 0 || sum ? "th" : "td", cell);
    if (sum) table += "</tbody>\n<tfoot>";
    table += Tag("tr", cells) + (row == 0 ? "</thead>\n<tbody>\n" : sum ? "</tfoot>" : "\n");
    if (sum) return table + "</table></div>\n";
  }
  return table + "</tbody></table></div>\n";
}

std::vector<int> PlacesOf(const std::vector<std::string>& values) {
  std::vector<int> places;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const bool same = i > 0 && values[i] == values[i - 1];
    places.push_back(same ? places.back() : static_cast<int>(i) + 1);
  }
  return places;
}

std::string Placed(int place, const std::string& name) {
  return "<span class=\"placed\"><span class=\"place\">" + std::to_string(place) + "</span><span>" +
         name + "</span></span>";
}

std::string PartHeading(std::size_t number, std::string_view title) {
  return "<h2 id=\"" + PartName(number, title) + "\">" + PageText(title) + "</h2>\n";
}

std::string PageContents(const std::vector<std::string>& titles) {
  if (titles.size() < 2) return {};
  std::string contents = "<nav class=\"contents\" aria-label=\"Contents\">";
  for (std::size_t part = 0; part < titles.size(); ++part) {
    contents +=
        "<a href=\"#" + PartName(part + 1, titles[part]) + "\">" + PageText(titles[part]) + "</a> ";
  }
  return contents + "</nav>\n";
}

std::string LineSample(int place) {
  return "<svg class=\"sample\" viewBox=\"0 0 28 8\" aria-hidden=\"true\"><line " +
         Class(LineLookOf(place)) + " x1=\"0\" y1=\"4\" x2=\"28\" y2=\"4\"/></svg>";
}

std::string StandingsDrawing(const SeasonFigures& season) {
  return Drawing(season, kWideSheet).Text() + Drawing(season, kNarrowSheet).Text();
}

}  // namespace dtb
