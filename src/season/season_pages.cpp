#include "season/season_pages.h"

#include <algorithm>
#include <numeric>
#include <system_error>

#include "base/file_names.h"
#include "base/paths.h"
#include "base/program_error.h"
#include "base/whole_file.h"
#include "base/words.h"
#include "record/box_html.h"
#include "record/drawing_svg.h"
#include "record/scorecard_drawing.h"
#include "season/page_folder.h"
#include "season/season_book.h"
#include "season/season_html.h"
#include "season/season_leaders.h"
#include "season/season_records.h"
#include "season/season_scores.h"
#include "season/season_standings.h"
#include "season/season_words.h"
#include "season/standings_drawing.h"
#include "sheet/report_files.h"

namespace dtb {
namespace {

using Cells = std::vector<std::vector<std::string>>;

constexpr const char* kUp = "../";
constexpr int kInnings = 20;
constexpr int kUsualInnings = 9;

void Append(std::vector<std::string>& row, std::vector<std::string> more) {
  row.insert(row.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

// Counters alone, without the games and the rates.
std::vector<std::string> Counters(std::vector<std::string> texts) {
  constexpr std::size_t kRates = 2;
  texts.erase(texts.begin());
  texts.resize(texts.size() - kRates);
  return texts;
}

constexpr const char* kSeasonFolder = "Season ";  // and the day

const char* NameOf(SeasonRole role) { return role == SeasonRole::Batting ? "Batting" : "Pitching"; }

class PageWriter {
 public:
  PageWriter(Database& database, const SeasonBook& book, const TeamGroups& groups,
             std::vector<SeasonPage> more)
      : book_(book),
        more_(std::move(more)),
        season_(book.season),
        groups_(StandingsByGroup(season_, groups)),
        months_(MonthMarks(season_)),
        records_(database, season_) {}

  // Writes a page after the other. False: the person has enough of it.
  bool WriteAll(const PageFolder& folder, const ExportProgress& progress) {
    const std::size_t all = pages();
    std::size_t written = 0;
    const auto write = [&](const std::string& name, const std::string& page) {
      folder.Write(name, page);
      constexpr double kReadShare = 0.05;
      ++written;
      return progress(kReadShare + (1 - kReadShare) * double(written) / double(all));
    };
    folder.Write("style.css", PageStyle());
    if (!write("index.html", WholePage("Season", "", FirstPage()))) return false;
    for (const SeasonPage& page : more_) {
      if (!write(page.file, WholePage(page.title, "", page.body))) return false;
    }
    for (std::size_t i = 0; i < months_.size(); ++i) {
      if (!write(MonthFile(i), WholePage("Games of " + months_[i].month, "", MonthPage(i)))) {
        return false;
      }
    }
    for (int i = 0; i < Size(season_.teams); ++i) {
      if (!write(TeamFile(i), WholePage(season_.teams[i].name, kUp, TeamPage(i)))) return false;
    }
    for (int i = 0; i < Size(season_.players); ++i) {
      if (!write(PlayerFile(i), WholePage(season_.players[i].name, kUp, PlayerPage(i)))) {
        return false;
      }
    }
    for (int i = 0; i < Size(season_.games); ++i) {
      const std::string title = ScoreText(season_, season_.games[i]);
      if (!write(GameFile(i), WholePage(title, kUp, GamePage(i)))) return false;
    }
    return true;
  }

  [[nodiscard]] std::size_t pages() const {
    return 1 + more_.size() + months_.size() + season_.teams.size() + season_.players.size() +
           season_.games.size();
  }

 private:
  template <class Entries>
  static int Size(const Entries& entries) {
    return static_cast<int>(entries.size());
  }

  [[nodiscard]] std::string MonthFile(std::size_t month) const {
    return PageFileName("games " + months_[month].month, month + 1);
  }
  [[nodiscard]] std::string TeamFile(int team) const {
    return "teams/" + PageFileName(season_.teams[team].name, static_cast<std::size_t>(team) + 1);
  }
  [[nodiscard]] std::string PlayerFile(int player) const {
    return "players/" +
           PageFileName(season_.players[player].name, static_cast<std::size_t>(player) + 1);
  }
  [[nodiscard]] std::string GameFile(int game) const {
    return "games/" + PageFileName(season_.games[game].id, static_cast<std::size_t>(game) + 1);
  }
  [[nodiscard]] std::string TeamLink(int team, const char* root = kUp) const {
    return PageLink(root + TeamFile(team), season_.teams[team].name);
  }
  [[nodiscard]] std::string PlayerLink(int player, const char* root = kUp) const {
    return PageLink(root + PlayerFile(player), season_.players[player].name);
  }
  [[nodiscard]] std::string DayLink(int game, const char* root = kUp) const {
    return PageLink(root + GameFile(game), DayText(season_.games[game].time));
  }

  [[nodiscard]] std::string FirstPage() const {
    std::string page = PageContents({"Standings", "Leaders", "Games"}) +
                       PageParagraph(ScoresText(CountScores(season_)));
    if (!more_.empty()) {
      page += "<nav>" + PageLink(more_.front().file, more_.front().title) + "</nav>\n";
    }
    page += PartHeading(1, "Standings");
    if (season_.mixedGames > 0) {
      page += PageParagraph(
          "With one GameID and a team in common, "
          "so that their players are not told apart: " +
          std::to_string(season_.mixedGames) + " games.");
    }
    page += StandingsPart() + PartHeading(2, "Leaders") + PageParagraph(kAverageRule) +
            "<div class=\"boards\">\n";
    for (const SeasonLead lead : kSeasonLeads) {
      page += PageBoard(LeadTitle(lead), LeaderTable(lead));
    }
    page += "</div>\n" + PartHeading(3, "Games") + "<ul>\n";
    for (std::size_t month = 0; month < months_.size(); ++month) {
      page += "<li>" + PageLink(MonthFile(month), months_[month].month) + "</li>\n";
    }
    return page + "</ul>\n";
  }

  // A picture and a table for each group of teams.
  [[nodiscard]] std::string StandingsPart() const {
    const StandingsDrawings drawings(season_, groups_);
    std::string part = drawings.Shared();
    for (const GroupStandings& group : groups_) {
      if (!group.name.empty()) part += PageHeading("h3", group.name);
      part += drawings.OfGroup(group.standings) + StandingsTable(group.standings);
    }
    return part;
  }

  [[nodiscard]] std::string StandingsTable(const std::vector<Standing>& standings) const {
    Cells table = StandingsLines(season_, standings);
    std::vector<std::string> records;
    for (const Standing& standing : standings) {
      const SeasonTeam& team = season_.teams[standing.team];
      records.push_back(RecordText(team));
    }
    const std::vector<int> places = PlacesOf(records);
    for (std::size_t place = 0; place < table.size(); ++place) {
      table[place].front() = Placed(
          places[place], LineSample(static_cast<int>(place)) + TeamLink(standings[place].team, ""));
    }
    table.insert(table.begin(), StandingsHeader());
    return PageTable(table);
  }

  [[nodiscard]] std::string LeaderTable(SeasonLead lead) const {
    Cells table{{"Name", "Team", ""}};
    const LeaderList list = Leaders(season_, lead, true);
    const std::vector<SeasonLeader>& leaders = list.first;
    std::vector<std::string> values;
    values.reserve(leaders.size());
    for (const SeasonLeader& leader : leaders) values.push_back(leader.text);
    const std::vector<int> places = PlacesOf(values);
    for (std::size_t i = 0; i < leaders.size(); ++i) {
      const SeasonLeader& leader = leaders[i];
      table.push_back({Placed(places[i], PlayerLink(leader.player, "")),
                       TeamLink(season_.players[leader.player].team, ""), leader.text});
    }
    if (list.alsoLast > 0) table.push_back({PageText(MoreText(list)), "", ""});
    return PageTable(table);
  }

  [[nodiscard]] std::string MonthPage(std::size_t month) const {
    const int end = month + 1 < months_.size() ? months_[month + 1].game : Size(season_.games);
    Cells table{{"Day", "Visitors", "", "Home team", ""}};
    for (int game = months_[month].game; game < end; ++game) {
      const auto& [visitors, home] = season_.games[game].sides;
      table.push_back({DayLink(game, ""), TeamLink(visitors.team, ""), RunsText(visitors),
                       TeamLink(home.team, ""), RunsText(home)});
    }
    return "<nav><a href=\"index.html\">The season</a></nav>\n" + PageTable(table);
  }

  [[nodiscard]] std::string RunsText(const SeasonSide& side) const {
    constexpr int kRunsColumn = 22;
    return PageText(book_.lineScores.Text(side.line, kRunsColumn));
  }

  [[nodiscard]] std::string TeamPage(int place) const {
    const SeasonTeam& team = season_.teams[place];
    std::string page = PageContents({"Batting", "Pitching", "Games"}) +
                       PageParagraph(RecordText(team) + ", " + AboveText(team.above()) + ".");
    for (const SeasonRole role : kSeasonRoles) {
      SeasonTotals total = NoTotals(role);
      Cells table{{"Name"}};
      Append(table.front(), LineHeaders(role));
      for (int player = 0; player < Size(season_.players); ++player) {
        const auto& outings = OutingsOf(player, role);
        if (season_.players[player].team != place || outings.empty()) continue;
        table.push_back({PlayerLink(player)});
        Append(table.back(), LineTexts(outings.back().total));
        total += outings.back().total;
      }
      // A team plays no more games than it has played, however many players played in each.
      SetGames(total, double(team.games.size()));
      table.push_back({"Team"});
      Append(table.back(), LineTexts(total));
      page += PartHeading(role == SeasonRole::Batting ? 1 : 2, NameOf(role)) +
              PageTable(table, LastRow::Sum);
    }
    Cells table{{"Day", "Opponent", "", "Score", "Record"}};
    const std::vector<CoursePoint> course = CourseOf(season_, place);
    int wins = 0;
    int losses = 0;
    int ties = 0;
    for (std::size_t point = 1; point < course.size(); ++point) {
      const int game = course[point].game - 1;
      const auto& sides = season_.games[game].sides;
      const std::size_t own = sides[0].team == place ? 0 : 1;
      const int change = course[point].above - course[point - 1].above;
      ++(change > 0 ? wins : change < 0 ? losses : ties);
      table.push_back({DayLink(game), (own == 0 ? "at " : "") + TeamLink(sides.at(1 - own).team),
                       change > 0   ? "won"
                       : change < 0 ? "lost"
                                    : "tie",
                       RunsText(sides.at(own)) + "-" + RunsText(sides.at(1 - own)),
                       RecordText(wins, losses, ties)});
    }
    return page + PartHeading(3, "Games") + PageTable(table);
  }

  [[nodiscard]] const std::vector<SeasonOuting>& OutingsOf(int player, SeasonRole role) const {
    return book_.outings[player].at(static_cast<std::size_t>(role));
  }

  [[nodiscard]] std::string PlayerPage(int place) const {
    const SeasonPlayer& player = season_.players[place];
    std::string page = "<p>" + TeamLink(player.team) + "</p>\n";
    std::vector<std::string> parts;
    for (const SeasonRole role : kSeasonRoles) {
      if (!OutingsOf(place, role).empty()) parts.emplace_back(NameOf(role));
    }
    page += PageContents(parts);
    std::size_t part = 0;
    for (const SeasonRole role : kSeasonRoles) {
      const auto& outings = OutingsOf(place, role);
      if (outings.empty()) continue;
      Cells games{{"Day", "Opponent"}};
      Append(games.front(), Counters(LineHeaders(role)));
      games.front().emplace_back(role == SeasonRole::Batting ? "AVG so far" : "ERA so far");
      for (const SeasonOuting& outing : outings) {
        games.push_back(OutingCells(player.team, outing));
        Append(games.back(), Counters(LineTexts(outing.line)));
        games.back().push_back(RateText(outing.total));
      }
      page += PartHeading(++part, NameOf(role)) + Splits(place, role) + PageTable(games);
    }
    return page;
  }

  [[nodiscard]] std::string Splits(int place, SeasonRole role) const {
    const SeasonPlayer& player = season_.players[place];
    const SeasonSubject subject{player.team, player.name, false, role};
    std::string page;
    for (const SeasonSplit split :
         {SeasonSplit::Months, SeasonSplit::Places, SeasonSplit::Opponents}) {
      const auto lines = SplitOutings(season_, subject, OutingsOf(place, role), split);
      page += PageTable(PlainCells(SplitTable(subject, split, lines)), LastRow::Sum);
    }
    const auto& duels = book_.duels[place].at(static_cast<std::size_t>(role));
    if (duels.empty()) return page;
    return page + PageTable(PlainCells(SplitTable(subject, SeasonSplit::Duels, duels)));
  }

  [[nodiscard]] std::vector<std::string> OutingCells(int team, const SeasonOuting& outing) const {
    if (outing.game < 0) return {PageText(DayText(outing.time)), "-"};
    const auto& sides = season_.games[outing.game].sides;
    const std::size_t own = sides[0].team == team ? 0 : 1;
    return {DayLink(outing.game), (own == 0 ? "at " : "") + TeamLink(sides.at(1 - own).team)};
  }

  std::string GamePage(int place) {
    const SeasonGame& game = season_.games[place];
    std::vector<std::string> names;
    for (const SeasonSide& side : game.sides) names.push_back(season_.teams[side.team].name);
    const GameRecord* record = records_.Next(place);
    const bool told = record != nullptr && !record->plays.empty();
    if (told) names.insert(names.end(), {"Box score", "Play by play", "Scorecard"});
    std::string page =
        PageContents(names) + PageParagraph(DayAndTimeText(game.time)) + LineScore(game);
    for (std::size_t side = 0; side < game.sides.size(); ++side) {
      page += PartHeading(side + 1, names[side]);
      for (const SeasonRole role : kSeasonRoles) {
        SeasonTotals total = NoTotals(role);
        Cells table{{NameOf(role)}};
        Append(table.front(), Counters(LineHeaders(role)));
        for (const BookEntry& entry :
             book_.games[place].at(side).at(static_cast<std::size_t>(role))) {
          table.push_back({PlayerLink(entry.player)});
          Append(table.back(), Counters(LineTexts(entry.line)));
          total += entry.line;
        }
        table.push_back({"Team"});
        Append(table.back(), Counters(LineTexts(total)));
        page += PageTable(table, LastRow::Sum);
      }
    }
    if (!told) return page;
    const BoxScore box = BoxScoreOf(*record, records_.toDate());
    Story story = StoryOf(*record);
    story.scoring.clear();  // they stand in the box score
    return page + PartHeading(3, "Box score") + PageParagraph(box.when) +
           BoxHtml(box, BoxColumns::One) + PartHeading(4, "Play by play") + StoryHtml(story) +
           PartHeading(5, "Scorecard") + CardOf(*record);
  }

  // Both sides, one below the other.
  static std::string CardOf(const GameRecord& record) {
    std::vector<Drawing> pages;
    for (const Side side : {Side::Visitors, Side::Home}) {
      std::ranges::move(DrawScorecard(ScorecardOf(record, side), kA4Landscape),
                        std::back_inserter(pages));
    }
    return SvgOfPage(pages, Dress::Paper);
  }

  [[nodiscard]] std::string LineScore(const SeasonGame& game) const {
    const StatGrid& lines = book_.lineScores;
    int innings = kInnings;
    while (innings > kUsualInnings && lines.Text(game.sides[0].line, innings + 1).empty() &&
           lines.Text(game.sides[1].line, innings + 1).empty()) {
      --innings;
    }
    std::vector<int> columns(static_cast<std::size_t>(innings));
    std::iota(columns.begin(), columns.end(), 2);
    columns.insert(columns.end(), {kInnings + 2, kInnings + 3, kInnings + 4});
    Cells table{{"Team"}};
    for (int inning = 1; inning <= innings; ++inning) {
      table.front().push_back(std::to_string(inning));
    }
    Append(table.front(), {"R", "H", "E"});
    for (const SeasonSide& side : game.sides) {
      table.push_back({TeamLink(side.team)});
      for (const int column : columns) {
        table.back().push_back(PageText(lines.Text(side.line, column)));
      }
    }
    return PageTable(table);
  }

  const SeasonBook& book_;
  std::vector<SeasonPage> more_;
  const SeasonFigures& season_;
  std::vector<GroupStandings> groups_;
  std::vector<MonthMark> months_;
  SeasonRecords records_;
};

std::string FolderName(const LocalTime& today) { return kSeasonFolder + DateText(today); }

// The folder; nothing where the person cancelled or there is no game.
std::optional<std::filesystem::path> Write(Platform& platform, const ExportProgress& progress,
                                           const MorePages& more, std::string& contents,
                                           const std::string& title) {
  if (!progress(0)) return std::nullopt;
  const SeasonBook book = ReadSeasonBook(platform.database);
  if (book.season.games.empty()) {
    platform.boxes.Show(
        "No game is saved yet, so there is nothing to write. "
        "When a game is over, open STATS on the board and press SAVE TO DB.",
        BoxIcon::Information, title);
    return std::nullopt;
  }
  std::filesystem::path place =
      FreeFile(ReportsFolder(platform), FolderName(platform.clock.Now()), "");
  PageFolder folder(place, kSeasonFolder, {"teams", "players", "games"});
  PageWriter writer(platform.database, book, GroupsOfSeason(platform),
                    more ? more(book.season) : std::vector<SeasonPage>());
  if (!writer.WriteAll(folder, progress)) return std::nullopt;
  folder.PutInPlace();
  contents = Counted(std::ssize(book.season.games), "game") + ", " +
             Counted(static_cast<long long>(writer.pages()), "page");
  return place;
}

}  // namespace

void WriteSeasonPages(Platform& platform, const std::string& title, const ExportProgress& progress,
                      const MorePages& more) {
  try {
    std::string contents;
    const auto folder = Write(
        platform, progress ? progress : [](double /*share*/) { return true; }, more, contents,
        title);
    if (!folder) return;
    OfferPages(platform, "The season pages are written: " + contents + ".", *folder, title);
  } catch (const ProgramError& failure) {
    platform.boxes.Show("No season pages were written. " + std::string(failure.what()),
                        BoxIcon::Exclamation, title);
  }
}

}  // namespace dtb
