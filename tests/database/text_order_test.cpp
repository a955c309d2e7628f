#include "base/text_order.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <compare>
#include <string>
#include <vector>

#include "base/letters.h"

namespace dtb {
namespace {

TEST(LikeTest, Table) {
  struct Row {
    const char* text;
    const char* pattern;
    bool matches;
  };
  for (const Row& row : std::vector<Row>{
           {"", "", true},
           {"", "%", true},
           {"", "_", false},
           {"Ángel", "ÁNGEL", true},
           {"Ángel", "á%", true},
           {"Ángel", "Angel", false},
           {"Ángel", "_ngel", true},
           {"ΟΔΥΣΣΕΥΣ", "οδυσσευς", true},
           {"Жуков", "%УК__", true},
           {"Łukasz Żak", "łUKASZ ż%", true},
           {"Ÿ", "ÿ", true},
           {"O'Neill", "o'n%", true},
           {"100%", "100\\%", true},
           {"1000", "100\\%", false},
           {"a\\b", "a\\\\b", true},
           {"mississippi", "m%iss%pi", true},
           {"mississippi", "m%iss%si", false},
           {"aab", "%ab", true},
           {"abc", "ab", false},
           {"ab", "abc%", false},
           {"\xC3", "_", true},  // half a character is one all the same
           {"\xE9tienne", "\xE9TIENNE", true},
       }) {
    EXPECT_EQ(LikePattern(row.pattern, U'\\').Matches(row.text), row.matches)
        << row.text << " LIKE " << row.pattern;
  }
  EXPECT_FALSE(LikePattern("a\\_b").Matches("a_b")) << "without an escape \"\\\" is a character";
}

// A walk that tries all ways would take years.
TEST(LikeTest, ManyWildcards) {
  std::string pattern;
  for (int i = 0; i < 40; ++i) pattern += "%a";
  EXPECT_FALSE(LikePattern(pattern + "%b").Matches(std::string(20000, 'a')));
}

TEST(EscapedForLikeTest, MatchesItselfAlone) {
  const std::string name = "50%_of\\all";
  const LikePattern pattern(EscapedForLike(name), U'\\');
  EXPECT_TRUE(pattern.Matches(name));
  EXPECT_FALSE(pattern.Matches("50 of\\all"));
}

TEST(CompareNamesTest, PutsNamesWherePeopleLookForThem) {
  const std::vector<std::string> expected{"",        "Ángel Soto", "angela", "de Grom",
                                          "Diaz",    "O'Neill",    "Oliva",  "Øre",
                                          "Ramírez", "Ramos",      "Жук"};
  auto sorted = expected;
  std::ranges::reverse(sorted);
  std::ranges::stable_sort(sorted,
                           [](const auto& a, const auto& b) { return CompareNames(a, b) < 0; });
  EXPECT_EQ(sorted, expected);
  EXPECT_EQ(CompareNames("PEÑA", "pena"), 0);
  EXPECT_EQ(CompareNames("Άρης", "ΑΡΗΣ"), 0);
}

// A control code in front, which counts for nothing, leads past the short way for plain letters.
RC_GTEST_PROP(CompareNamesTest, ShortWayLeadsToTheSamePlace, ()) {
  const auto name = [] {
    const auto part = rc::gen::elementOf(std::vector<std::string>{
        "a",  "A",        "b",        "z",    " ", "-", "'", "_",    "9",
        "10", "\x1F",     "\t",       "\x7F", "é", "E", "ß", "s",    "æ",
        "e",  "\xCC\x81", "\xCC\xB8", "=",    "Ж", "ж", "ω", "\xE9", "\xF0\x9F\x98\x80"});
    std::string text;
    for (const auto& each : *rc::gen::resize(6, rc::gen::container<std::vector<std::string>>(part)))
      text += each;
    return text;
  };
  const std::string first = name();
  const std::string second = name();
  RC_ASSERT((CompareNames(first, second) <=> 0) ==
            (CompareNames("\x01" + first, "\x01" + second) <=> 0));
}

}  // namespace
}  // namespace dtb
