// The first page of the book, and the leaders of each season.
#include <algorithm>

#include "base/words.h"
#include "book/book_html.h"
#include "book/book_leads.h"
#include "season/season_words.h"

namespace dtb::book {
namespace {

// How many teams share the first place.
std::size_t Champions(const std::vector<Placing>& standings) {
  const auto equal = [&standings](const Placing& one) {
    const Placing& first = standings.front();
    return one.wins == first.wins && one.losses == first.losses;
  };
  return static_cast<std::size_t>(std::ranges::find_if_not(standings, equal) - standings.begin());
}

std::string TeamsAt(const std::vector<Placing>& standings, std::size_t first, std::size_t count) {
  std::string teams;
  for (std::size_t i = first; i < first + count; ++i) {
    teams += (teams.empty() ? "" : "<br>") + PageText(standings[i].team);
  }
  return teams;
}

std::vector<std::string> RowOf(const Chapter& chapter, const PlacingGroup& group) {
  const std::vector<Placing>& standings = group.standings;
  const std::size_t champions = Champions(standings);
  const Placing& first = standings.front();
  const std::string season = PageText(chapter.name);
  std::vector<std::string> row{
      group.name.empty() ? season : Below(season, group.name),
      Below(TeamsAt(standings, 0, champions), RecordText(first.wins, first.losses, first.ties)),
      AverageText(first.share)};
  if (champions < standings.size()) {
    const Placing& second = standings[champions];
    row.push_back(
        Below(PageText(second.team), RecordText(second.wins, second.losses, second.ties)));
  } else {
    row.emplace_back("-");
  }
  row.push_back(std::to_string(chapter.games));
  row.push_back(DayText(chapter.first));
  row.push_back(DayText(chapter.last));
  return row;
}

std::string LeftOutPart(const Book& book) {
  if (book.empty.empty() && book.leftOut.empty()) return {};
  std::string part = PageHeading("h2", "Not in the book") + "<ul>\n";
  for (const std::string& name : book.empty) {
    part += "<li>" + PageText(name) + ": no game is saved yet.</li>\n";
  }
  // Why it is so tells where the file is, which is the person's own matter.
  for (const LeftOut& season : book.leftOut) {
    part += "<li>" + PageText(season.name) + ": left out, because it cannot be read whole.</li>\n";
  }
  return part + "</ul>\n";
}

std::vector<std::string> LeaderRow(const BookHtml& html, int chapter, const LeaderList& list) {
  std::string players;
  std::size_t tied = 0;
  while (tied < list.first.size() && list.first[tied].value == list.first.front().value) {
    players += (players.empty() ? "" : "<br>") + html.Player({chapter, list.first[tied].player});
    ++tied;
  }
  if (tied == list.first.size() && list.alsoLast > 0) players += "<br>" + PageText(MoreText(list));
  const std::string figure = list.first.empty() ? "-" : list.first.front().text;
  return {html.SeasonOf(chapter), players.empty() ? "-" : players, figure};
}

}  // namespace

std::string ChampionsBody(const BookHtml& html) {
  const Book& book = html.book();
  int games = 0;
  for (const Chapter& chapter : book.chapters) games += chapter.games;
  Cells table{{"Season", "Champion, W-L", "Pct", "Second", "Games", "First game", "Last game"}};
  for (const Chapter& chapter : book.chapters) {
    for (const PlacingGroup& group : chapter.groups) table.push_back(RowOf(chapter, group));
  }
  return PageParagraph(Counted(std::ssize(book.chapters), "season") + ", " +
                       Counted(games, "game") +
                       ". The seasons stand in the order of their first games; the champion is who "
                       "leads a season, or a league of it, once its last game is saved.") +
         NamesTable(table) + LeftOutPart(book);
}

std::string LeadersBody(const BookHtml& html) {
  const Book& book = html.book();
  std::string boards;
  for (const SeasonLead lead : kBookLeads) {
    Cells table{{"Season", "Name", ""}};
    for (std::size_t i = 0; i < book.chapters.size(); ++i) {
      const LeaderList list = LeadersAmong(Candidates(book.chapters[i]), lead, true);
      table.push_back(LeaderRow(html, static_cast<int>(i), list));
    }
    boards += Board(LeadTitle(lead), table);
  }
  return PageParagraph(kAverageRule) +
         PageParagraph(
             "A player of two teams has a line for each in a season, as in the season's own "
             "pages.") +
         PlaysRule(book) + Boards(boards);
}

}  // namespace dtb::book
