#include "browser/season_html.h"

#include <algorithm>

#include "browser/season_standings.h"
#include "browser/season_words.h"
#include "game/text_cell.h"
#include "sheet/game_report.h"
#include "shell/utf8.h"

namespace dtb {
namespace {

// Pages may hold no control characters, and none that Unicode keeps for no character at all.
bool StandsOnPages(char32_t code) {
  constexpr char32_t kFirstPrintable = 0x20;
  constexpr char32_t kPlane = 0x10000;
  constexpr char32_t kLastTwo = 0xFFFE;
  if (code < kFirstPrintable) return false;
  return (code < 0xFDD0 || code > 0xFDEF) && code % kPlane < kLastTwo;
}

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

// The drawing's own units.
constexpr double kWide = 900;
constexpr double kHigh = 420;
constexpr double kLeft = 44;
constexpr double kRight = 890;
constexpr double kTop = 10;
constexpr double kBottom = 390;

std::string Units(double value) { return FixedDecimals(value, 1); }

std::string LineAcross(double x1, double y1, double x2, double y2) {
  return "<line class=\"grid\" x1=\"" + Units(x1) + "\" y1=\"" + Units(y1) + "\" x2=\"" +
         Units(x2) + "\" y2=\"" + Units(y2) + "\"/>";
}

std::string TextAt(double x, double y, const char* anchor, const std::string& text) {
  return "<text x=\"" + Units(x) + "\" y=\"" + Units(y) + "\" text-anchor=\"" + anchor + "\">" +
         PageText(text) + "</text>";
}

}  // namespace

std::string PageText(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const Utf8Character character = FirstCharacter(text);
    AppendUtf8(plain, StandsOnPages(character.code) ? character.code : kReplacementCharacter);
    text.remove_prefix(character.bytes);
  }
  return HtmlText(plain);
}

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

std::string PageTable(const std::vector<std::vector<std::string>>& rows) {
  std::string table = "<div class=\"scroll\"><table>\n<thead>";
  for (std::size_t row = 0; row < rows.size(); ++row) {
    std::string cells;
    for (const std::string& cell : rows[row]) cells += Tag(row == 0 ? "th" : "td", cell);
    table += Tag("tr", cells) + (row == 0 ? "</thead>\n<tbody>\n" : "\n");
  }
  return table + "</tbody></table></div>\n";
}

std::string LineSample(int place) {
  return "<svg class=\"sample\" viewBox=\"0 0 28 8\" aria-hidden=\"true\"><line " +
         Class(LineLookOf(place)) + " x1=\"0\" y1=\"4\" x2=\"28\" y2=\"4\"/></svg>";
}

std::string StandingsDrawing(const SeasonFigures& season) {
  const std::vector<Standing> standings = Standings(season);
  std::vector<std::vector<CoursePoint>> courses;
  int lowest = 0;
  int highest = 0;
  for (const Standing& standing : standings) {
    courses.push_back(CourseOf(season, standing.team));
    for (const CoursePoint& point : courses.back()) {
      lowest = std::min(lowest, point.above);
      highest = std::max(highest, point.above);
    }
  }
  const double games = std::max<double>(1, static_cast<double>(season.games.size()));
  const auto across = [&](int game) { return kLeft + (kRight - kLeft) * game / games; };
  const auto up = [&](double above) {
    return kBottom - (kBottom - kTop) * (above - lowest) / std::max(1, highest - lowest);
  };
  std::string drawing = "<svg viewBox=\"0 0 " + DecimalText(kWide) + " " + DecimalText(kHigh) +
                        "\" role=\"img\" aria-label=\"Games above .500\">\n";
  constexpr int kMostMarks = 9;
  for (const double mark : AxisMarks(lowest, highest, kMostMarks, 1)) {
    drawing += LineAcross(kLeft, up(mark), kRight, up(mark)) +
               TextAt(kLeft - 6, up(mark) + 4, "end", DecimalText(mark));
  }
  double free = 0;
  constexpr double kMonthRoom = 80;
  for (const MonthMark& mark : MonthMarks(season)) {
    const double x = across(mark.game);
    drawing += LineAcross(x, kTop, x, kBottom);
    if (x < free || x + kMonthRoom > kWide) continue;
    drawing += TextAt(x, kBottom + 20, "start", mark.month);
    free = x + kMonthRoom;
  }
  for (std::size_t place = courses.size(); place-- > 0;) {
    drawing += "\n<polyline " + Class(LineLookOf(static_cast<int>(place))) + " points=\"";
    for (const CoursePoint& point : LineOf(courses[place])) {
      drawing += Units(across(point.game)) + "," + Units(up(point.above)) + " ";
    }
    drawing +=
        "\"><title>" + PageText(season.teams[standings[place].team].name) + "</title></polyline>";
  }
  return drawing + "\n</svg>\n";
}

const char* PageStyle() {
  return R"(:root { color-scheme: light dark; --ground: #faf6eb; --ink: #1c201e; --edge: #c4baa0;
  --head: #3a5446; --headink: #f3e9d2; --link: #1d5a45;
  --c0: #a86200; --c1: #0b6fb0; --c2: #0a7a58; --c3: #857a00; --c4: #bb3d05; --c5: #a0447f; --c6: #444444; }
@media (prefers-color-scheme: dark) {
  :root { --ground: #16261f; --ink: #f3e9d2; --edge: #3a5446; --head: #2a4035; --headink: #f3e9d2;
  --link: #ffc83c;
  --c0: #f0a51e; --c1: #60bef5; --c2: #1eb98c; --c3: #f0e442; --c4: #f06e3c; --c5: #dc91c3; --c6: #f3e9d2; }
}
body { max-width: 70em; margin: 0 auto; padding: 1em; color: var(--ink); background: var(--ground);
  font: 1em/1.45 Carlito, Calibri, "Segoe UI", sans-serif; font-variant-numeric: tabular-nums; overflow-wrap: anywhere; }
h1, h2, h3 { line-height: 1.2; }
a { color: var(--link); }
a:focus-visible { outline: 2px solid currentColor; outline-offset: 2px; }
.scroll { overflow-x: auto; margin: 0.6em 0 1.2em; }
.boards { display: grid; grid-template-columns: repeat(auto-fill, minmax(17em, 1fr)); gap: 0 1.5em; }
.boards section { min-width: 0; }
table { border-collapse: collapse; min-width: 60%; overflow-wrap: normal; }
th, td { padding: 0.25em 0.6em; border: 1px solid var(--edge); text-align: right; }
th:first-child, td:first-child { text-align: left; min-width: 8em; max-width: 22em; overflow-wrap: anywhere; }
thead th { color: var(--headink); background: var(--head); }
svg { display: block; width: 100%; height: auto; }
svg.sample { display: inline-block; width: 1.8em; vertical-align: middle; margin-right: 0.5em; }
svg text { fill: var(--ink); font-size: 13px; }
.grid { stroke: var(--edge); stroke-width: 1; }
.line { fill: none; stroke-width: 1.6; }
.line:hover { stroke-width: 4; }
.c0 { stroke: var(--c0); } .c1 { stroke: var(--c1); } .c2 { stroke: var(--c2); } .c3 { stroke: var(--c3); }
.c4 { stroke: var(--c4); } .c5 { stroke: var(--c5); } .c6 { stroke: var(--c6); }
.d1 { stroke-dasharray: 9 4; } .d2 { stroke-dasharray: 3 3; } .d3 { stroke-dasharray: 11 4 3 4; }
.d4 { stroke-dasharray: 11 3 3 3 3 3; }
)";
}

}  // namespace dtb
