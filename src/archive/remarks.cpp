#include "archive/remarks.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <numeric>

namespace dtb::archive {
namespace {

// A share with three places, as ".301" or "1.000".
std::string Average(std::int64_t part, std::int64_t whole) {
  if (whole == 0) return ".---";
  const auto thousandths = static_cast<int>((part * 2000 + whole) / (whole * 2));
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%d.%03d", thousandths / 1000, thousandths % 1000);
  return thousandths < 1000 ? std::string(text.data() + 1) : std::string(text.data());
}

bool RunsAreTold(const Pitching& pitching) {
  return pitching.outsUncharged == 0 || pitching.outs > pitching.outsUncharged;
}

// Runs in nine innings with two places, over the games of which they are told; who got nobody out
// has the worst that the charts know.
std::string EarnedRunAverage(const Pitching& pitching) {
  const std::int64_t outs = pitching.outs - pitching.outsUncharged;
  if (outs <= 0) return pitching.earnedRuns == 0 ? "-.--" : "99.99";
  const auto hundredths =
      static_cast<int>((pitching.earnedRuns * std::int64_t{5400} + outs) / (outs * 2));
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%d.%02d", hundredths / 100, hundredths % 100);
  return text.data();
}

int TimesOnFirst(const Batting& b) {
  return b.hits - b.doubles - b.triples - b.homeRuns + b.walks + b.hitByPitch;
}

// The words of the dice game. A player who steals often when he stands on first is fast.
std::string Speed(const Batting& b) {
  const int first = TimesOnFirst(b);
  if (b.stolenBases >= 4 && b.stolenBases * 100 >= first * 18) return "speed AA";
  const bool steals = b.stolenBases >= 2 && b.stolenBases * 100 >= first * 8;
  const bool triples = b.triples >= 2 && b.triples * 100 >= b.atBats;
  return steals || triples ? "speed A" : "";
}

std::string Power(const Batting& b) {
  return b.homeRuns >= 2 && b.homeRuns * 100 >= b.atBats * 5 ? "power" : "";
}

int TotalBases(const Batting& b) { return b.hits + b.doubles + 2 * b.triples + 3 * b.homeRuns; }

// "SS 45, 2B 10": where he played how many games, in the field or as designated hitter.
std::string GamesByPosition(const Batting& batting) {
  std::array<int, kDesignatedHitter> positions{};
  std::iota(positions.begin(), positions.end(), kPitcher);
  const auto games = [&](int position) { return batting.gamesAt.at(position); };
  std::ranges::stable_sort(positions, std::ranges::greater(), games);
  std::string text;
  for (const int position : positions) {
    if (games(position) == 0) break;
    text += (text.empty() ? "" : ", ") + std::string(PositionName(position)) + ' ' +
            std::to_string(games(position));
  }
  return text;
}

// Behind a figure: its sample is small. Of none there is no figure.
std::string Mark(int sample, int few) { return sample > 0 && sample < few ? "?" : ""; }

struct Context {
  const Player& player;
  std::string_view position;
};

struct Word {
  std::string_view name;
  std::string (*text)(const Context&);
};

std::string Of(int number) { return std::to_string(number); }

constexpr std::array kShared{
    Word{"pos", [](const Context& c) { return std::string(c.position); }},
    // A switch hitter is "S", as in the team files of the box.
    Word{"bats",
         [](const Context& c) { return c.player.bats == "B" ? std::string("S") : c.player.bats; }},
    Word{"throws", [](const Context& c) { return c.player.throws; }},
    Word{"at", [](const Context& c) { return GamesByPosition(c.player.batting); }},
};

constexpr std::array kBatters{
    Word{"avg",
         [](const Context& c) { return Average(c.player.batting.hits, c.player.batting.atBats); }},
    Word{"obp",
         [](const Context& c) {
           const Batting& b = c.player.batting;
           const int reached = b.hits + b.walks + b.hitByPitch;
           return Average(reached, b.atBats + b.walks + b.hitByPitch + b.sacrificeFlies);
         }},
    Word{"slg",
         [](const Context& c) {
           return Average(TotalBases(c.player.batting), c.player.batting.atBats);
         }},
    Word{"g", [](const Context& c) { return Of(c.player.batting.games); }},
    Word{"ab", [](const Context& c) { return Of(c.player.batting.atBats); }},
    Word{"h", [](const Context& c) { return Of(c.player.batting.hits); }},
    Word{"2b", [](const Context& c) { return Of(c.player.batting.doubles); }},
    Word{"3b", [](const Context& c) { return Of(c.player.batting.triples); }},
    Word{"hr", [](const Context& c) { return Of(c.player.batting.homeRuns); }},
    Word{"bb", [](const Context& c) { return Of(c.player.batting.walks); }},
    Word{"k", [](const Context& c) { return Of(c.player.batting.strikeouts); }},
    Word{"hbp", [](const Context& c) { return Of(c.player.batting.hitByPitch); }},
    Word{"sb", [](const Context& c) { return Of(c.player.batting.stolenBases); }},
    Word{"sh", [](const Context& c) { return Of(c.player.batting.sacrificeHits); }},
    Word{"sf", [](const Context& c) { return Of(c.player.batting.sacrificeFlies); }},
    Word{"pa", [](const Context& c) { return Of(PlateAppearances(c.player.batting)); }},
    Word{
        "few",
        [](const Context& c) { return Mark(PlateAppearances(c.player.batting), kFewAppearances); }},
    Word{"power", [](const Context& c) { return Power(c.player.batting); }},
    Word{"speed", [](const Context& c) { return Speed(c.player.batting); }},
};

constexpr std::array kPitchers{
    Word{"g", [](const Context& c) { return Of(c.player.pitching.games); }},
    Word{"gs", [](const Context& c) { return Of(c.player.pitching.starts); }},
    Word{"ip", [](const Context& c) { return InningsWithThirds(c.player.pitching.outs); }},
    Word{"h", [](const Context& c) { return Of(c.player.pitching.hits); }},
    Word{"bb", [](const Context& c) { return Of(c.player.pitching.walks); }},
    Word{"k", [](const Context& c) { return Of(c.player.pitching.strikeouts); }},
    Word{"hr", [](const Context& c) { return Of(c.player.pitching.homeRuns); }},
    Word{"er",
         [](const Context& c) {
           const Pitching& p = c.player.pitching;
           return RunsAreTold(p) ? Of(p.earnedRuns) : std::string("-");
         }},
    Word{"w", [](const Context& c) { return Of(c.player.pitching.wins); }},
    Word{"l", [](const Context& c) { return Of(c.player.pitching.losses); }},
    Word{"sv", [](const Context& c) { return Of(c.player.pitching.saves); }},
    Word{"era", [](const Context& c) { return EarnedRunAverage(c.player.pitching); }},
    // Whoever got nobody out has a figure, too.
    Word{"few",
         [](const Context& c) {
           return Mark(c.player.pitching.games > 0 ? c.player.pitching.outs + 1 : 0,
                       kFewInnings * 3 + 1);
         }},
    Word{"role",
         [](const Context& c) {
           const Pitching& p = c.player.pitching;
           return std::string(p.games > 0 && p.starts * 2 < p.games ? "relief" : "");
         }},
};

const Word* FindWord(std::string_view name, bool asPitcher) {
  const auto find = [&](const auto& words) -> const Word* {
    const auto found = std::ranges::find(words, name, &Word::name);
    return found == words.end() ? nullptr : &*found;
  };
  if (const Word* shared = find(kShared)) return shared;
  return asPitcher ? find(kPitchers) : find(kBatters);
}

// Gives out the plain pieces of a form and its words, in order.
template <class Plain, class Named>
void EachPiece(std::string_view form, Plain plain, Named named) {
  while (!form.empty()) {
    const std::size_t open = std::min(form.find('{'), form.size());
    if (open > 0) plain(form.substr(0, open));
    form.remove_prefix(open);
    if (form.empty()) break;
    const std::size_t close = form.find('}');
    if (close == std::string_view::npos) return plain(form);
    named(form.substr(1, close - 1));
    form.remove_prefix(close + 1);
  }
}

// What would end a line, or what nobody can see.
bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

std::string WithSingleBlanks(const std::string& text) {
  std::string tidy;
  for (const char c : text) {
    if (IsControl(c) || (c == ' ' && (tidy.empty() || tidy.back() == ' '))) continue;
    tidy += c;
  }
  while (tidy.ends_with(' ')) tidy.pop_back();
  return tidy;
}

}  // namespace

std::string InningsWithThirds(int outs) { return Of(outs / 3) + '.' + Of(outs % 3); }

std::string Remark(const std::string& form, const Player& player, std::string_view position,
                   bool asPitcher) {
  const Context context{player, position};
  std::string text;
  EachPiece(
      form, [&](std::string_view plain) { text += plain; },
      [&](std::string_view name) {
        const Word* word = FindWord(name, asPitcher);
        text += word != nullptr ? word->text(context) : std::string("{").append(name).append("}");
      });
  return WithSingleBlanks(text);
}

std::vector<std::string> UnknownWords(const std::string& form, bool asPitcher) {
  std::vector<std::string> unknown;
  EachPiece(
      form, [](std::string_view) {},
      [&](std::string_view name) {
        if (FindWord(name, asPitcher) != nullptr) return;
        unknown.push_back(std::string("{").append(name).append("}"));
      });
  return unknown;
}

std::string KnownWords(bool asPitcher) {
  std::string words;
  const auto add = [&](const Word& word) {
    words += (words.empty() ? "{" : " {") + std::string(word.name) + '}';
  };
  std::ranges::for_each(kShared, add);
  if (asPitcher) std::ranges::for_each(kPitchers, add);
  if (!asPitcher) std::ranges::for_each(kBatters, add);
  return words;
}

std::string PlainName(const Player& player, NameForm form) {
  std::string name = FullName(player);
  if (form == NameForm::LastFirst && !player.first.empty() && !player.last.empty()) {
    name = player.last + ", " + player.first;
  }
  std::erase(name, '=');
  name = WithSingleBlanks(name);
  return name.empty() ? player.id : name;
}

std::string NameInFile(const Player& player, NameForm form) {
  const std::string name = PlainName(player, form);
  return player.number == 1 ? name : name + " (" + std::to_string(player.number) + ")";
}

}  // namespace dtb::archive
