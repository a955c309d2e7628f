// Old databases of the Jet format: taken over whole, or told and left.
#include "database/old_database.h"

#include <algorithm>
#include <random>

#include "copies_test.h"
#include "jet_maker.h"
#include "platform/jet/jet_rows.h"
#include "platform/sqlite/jet/jet_database.h"

namespace dtb {
namespace {

namespace fs = std::filesystem;

const fs::path kJetFiles = DTB_JET_FILES;

// All rows in stored order, with the kind of each value, so that 1 is not "1".
Strings RowsIn(const fs::path& database) {
  Strings rows;
  SQLite::Database plain(database.string(), SQLite::OPEN_READONLY);
  for (const TableColumns& table : SavedTables()) {
    SQLite::Statement all(plain, "SELECT * FROM " + table.table + " ORDER BY rowid");
    while (all.executeStep()) {
      std::string row = table.table;
      for (int i = 0; i < all.getColumnCount(); ++i) {
        const auto value = all.getColumn(i);
        row += value.isNull() ? "|-" : value.isText() ? "|'" : "|";
        row += value.getString();
      }
      rows.push_back(row);
    }
  }
  return rows;
}

// A table with a column of each name, all Null, after `rows` have had their way with it.
JetTable Plain(const TableColumns& table, JetColumn::Type numbers, int rows) {
  JetTable made{table.table, {}, {}};
  for (const std::string& column : table.columns) {
    const bool letters = column == "Team" || column == "GameID" || column == "Batter" ||
                         column == "Pitcher" || column == "Host" || column == "Matchup";
    made.columns.push_back({column, letters ? JetColumn::Text : numbers});
  }
  made.rows.assign(static_cast<std::size_t>(rows), JetRow(made.columns.size()));
  return made;
}

class OldDatabaseTest : public CopiesTest {
 protected:
  void PutOld(const std::string& bytes) const { std::ofstream(file, std::ios::binary) << bytes; }
  Strings Names() const {
    Strings names;
    for (const auto& entry : fs::directory_iterator(folder)) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }
  // All five tables, with `special` in place of its own.
  static JetMaker MakerWith(const JetTable& special, bool ofOneByte = false, int codePage = 0) {
    JetMaker maker(ofOneByte, codePage);
    for (const TableColumns& table : SavedTables()) {
      maker.Add(table.table == special.name ? special : Plain(table, JetColumn::Long, 1));
    }
    return maker;
  }

  JetDatabase old{file};
  Platform ports = PlatformOf(desk, database, workbooks, folder, &copies, &old);
  Browser browser{state, ports};
};

TEST_F(OldDatabaseTest, AllOfItIsTakenOver) {
  std::ofstream(folder / "DTB (Jet).mdb") << "of another year";
  for (const auto& [name, aside] : {std::pair{"jet4.mdb", "DTB (Jet) (2).mdb"},
                                    std::pair{"jet4-2003.mdb", "DTB (Jet) (3).mdb"}}) {
    const std::string bytes = ReadAll(kJetFiles / name);
    PutOld(bytes);
    desk.answer = "Take it over";
    desk.told.clear();
    OpenBrowser(browser);
    ASSERT_EQ(desk.told.size(), 2U) << testing::PrintToString(desk.told);
    EXPECT_NE(
        desk.told[0].find("an old one, in the Jet format.\n\nIt holds 3 games, in rows: batting "
                          "42, pitching 20, line scores 6, wins and losses 6, matchups 3."),
        std::string::npos)
        << desk.told[0];
    EXPECT_EQ(RowsIn(file), RowsIn(kJetFiles / "two.mdb"));
    EXPECT_EQ(ReadAll(folder / aside), bytes);
    EXPECT_EQ(state.MSHFlexGrid1.grid.rows(), 7) << "and shown";
  }
}

TEST_F(OldDatabaseTest, ASaveGoesOnBehindIt) {
  const std::string bytes = ReadAll(kJetFiles / "jet4.mdb");
  PutOld(bytes);
  Table table(ports, "Ants", "Bees");
  SaveGame(table.board);
  EXPECT_TRUE(table.sheet.Command2_enabled.value());
  EXPECT_EQ(ReadAll(file), bytes) << "left";
  EXPECT_EQ(Names(), Strings{"DTB.mdb"});
  desk.answer = "Take it over";
  SaveGame(table.board);
  EXPECT_EQ(desk.told.back(), "Data successfully recorded");
  EXPECT_EQ(Count("Matchups"), "4");
  EXPECT_EQ(ReadAll(folder / "DTB (Jet).mdb"), bytes);
}

// Columns in any order and of any numeric type, rows that were deleted or have moved, and Null
// beside an empty text.
TEST_F(OldDatabaseTest, ColumnsOfAllKinds) {
  using Column = JetColumn;
  for (const bool ofOneByte : {false, true}) {
    JetMaker maker(ofOneByte);
    const auto letters = [&](const char* text) { return JetCell(maker.Letters(text)); };
    const JetCell null;
    JetTable pitching{"PITCHING",
                      {{"gameid", Column::Double},
                       {"IP", Column::Float},
                       {"Extra", Column::Date},
                       {"Runs", Column::Byte},
                       {"Pitcher", Column::Text},
                       {"K", Column::Money},
                       {"BB", Column::Text},
                       {"HR", Column::Short},
                       {"Hits", Column::Numeric},
                       {"Team", Column::Text}},
                      {},
                      {1},
                      {2}};
    pitching.rows.push_back({100000000000.0, 0.33, 1.0, 200.0, letters("Al"), 2.5, letters("7"),
                             -3.0, 12.0, letters("")});
    pitching.rows.push_back(pitching.rows[0]);
    pitching.rows.push_back({null, 6.66, null, null, letters("Bo"), -1.0, null, null, null, null});
    for (const TableColumns& table : SavedTables()) {
      maker.Add(table.table == "Pitching" ? pitching : Plain(table, Column::Long, 0));
    }
    PutOld(maker.Bytes());
    ASSERT_NO_THROW(old.TakeOver("old.mdb"));
    EXPECT_EQ(RowsIn(file), (Strings{"Pitching|'Al|2.5|7|12|-3|200|0.33|'|'100000000000",
                                     "Pitching|'Bo|-1|-|-|-|-|6.66|-|-"}));
  }
}

TEST_F(OldDatabaseTest, LettersOfTheirCodePage) {
  struct Case {
    bool ofOneByte;
    int codePage;
    std::string bytes;
    const char* letters;
  };
  using namespace std::string_literals;
  const Case cases[] = {
      {true, 0, "\xC9quipe \x96 \x8Ei\x9Eka", "Équipe – Žižka"},
      {true, 1252, "Jos\xE9", "José"},
      {true, 1250, "\xA3\xF3\x64\x9F", "Łódź"},
      {true, 1251, "\xCA\xEE\xF1\xF2\xFF", "Костя"},
      {true, 932, "\x83\x43\x83\x60\x83\x8D\x81\x5B", "イチロー"},
      {false, 1252, "\x41\x01\xF3\0d\0z\x01"s, "Łódź"},
      {false, 1252, "\x3D\xD8\x4D\xDC"s, "👍"},
      {false, 1252, "\xFF\xFE"s + "Al\0\x41\x01\0\xE9"s, "AlŁé"},
  };
  for (const Case& one : cases) {
    JetTable matchups = Plain({"Matchups", {"Matchup", "Tally"}}, JetColumn::Long, 1);
    matchups.rows[0][0] = one.bytes;
    PutOld(MakerWith(matchups, one.ofOneByte, one.codePage).Bytes());
    ASSERT_NO_THROW(old.TakeOver("old.mdb")) << one.letters;
    EXPECT_EQ(RowsIn(file).back(), std::string("Matchups|'") + one.letters + "|-");
  }
}

// What cannot be taken over is told by its reason, and nothing has changed.
TEST_F(OldDatabaseTest, ToldAndLeft) {
  const std::string whole = ReadAll(kJetFiles / "jet4.mdb");
  std::string encrypted = whole;
  encrypted[0x3F] ^= '\x15';
  const auto with = [](const JetTable& table) { return MakerWith(table).Bytes(); };
  JetTable text = Plain({"WinLoss", {"Team", "Win", "Loss"}}, JetColumn::Text, 1);
  text.rows[0] = {{}, std::string("x\0", 2), {}};
  JetTable fewer = Plain({"WinLoss", {"Team", "Win", "Loss"}}, JetColumn::Long, 2);
  fewer.rowsMore = 3;
  JetTable half = Plain({"WinLoss", {"Team", "Win", "Loss"}}, JetColumn::Long, 1);
  half.rows[0][0] = std::string("\xD8", 1);
  const std::pair<std::string, const char*> cases[] = {
      {whole.substr(0, 50000), "the file is cut off or damaged."},
      {whole.substr(0, 40960), "it is no statistics database, or cut off."},
      {whole.substr(0, 28), "is cut off or damaged."},
      {whole.substr(0, 20) + std::string(200000, 'x'), "damaged."},
      {encrypted, "it is encrypted or damaged."},
      {JetMaker(false).Bytes(), "it has no table \"Batting\""},
      {with(Plain({"WinLoss", {"Team", "Win"}}, JetColumn::Long, 1)), "has no column \"Loss\""},
      {with(Plain({"WinLoss", {"Team", "Win", "Loss"}}, JetColumn::Date, 0)), ""},
      {with(text), "row 1, a number belongs where a text stands"},
      {with(fewer), "has 5 rows, of which 2 can be found"},
      {with(half), "the column \"Team\" has text that cannot be decoded."},
  };
  for (const auto& [bytes, reason] : cases) {
    PutOld(bytes);
    desk.told.clear();
    desk.answer = *reason == '\0' ? "Leave it" : "Take it over";
    OpenBrowser(browser);
    std::string told;
    for (const std::string& box : desk.told) told += box + '\n';
    EXPECT_NE(told.find(reason), std::string::npos) << reason << told;
    EXPECT_NE(told.find("Jet format"), std::string::npos) << told;
    EXPECT_EQ(ReadAll(file), bytes) << reason;
    EXPECT_EQ(Names(), Strings{"DTB.mdb"}) << reason;
  }
  JetTable dates = Plain({"WinLoss", {"Team", "Win", "Loss"}}, JetColumn::Date, 1);
  dates.rows[0][1] = 2.0;
  PutOld(with(dates));
  EXPECT_THROW(old.Contents(), ProgramError);
  // Room for another one, if the person wants it: by its own name.
  desk.answer = "Make an empty";
  OpenBrowser(browser);
  EXPECT_EQ(Names(), (Strings{"DTB (Jet).mdb", "DTB.mdb"}));
  EXPECT_NE(desk.told.back().find("The old file is kept beside it as \"DTB (Jet).mdb\""),
            std::string::npos);
}

TEST_F(OldDatabaseTest, AReaderThatSaysNothingIsEnded) {
  EXPECT_THROW(jet::ReadRows(kJetFiles / "jet4.mdb", {}, 0), ProgramError);
}

// Files spoiled at random: each is taken over whole or refused, and the file is there either way.
// So many as DTB_SPOILS says, by the seed DTB_SEED.
TEST_F(OldDatabaseTest, SpoiledFiles) {
  const auto number = [](const char* name, unsigned usual) {
    const char* given = std::getenv(name);
    return given == nullptr ? usual : static_cast<unsigned>(std::stoul(given));
  };
  const unsigned seed = number("DTB_SEED", 1);
  const unsigned spoils = number("DTB_SPOILS", 30);
  std::minstd_rand random(seed);
  const std::string wholes[] = {
      ReadAll(kJetFiles / "jet4.mdb"),
      MakerWith(Plain(SavedTables()[0], JetColumn::Short, 30), true).Bytes()};
  unsigned taken = 0;
  for (unsigned i = 0; i < spoils; ++i) {
    std::string bytes = wholes[random() % 2];
    for (auto left = 1 + random() % 40; left > 0; --left) {
      const std::size_t page = random() % (bytes.size() / 2048) * 2048;
      bytes[page + random() % (random() % 2 == 0 ? 64 : 2048)] = static_cast<char>(random());
    }
    if (random() % 8 == 0) bytes.resize(20 + random() % bytes.size());
    bytes.replace(0, 20, wholes[0], 0, 20);
    if (random() % 2 == 0) bytes[0x14] = static_cast<char>(random() % 4);
    PutOld(bytes);
    try {
      const OldContents contents = old.Contents();
      const fs::path aside = folder / old.TakeOver("old.mdb");
      EXPECT_EQ(ReadAll(aside), bytes) << "seed " << seed << ", file " << i;
      EXPECT_EQ(Count("Batting"), std::to_string(contents.rows[0]));
      fs::remove(aside);
      ++taken;
    } catch (const ProgramError& refused) {
      EXPECT_EQ(ReadAll(file), bytes) << "seed " << seed << ", file " << i << refused.what();
    }
    ASSERT_EQ(Names(), Strings{"DTB.mdb"}) << "seed " << seed << ", file " << i;
  }
  EXPECT_TRUE(taken < spoils || spoils < 30) << "spoiling does nothing";
}

}  // namespace
}  // namespace dtb
