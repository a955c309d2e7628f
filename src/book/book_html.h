// What the pages of the book have in common: who is linked, and how lists read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "book/book.h"
#include "season/season_html.h"

namespace dtb::book {

using Cells = std::vector<std::vector<std::string>>;

class BookHtml {
 public:
  explicit BookHtml(const Book& book);

  // Careers of several seasons, which have a page each.
  [[nodiscard]] const std::vector<int>& paged() const { return paged_; }
  [[nodiscard]] std::string FileOf(int career) const;  // "players/al-adams-12.html"
  [[nodiscard]] std::string TitleOf(int career) const;

  // In markup, with a link to his page where he has one, and below it his team of that season, of
  // the career all. `root` leads to the folder of the first page.
  [[nodiscard]] std::string Player(const CareerLine& line) const;
  [[nodiscard]] std::string Player(int career, std::string_view root) const;
  // All players of a feat, one below the other, without their team.
  [[nodiscard]] std::string PlayersOf(const Feat& feat) const;
  [[nodiscard]] std::string SeasonOf(int chapter) const;

  // "1960", "1960 and 1962", "1960 to 1963 (4)".
  [[nodiscard]] std::string SeasonsOf(const Career& career) const;

  // A whole page beside the first one, with links to all others of its kind.
  [[nodiscard]] static std::string Page(std::string_view title, const std::string& body);

  [[nodiscard]] const Book& book() const { return book_; }

 private:
  [[nodiscard]] int CareerOf(const CareerLine& line) const;
  [[nodiscard]] std::string Linked(int career, const std::string& name,
                                   std::string_view root) const;

  const Book& book_;
  std::vector<int> paged_;
  std::vector<int> numbers_;  // of the pages, by career; 0: none
};

// A list with its heading, for a place among others.
[[nodiscard]] std::string Board(std::string_view title, const Cells& table);
// Boards side by side.
[[nodiscard]] std::string Boards(const std::string& boards);

// A table whose second column holds names.
[[nodiscard]] std::string NamesTable(const Cells& table, LastRow last = LastRow::Usual);

// Something that stands below, smaller; a plain text.
[[nodiscard]] std::string Below(const std::string& markup, std::string_view text);

// The pages themselves, as their bodies.
[[nodiscard]] std::string ChampionsBody(const BookHtml& html);
[[nodiscard]] std::string LeadersBody(const BookHtml& html);
[[nodiscard]] std::string RecordsBody(const BookHtml& html);
[[nodiscard]] std::string FeatsBody(const BookHtml& html);
// A line for each of these careers.
[[nodiscard]] std::string CareersBody(const BookHtml& html, const std::vector<int>& careers);
// How players of several seasons are known.
[[nodiscard]] std::string CareersRule(const BookHtml& html);
// One player, season by season.
[[nodiscard]] std::string CareerBody(const BookHtml& html, int career);

// What is not known of games without plays, as a paragraph; "" where all have them.
[[nodiscard]] std::string PlaysRule(const Book& book);
// The same of games whose players are not told apart.
[[nodiscard]] std::string MixedRule(const Book& book);

}  // namespace dtb::book
