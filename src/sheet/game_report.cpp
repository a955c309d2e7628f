#include "sheet/game_report.h"

#include "base/file_names.h"
#include "base/html_text.h"
#include "base/paths.h"
#include "base/program_error.h"
#include "base/text_parts.h"
#include "base/time_stamp.h"
#include "base/utf8.h"
#include "base/whole_file.h"
#include "game/history.h"
#include "game/innings.h"
#include "platform/trapped.h"
#include "record/box_html.h"
#include "sheet/cell_edit.h"
#include "sheet/report_files.h"

namespace dtb {
namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kBetweenTables = "<td>&nbsp;</td>";

// The page as it grows, line by line.
class ReportPage {
 public:
  void Line(std::string_view line) { text_.append(line).append(kLineEnd); }
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  std::string text_;
};

void BeginTable(ReportPage& page, int width) {
  page.Line("<html><head></head><body><table border=1 cellspacing=0 bordercolor=#C0C0C0 width=" +
            std::to_string(width) + ">");
}

void EndTable(ReportPage& page) { page.Line("</table></body><html>"); }

void WriteCell(ReportPage& page, std::string_view text) {
  page.Line("<td><font color=#000000>" + HtmlText(text) + "</td>");
}

void WriteTeamTable(ReportPage& page, const StatGrid& grid) {
  constexpr int kWidth = 800;  // pixels
  BeginTable(page, kWidth);
  for (int row = 0; row < grid.rows(); ++row) {
    page.Line("<tr>");
    for (int column = 1; column < grid.columns(); ++column) WriteCell(page, grid.Text(row, column));
    page.Line("</tr>");
  }
  EndTable(page);
}

void WriteLineScore(ReportPage& page, const StatGrid& grid) {
  constexpr int kWidth = 400;
  constexpr int kVisitors = 1;
  BeginTable(page, kWidth);
  for (int row = 0; row < grid.rows(); ++row) {
    page.Line("<tr>");
    for (int column = 0; column < grid.columns(); ++column) {
      // What the visitors have not played falls out in all rows.
      if (!grid.Text(kVisitors, column).empty()) WriteCell(page, grid.Text(row, column));
    }
    page.Line("</tr>");
  }
  EndTable(page);
}

// The box score and the story; "" for a game without plays.
std::string NewspaperPart(Board& board, const SeasonBefore& before) {
  const GameRecord game = RecordOf(board);
  if (game.plays.empty()) return "";
  SeasonToDate season = before ? before(game) : SeasonToDate();
  season.Add(game);
  const BoxScore box = BoxScoreOf(game, season);
  Story story = StoryOf(game);
  story.scoring.clear();  // they stand in the box score
  return "<h2>" + HtmlText(box.headline) + "</h2>\n" + BoxHtml(box, BoxColumns::Two) +
         "<h2>Play by play</h2>\n" + StoryHtml(story);
}

void WritePage(const StatSheet& sheet, std::string_view title, const std::string& behind,
               const std::filesystem::path& file) {
  ReportPage page;
  page.Line(HtmlText(title));
  for (const StatGrid* grid : {&sheet.grd_VisStats, &sheet.grd_HomeStats}) {
    WriteTeamTable(page, *grid);
    page.Line(kBetweenTables);
  }
  WriteLineScore(page, sheet.grd_BoxScore);
  page.Line(HtmlLines(sheet.tb_Comments.value()));
  for (std::string_view rest = behind; !rest.empty();) page.Line(TakeUpTo(rest, '\n'));
  WriteWholeFile(file, page.text(), "report");
}

// The file that the person names; one that is not there yet only if he wants it made.
std::optional<std::filesystem::path> AskForFile(Board& board) {
  const StatSheet& sheet = board.sheet;
  const std::string name = SafeNamePart(sheet.lbl_VisTeam.value()) + "_at_" +
                           SafeNamePart(sheet.lbl_HomeTeam.value()) + "_" +
                           sheet.tb_TimeStamp.value();
  auto file = board.platform.dialogs.SaveFile(
      {ReportsFolder(board.platform), name, "Html Files (*.html)|*.html", "html"});
  std::error_code fault;
  if (!file || std::filesystem::exists(*file, fault)) return file;
  const bool make = board.platform.boxes.Ask(
      {TextOf(*file) + "\n\nThis file does not exist. Do you want to create it?", "HTML REPORT"});
  return make ? file : std::nullopt;
}

}  // namespace

void WriteGameReport(Board& board, const SeasonBefore& before) {
  Trapped(board.platform.boxes, [&] {
    const Gesture gesture(board, "HTML REPORT");
    StatSheet& sheet = board.sheet;
    if (sheet.grd_VisStats.rows() < 2 || TellFigureBeingTyped(board)) return;
    TakeBackReportedInnings(board);
    // The innings of a saved game are settled for good.
    if (sheet.Command2_enabled.value()) {
      for (const Side side : {Side::Visitors, Side::Home}) SettleForReport(board, side);
    }
    sheet.tb_TimeStamp.Set(ReadableStamp(board.platform.clock.NowText()));
    const auto file = AskForFile(board);
    if (!file) return;
    WritePage(sheet,
              sheet.lbl_VisTeam.value() + "_at_" + sheet.lbl_HomeTeam.value() + "_" +
                  sheet.tb_TimeStamp.value(),
              NewspaperPart(board, before), *file);
    board.platform.pages.Open(TextOf(*file));
    TellWhereItLies(board.platform, "The report is written.", *file, "HTML REPORT");
  });
}

std::string HtmlLines(std::string_view text) {
  std::string page;
  for (;;) {
    const std::size_t end = text.find_first_of("\r\n");
    page += HtmlText(text.substr(0, end)) + "<br>";
    if (end == std::string_view::npos) return page;
    text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
  }
}

}  // namespace dtb
