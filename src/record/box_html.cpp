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

// The name stands on the left, figures on the right, in each table of a page.
std::string Row(const char* tag, std::string_view name, const std::vector<std::string>& cells) {
  std::string row = "<tr><th align=\"left\">" + HtmlText(name) + "</th>";
  for (const std::string& cell : cells) {
    row.append("<").append(tag).append(" align=\"right\">").append(HtmlText(cell));
    row.append("</").append(tag).append(">");
  }
  return row + "</tr>\n";
}

constexpr const char* kTable = "<table class=\"box\" cellpadding=\"2\" cellspacing=\"0\">\n";

std::string TableHtml(const BoxTable& table) {
  std::string html = kTable + Row("th", table.title, table.headers);
  for (const BoxRow& row : table.rows) {
    constexpr const char* kIndent = "\u2003";  // an em space
    html += Row("td", (row.indented ? kIndent : "") + row.name, row.cells);
  }
  if (!table.totals.empty()) html += Row("th", "Totals", table.totals);
  return html + "</table>\n";
}

std::string LineHtml(const std::array<BoxLine, 2>& line) {
  std::vector<std::string> headers;
  const std::size_t innings = std::max(line[0].innings.size(), line[1].innings.size());
  for (std::size_t i = 1; i <= innings; ++i) headers.push_back(std::to_string(i));
  for (const char* total : {"R", "H", "E"}) headers.emplace_back(total);
  std::string html = kTable + Row("th", "", headers);
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
  std::string html = "<p><b>Scoring plays</b></p>\n<ul>\n";
  for (const std::string& play : plays) html += Element("li", play) + '\n';
  return html + "</ul>\n";
}

}  // namespace

std::string BoxHtml(const BoxScore& box) {
  std::string html = LineHtml(box.line);
  if (!box.decisions.empty()) html += "<p>" + HtmlText(box.decisions) + "</p>\n";
  for (const BoxSide& side : box.sides) {
    html += TableHtml(side.batting);
    if (side.substitutes.empty()) continue;
    std::string notes;
    for (const std::string& note : side.substitutes)
      notes += (notes.empty() ? "" : " ") + note + '.';
    html += "<p class=\"box-notes\">" + HtmlText(notes) + "</p>\n";
  }
  if (!box.notes.empty()) {
    html += "<p class=\"box-notes\">";
    for (const BoxNote& note : box.notes) {
      html += Element("b", note.what) + " - " + HtmlText(note.text) + ".\n";
    }
    html += "</p>\n";
  }
  for (const BoxSide& side : box.sides) html += TableHtml(side.pitching);
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
