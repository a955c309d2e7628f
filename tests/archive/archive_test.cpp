// Archives that are not as they should be.
#include <minizip/zip.h>

#include <filesystem>
#include <set>

#include "archive/make_teams.h"
#include "archive/season_test.h"
#include "base/program_error.h"
#include "temporary_folder.h"

namespace dtb::archive {
namespace {

constexpr const char* kGame =
    "id,AAA202004010\ninfo,visteam,BBB\ninfo,hometeam,AAA\nstart,h1,\"Hal One\",1,1,2\n";

class Archives : public testing::Test {
 protected:
  ~Archives() override { std::filesystem::remove_all(folder_); }

  [[nodiscard]] std::string Zip(const std::vector<std::pair<std::string, std::string>>& files,
                                const char* password = nullptr) const {
    const std::string path = (folder_ / "made.zip").string();
    void* zip = zipOpen64(path.c_str(), APPEND_STATUS_CREATE);
    for (const auto& [name, text] : files) {
      zipOpenNewFileInZip3_64(zip, name.c_str(), nullptr, nullptr, 0, nullptr, 0, nullptr,
                              Z_DEFLATED, 9, 0, -MAX_WBITS, DEF_MEM_LEVEL, Z_DEFAULT_STRATEGY,
                              password, 0, 0);
      zipWriteInFileInZip(zip, text.data(), static_cast<unsigned>(text.size()));
      zipCloseFileInZip(zip);
    }
    zipClose(zip, nullptr);
    return path;
  }

  // What the person is told.
  static std::string Fault(const std::filesystem::path& path) {
    try {
      const std::unique_ptr<Archive> archive = ZipArchives().OpenArchive(path, Always);
      const Season season = ReadAll(*archive);
      return std::to_string(season.games.size()) + " games";
    } catch (const ProgramError& error) {
      return error.what();
    }
  }

  std::filesystem::path folder_ = MakeTemporaryFolder("archives");
};

std::string Bytes(const std::filesystem::path& from) {
  std::ifstream file(from, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void Put(const std::filesystem::path& file, const std::string& bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

TEST_F(Archives, BadOnesAreRefusedInPlainWords) {
  const auto has = [](const std::string& text, const char* part) {
    EXPECT_NE(text.find(part), std::string::npos) << text;
  };
  has(Fault(folder_ / "none.zip"), "does not exist");
#ifndef _WIN32
  has(Fault("/dev/null"), "neither a file nor a folder");
#endif
  has(Fault(folder_), "no game of a season");
  Put(folder_ / "text.zip", "no zip at all");
  has(Fault(folder_ / "text.zip"), "is not a zip file");
  has(Fault(Zip({{"readme.txt", "x"}})), "no game of a season");
  has(Fault(Zip({{"../2020OAK.EVA", "x"}})), "outside the archive and was left out");
  has(Fault(Zip({{"2020AAA.EVA", kGame}}, "secret")), "is encrypted");

  const std::string good = Bytes(DTB_SEASON_FILES "2020-part.zip");
  Put(folder_ / "half.zip", good.substr(0, good.size() / 2));
  has(Fault(folder_ / "half.zip"), "is not a zip file");
  std::string flipped = good;
  for (std::size_t i = 2000; i < 2010; ++i) flipped[i] = static_cast<char>(~flipped[i]);
  Put(folder_ / "flipped.zip", flipped);
  has(Fault(folder_ / "flipped.zip"), "is damaged inside the archive");

  // Another club's letter flipped in the checksum, the sizes, and the count of the directory.
  const std::string one = Bytes(Zip({{"2020AAA.EVA", kGame}, {"notes.txt", "x"}}));
  const std::size_t record = one.find("PK\x01\x02");
  const std::size_t end = one.find("PK\x05\x06");
  const auto with = [&](std::size_t place, const std::string& bytes) {
    std::string changed = one;
    changed.replace(place, bytes.size(), bytes);
    Put(folder_ / "changed.zip", changed);
    return Fault(folder_ / "changed.zip");
  };
  has(with(end, one.substr(end, 1)), "1 games");
  has(with(record + 16, "abcd"), "\"2020AAA.EVA\" is damaged inside the archive");
  has(with(record + 24, std::string("\x7F\0\0", 3)), "\"2020AAA.EVA\" is damaged");
  has(with(end + 8, std::string("\1\0\1\0", 4)), "does not have the files that it counts");
  // In both places where a file's method stands.
  std::string squeezed = one;
  squeezed[8] = squeezed[record + 10] = 12;
  Put(folder_ / "changed.zip", squeezed);
  has(Fault(folder_ / "changed.zip"), "\"2020AAA.EVA\" is packed by bzip2, which is not read here");
  has(Fault(Zip({{"2020eve.ZIP", one}})), "\"2020eve.ZIP\" is a zip inside the archive");
  has(Fault(Zip({{"2020AAA.EVA", one}})), "\"2020AAA.EVA\" is a zip under another name");

  // 40 MB of blanks in 40 KB, whatever the archive says of its size.
  has(Fault(Zip({{"2020AAA.EVA", std::string(40U << 20U, ' ')}})), "far larger than any file");
}

TEST_F(Archives, PathsThatLeaveTheArchiveAreLeftOut) {
  const std::string path = Zip({{"../2020BAD.EVA", kGame},
                                {"a/../../2020BAD.EVA", kGame},
                                {"/2020BAD.EVA", kGame},
                                {"sub\\folder/2020aaa.eva", kGame}});
  const std::unique_ptr<Archive> archive = ZipArchives().OpenArchive(path, Always);
  const Season season = ReadAll(*archive);
  EXPECT_EQ(season.games.size(), 1U);
  EXPECT_EQ(season.skipped.size(), 3U);
  EXPECT_EQ(season.faultCount, 0);
}

TEST_F(Archives, AFolderReadsAsTheZipDoes) {
  const std::unique_ptr<Archive> part = PartArchive();
  std::string bytes;
  for (std::size_t i = 0; i < part->files().size(); ++i) {
    part->Read(i, bytes, Always);
    Put(folder_ / part->files()[i].name, bytes);
  }
  ZipArchives archives;
  const std::string made = (folder_ / "made").string();
  for (const std::string& from :
       {std::string(DTB_SEASON_FILES "2020-part.zip"), folder_.string()}) {
    const bool zip = from.ends_with(".zip");
    const std::string table = (folder_ / (zip ? "zip.csv" : "folder.csv")).string();
    const CommandResult done =
        MakeTeams(archives, {.archive = from, .folder = made, .batting = table});
    EXPECT_EQ(done.exitCode, 0) << done.errors;
    EXPECT_NE(done.output.find("30 team files"), std::string::npos) << done.output;
  }
  const auto whole = [&](const char* name) {
    std::ifstream file(folder_ / name);
    return std::string{std::istreambuf_iterator<char>(file), {}};
  };
  EXPECT_EQ(whole("zip.csv"), whole("folder.csv"));
  EXPECT_NE(whole("zip.csv").find("\nsemim001,OAK,Marcus Semien,"), std::string::npos);

  // Another line-up never goes over a file that is there.
  const TeamsRequest game{.archive = folder_.string(), .folder = made, .game = "OAK202008070"};
  const CommandResult kept = MakeTeams(archives, game);
  EXPECT_EQ(kept.exitCode, 1);
  EXPECT_NE(kept.errors.find("It was kept"), std::string::npos) << kept.errors;
  TeamsRequest replace = game;
  replace.replace = true;
  EXPECT_EQ(MakeTeams(archives, replace).exitCode, 0);
  EXPECT_EQ(MakeTeams(archives, game).exitCode, 0);
  replace.game = "OAK190001010";
  EXPECT_EQ(MakeTeams(archives, replace).exitCode, 1);
  replace.game.clear();
  replace.form.pitchers = "{era} {avg}";
  const CommandResult refused = MakeTeams(archives, replace);
  EXPECT_NE(refused.errors.find("{avg}. The words are {pos}"), std::string::npos) << refused.errors;
}

TEST_F(Archives, NamesAreThoseOfPlayersAndClubsWhateverStandsInTheLines) {
  std::string many;
  for (int i = 0; i < 20'000; ++i) many += "m" + std::to_string(i) + ",Same,Sam,R,R,AAA,P\n";
  TextArchive archive(
      {{"TEAM2020", "AAA,A,Some City,Clubs\n=,A,No,Club\n"},
       {"AAA2020.ROS", "=,Equal,Ed,R,R,AAA,C\n\x01,Odd,Ed,R,R,AAA,C\n" + std::string("long1,") +
                           std::string(5000, 'x') + ",Ed,R,R,ZZZ,C\n" + many},
       {"ALS2020.ROS", "s1,Star,Stan,R,R,BBB,C\ns2,Star,Sid,R,R,CCC,C\n"},
       {"2020AAA.EVA", kGame}});
  const Season season = ReadAll(archive);
  std::string clubs;
  for (const Club& club : season.clubs) clubs += club.id + (club.listed ? "* " : " ");
  EXPECT_EQ(clubs, "AAA* ALS BBB ") << "a roster is that of its file's club";
  EXPECT_EQ(ClubNamed(season, "AAA").players.size(), season_limit::kPlayersOfClub);
  EXPECT_EQ(PlayerNamed(season, "AAA", "long1").last.size(), season_limit::kNameBytes);
  std::set<std::string> names;
  const TeamText team =
      MakeTeamText(season, 0, LineUpOfSeason(season, 0, SeasonNine::UsedMost), {});
  for (const std::string& name : NamesOf(team)) EXPECT_TRUE(names.insert(name).second) << name;
  // The All-Star roster makes no team.
  ZipArchives archives;
  const std::string zip = Zip({{"ALS2020.ROS", archive.texts[2]}, {"2020AAA.EVA", kGame}});
  EXPECT_NE(MakeTeams(archives, {.archive = zip, .folder = (folder_ / "made").string()})
                .output.find("1 team file in"),
            std::string::npos);
}

TEST_F(Archives, LinesThatMakeNoSenseAreCountedAndTheRestIsUsed) {
  TextArchive archive({{"AAA2020.ROS", "h1,,\nh1,One,Hal,X,R,AAA,C\nnonsense\n"},
                       {"TEAM2020", "AAA\n"},
                       {"2020AAA.EVA", "start,h0,\"Too Early\",1,1,2\n" + std::string(kGame) +
                                           "start,h2,\"H Two\",1,99,2\nplay,1,2,h1,,,S7\n"
                                           "play,1,1,h1,00,,QQ\nwhat is this\nplay,1,1,nobody,,,K\n"
                                           "play,1,1,h1,,,63.1-2\nid,bad\nplay,1,1,h1,,,HR\n" +
                                           kGame + "play,1,1,h1,,,HR\n"}});
  const Season season = ReadAll(archive);
  std::string told;
  for (const LineFault& fault : season.faults) {
    told += fault.file.substr(0, 4) + ':' + std::to_string(fault.line) + ' ';
  }
  EXPECT_EQ(
      told,
      "TEAM:1 AAA2:1 AAA2:3 2020:1 2020:6 2020:7 2020:8 2020:9 2020:10 2020:11 2020:12 2020:14 ");
  EXPECT_EQ(season.faultCount, static_cast<int>(season.faults.size()));
  ASSERT_EQ(season.games.size(), 1U);
  EXPECT_EQ(PlayerNamed(season, "AAA", "h1").batting.atBats, 1);
  EXPECT_EQ(FullName(PlayerNamed(season, "AAA", "h1")), "Hal One");
  EXPECT_EQ(PlayerNamed(season, "AAA", "h1").bats, "");
}

}  // namespace
}  // namespace dtb::archive
