#include "base/file_names.h"
#include "core/fake_platform.h"
#include "export_test.h"
#include "sheet/game_report.h"
#include "sheet/game_workbook.h"
#include "sheet/report_files.h"

namespace dtb {
namespace {

// Nearly two innings; the visitors score in the first.
class GameExportTest : public ExportTest {
 protected:
  GameExportTest() {
    game.Play("1B RBI HR RBI GO FO LO bat:h0 2B BB K FO GO LO bat:v5 3B FO GO LO bat:h6 HR FO");
    ConstantUpdate(game.board);
  }

  Game game;
  Board board{game.state, game.sheet, game.log, ports};
};

std::string Address(int row, int column) {
  std::string letters(1, static_cast<char>('A' + column % 26));
  if (column >= 26) letters = static_cast<char>('A' + column / 26 - 1) + letters;
  return "Sheet1!" + letters + std::to_string(row);
}

TEST_F(GameExportTest, WholeSheetCellByCell) {
  game.sheet.grd_VisStats.SetText(49, stat_column::kBatter, "Lost");
  game.sheet.grd_VisStats.SetText(48, stat_column::kBatter, "007");
  game.sheet.grd_VisStats.SetText(1, stat_column::kInningsPitched, "3.00");
  game.sheet.grd_HomeStats.SetText(2, stat_column::kInningsPitched, "6.33");
  desk.yes = false;  // the folder stays closed
  ASSERT_TRUE(ExportGameToSpreadsheet(board));
  EXPECT_EQ(desk.opened, Strings{Report("Owls_at_Elks_111826104413.xlsx")});
  EXPECT_EQ(Reports(), Strings{"Owls_at_Elks_111826104413.xlsx"});
  ASSERT_EQ(desk.told.size(), 2U);
  EXPECT_NE(desk.told[0].find("visitors' last player"), std::string::npos);
  EXPECT_NE(
      desk.told[1].find("\"Owls_at_Elks_111826104413.xlsx\" in the folder \"" + folder.string()),
      std::string::npos);

  std::map<std::string, std::string> expected;
  const auto lay = [&expected](const StatGrid& grid, int anchorRow, int anchorColumn) {
    for (int row = 0; row < grid.rows(); ++row) {
      for (int column = 0; column < grid.columns(); ++column) {
        const std::string text(grid.Text(row, column));
        const std::string address = Address(anchorRow + row, anchorColumn + column);
        const bool counter = text.find_first_not_of("0123456789.") == std::string::npos;
        if (text.empty()) {
          expected.erase(address);
        } else if (row > 0 && counter && text != "007") {
          expected[address] = "n|" + DecimalText(std::stod(text));
        } else {
          expected[address] = "s|" + text;
        }
      }
    }
  };
  lay(game.sheet.grd_VisStats, 1, 0);
  lay(game.sheet.grd_HomeStats, 50, 0);
  lay(game.sheet.grd_BoxScore, 1, 19);
  const Book book(desk.opened.at(0));
  EXPECT_EQ(book.sheets, Strings{"Sheet1|11|A=2 B=15 C:K=4 L=15 M:R=4 S=2 T=7 U:AN=2 AO:AQ=3|"
                                 "visible front"});
  EXPECT_EQ(book.cells, expected);
  for (const auto& [address, cell] :
       std::map<std::string, std::string>{{"Sheet1!B2", "s|A"},
                                          {"Sheet1!B49", "s|007"},
                                          {"Sheet1!B50", "s|HOME_Player"},
                                          {"Sheet1!B51", "s|a"},
                                          {"Sheet1!S51", "n|1"},
                                          {"Sheet1!T2", "s|Owls"},
                                          {"Sheet1!U2", "n|2"},
                                          {"Sheet1!AQ1", "s|E"}}) {
    EXPECT_EQ(book.cells.at(address), cell) << address;
  }
  EXPECT_EQ(book.looks.at("Sheet1!R2"), "0.00");
  EXPECT_EQ(book.looks.at("Sheet1!U2"), "");
  EXPECT_TRUE(desk.clipboard.starts_with("\t1\t2\t3"));
  EXPECT_EQ(std::ranges::count(desk.clipboard, '\r'), 2);
  EXPECT_EQ(std::ranges::count(desk.clipboard, '\t'), 3 * 23);
}

TEST_F(GameExportTest, WithoutASpreadsheetProgramThePersonDecides) {
  desk.yes = false;
  desk.installed = false;
  desk.clipboard = "before";
  EXPECT_FALSE(ExportGameToSpreadsheet(board));
  ASSERT_EQ(desk.told.size(), 2U);
  EXPECT_NE(desk.told[0].find("Excel is not installed"), std::string::npos);
  EXPECT_EQ(Reports(), Strings{});
  EXPECT_FALSE(std::filesystem::exists(folder / "Game Rpts"));
  EXPECT_EQ(desk.clipboard, "before");
  desk.yes = true;
  EXPECT_FALSE(ExportGameToSpreadsheet(board)) << "no program has it";
  EXPECT_EQ(Reports().size(), 1U);
  EXPECT_EQ(desk.opened, Strings{(folder / "Game Rpts").string()});
}

TEST_F(GameExportTest, ReportAsABrowserReadsIt) {
  StatSheet& sheet = game.sheet;
  const std::string hard =
      "</table><script>'x'</script> & \"\xC3\xB1\xE6\x9D\xB1\xF0\x9F\x98\x80\" "
      "&lt; \xC2\x85\xFF";
  sheet.lbl_VisTeam.Set("St. <Owls>/\xC3\x89");
  sheet.grd_VisStats.SetText(1, stat_column::kBatter, hard);
  sheet.tb_Comments.Set("one\r\n\r\n<two>\n&three");
  desk.chosen = folder / "page.html";
  WriteGameReport(board);
  EXPECT_EQ(desk.proposed, "St. _Owls__\xC3\x89_at_Elks_11182026_104413_AM");
  EXPECT_EQ(desk.told.size(), 2U) << "asks whether to make the file, tells where it lies";
  EXPECT_EQ(desk.opened, (Strings{desk.chosen->string(), folder.string()}));

  WriteGameReport(board);  // the same again: what the first one wrote for the pitchers is no credit
  const std::string bytes = ReadAll(*desk.chosen);
  EXPECT_NE(bytes.find("\r\n<html><head></head><body><table border=1 cellspacing=0 "
                       "bordercolor=#C0C0C0 width=800>\r\n<tr>\r\n<td><font color=#000000>"
                       "VIS_Player</td>\r\n"),
            std::string::npos);
  EXPECT_NE(bytes.find("</table></body><html>\r\n<td>&nbsp;</td>\r\n"), std::string::npos)
      << "the tables stand apart";
  EXPECT_NE(bytes.find("</table></body><html>\r\none<br><br>&#60;two&#62;<br>&#38;three<br>\r\n"
                       "<h2>"),
            std::string::npos)
      << "the box score stands behind it";
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    EXPECT_LE(static_cast<unsigned char>(bytes[i]), 0x7E) << i;
    EXPECT_TRUE(bytes[i] != '\n' || bytes[i - 1] == '\r') << i;
  }
  const Strings page = Lines("read_report.py", desk.chosen->string());
  ASSERT_GT(page.size(), 1 + 51 + 51 + 4 + 1);
  EXPECT_EQ(page[0], "St. <Owls>/\xC3\x89_at_Elks_11182026_104413_AM");
  EXPECT_EQ(page[1], "VIS_Player|K|BB|1B|2B|3B|HR|SB|RBI|AB|VIS_Pitcher|K|BB|H|HR|ER|IP|");
  const std::string shown = hard.substr(0, hard.size() - 3) + "\xEF\xBF\xBD\xEF\xBF\xBD";
  EXPECT_EQ(page[2].substr(0, page[2].find('|')), shown);
  EXPECT_EQ(page[2].substr(page[2].size() - 7), "|1.67|1") << "the innings of the pitcher";
  EXPECT_EQ(page[50], "|||||||||||||||||");
  EXPECT_EQ(page[51] + page[102] + page[106], "------");
  EXPECT_EQ(page[53].front(), 'a');
  EXPECT_EQ(page[103], "|1|2|R|H|E");
  EXPECT_EQ(page[104], "Owls|2|0|2|3|0");
  EXPECT_TRUE(page[107].starts_with("one<br><br><two><br>&three<br>")) << page[107];
  const auto isSum = [](const std::string& row) { return row.starts_with("Totals|"); };
  EXPECT_EQ(*std::ranges::find_if(page, isSum), "Totals|9|-|3|2|0|0|") << "of the box score";
}

TEST_F(GameExportTest, ReportOfAnEmptyCommentAndRefusals) {
  desk.chosen = folder / "page.html";
  std::ofstream(*desk.chosen) << std::string(100000, 'x');
  WriteGameReport(board);
  EXPECT_EQ(desk.told.size(), 1U) << "the dialog has asked";
  EXPECT_NE(ReadAll(*desk.chosen).find("</table></body><html>\r\n<br>\r\n<h2>"), std::string::npos);
  desk.chosen = folder / "other.html";
  desk.yes = false;
  WriteGameReport(board);
  EXPECT_FALSE(std::filesystem::exists(*desk.chosen));
  desk.chosen = folder;
  WriteGameReport(board);
  ASSERT_EQ(desk.told.size(), 3U);
  EXPECT_NE(desk.told[2].find("could not be written"), std::string::npos);
  desk.chosen = std::nullopt;
  WriteGameReport(board);
  EXPECT_EQ(desk.told.size(), 3U);
  EXPECT_EQ(desk.opened.size(), 2U);
}

TEST(ExportNamesTest, EveryFileSystemTakesThem) {
  const std::string e = "\xC3\xA9";
  std::string many;
  while (many.size() < 200) many += e;
  for (const auto& [text, part] :
       std::map<std::string, std::string>{{"Ants 1960", "Ants 1960"},
                                          {"A<B>C:D\"E/F\\G|H?I*J", "A_B_C_D_E_F_G_H_I_J"},
                                          {"tab\tend\n", "tab_end_"},
                                          {"St. Louis. .", "St. Louis"},
                                          {"...", ""},
                                          {"con", "_con"},
                                          {"aux .1960", "_aux .1960"},
                                          {"LPT1.", "_LPT1"},
                                          {"com0", "_com0"},
                                          {"COM12", "COM12"},
                                          {"bad \xFF\xED\xA0\x80 bytes", "bad ____ bytes"},
                                          {many, many.substr(0, 80)},
                                          {"x" + many, "x" + many.substr(0, 78)}}) {
    EXPECT_EQ(SafeNamePart(text), part);
  }
  EXPECT_EQ(SafeNamePart(std::string_view(e).substr(0, 1)), "_") << "cut within a letter";
}

}  // namespace
}  // namespace dtb
