#include "season/standings_drawing.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "base/html_text.h"
#include "base/text_cell.h"
#include "base/utf8.h"
#include "season/season_words.h"

namespace dtb {
namespace {

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

// What the pictures of a sheet have in common: where a game and a number above .500 stand.
struct Frame {
  const SeasonFigures& season;
  const Sheet& sheet;
  int lowest;
  int highest;
  double high;

  [[nodiscard]] double right() const { return sheet.wide - sheet.names; }
  [[nodiscard]] double bottom() const { return high - kFoot; }
  [[nodiscard]] double Across(int game) const {
    const double games = std::max<double>(1, static_cast<double>(season.games.size()));
    return kLeft + (right() - kLeft) * game / games;
  }
  [[nodiscard]] double Up(double above) const {
    return bottom() - (bottom() - kTop) * (above - lowest) / std::max(1, highest - lowest);
  }
  [[nodiscard]] std::string faintName() const { return std::string("faint-") + sheet.name; }
};

std::string Begin(const Frame& frame, const std::string& label) {
  return std::string("<svg class=\"").append(frame.sheet.name) + "\" viewBox=\"0 0 " +
         DecimalText(frame.sheet.wide) + " " + DecimalText(frame.high) + "\" " + label + ">\n";
}

std::string PointsOf(const Frame& frame, int team) {
  std::string points = " points=\"";
  for (const CoursePoint& point : LineOf(CourseOf(frame.season, team))) {
    points += Units(frame.Across(point.game)) + "," + Units(frame.Up(point.above)) + " ";
  }
  return points + "\"";
}

std::string Axes(const Frame& frame) {
  std::string axes;
  for (const double mark : AxisMarks(frame.lowest, frame.highest, frame.sheet.marks, 1)) {
    axes += LineAcross(kLeft, frame.Up(mark), frame.right(), frame.Up(mark)) +
            TextAt(kLeft - 6, frame.Up(mark) + 4, "end", DecimalText(mark));
  }
  double free = 0;
  constexpr double kMonthRoom = 80;  // less than the names have beside the last line
  for (const MonthMark& mark : MonthMarks(frame.season)) {
    const double x = frame.Across(mark.game);
    axes += LineAcross(x, kTop, x, frame.bottom());
    if (x < free) continue;
    axes += TextAt(x, frame.bottom() + 20, "start", mark.month);
    free = x + kMonthRoom;
  }
  return axes;
}

std::string CurvesOf(const Frame& frame, const std::vector<Standing>& standings) {
  std::string lines;
  for (std::size_t place = standings.size(); place-- > 0;) {
    const int team = standings[place].team;
    lines += "\n<polyline " + Class(LineLookOf(static_cast<int>(place))) + PointsOf(frame, team) +
             "><title>" + PageText(frame.season.teams[team].name) + "</title></polyline>";
  }
  return lines;
}

// Each beside the end of its line, to which a short one leads.
std::string NamesBeside(const Frame& frame, const std::vector<Standing>& standings,
                        const std::vector<std::string>& names) {
  std::vector<CoursePoint> last;
  std::vector<double> ends;
  for (const Standing& standing : standings) {
    last.push_back(CourseOf(frame.season, standing.team).back());
    ends.push_back(frame.Up(last.back().above));
  }
  const std::vector<double> places = Spread(ends, frame.bottom());
  std::string text;
  for (std::size_t place = 0; place < standings.size(); ++place) {
    constexpr double kLead = 12;
    const double right = frame.right();
    text += "\n<polyline " + Class(LineLookOf(static_cast<int>(place))) + " points=\"" +
            Units(frame.Across(last[place].game)) + "," + Units(ends[place]) + " " +
            Units(right + 2) + "," + Units(ends[place]) + " " + Units(right + kLead) + "," +
            Units(places[place]) + "\"/>" +
            TextAt(right + kLead + 4, places[place] + 4, "start",
                   Shortened(names[static_cast<std::size_t>(standings[place].team)],
                             frame.sheet.letters));
  }
  return text;
}

constexpr std::array kSheets{&kWideSheet, &kNarrowSheet};

Frame FrameOf(const SeasonFigures& season, const Sheet& sheet, const CourseRange& range) {
  const double names = double(range.most) * kNameHeight;
  return {season, sheet, range.lowest, range.highest, std::max(sheet.high, kTop + names + kFoot)};
}

}  // namespace

StandingsDrawings::StandingsDrawings(const SeasonFigures& season,
                                     const std::vector<GroupStandings>& groups)
    : season_(season), names_(PictureNames(season.teams)) {
  for (const GroupStandings& group : groups) {
    range_.most = std::max(range_.most, group.standings.size());
    for (const Standing& standing : group.standings) {
      if (groups.size() > 1) others_.push_back(standing.team);
      for (const CoursePoint& point : CourseOf(season, standing.team)) {
        range_.lowest = std::min(range_.lowest, point.above);
        range_.highest = std::max(range_.highest, point.above);
      }
    }
  }
}

std::string StandingsDrawings::Shared() const {
  if (others_.empty()) return {};
  std::string shared = "<svg class=\"shared\" aria-hidden=\"true\"><defs>";
  for (const Sheet* sheet : kSheets) {
    const Frame frame = FrameOf(season_, *sheet, range_);
    shared += "\n<g id=\"" + frame.faintName() + "\">";
    for (const int team : others_) {
      shared += "\n<polyline class=\"faint\"" + PointsOf(frame, team) + "/>";
    }
    shared += "</g>";
  }
  return shared + "\n</defs></svg>\n";
}

std::string StandingsDrawings::OfGroup(const std::vector<Standing>& standings) const {
  std::string drawing;
  for (const Sheet* sheet : kSheets) {
    const Frame frame = FrameOf(season_, *sheet, range_);
    drawing += Begin(frame, "role=\"img\" aria-label=\"Games above .500\"") + Axes(frame);
    if (!others_.empty()) drawing += "\n<use href=\"#" + frame.faintName() + "\"/>";
    drawing += CurvesOf(frame, standings) + NamesBeside(frame, standings, names_) + "\n</svg>\n";
  }
  return drawing;
}

std::string LineColoursOnDark() {
  std::string rule = "@media (prefers-color-scheme: dark) { :root {";
  for (std::size_t i = 0; i < kLineColoursOnDark.size(); ++i) {
    const auto [red, green, blue] = kLineColoursOnDark[i];
    rule += " --c" + std::to_string(i) + ": rgb(" + std::to_string(red) + "," +
            std::to_string(green) + "," + std::to_string(blue) + ");";
  }
  return rule + " } }\n";
}

std::string LineSample(int place) {
  return "<svg class=\"sample\" viewBox=\"0 0 28 8\" aria-hidden=\"true\"><line " +
         Class(LineLookOf(place)) + " x1=\"0\" y1=\"4\" x2=\"28\" y2=\"4\"/></svg>";
}

}  // namespace dtb
