#include "season/season_html.h"

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

std::string PageHeading(const char* tag, std::string_view text) {
  return Tag(tag, PageText(text)) + "\n";
}

std::string PageParagraph(std::string_view text) { return PageHeading("p", text); }

std::vector<std::vector<std::string>> PlainCells(std::vector<std::vector<std::string>> cells) {
  for (auto& row : cells) {
    for (std::string& cell : row) cell = PageText(cell);
  }
  return cells;
}

std::string WholePage(std::string_view title, std::string_view root, std::string_view body,
                      std::string_view home) {
  const std::string name = PageText(title);
  std::string page =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
      "<title>" +
      name + "</title>\n<link rel=\"stylesheet\" href=\"";
  page.append(root).append("style.css\">\n</head>\n<body>\n");
  if (!root.empty()) {
    page += "<nav>" + PageLink(std::string(root) + "index.html", home) + "</nav>\n";
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

std::string PageBoard(std::string_view title, const std::string& table) {
  return "<section>" + PageHeading("h3", title) + table + "</section>\n";
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

}  // namespace dtb
