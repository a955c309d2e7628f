// The records of a season, a game and a career.
#include "base/text_cell.h"
#include "book/book_html.h"
#include "book/book_leads.h"
#include "season/season_words.h"

namespace dtb::book {
namespace {

// A row of a list: who and when, in markup, and how much.
struct Row {
  std::string who;
  std::string when;
  std::string figure;
};

std::string ListOf(const char* title, const char* when, const std::vector<Row>& rows,
                   int alsoLast) {
  std::vector<std::string> figures;
  figures.reserve(rows.size());
  for (const Row& row : rows) figures.push_back(row.figure);
  const std::vector<int> places = PlacesOf(figures);
  Cells table{{"Name", when, ""}};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    table.push_back({Placed(places[i], rows[i].who), rows[i].when, PageText(rows[i].figure)});
  }
  if (alsoLast > 0) table.push_back({PageText(MoreText(alsoLast, figures.back())), "", ""});
  return Board(title, table);
}

std::string SeasonBoards(const BookHtml& html) {
  const Book& book = html.book();
  std::vector<LeadCandidate> candidates;
  std::vector<CareerLine> lines;
  TopList<Feat> wins;
  for (int chapter = 0; chapter < static_cast<int>(book.chapters.size()); ++chapter) {
    const Chapter& told = book.chapters[chapter];
    for (const SeasonLine& line : told.lines) {
      lines.push_back({chapter, static_cast<int>(&line - told.lines.data())});
      candidates.push_back(CandidateOf(line));
    }
    for (const PlacingGroup& group : told.groups) {
      for (const Placing& one : group.standings) {
        if (one.wins == 0) continue;
        wins.Add({.value = double(one.wins),
                  .chapter = chapter,
                  .team = one.team,
                  .figures = {RecordText(one.wins, one.losses, one.ties)}});
      }
    }
  }
  std::string boards;
  for (const SeasonLead lead : kBookLeads) {
    const LeaderList list = LeadersAmong(candidates, lead, true);
    std::vector<Row> rows;
    for (const SeasonLeader& leader : list.first) {
      const CareerLine& line = lines[leader.player];
      rows.push_back({html.Player(line), html.SeasonOf(line.chapter), leader.text});
    }
    boards += ListOf(LeadTitle(lead), "Season", rows, list.alsoLast);
  }
  std::vector<Row> rows;
  for (const Feat& feat : wins.first()) {
    rows.push_back({Below(PageText(feat.team), feat.figures.front()), html.SeasonOf(feat.chapter),
                    DecimalText(feat.value)});
  }
  return boards + ListOf("Wins of a team", "Season", rows, wins.alsoLast());
}

// The lists of all chapters as one.
template <class Of>
TopList<Feat> Together(const Book& book, Of of) {
  TopList<Feat> together;
  for (const Chapter& chapter : book.chapters) together.Add(of(chapter));
  return together;
}

std::string GameBoard(const BookHtml& html, const char* title, const TopList<Feat>& list,
                      std::string (*figure)(double)) {
  std::vector<Row> rows;
  for (const Feat& feat : list.first()) {
    const std::string who =
        feat.lines.empty() ? PageText(feat.team) : Below(html.PlayersOf(feat), feat.team);
    const std::string against = feat.opponent + ", " + html.book().chapters[feat.chapter].name;
    rows.push_back({who, Below(PageText(DayText(feat.day)), against), figure(feat.value)});
  }
  return ListOf(title, "Day, against", rows, list.alsoLast());
}

std::string GameBoards(const BookHtml& html) {
  const Book& book = html.book();
  std::string boards;
  for (std::size_t i = 0; i < kGameLeads.size(); ++i) {
    const SeasonLead lead = kGameLeads.at(i);
    boards += GameBoard(html, LeadTitle(lead),
                        Together(book, [i](const Chapter& one) { return one.bestGames.at(i); }),
                        lead == SeasonLead::Innings ? DecimalInnings : DecimalText);
  }
  return boards +
         GameBoard(html, "Runs of a team",
                   Together(book, [](const Chapter& one) { return one.teamRuns; }), DecimalText) +
         GameBoard(html, "Hits of a team",
                   Together(book, [](const Chapter& one) { return one.teamHits; }), DecimalText);
}

std::string CareerBoards(const BookHtml& html) {
  const Book& book = html.book();
  std::vector<LeadCandidate> candidates;
  candidates.reserve(book.careers.all.size());
  for (const Career& career : book.careers.all) candidates.push_back(CandidateOf(career));
  std::string boards;
  for (const SeasonLead lead : kBookLeads) {
    const LeaderList list = LeadersAmong(candidates, lead, true);
    std::vector<Row> rows;
    for (const SeasonLeader& leader : list.first) {
      rows.push_back({html.Player(leader.player, ""),
                      PageText(html.SeasonsOf(book.careers.all[leader.player])), leader.text});
    }
    boards += ListOf(LeadTitle(lead), "Seasons", rows, list.alsoLast);
  }
  return boards;
}

}  // namespace

std::string RecordsBody(const BookHtml& html) {
  return PageContents({"A season", "A game", "A career"}) + PageParagraph(kAverageRule) +
         PlaysRule(html.book()) + PartHeading(1, "A season") + Boards(SeasonBoards(html)) +
         PartHeading(2, "A game") + MixedRule(html.book()) + Boards(GameBoards(html)) +
         PartHeading(3, "A career") +
         PageParagraph(
             "All that a player did in the seasons of this book. For both averages the games of "
             "his "
             "teams are added up.") +
         Boards(CareerBoards(html));
}

}  // namespace dtb::book
