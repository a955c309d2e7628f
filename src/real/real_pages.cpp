#include "real/real_pages.h"

#include <algorithm>

#include "base/html_text.h"
#include "base/paths.h"
#include "base/program_error.h"
#include "base/text_cell.h"
#include "database/archive_games.h"
#include "real/use.h"
#include "season/season_html.h"

namespace dtb::real {
namespace {

using Cells = std::vector<std::vector<std::string>>;

constexpr const char* kFirstFile = "real.html";
constexpr const char* kTitle = "Real and replayed";

// A picture in its own units, for wide or narrow pages.
struct Sheet {
  const char* name;
  double wide;
  double high;
};
constexpr Sheet kWideSheet{"wide", 900, 300};
constexpr Sheet kNarrowSheet{"narrow", 340, 240};
constexpr double kLeft = 32;
constexpr double kRight = 10;
constexpr double kTop = 10;
constexpr double kFoot = 24;
constexpr int kMostMarks = 7;

std::string Units(double value) { return FixedDecimals(value, 1); }

class CourseDrawing {
 public:
  CourseDrawing(const BothCourses& courses, const Sheet& sheet) : courses_(courses), sheet_(sheet) {
    for (const auto* course : {&courses.replayed, &courses.really}) {
      const auto [least, most] = std::ranges::minmax(*course);
      lowest_ = std::min(lowest_, least);
      highest_ = std::max(highest_, most);
    }
    games_ = static_cast<int>(std::max(courses.replayed.size(), courses.really.size())) - 1;
  }

  [[nodiscard]] std::string text(const std::string& label) const {
    std::string svg = std::string("<svg class=\"") + sheet_.name + "\" viewBox=\"0 0 " +
                      DecimalText(sheet_.wide) + " " + DecimalText(sheet_.high) +
                      "\" role=\"img\" aria-label=\"" + PageText(label) + "\">\n";
    for (const double mark : AxisMarks(lowest_, highest_, kMostMarks, 1)) {
      svg += "<line class=\"grid\" x1=\"" + Units(kLeft) + "\" x2=\"" +
             Units(sheet_.wide - kRight) + "\" y1=\"" + Units(Up(mark)) + "\" y2=\"" +
             Units(Up(mark)) + "\"/>" + TextAt(kLeft - 6, Up(mark) + 4, "end", DecimalText(mark));
    }
    for (const double mark : AxisMarks(0, games_, kMostMarks, 1)) {
      svg += TextAt(Across(mark), sheet_.high - 6, "middle", DecimalText(mark));
    }
    return svg + "\n" + Line(courses_.really, "c6") + Line(courses_.replayed, "c1") + "</svg>\n";
  }

 private:
  static std::string TextAt(double x, double y, const char* anchor, const std::string& text) {
    return "<text x=\"" + Units(x) + "\" y=\"" + Units(y) + "\" text-anchor=\"" + anchor + "\">" +
           text + "</text>";
  }
  [[nodiscard]] double Across(double game) const {
    return kLeft + (sheet_.wide - kLeft - kRight) * game / std::max(1, games_);
  }
  [[nodiscard]] double Up(double above) const {
    const double bottom = sheet_.high - kFoot;
    return bottom - (bottom - kTop) * (above - lowest_) / std::max(1, highest_ - lowest_);
  }
  [[nodiscard]] std::string Line(const std::vector<int>& course, const char* colour) const {
    std::string line = std::string("<polyline class=\"line ") + colour + "\" points=\"";
    for (std::size_t game = 0; game < course.size(); ++game) {
      line += Units(Across(double(game))) + "," + Units(Up(course[game])) + " ";
    }
    return line + "\"/>\n";
  }

  const BothCourses& courses_;
  const Sheet& sheet_;
  int lowest_ = 0;
  int highest_ = 0;
  int games_ = 0;
};

class RealWriter {
 public:
  RealWriter(const BothWorlds& worlds, const StartsOfPitchers& starts, const ArchiveIds& ids)
      : worlds_(worlds), ids_(ids), players_(PlayersOfBoth(worlds, {}, starts)) {}

  [[nodiscard]] std::vector<SeasonPage> pages() const {
    BothStandings both = StandingsOfBoth(worlds_, {});
    if (both.rows.empty()) return {};
    AddPlayers(both, players_);
    std::vector<SeasonPage> pages{{kFirstFile, kTitle, FirstPage(both)}};
    for (const BothStanding& row : both.rows) {
      pages.push_back({TeamFile(row.team), worlds_.replayed->teams[row.team].name + ", " + kTitle,
                       TeamPage(row.team)});
    }
    return pages;
  }

 private:
  static std::string Home() { return "<nav><a href=\"index.html\">The season</a></nav>\n"; }

  [[nodiscard]] std::string TeamFile(int team) const {
    return PageFileName("real " + worlds_.replayed->teams[team].name,
                        static_cast<std::size_t>(team) + 1);
  }

  [[nodiscard]] std::string StandingsPart(const BothStandings& both, const Moment& moment) const {
    Cells table = PlainCells(BothTable(both));
    for (std::size_t row = 0; row < both.rows.size(); ++row) {
      const int team = both.rows[row].team;
      table[row + 1].front() = PageLink(TeamFile(team), worlds_.replayed->teams[team].name);
    }
    return PageParagraph(BothNote(worlds_, both, moment)) + PageTable(table);
  }

  [[nodiscard]] std::string FirstPage(const BothStandings& both) const {
    const Moment date{Moment::By::Date, std::nullopt};
    std::string page =
        Home() + PageContents({"Same number of games", "Same date", "Leaders"}) +
        PartHeading(1, "Same number of games") + StandingsPart(both, {}) +
        PartHeading(2, "Same date") + StandingsPart(StandingsOfBoth(worlds_, date), date) +
        PartHeading(3, "Leaders") + PageParagraph(kAverageRule) + "<div class=\"boards\">\n";
    for (const SeasonLead lead : kSeasonLeads) {
      const Untold untold = UntoldOf(worlds_, {}, lead);
      const std::string title = LeadTitle(lead);
      page += PageBoard(title + ", replayed", LeaderTable(both.replayed, lead));
      if (untold.games < untold.of) {
        page += PageBoard(title + ", really", LeaderTable(both.really, lead));
      }
      page += PageParagraph(UntoldText(untold));
    }
    return page + "</div>\n";
  }

  [[nodiscard]] static std::string LeaderTable(const SeasonFigures& season, SeasonLead lead) {
    Cells table{{"Name", "Team", ""}};
    for (const SeasonLeader& leader : Leaders(season, lead, true).first) {
      const SeasonPlayer& player = season.players[leader.player];
      table.push_back(
          {PageText(player.name), PageText(season.teams[player.team].name), leader.text});
    }
    return PageTable(table);
  }

  [[nodiscard]] std::string TeamPage(int team) const {
    const std::string headline = HeadlineOf(worlds_, team);
    std::string page =
        "<nav><a href=\"index.html\">The season</a>" + PageLink(kFirstFile, kTitle) + "</nav>\n" +
        PageContents({"Games above .500", "Games", "Batters", "Pitchers"}) +
        PageParagraph(headline + ".") + PartHeading(1, "Games above .500") +
        PageParagraph("Blue: replayed. Grey or cream: really, to the end of the year.");
    const BothCourses courses = CoursesOf(worlds_, team);
    for (const Sheet& sheet : {kWideSheet, kNarrowSheet}) {
      page += CourseDrawing(courses, sheet).text(headline);
    }
    page += PartHeading(2, "Games") +
            PageTable(PlainCells(GamesTable(GamesOfTeam(worlds_, ids_, team))));
    const TeamUse use = UseOfTeam(worlds_, players_, team);
    page += PartHeading(3, "Batters") +
            PageParagraph(
                "Plate appearances, that is at-bats and walks: replayed, in the whole real "
                "year, and really by then. " +
                use.note) +
            PageTable(PlainCells(UseTexts(use.batters, SeasonRole::Batting))) +
            PartHeading(4, "Pitchers") +
            PageTable(PlainCells(UseTexts(use.pitchers, SeasonRole::Pitching)));
    return page;
  }

  const BothWorlds& worlds_;
  const ArchiveIds& ids_;
  std::vector<BothPlayer> players_;
};

}  // namespace

std::vector<SeasonPage> RealPages(const BothWorlds& worlds, const StartsOfPitchers& starts,
                                  const ArchiveIds& ids) {
  return RealWriter(worlds, starts, ids).pages();
}

void WritePagesWithReal(Platform& platform, archive::KeptSeason& kept, const std::string& title,
                        const ExportProgress& progress) {
  const auto more = [&](const SeasonFigures& season) -> std::vector<SeasonPage> {
    const std::filesystem::path archive = archive::TiedArchive(platform);
    if (archive.empty()) return {};
    try {
      const auto goOn = [&](double /*share*/) { return progress(0); };
      if (!kept.season && !archive::KeepSeason(kept, archive, platform, goOn)) return {};
    } catch (const ProgramError& failure) {
      platform.boxes.Show("The pages are written without the real season, since its archive \"" +
                              TextOf(archive) + "\" cannot be read. " + failure.what() +
                              " Choose it again in the tab \"Season\" under \"Real and replayed\".",
                          BoxIcon::Exclamation, title);
      return {};
    }
    // The season outlives the pages.
    const std::shared_ptr<const SeasonFigures> replayed(std::shared_ptr<void>(), &season);
    const BothWorlds worlds = PairWorlds(replayed, kept.season, archive::KeptForm(platform).names);
    return RealPages(worlds, ReadStarts(platform.database),
                     ArchiveIdsOfGames(platform.database, NotedArchiveGames(platform)));
  };
  WriteSeasonPages(platform, title, progress, more);
}

}  // namespace dtb::real
