#include "record/box_html.h"

#include <algorithm>
#include <string_view>

#include "base/html_text.h"

namespace dtb {
namespace {

std::string Element(const char* tag, std::string_view text) {
  return std::string("<").append(tag).append(">").append(HtmlText(text)).append("</").append(tag) +
         ">";
}

constexpr const char* kTable = "<table class=\"box\" cellpadding=\"2\" cellspacing=\"0\"";

// A row of a table: the name on the left, figures on the right, so many percent of the table wide;
// the last one, an average, has more room.
struct CellWidths {
  int figure = 0;  // 0: as wide as its text
  int last = 0;
};
std::string Row(const char* tag, std::string_view name, const std::vector<std::string>& cells,
                CellWidths widths = {}) {
  const auto cell = [tag](const char* align, int width, std::string_view text) {
    std::string html = std::string("<").append(tag).append(" align=\"").append(align).append("\"");
    if (width > 0) html += " width=\"" + std::to_string(width) + "%\"";
    return html + ">" + HtmlText(text) + "</" + tag + ">";
  };
  std::string row = "<tr>" + cell("left", 0, name);
  for (const std::string& one : cells) {
    row += cell("right", &one == &cells.back() ? widths.last : widths.figure, one);
  }
  return row + "</tr>\n";
}

std::string TableHtml(const BoxTable& table) {
  constexpr CellWidths kWidths{7, 12};
  std::string html =
      kTable + std::string(" width=\"100%\">\n") + Row("th", table.title, table.headers, kWidths);
  for (const BoxRow& row : table.rows) {
    constexpr const char* kIndent = "\u00A0\u00A0\u00A0";
    html += Row("td", (row.indented ? kIndent : "") + row.name, row.cells, kWidths);
  }
  if (!table.totals.empty()) html += Row("th", "Totals", table.totals, kWidths);
  return html + "</table>\n";
}

std::string LineHtml(const std::array<BoxLine, 2>& line) {
  std::vector<std::string> headers;
  const std::size_t innings = std::max(line[0].innings.size(), line[1].innings.size());
  for (std::size_t i = 1; i <= innings; ++i) headers.push_back(std::to_string(i));
  for (const char* total : {"R", "H", "E"}) headers.emplace_back(total);
  std::string html =
      "<table class=\"box\" cellpadding=\"4\" cellspacing=\"0\">\n" + Row("th", "", headers);
  for (const BoxLine& one : line) {
    std::vector<std::string> cells = one.innings;
    cells.resize(innings);
    for (const std::string& total : {one.runs, one.hits, one.errors}) cells.push_back(total);
    html += Row("td", one.team, cells);
  }
  return html + "</table>\n";
}

std::string ScoringHtml(const std::vector<std::string>& plays) {
  if (plays.empty()) return "";
  std::string html = "<p class=\"story\"><b>Scoring plays</b>";
  for (const std::string& play : plays) html += "<br>\n" + HtmlText(play);
  return html + "</p>\n";
}

std::string BattingHtml(const BoxSide& side) {
  std::string notes;
  for (const std::string& note : side.substitutes) notes += (notes.empty() ? "" : " ") + note + '.';
  std::string html = TableHtml(side.batting);
  return notes.empty() ? html : html + "<p class=\"box-notes\">" + HtmlText(notes) + "</p>\n";
}

std::string Beside(const std::string& left, const std::string& right, BoxColumns columns) {
  if (columns == BoxColumns::One) return left + right;
  const auto half = [](const std::string& html, int percent) {
    return "<td width=\"" + std::to_string(percent) + "%\" valign=\"top\">" + html + "</td>";
  };
  return "<table width=\"100%\"><tr>" + half(left, 48) + half("", 4) + half(right, 48) +
         "</tr></table>\n";
}

}  // namespace

std::string BoxHtml(const BoxScore& box, BoxColumns columns) {
  std::string html = LineHtml(box.line);
  if (!box.decisions.empty()) html += Element("p", box.decisions) + '\n';
  html += Beside(BattingHtml(box.sides[0]), BattingHtml(box.sides[1]), columns);
  if (!box.notes.empty()) {
    html += "<p class=\"box-notes\">";
    for (const BoxNote& note : box.notes) {
      html += Element("b", note.what) + " - " + HtmlText(note.text) + ".\n";
    }
    html += "</p>\n";
  }
  html += Beside(TableHtml(box.sides[0].pitching), TableHtml(box.sides[1].pitching), columns);
  html += ScoringHtml(box.scoring);
  if (!box.remark.empty()) html += Element("p", box.remark) + '\n';
  return html;
}

std::string StoryHtml(const Story& story) {
  std::string html = ScoringHtml(story.scoring);
  for (const StoryHalf& half : story.halves) {
    std::string sentences;
    for (const std::string& sentence : half.sentences) {
      sentences += (sentences.empty() ? "" : " ") + sentence;
    }
    html += "<p class=\"story\">" + Element("b", half.title) + "<br>" + HtmlText(sentences);
    if (!half.summary.empty()) html += "<br>" + Element("i", half.summary);
    html += "</p>\n";
  }
  return html;
}

}  // namespace dtb
