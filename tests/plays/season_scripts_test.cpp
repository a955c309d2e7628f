// The part archive as table scripts: what the board's model comes to is what the scorebook has, but
// for what the scripts tell that the board cannot know.
#include "plays/season_scripts.h"

#include <gtest/gtest.h>

#include "archive/season_reader.h"
#include "platform/zip/zip_archives.h"

namespace dtb::plays {

void PrintTo(const Figure& figure, std::ostream* out) {
  *out << figure.side << ' ' << figure.kind << ' ' << figure.who << ' ' << figure.what;
}

namespace {

// Less the figures that are nothing.
Figures Counted(Figures figures) {
  std::erase_if(figures, [](const auto& one) {
    return one.first.what == "ER by marks" || (one.second == 0 && one.first.kind != "LINE");
  });
  return figures;
}

class SeasonScripts : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    const auto archive = ZipArchives().OpenArchive(DTB_PART_ARCHIVE, Always);
    const archive::Season season = *archive::ReadSeason(*archive, Always);
    for (const GameEvents& game : ReadGames(*archive)) {
      scripts_.push_back(MakeScript(season, game, Earned::UnlessOnError));
    }
  }
  static void TearDownTestSuite() { scripts_.clear(); }

  static inline std::vector<GameScript> scripts_;
};

TEST_F(SeasonScripts, BoardComesToTheArchivesFigures) {
  ASSERT_EQ(scripts_.size(), 120U);
  for (const GameScript& script : scripts_) {
    Figures expected = script.archive;
    for (const Difference& one : script.differences) expected[one.figure] += one.delta;
    EXPECT_EQ(Counted(Replay(script).figures()), Counted(expected)) << script.id;
  }
}

}  // namespace
}  // namespace dtb::plays
