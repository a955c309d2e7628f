#include "browser/grid_format.h"
#include "export_test.h"
#include "platform/xlsx/xlsx_workbooks.h"
#include "sheet/sheet_plan.h"

namespace dtb {
namespace {

// Two games, and what people write as names.
constexpr const char* kSeason = R"(
  INSERT INTO BoxScores (Team, I1, I2, I3, Runs, Hits, Errors, Host, GameID) VALUES
    ('=1+1', 1, NULL, 'x', 1, 4, 0, 'a_VIS', '041219600101'),
    ('007', 0, 2, 0, 2, 12, 1, 'b_HOME', '041219600101'),
    ('+1', 2, 0, 0, 2, 5, 0, 'a_VIS', '051319600101'),
    ('-1', 3, 0, 0, 3, 7, 2, 'b_HOME', '051319600101');
  INSERT INTO Batting (Batter, [1B], k, AB, Team, GameID) VALUES
    ('@x', 1, 2, 3, '007', '041219600101'), ('1e5', 4, NULL, 4, '+1', '051319600101'),
    ('12', 0, NULL, 2, '+1', '051319600101');
  INSERT INTO Pitching (Pitcher, k, BB, Hits, Runs, IP, Team, GameID) VALUES
    ('Ace', 7, 2, 3, 3, 9, '=1+1', '041219600101'), ('Bob', 2, 1, 4, 5, 6.33, '007', '041219600101');
  INSERT INTO WinLoss VALUES ('007', 1, NULL), ('-1', 1, NULL), ('=1+1', NULL, 1);
  INSERT INTO Matchups VALUES ('=1+1  vs  007', 1), ('+1  vs  -1', 1);)";

constexpr const char* kCells = " '' 1 6";

TEST_F(ExportTest, SixSheetsOfWhatTheGridsShow) {
  Execute(kSeason);
  OpenBrowser(browser);
  state.Text2.Set("+");
  RunQuery(browser, Query::Command3);
  desk.control = true;
  constexpr int kAtBats = 10;
  SortOnDoubleClick(browser, state.MSHFlexGrid2, kAtBats);
  EXPECT_EQ(ExportGrids(browser), folder / "Game Rpts" / "DTB_DataGrids_111826104413.xlsx");
  EXPECT_EQ(desk.told, Strings{});
  EXPECT_EQ(desk.clipboard, "\tMatchup\tGames\t\r\n\t+1  vs  -1\t1\t\r\n\t=1+1  vs  007\t1\t");
  const Book book(Report("DTB_DataGrids_111826104413.xlsx"), kCells);
  EXPECT_EQ(book.sheets, (Strings{"WinLossMatchups|11|C:D=4 F=22 G=6|visible front",
                                  "AggregatePitching|11|B=20 D:N=5 O:P=6|visible",
                                  "AggregateBatting|11|B=20 C=9 D:N=5|visible",
                                  "PitchingDataByGame|11|B=20 C:H=5 I=9 J=13 K=5|visible",
                                  "BattingDataByGame|11|B=20 C:K=4 M=13|visible",
                                  "LineScores|11|C:K=3 L:N=5 P=12|visible"}));
  for (const auto& [sheet, rows] : std::map<std::string, Strings>{
           {"WinLossMatchups",
            {"B s|Team, C s|W, D s|L, F s|Matchup, G s|Games",
             "B s|-1, C n|1, F s|+1  vs  -1, G n|1", "B s|007, C n|1, F s|=1+1  vs  007, G n|1",
             "B s|=1+1, D n|1", ""}},
           {"AggregatePitching",
            {"B s|Pitcher, C s|Team, D s|Ks, E s|BBs, F s|H, G s|HRs, H s|R, I s|TIP, J s|Ks/9, "
             "K s|BBs/9, L s|H/9, M s|HRs/9, N s|K/BB, O s|ERA, P s|WHIP",
             "B s|Ace, C s|=1+1, D n|7, E n|2, F n|3, H n|3, I n|9, J n|7, K n|2, L n|3, N n|3.5, "
             "O n|3, P n|0.56",
             "B s|Bob, C s|007, D n|2, E n|1, F n|4, H n|5, I n|6.33, J n|2.84, K n|1.42, L "
             "n|5.69, "
             "N n|2, O n|7.11, P n|0.79"}},
           {"AggregateBatting",
            {"B s|Batter, C s|Team, D s|TAB, E s|SI, F s|DB, G s|TR, H s|HRun, I s|BBs, J s|SO, "
             "K s|SBs, L s|RBIs, M s|BAvg, N s|SLG",
             "B s|12, C s|+1, D n|2, E n|0, M n|0, N n|0",
             "B s|1e5, C s|+1, D n|4, E n|4, M n|1, N n|1",
             "B s|@x, C s|007, D n|3, E n|1, J n|2, M n|0.333, N n|0.333"}},
           {"PitchingDataByGame",
            {"B s|Pitcher, C s|k, D s|BB, E s|Hits, F s|HR, G s|Runs, H s|IP, I s|Team, J s|GameID",
             "B s|Ace, C n|7, D n|2, E n|3, G n|3, H n|9, I s|=1+1, J s|041219600101"}},
           {"BattingDataByGame",
            {"B s|Batter, C s|k, D s|BB, E s|1B, F s|2B, G s|3B, H s|HR, I s|SB, J s|RBI, K s|AB, "
             "L s|Team, M s|GameID",
             "B s|12, E n|0, K n|2, L s|+1, M s|051319600101",
             "B s|1e5, E n|4, K n|4, L s|+1, M s|051319600101", ""}},
           {"LineScores",
            {"B s|Team, C s|I1, D s|I2, E s|I3, F s|I4, G s|I5, H s|I6, I s|I7, J s|I8, K s|I9, "
             "L s|Runs, M s|Hits, N s|Errors, O s|Host, P s|GameID",
             "B s|+1, C n|2, D n|0, E n|0, L n|2, M n|5, N n|0, O s|a_VIS, P s|051319600101",
             "B s|-1, C n|3, D n|0, E n|0, L n|3, M n|7, N n|2, O s|b_HOME, P s|051319600101",
             "B s|=1+1, C n|1, E s|x, L n|1, M n|4, N n|0, O s|a_VIS, P s|041219600101"}}}) {
    EXPECT_EQ(book.Rows(sheet, 1, static_cast<int>(rows.size())), rows) << sheet;
  }
  const std::string framed = "thin:99CCFF fill:FEFEFE";
  for (const auto& [address, look] :
       std::map<std::string, std::string>{{"AggregateBatting!M4", ".000 " + framed},
                                          {"AggregateBatting!M3", "0.000 " + framed},
                                          {"AggregatePitching!O3", "0.00 " + framed},
                                          {"AggregatePitching!P3", ".00 " + framed}}) {
    EXPECT_EQ(book.looks.at(address), look) << address;
  }
}

TEST_F(ExportTest, FormatEndsWhereItEnds) {
  OpenBrowser(browser);
  ASSERT_TRUE(ExportGrids(browser));
  const std::string book = Report("DTB_DataGrids_111826104413.xlsx");
  auto looks = Book(book, "AggregateBatting 1 1").looks;
  for (const char* rows : {"AggregateBatting 45 46", "AggregateBatting 2500 2501"}) {
    looks.merge(Book(book, rows).looks);
  }
  std::map<std::string, std::string> cells;
  for (const auto& [address, look] : looks) cells[address.substr(address.find('!') + 1)] = look;
  const std::string framed = "thin:99CCFF fill:FEFEFE";
  for (const auto& [columns, look] :
       std::map<std::string, std::string>{{"B1 R1 U1 AQ1", "bold " + framed},
                                          {"A1 S1 T1 A45 AQ45", framed},
                                          {"A46 AQ46 A2500 AQ2500", "hair:99CCFF"},
                                          {"AR1 AR45 A2501", ""}}) {
    std::istringstream words(columns);
    for (std::string cell; words >> cell;) EXPECT_EQ(cells[cell], look) << cell;
  }
  EXPECT_EQ(Book(book, kCells).Rows("LineScores", 1, 2).at(1), "");
}

// Cells "row:inning" with a figure; columns from L on.
TEST_F(ExportTest, EmptyExtraInningsFallOut) {
  const std::string rest = "Runs Hits Errors Host GameID";
  const std::string innings = "I10 I11 I12 I13 I14 I15 I16 I17 I18 I19 I20 ";
  for (const auto& [figures, columns] : std::vector<std::pair<std::string, std::string>>{
           {"", rest},
           {"2:9 12:9", rest},
           {"2:10", "I20 " + rest},
           {"2:10 3:10", "I19 I20 " + rest},
           {"2:10 3:10 2:20 3:20", "I19 I20 " + rest},
           {"3:11", "I20 " + rest},
           {"13:10 14:10 15:20", rest},
           {"2:10 3:10 4:10 5:10 6:10 7:10 8:10 9:10 10:10 11:10 12:10", innings + rest}}) {
    Execute(
        "DELETE FROM BoxScores; INSERT INTO BoxScores (I1) WITH RECURSIVE n(i) AS (SELECT 1 "
        "UNION ALL SELECT i + 1 FROM n WHERE i < 20) SELECT i FROM n");
    std::istringstream words(figures);
    for (int row = 0, inning = 0; words >> row && words.ignore() && words >> inning;) {
      Execute("UPDATE BoxScores SET I" + std::to_string(inning) +
              " = 0 WHERE rowid = " + std::to_string(row - 1));
    }
    RunQuery(browser, Query::Command4);
    const StatGrid& grid = state.MSHFlexGrid1.grid;
    const SheetPlan plan = GridSheets(state).back();
    std::string seen;
    for (std::size_t i = 11; i < plan.blocks[0].columns.size(); ++i) {
      seen += (i > 11 ? " " : "") + std::string(grid.Text(0, plan.blocks[0].columns[i]));
    }
    EXPECT_EQ(seen, columns) << figures;
    const auto& widths = plan.head.columnWidths;
    EXPECT_EQ(widths.back(), 12) << "GameID";
    EXPECT_EQ(widths.size(), plan.blocks[0].columns.size());
  }
}

TEST_F(ExportTest, HardTextsComeBack) {
  const std::string mark = "\xEF\xBF\xBD";
  std::vector<std::pair<std::string, std::string>> texts;
  for (const char* text : {"=1+1", "+1", "-x", "@SUM(A1)", "007", "1e5", "{=1}", "http://a.b",
                           " two  blanks ", "<&>\"'", "_x0041_", "_x005F_", "a_x0041", "#N/A",
                           "TRUE", "\xF0\x9F\x98\x80 \xE6\x9D\xB1"}) {
    texts.emplace_back(text, text);
  }
  texts.insert(texts.end(), {{"a\tb\nc\rd", "a\\x09b\\x0ac\\x0dd"},
                             {"\x01\x1F\x7F", "\\x01\\x1f\\x7f"},
                             {"\n ", "\\x0a "},
                             {std::string("a\0b", 3), "a" + mark + "b"},
                             {"bad\xFF\xC3", "bad" + mark + mark},
                             {"\xEF\xBF\xBE\xEF\xBF\xBF", mark + mark},
                             {"\xED\xA0\x80", mark + mark + mark}});
  const std::size_t shortened = texts.size();
  const auto repeat = [](int times, const std::string& text) {
    std::string all;
    while (times-- > 0) all += text;
    return all;
  };
  texts.insert(texts.end(), {{repeat(40000, "x"), repeat(32767, "x")},
                             {repeat(32768, "\x80"), repeat(32767, mark)},
                             {repeat(16384, "\xF0\x9F\x98\x80"), repeat(16383, "\xF0\x9F\x98\x80")},
                             {repeat(32766, "x") + "_x0041_", repeat(32766, "x")}});
  texts.emplace_back(repeat(32767, "\xC3\xA9"), repeat(32767, "\xC3\xA9"));
  StatGrid grid(static_cast<int>(texts.size()) + 1, 2);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    grid.SetText(static_cast<int>(i) + 1, 1, texts[i].first);
  }
  auto writer = workbooks.Begin(folder / "hard.xlsx");
  ASSERT_TRUE(WriteSheet(*writer, {{"Hard"}, {{grid, {1}}}}, [](double) { return true; }));
  EXPECT_EQ(writer->shortened(), 4U);
  ASSERT_TRUE(writer->Finish([] { return true; }));
  const Book book((folder / "hard.xlsx").string());
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::string cell = book.cells.at("Hard!A" + std::to_string(i + 2));
    EXPECT_TRUE(cell == "s|" + texts[i].second)
        << i << (i < shortened ? cell : std::to_string(cell.size()));
  }
}

TEST(ExportFigureTest, Table) {
  struct Row {
    const char* text;
    std::optional<double> number;
    const char* format = "";
  };
  for (const Row& row : std::vector<Row>{{"0", 0},
                                         {"12", 12},
                                         {"-3", -3},
                                         {".333", .333, ".000"},
                                         {"3.00", 3, "0.00"},
                                         {"-.50", -.5, ".00"},
                                         {"0.5", .5, "0.0"},
                                         {"180000.00", 180000, "0.00"},
                                         {"999999999999999", 999999999999999},
                                         {".123456789012345", .123456789012345, ".000000000000000"},
                                         {"", {}},
                                         {".", {}},
                                         {"-", {}},
                                         {"1.", {}},
                                         {"-0", {}},
                                         {"007", {}},
                                         {"00.5", {}},
                                         {"+1", {}},
                                         {"1e5", {}},
                                         {" 1", {}},
                                         {"1 ", {}},
                                         {"1,5", {}},
                                         {"1.2.3", {}},
                                         {"--1", {}},
                                         {"0x1", {}},
                                         {"inf", {}},
                                         {"nan", {}},
                                         {"1234567890123456", {}},
                                         {"041219600101", {}}}) {
    const auto figure = FigureOf(row.text);
    ASSERT_EQ(figure.has_value(), row.number.has_value()) << row.text;
    if (!figure) continue;
    EXPECT_EQ(figure->number, *row.number) << row.text;
    EXPECT_EQ(figure->Format(), row.format) << row.text;
  }
}

TEST_F(ExportTest, TablesGoWhole) {
  Execute(kSeason);
  OpenBrowser(browser);
  state.Text2.Set("nobody");
  RunQuery(browser, Query::Command3);
  for (int i = 0; i < 3; ++i) ExportTables(browser);  // within one second
  EXPECT_EQ(Reports(),
            (Strings{"DTB_MSAccess_111826104413 (2).xlsx", "DTB_MSAccess_111826104413 (3).xlsx",
                     "DTB_MSAccess_111826104413.xlsx"}));
  ASSERT_EQ(desk.told.size(), 3U);
  EXPECT_TRUE(desk.told[1].starts_with("MS Access database tables have been exported"));
  EXPECT_NE(desk.told[1].find("(2).xlsx"), std::string::npos) << desk.told[1];
  const Book book(Report("DTB_MSAccess_111826104413.xlsx"));
  EXPECT_EQ(book.sheets, (Strings{"Batting|usual||visible front", "Pitching|usual||visible",
                                  "BoxScores|usual||visible", "WinLoss|usual||visible",
                                  "Matchups|usual||visible"}));
  EXPECT_EQ(book.Rows("Batting", 1, 5),
            (Strings{"A s|Batter, B s|k, C s|BB, D s|1B, E s|2B, F s|3B, G s|HR, H s|SB, I s|RBI, "
                     "J s|AB, K s|Team, L s|GameID",
                     "A s|@x, B n|2, D n|1, J n|3, K s|007, L s|041219600101",
                     "A s|1e5, D n|4, J n|4, K s|+1, L s|051319600101",
                     "A s|12, D n|0, J n|2, K s|+1, L s|051319600101", ""}));
  EXPECT_EQ(book.Rows("Pitching", 3, 3).at(0),
            "A s|Bob, B n|2, C n|1, D n|4, F n|5, G n|6.33, H s|007, I s|041219600101");
  EXPECT_EQ(book.Rows("BoxScores", 2, 2).at(0),
            "A s|=1+1, B n|1, D s|x, V n|1, W n|4, X n|0, Y s|a_VIS, Z s|041219600101");
  EXPECT_EQ(book.Rows("WinLoss", 1, 2), (Strings{"A s|Team, B s|Win, C s|Loss", "A s|007, B n|1"}));
  EXPECT_EQ(book.Rows("Matchups", 1, 2),
            (Strings{"A s|Matchup, B s|Tally", "A s|=1+1  vs  007, B n|1"}));
  EXPECT_EQ(Book(Report("DTB_MSAccess_111826104413 (3).xlsx")).cells, book.cells);

  // The tables of the plays follow, those that have rows.
  Table table(ports, "007", "1e5");
  table.PlayThree();
  SaveGame(table.board);
  desk.time.second += 1;
  ExportTables(browser);
  const Book more(Report("DTB_MSAccess_111826104414.xlsx"), "Plays 1 2");
  EXPECT_EQ(Strings(more.sheets.begin() + 5, more.sheets.end()),
            (Strings{"Games|usual||visible", "Plays|usual||visible", "Runs|usual||visible"}));
  EXPECT_EQ(more.Rows("Plays", 2, 2).at(0),
            "A n|1, B n|1, C s|a_VIS, D n|0, E s|007, F s|Al, G s|1e5, H s|k, I s|1B, J n|1, "
            "K s|B-1 Al, L s|Al, O s|111826104413");
}

}  // namespace
}  // namespace dtb
