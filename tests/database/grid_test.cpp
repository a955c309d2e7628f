#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <set>

#include "base/stat_grid.h"
#include "database/rows.h"

namespace dtb {
namespace {

StatGrid GridOf(const std::vector<std::vector<std::string>>& columns) {
  GridContents contents;
  for (const auto& texts : columns) {
    contents.headers.emplace_back("Header");
    CellColumn& column = contents.columns.emplace_back();
    for (const std::string& text : texts) column.Append(text);
  }
  StatGrid grid(1, 1);
  grid.Replace(std::move(contents));
  return grid;
}

std::vector<std::string> Texts(const StatGrid& grid, int column) {
  std::vector<std::string> texts;
  for (int row = 1; row < grid.rows(); ++row) texts.emplace_back(grid.Text(row, column));
  return texts;
}

// Whatever is appended, written and rewritten, the column reads like a plain list of texts.
TEST(CellColumnTest, IsAListOfTexts) {
  EXPECT_TRUE(rc::check([] {
    CellColumn column;
    std::vector<std::string> plain;
    const int steps = *rc::gen::inRange(0, 600);
    for (int step = 0; step < steps; ++step) {
      const auto number = *rc::gen::inRange<std::int64_t>(-5, 700);
      const std::string text = number % 3 == 0 ? "" : std::to_string(number * number);
      switch (*rc::gen::inRange(0, 6)) {
        case 0:
          column.AppendNumber(number);
          plain.push_back(std::to_string(number));
          break;
        case 1:
          if (plain.empty()) break;
          column.Set(plain.size() / 2, text);
          plain[plain.size() / 2] = text;
          break;
        case 2:
          column.Fit();
          break;
        default:
          column.Append(text);
          plain.push_back(text);
      }
    }
    if (*rc::gen::arbitrary<bool>()) {
      const auto firstLetter = [](std::string_view text) { return std::string(text.substr(0, 1)); };
      column.Rewrite(firstLetter);
      for (std::string& text : plain) text = firstLetter(text);
    }
    RC_ASSERT(column.size() == plain.size());
    for (std::size_t i = 0; i < plain.size(); ++i) RC_ASSERT(column.Text(i) == plain[i]);
    std::size_t longest = 0;
    for (const std::string& text : plain) longest = std::max(longest, text.size());
    RC_ASSERT(column.LongestText() >= longest);
    const std::string wanted = *rc::gen::arbitrary<bool>() || plain.empty() ? "4" : plain.back();
    const auto first = std::ranges::find(plain, wanted);
    RC_ASSERT(column.Find(wanted).value_or(plain.size()) ==
              static_cast<std::size_t>(first - plain.begin()));
  }));
}

// Beyond 255 and 65,535 distinct texts the cells need more bytes each.
TEST(CellColumnTest, ManyDistinctTexts) {
  CellColumn column(3);
  for (std::int64_t i = 0; i < 70000; ++i) column.AppendNumber(i);
  column.Fit();
  for (const std::size_t i : {0, 254, 255, 256, 65534, 65535, 65536, 69999}) {
    EXPECT_EQ(column.Text(i + 3), std::to_string(i));
  }
  EXPECT_EQ(column.Text(2), "");
}

TEST(StatGridTest, SortsByKindNumberAndName) {
  StatGrid grid = GridOf({{"b", "10", "", "9", "A", ".250", "1e1", "", "-1", "a", "9 men"},
                          {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}});
  grid.SortRows(0, SortOrder::Ascending);
  EXPECT_EQ(Texts(grid, 0), (std::vector<std::string>{"", "", "-1", ".250", "9", "10", "1e1",
                                                      "9 men", "A", "a", "b"}));
  EXPECT_EQ(Texts(grid, 1),
            (std::vector<std::string>{"2", "7", "8", "5", "3", "1", "6", "10", "4", "9", "0"}));
  grid.SortRows(0, SortOrder::Descending);
  EXPECT_EQ(Texts(grid, 1),
            (std::vector<std::string>{"0", "4", "9", "10", "1", "6", "3", "5", "8", "2", "7"}))
      << "equals keep their order";
  EXPECT_EQ(grid.Text(0, 0), "Header");
}

TEST(StatGridTest, TellsItsObserverOnce) {
  StatGrid grid = GridOf({{"1", "2", "3"}, {"4", "5", "6"}});
  std::string heard;
  grid.Observe({[&](int, int) { heard += "cell "; }, [&](int) { heard += "column "; },
                [&] { heard += "replaced "; }, [&] { heard += "rearranged "; }});
  grid.SortRows(1, SortOrder::Descending);
  grid.RewriteColumn(0, [](std::string_view) { return "x"; });
  grid.SetColumnInk(0, kWhite);
  grid.SetColumnInk(0, kWhite);
  grid.SetText(1, 1, "6");
  grid.SetText(1, 1, "7");
  grid.Replace({{"a"}, std::vector<CellColumn>(1)});
  EXPECT_EQ(heard, "rearranged rearranged column cell replaced ");
  EXPECT_EQ(grid.rows(), 1);
  EXPECT_FALSE(grid.ColumnAt(0).ink);
}

// A sum of inexact numbers reads like the sum that a person would write.
TEST(RowsTest, NumbersShowNoDust) {
  for (const auto& [number, text] :
       std::vector<std::pair<double, std::string>>{{0.1 + 0.2, "0.3"},
                                                   {5.33 + 5.33 + 5.34 - 3.3, "12.7"},
                                                   {2.0 / 3, "0.666666666666667"},
                                                   {1e15 + 1, "1000000000000000"},
                                                   {123456.5, "123456.5"}}) {
    EXPECT_EQ(TextIn(number), text);
  }
}

// A season's batting rows: names, small counts, many empty cells, a GameID for each game.
TEST(StatGridTest, TakesLittleMoreThanItsText) {
  GridContents contents{std::vector<std::string>(4), std::vector<CellColumn>(4)};
  std::size_t textBytes = 0;
  for (int row = 0; row < 20000; ++row) {
    const std::string cells[] = {"Player " + std::to_string(row * 7 % 900), row % 3 == 0 ? "1" : "",
                                 row % 2 == 0 ? "4" : "5", std::to_string(111826100000 + row / 22)};
    for (std::size_t column = 0; column < 4; ++column) {
      contents.columns[column].Append(cells[column]);
      textBytes += cells[column].size();
    }
  }
  for (CellColumn& column : contents.columns) column.Fit();
  StatGrid grid(1, 1);
  grid.Replace(std::move(contents));
  EXPECT_LT(grid.BytesTaken(), textBytes * 3 / 2);
}

}  // namespace
}  // namespace dtb
