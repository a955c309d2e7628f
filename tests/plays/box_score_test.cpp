// The box score of real games.
#include "archive/season_reader.h"
#include "platform/zip/zip_archives.h"
#include "plays/played_game.h"
#include "record/box_text.h"

namespace dtb::plays {
namespace {

BoxScore BoxOf(GameRecord record) {
  record.over = true;  // once saved, also one of seven innings
  SeasonToDate season;
  season.Add(record);
  return BoxScoreOf(record, season);
}

constexpr int kBoth = -1;

std::string SumOf(const GameScript& script, int side, const char* kind, const char* what) {
  double sum = 0;
  for (const auto& [figure, value] : script.board) {
    if (side != kBoth && figure.side != side) continue;
    if (figure.kind == kind && figure.what == what) sum += value;
  }
  return DecimalText(sum);
}

// What a note counts over both teams: "Judge 2, Voit" is 3.
std::string CountOf(const BoxScore& box, const std::string& what) {
  const auto note = std::ranges::find(box.notes, what, &BoxNote::what);
  std::istringstream counts(note == box.notes.end() ? "" : note->text);
  int sum = 0;
  for (std::string count; std::getline(counts, count, ',');) {
    const std::size_t digits = count.find_last_not_of("0123456789") + 1;
    sum += digits == count.size() ? 1 : std::stoi(count.substr(digits));
  }
  return std::to_string(sum);
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
    for (const auto& [note, kind, what] : {std::tuple{"LOB", "BATTING", "LOB"},
                                           {"Team LOB", "LEFT", ""},
                                           {"GIDP", "BATTING", "DP"}}) {
      EXPECT_EQ(CountOf(box, note), SumOf(script, kBoth, kind, what)) << note;
    }
  }
}

}  // namespace
}  // namespace dtb::plays
