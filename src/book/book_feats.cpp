// No-hitters, cycles and streaks.
#include "base/text_cell.h"
#include "book/book_html.h"
#include "season/season_words.h"

namespace dtb::book {
namespace {

std::string TableOrNone(const Cells& table) {
  return table.size() > 1 ? NamesTable(table) : PageParagraph("None yet.");
}

std::vector<std::string> RowOf(const BookHtml& html, const Feat& feat) {
  std::vector<std::string> row{PageText(DayText(feat.day)), Below(html.PlayersOf(feat), feat.team),
                               PageText(feat.opponent)};
  for (const std::string& figure : feat.figures) row.push_back(PageText(figure));
  row.push_back(html.SeasonOf(feat.chapter));
  return row;
}

std::string NoHitters(const BookHtml& html) {
  Cells table{{"Day", "Pitcher", "Against", "IP", "BB", "K", "Score", "Season"}};
  for (const Chapter& chapter : html.book().chapters) {
    for (const Feat& feat : chapter.noHitters) {
      table.push_back(RowOf(html, feat));
    }
  }
  return PageParagraph(
             "Nine innings or more without a hit, in the rows of the pitchers and in the line "
             "score. Whether anyone reached base by an error or was hit by a pitch is not known.") +
         TableOrNone(table);
}

std::string Cycles(const BookHtml& html) {
  Cells table{{"Day", "Batter", "Against", "At bat", "Score", "Season"}};
  for (const Chapter& chapter : html.book().chapters) {
    for (const Feat& feat : chapter.cycles) {
      table.push_back(RowOf(html, feat));
    }
  }
  return PageParagraph(
             "A single, a double, a triple and a home run in one game, from the rows of the "
             "batters, which do not tell their order.") +
         TableOrNone(table);
}

std::string Streaks(const BookHtml& html, TopList<Feat> Chapter::*list, const char* who) {
  TopList<Feat> together;
  for (const Chapter& chapter : html.book().chapters) together.Add(chapter.*list);
  Cells table{{who, "Games", "From", "To", "Season"}};
  std::vector<std::string> games;
  const std::vector<Feat> first = together.first();
  games.reserve(first.size());
  for (const Feat& feat : first) games.push_back(DecimalText(feat.value));
  const std::vector<int> places = PlacesOf(games);
  for (std::size_t i = 0; i < first.size(); ++i) {
    const Feat& feat = first[i];
    std::string name = PageText(feat.team);
    if (!feat.lines.empty()) {
      name = Below(html.PlayersOf(feat), feat.team + ", " + feat.figures.front());
    }
    table.push_back({Placed(places[i], name), games[i], PageText(DayText(feat.day)),
                     PageText(DayText(feat.last)), html.SeasonOf(feat.chapter)});
  }
  if (together.alsoLast() > 0) {
    table.push_back({PageText(MoreText(together.alsoLast(), games.back())), "", "", "", ""});
  }
  return TableOrNone(table);
}

}  // namespace

std::string FeatsBody(const BookHtml& html) {
  return PageContents({"No-hitters", "Cycles", "Hitting streaks", "Winning streaks"}) +
         MixedRule(html.book()) + PartHeading(1, "No-hitters") + NoHitters(html) +
         PartHeading(2, "Cycles") + Cycles(html) + PartHeading(3, "Hitting streaks") +
         PageParagraph(
             "Games of one season in a row with a hit, in the order in which they were saved. A "
             "game "
             "without an at-bat neither ends a streak nor counts in it.") +
         Streaks(html, &Chapter::hitting, "Batter") + PartHeading(4, "Winning streaks") +
         PageParagraph(
             "Games of one season in a row that a team won. A tie neither ends a streak "
             "nor counts in it.") +
         Streaks(html, &Chapter::winning, "Team");
}

}  // namespace dtb::book
