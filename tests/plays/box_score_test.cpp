// The box score of real games.
#include "archive/season_reader.h"
#include "platform/zip/zip_archives.h"
#include "plays/played_game.h"
#include "record/box_text.h"

namespace dtb::plays {
namespace {

BoxScore BoxOf(const GameRecord& record) {
  SeasonToDate season;
  season.Add(record);
  return BoxScoreOf(record, season);
}

std::string SumOf(const GameScript& script, int side, const char* kind, const char* what) {
  double sum = 0;
  for (const auto& [figure, value] : script.board) {
    if (figure.side == side && figure.kind == kind && figure.what == what) sum += value;
  }
  return DecimalText(sum);
}

// No line is wider than the page, and the sums are those of a second model.
TEST(BoxText, OfRealGamesFitsThePageAndTheFigures) {
  const auto archive = ZipArchives().OpenArchive(DTB_PART_ARCHIVE, Always);
  const archive::Season season = *archive::ReadSeason(*archive, Always);
  int games = 0;
  for (const GameEvents& events : ReadGames(*archive)) {
    constexpr int kEachSixth = 6;  // the others differ in nothing that a box score shows
    if (games++ % kEachSixth != 0) continue;
    const GameScript script = MakeScript(season, events, Earned::ByOuts);
    SCOPED_TRACE(script.id);
    PlayedGame game(script);
    const BoxScore box = BoxOf(RecordOf(game.board));
    EXPECT_EQ(box.remark, "");
    std::istringstream lines(BoxText(box));
    for (std::string line; std::getline(lines, line);) {
      EXPECT_LE(std::ranges::count_if(line, [](char c) { return (c & 0xC0) != 0x80; }), 65) << line;
    }
    for (int side = 0; side < 2; ++side) {
      const auto& [batting, pitching, substitutes] = box.sides.at(side);
      for (const auto& [column, what] :
           {std::pair{0, "AB"}, {1, "R"}, {3, "RBI"}, {4, "BB"}, {5, "K"}}) {
        EXPECT_EQ(batting.totals.at(column), SumOf(script, side, "BATTING", what)) << what;
      }
      double earned = 0;
      for (const BoxRow& row : pitching.rows) earned += NumberOf(row.cells.at(3));
      EXPECT_EQ(DecimalText(earned), SumOf(script, side, "PITCHING", "ER"));
    }
  }
}

}  // namespace
}  // namespace dtb::plays
