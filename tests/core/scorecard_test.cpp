// The scorecard: what stands in the boxes, and the drawing as SVG; the story of the same plays.
#include "record/scorecard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "record/drawing_svg.h"
#include "record/scorecard_drawing.h"
#include "record/story.h"

namespace dtb {
namespace {

const std::map<std::string, Outcome> kOutcomes{
    {"1B", Outcome::Single},         {"2B", Outcome::Double},     {"3B", Outcome::Triple},
    {"HR", Outcome::Homer},          {"BB", Outcome::Walk},       {"K", Outcome::Strikeout},
    {"GO", Outcome::Groundout},      {"FO", Outcome::Flyout},     {"DP", Outcome::DoublePlay},
    {"FC", Outcome::FieldersChoice}, {"TO", Outcome::ThrownOut},  {"AB", Outcome::AtBat},
    {"RBI", Outcome::RunBattedIn},   {"SB", Outcome::StolenBase}, {"HP", Outcome::TakesFirst},
    {"SH", Outcome::Sacrifice},      {"WP", Outcome::Advance},    {"ON", Outcome::PutOnBase}};

// A game in words: "/" ends a half-inning of the visitors, "=P" changes the pitcher. A play is the
// batter, the outcome and the moves, as in "A:1B:B13:A01": "B" from first to third. Places are
// 0 to 3, 4 for home, 5 for out, 6 for the bench; a run is batted in unless it has a "-" behind it.
// "~" before the batter: the board does not keep the bases. The bases after a play follow from its
// moves.
class GameInWords {
 public:
  explicit GameInWords(const std::string& words) {
    SideRecord& side = game_.side(Side::Visitors);
    for (char name = 'A'; name <= 'I'; ++name) {
      side.batters.push_back({.name = {name}, .place = name - 'A' + 1, .figures = {}});
    }
    game_.side(Side::Home).pitchers = {{"x", {}}, {"y", {}}};
    std::istringstream in(words);
    for (std::string word; in >> word;) {
      if (word == "/") {
        half_ += 2;
        outs_ = 0;
        bases_ = {};
      } else if (word[0] == '=') {
        pitcher_ = word.substr(1);
      } else {
        Add(word);
      }
    }
    SettleRecord(game_);
  }
  [[nodiscard]] const GameRecord& game() const { return game_; }

 private:
  void Add(std::string word) {
    Play play;
    play.half = half_;
    play.outsBefore = outs_;
    play.pitcher = pitcher_;
    play.basesKept = word[0] != '~';
    if (!play.basesKept) word.erase(0, 1);
    std::istringstream parts(word);
    std::getline(parts, play.batter, ':');
    std::string outcome;
    std::getline(parts, outcome, ':');
    play.outcome = kOutcomes.at(outcome);
    for (std::string part; std::getline(parts, part, ':');) {
      Move move{{part[0]}, part[1] - '0', part[2] - '0', pitcher_, false, true, false};
      move.battedIn = move.to == kHomePlate && !part.ends_with('-');
      for (std::string& name : bases_) {
        if (name == move.name) name.clear();
      }
      if (move.to <= kThirdBase) bases_.at(static_cast<std::size_t>(move.to - 1)) = move.name;
      play.moves.push_back(move);
    }
    play.after = bases_;
    outs_ += OutsOf(play);
    game_.plays.push_back(play);
  }

  GameRecord game_;
  int half_ = 0;
  int outs_ = 0;
  std::string pitcher_ = "x";
  std::array<std::string, kBases> bases_;
};

// The boxes of an inning in the order of the plays: place, column where it is a further one, sign,
// bases, and marks: "s2" stole second, "x3" out before third, "o1" first out, "r2" two batted in,
// "P2" new pitcher, "+" substitute, "~" a pinch runner, "from2" began there, "|" the last one.
std::string Boxes(const Scorecard& card) {
  std::string words;
  for (const ScoreBox& box : card.boxes) {
    if (!words.empty()) words += " ";
    words += std::to_string(box.inning) + "." + std::to_string(box.place);
    if (box.pass > 0) words += "'";
    words += ":" + box.sign + ">" + std::to_string(box.reached);
    for (int base = kSecondBase; base <= kHomePlate; ++base) {
      if (box.stolen.at(static_cast<std::size_t>(base))) words += "s" + std::to_string(base);
    }
    if (box.start > 0) words += "from" + std::to_string(box.start);
    if (box.outBefore > 0) words += "x" + std::to_string(box.outBefore);
    if (box.outNumber > 0) words += "o" + std::to_string(box.outNumber);
    if (box.runsBattedIn > 0) words += "r" + std::to_string(box.runsBattedIn);
    if (box.newPitcher > 0) words += "P" + std::to_string(box.newPitcher);
    if (box.substitute) words += "+";
    if (box.ranFor) words += "~";
    if (box.endsHalf) words += "|";
  }
  return words;
}

TEST(Scorecard, HasInEachBoxWhatAScorerWrites) {
  const std::vector<std::tuple<const char*, const char*, const char*>> games{
      {"a walk, a steal, a home run with one on and one with nobody on",
       "A:BB:A01 B:SB:A12 B:HR:A24:B04 C:HR:C04", "1.1:BB>4s2 1.2:HR>4r2 1.3:HR>4r1"},
      {"a fielder's choice, a double play", "A:1B:A01 B:FC:A15:B01 C:DP:B15:C05 /",
       "1.1:1B>1x2o1 1.2:FC>1x2o2 1.3:DP>0o3|"},
      {"caught off third; out number two before the plate",
       "A:3B:A03 B:K:B05 C:TO:A35 C:GO:C05 / D:GO:D05",
       "1.1:3B>3x4o2 1.2:K>0o1 1.3:GO>0o3| 2.4:GO>0o1"},
      {"the third out on the bases: the batter comes up again",
       "A:K:A05 B:K:B05 C:AB:C01 D:TO:C15 / D:HP:D01 E:SH:E05:D12",
       "1.1:K>0o1 1.2:K>0o2 1.3:E>1x2o3| 2.4:HP>2 2.5:SAC>0o1"},
      {"the order goes around, and on from there",
       "A:1B:A01 B:1B:A12:B01 C:1B:A23:B12:C01 D:HR:A34:B24:C14:D04 E:K:E05 F:BB:F01 G:BB:F12:G01 "
       "H:BB:F23:G12:H01 I:HR:F34:G24:H14:I04 A:1B:A01 B:DP:A15:B05 / C:K:C05",
       "1.1:1B>4 1.2:1B>4 1.3:1B>4 1.4:HR>4r4 1.5:K>0o1 1.6:BB>4 1.7:BB>4 1.8:BB>4 1.9:HR>4r4 "
       "1.1':1B>1x2o2 1.2':DP>0o3| 2.3:K>0o1"},
      {"a pinch runner scores; one came between two moves of a play; a new pitcher",
       "A:1B:A01 =y B:2B:Z13:B02 C:1B:Z34:B24:C01:Y12", "1.1:1B>4~ 1.2:2B>4P2 1.3:1B>2r2~"},
      {"a pinch hitter: only his first box is marked",
       "A:K:A05 B:K:B05 C:K:C05 / D:K:D05 E:K:E05 F:K:F05 / G:K:G05 H:K:H05 I:K:I05 / J:BB:J01 "
       "J:SB:J12 J:WP:J24-",
       "1.1:K>0o1 1.2:K>0o2 1.3:K>0o3| 2.4:K>0o1 2.5:K>0o2 2.6:K>0o3| 3.7:K>0o1 3.8:K>0o2 "
       "3.9:K>0o3| 4.1:BB>4s2+"},
      {"a runner from the bench, and one on before the bases were kept",
       "A:ON:I62 A:1B:I24:A01 ~B:1B B:ON:A62 C:1B:A24:C01",
       "1.9:R>4from2 1.1:1B>4r1 1.2:1B>1 1.3:1B>1r1"},
      {"without the bases: what the outcome tells, and runs before the hit",
       "~A:RBI ~A:HR ~B:AB ~C:FC ~D:DP ~E:RBI ~E:TO / E:K:E05",
       "1.1:HR>4r1 1.2:AB>0 1.3:FC>1 1.4:DP>0o3| 2.5:K>0o1"},
  };
  for (const auto& [what, words, boxes] : games) {
    EXPECT_EQ(Boxes(ScorecardOf(GameInWords(words).game(), Side::Visitors)), boxes) << what;
  }
}

// Escapes all that a name may have; a parser that knows only the shape of XML goes through it.
bool IsWellFormed(const std::string& svg) {
  std::vector<std::string> open;
  std::size_t at = svg.find("<svg");
  for (; at < svg.size(); ++at) {
    const auto letter = static_cast<unsigned char>(svg[at]);
    if (letter > 0x7E || (letter < 0x20 && letter != '\n') || letter == '>') return false;
    if (letter == '&' && !(svg[at + 1] == '#' && svg.find(';', at) < at + 10)) return false;
    if (letter != '<') continue;
    const std::size_t end = svg.find('>', at);
    const std::string tag = svg.substr(at + 1, end - at - 1);
    if (std::ranges::count(tag, '"') % 2 != 0 || tag.find('<') != std::string::npos) return false;
    const std::string name = tag.substr(0, tag.find_first_of(" /", 1));
    if (tag[0] == '/') {
      if (open.empty() || '/' + open.back() != name) return false;
      open.pop_back();
    } else if (!tag.ends_with('/')) {
      open.push_back(name);
    }
    at = end;
  }
  return open.empty();
}

std::vector<DrawnText> TextsOf(const std::vector<Drawing>& pages) {
  std::vector<DrawnText> texts;
  for (const Drawing& page : pages) {
    for (const Shape& shape : page.shapes) {
      if (const auto* text = std::get_if<DrawnText>(&shape)) texts.push_back(*text);
    }
  }
  return texts;
}

bool HasText(const std::vector<Drawing>& pages, const std::string& wanted) {
  const auto texts = TextsOf(pages);
  return std::ranges::find(texts, wanted, &DrawnText::text) != texts.end();
}

TEST(Scorecard, IsDrawnWholeAndLegibleWhateverTheGame) {
  GameRecord game =
      GameInWords("A:1B:A01 B:HR:A14:B04 =y C:1B:C01 D:1B:C12:D01 ~E:RBI ~E:1B / F:SB:C23").game();
  SideRecord& side = game.side(Side::Visitors);
  side.team = "A \"quoted\" <team> & 'Co' \x01\xFF of a very long name, which no page has room for";
  side.batters.at(0).name = "Zo\xC3\xAB ]]> <script>";
  side.innings = {"2"};
  const std::string endless(200, 'W');
  for (int i = 0; i < 12; ++i) side.batters.push_back({.name = endless, .place = 5, .figures = {}});
  for (int i = 0; i < 40; ++i) game.side(Side::Home).pitchers.push_back({endless, {}});
  for (int inning = 3; inning <= 20; ++inning) {
    game.plays.push_back(game.plays.back());
    game.plays.back().half = 2 * inning - 2;
  }
  const Scorecard card = ScorecardOf(game, Side::Visitors);
  EXPECT_EQ(card.note,
            "In 2 of 25 plays the board did not keep the bases: who ran in them is not known.");
  for (const PageSize page : {kA4Landscape, kLetterLandscape}) {
    const auto pages = DrawScorecard(card, page);
    EXPECT_EQ(pages.size(), 2U);
    EXPECT_TRUE(HasText(pages, "20") && HasText(pages, "Page 2 of 2"));
    for (const DrawnText& text : TextsOf(pages)) {
      const double back = text.align == TextAlign::Left    ? 0
                          : text.align == TextAlign::Right ? text.wide
                                                           : text.wide / 2;
      const double left = text.at.x - back;
      EXPECT_TRUE(left >= 20 && left + text.wide <= page.width - 20) << text.text;
      EXPECT_TRUE(text.at.y > 20 && text.at.y < page.height - 20) << text.text;
      EXPECT_GE(text.size, 6.5) << text.text;
    }
    const auto tellsMore = [](const DrawnText& text) { return text.text.starts_with("and "); };
    EXPECT_EQ(std::ranges::count_if(TextsOf(pages), tellsMore), 2)
        << "of the pitchers, once a page";
    for (const Dress dress : {Dress::Look, Dress::Paper}) {
      EXPECT_TRUE(IsWellFormed(SvgFile(pages, dress)));
    }
  }
  // Whichever inning has two columns, it has one head: it is not torn apart.
  const auto heads = [](const Scorecard& drawn) {
    return std::ranges::count_if(TextsOf(DrawScorecard(drawn, kA4Landscape)),
                                 [](const DrawnText& text) { return text.bold && text.size == 9; });
  };
  for (int inning = 1; inning <= 20; ++inning) {
    Scorecard wide = card;
    wide.columns.insert(wide.columns.begin() + inning, {inning, 1});
    EXPECT_EQ(heads(wide), heads(card)) << inning;
  }
}

// A half-inning is summed up once it is over, and the next one begins at nothing.
TEST(Story, TellsPlaysAndSumsUpHalves) {
  GameRecord game =
      GameInWords(
          "A:BB:A01 B:HR:A14:B04 =y C:1B:C01 D:DP:C15:D05 E:K:E05 / F:HP:F01 G:GO:G05 "
          "H:GO:H05 I:K:I05 / ~A:2B")
          .game();
  game.side(Side::Visitors).team = "Owls";
  game.side(Side::Home).team = "Elks";
  std::string told;
  for (const StoryHalf& half : StoryOf(game).halves) {
    told += half.title + '\n';
    for (const std::string& sentence : half.sentences) told += sentence + '\n';
    told += half.summary + '\n';
  }
  EXPECT_EQ(told, R"(Top of the 1st, Owls at bat, x pitching
A walks.
B homers, A scores from first.
y relieves x.
C singles.
D hits into a double play, C is out on the bases. Two out.
E strikes out. Three out.
2 runs, 2 hits, nobody left on base. Owls 2, Elks 0.
Top of the 2nd, Owls at bat, y pitching
F takes first without an at-bat.
G grounds out. One out.
H grounds out. Two out.
I strikes out. Three out.
No runs, no hits, 1 left on base. Owls 2, Elks 0.
Top of the 3rd, Owls at bat, y pitching
A doubles.

)");
}

}  // namespace
}  // namespace dtb
