#include "book/book_html.h"

#include <array>

#include "base/words.h"

namespace dtb::book {
namespace {

struct BookPart {
  const char* file;
  const char* caption;
};
constexpr std::array kParts{BookPart{"index.html", "Champions"},
                            BookPart{"leaders.html", "Leaders"},
                            BookPart{"records.html", "Records"}, BookPart{"feats.html", "Feats"},
                            BookPart{"careers.html", "Careers"}};

}  // namespace

BookHtml::BookHtml(const Book& book) : book_(book), numbers_(book.careers.all.size()) {
  for (std::size_t career = 0; career < numbers_.size(); ++career) {
    if (book.careers.all[career].chapters.size() < 2) continue;
    paged_.push_back(static_cast<int>(career));
    numbers_[career] = static_cast<int>(paged_.size());
  }
}

std::string BookHtml::FileOf(int career) const {
  return "players/" +
         PageFileName(book_.careers.all[career].name, static_cast<std::size_t>(numbers_[career]));
}

std::string BookHtml::TitleOf(int career) const {
  const Career& told = book_.careers.all[career];
  return told.apart.empty() ? told.name : told.name + " (" + told.apart + ")";
}

int BookHtml::CareerOf(const CareerLine& line) const {
  return book_.careers.of[line.chapter][book_.LineOf(line).person];
}

std::string BookHtml::Linked(int career, const std::string& name, std::string_view root) const {
  return numbers_[career] == 0 ? PageText(name)
                               : PageLink(std::string(root) + FileOf(career), name);
}

std::string BookHtml::Player(const CareerLine& line) const {
  const SeasonLine& told = book_.LineOf(line);
  return Below(Linked(CareerOf(line), told.name, ""), told.team);
}

std::string BookHtml::Player(int career, std::string_view root) const {
  return Linked(career, TitleOf(career), root);
}

std::string BookHtml::PlayersOf(const Feat& feat) const {
  std::string players;
  for (const int line : feat.lines) {
    const CareerLine place{feat.chapter, line};
    players +=
        (players.empty() ? "" : "<br>") + Linked(CareerOf(place), book_.LineOf(place).name, "");
  }
  return players;
}

std::string BookHtml::SeasonOf(int chapter) const { return PageText(book_.chapters[chapter].name); }

std::string BookHtml::SeasonsOf(const Career& career) const {
  const auto& seasons = career.chapters;
  const std::string& first = book_.chapters[seasons.front()].name;
  const std::string& last = book_.chapters[seasons.back()].name;
  if (seasons.size() == 1) return first;
  if (seasons.size() == 2) return first + " and " + last;
  return first + " to " + last + " (" + std::to_string(seasons.size()) + ")";
}

std::string BookHtml::Page(std::string_view title, const std::string& body) {
  std::string links = "<nav class=\"contents\" aria-label=\"The book\">";
  for (const BookPart& part : kParts) links += PageLink(part.file, part.caption) + " ";
  return WholePage(title, "", links + "</nav>\n" + body);
}

std::string Board(std::string_view title, const Cells& table) {
  return PageBoard(title, table.size() > 1 ? PageTable(table) : PageParagraph("Nobody yet."));
}

std::string Boards(const std::string& boards) {
  return "<div class=\"boards\">\n" + boards + "</div>\n";
}

std::string NamesTable(const Cells& table, LastRow last) {
  return "<div class=\"names\">\n" + PageTable(table, last) + "</div>\n";
}

std::string Below(const std::string& markup, std::string_view text) {
  return markup + "<br><small>" + PageText(text) + "</small>";
}

std::string PlaysRule(const Book& book) {
  int games = 0;
  int told = 0;
  for (const Chapter& chapter : book.chapters) {
    games += chapter.games;
    told += chapter.gamesWithPlays;
  }
  if (told == games) return {};
  if (told == 0) {
    return PageParagraph(
        "Runs, double plays, runners left on base, wins, losses and saves of players are not "
        "known: "
        "no plays are saved.");
  }
  return PageParagraph(
      "Runs, double plays, runners left on base, wins, losses and saves of players are known of " +
      std::to_string(told) + " of " + Counted(games, "game") + ", those whose plays are saved.");
}

std::string MixedRule(const Book& book) {
  int mixed = 0;
  for (const Chapter& chapter : book.chapters) mixed += chapter.mixedGames;
  if (mixed == 0) return {};
  return PageParagraph(
      "Left out, because they share a GameID and a team with another one, so that "
      "their players are not told apart: " +
      Counted(mixed, "game") + ".");
}

}  // namespace dtb::book
