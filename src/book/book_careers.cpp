// Those who played in several seasons: the lists, and a page for each.
#include <array>
#include <variant>

#include "base/words.h"
#include "book/book_html.h"
#include "season/season_outings.h"

namespace dtb::book {
namespace {

constexpr std::array kRoles{std::pair{SeasonRole::Batting, "Batting"},
                            std::pair{SeasonRole::Pitching, "Pitching"}};

// The totals of a role; nothing where he has none.
template <class Line>  // SeasonLine or Career
std::optional<SeasonTotals> TotalsOf(const Line& line, SeasonRole role) {
  if (role == SeasonRole::Batting) {
    if (line.batting) return *line.batting;
  } else if (line.pitching) {
    return *line.pitching;
  }
  return std::nullopt;
}

void Append(std::vector<std::string>& row, const std::vector<std::string>& texts) {
  for (const std::string& text : texts) row.push_back(PageText(text));
}

// "1960, 1962".
std::string NamesOf(const Book& book, const std::vector<int>& chapters) {
  std::string names;
  for (const int chapter : chapters) {
    names += (names.empty() ? "" : ", ") + book.chapters[chapter].name;
  }
  return names;
}

std::string HowKnown(const Book& book, const Career& career) {
  if (career.by == KnownBy::Id) return "Known by the archive's id, " + career.id + ".";
  if (career.by == KnownBy::Both) {
    return "Known by the archive's id, " + career.id + ", in " +
           NamesOf(book, career.chaptersById) + "; elsewhere by the name.";
  }
  if (!career.apart.empty()) {
    return "Known by the name and the team, since several players of one season have this name.";
  }
  return "Known by the name alone: whoever bears it in these seasons counts as one player.";
}

}  // namespace

std::string CareersBody(const BookHtml& html, const std::vector<int>& careers) {
  const Book& book = html.book();
  std::string page;
  std::size_t part = 0;
  for (const auto& [role, title] : kRoles) {
    Cells table{{"Name", "Seasons"}};
    Append(table.front(), LineHeaders(role));
    for (const int place : careers) {
      const Career& career = book.careers.all[place];
      const auto totals = TotalsOf(career, role);
      if (!totals) continue;
      table.push_back({html.Player(place, ""), std::to_string(career.chapters.size())});
      Append(table.back(), LineTexts(*totals));
    }
    ++part;
    if (table.size() > 1) page += PartHeading(part, title) + PageTable(table);
  }
  return page;
}

std::string CareersRule(const BookHtml& html) {
  const Book& book = html.book();
  std::array<int, 3> known{};
  for (const int career : html.paged()) {
    ++known.at(static_cast<std::size_t>(book.careers.all[career].by));
  }
  std::string rule = PageParagraph(
      "Players of several seasons: " + std::to_string(html.paged().size()) +
      ". Known by the archive's id: " + std::to_string(known.at(0)) + ", by the name alone: " +
      std::to_string(known.at(1)) + ", by both: " + std::to_string(known.at(2)) +
      ". A season that is tied to an archive of real games tells who its players are; elsewhere "
      "one name is one player, unless two teams of a season have one at the same time.");
  for (const Chapter& chapter : book.chapters) {
    if (chapter.archiveFault.empty()) continue;
    rule += PageParagraph("The archive of " + chapter.name +
                          " cannot be read, so that its players are known by their names.");
  }
  return rule + PlaysRule(book);
}

std::string CareerBody(const BookHtml& html, int career) {
  const Book& book = html.book();
  const Career& told = book.careers.all[career];
  std::vector<std::string> parts;
  for (const auto& [role, title] : kRoles) {
    if (TotalsOf(told, role)) parts.emplace_back(title);
  }
  std::string page = PageContents(parts) + PageParagraph(HowKnown(book, told));
  std::size_t part = 0;
  for (const auto& [role, title] : kRoles) {
    const auto all = TotalsOf(told, role);
    if (!all) continue;
    Cells table{{"Season", "Team"}};
    Append(table.front(), LineHeaders(role));
    for (const CareerLine& line : told.lines) {
      const SeasonLine& season = book.LineOf(line);
      const auto totals = TotalsOf(season, role);
      if (!totals) continue;
      table.push_back({html.SeasonOf(line.chapter), PageText(season.team)});
      Append(table.back(), LineTexts(*totals));
    }
    table.push_back({"Career", ""});
    Append(table.back(), LineTexts(*all));
    page += PartHeading(++part, title) + NamesTable(table, LastRow::Sum);
  }
  return page + PlaysRule(book);
}

}  // namespace dtb::book
