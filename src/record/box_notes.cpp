#include "record/box_notes.h"

#include <algorithm>

#include "base/text_cell.h"
#include "base/words.h"
#include "game/play_sums.h"
#include "game/play_words.h"
#include "record/batting_places.h"

namespace dtb {
namespace {

constexpr std::array kSides{Side::Visitors, Side::Home};

// "a", "b", ..., "z", "aa".
std::string Letters(std::size_t number) {
  constexpr std::size_t kAlphabet = 26;
  std::string letters(number / kAlphabet + 1, 'a');
  letters.back() = static_cast<char>('a' + number % kAlphabet);
  return letters;
}

// What a substitute did when he first came to bat.
const char* DeedOf(const Play& play) {
  switch (play.outcome) {
    case Outcome::Single:
      return "singled";
    case Outcome::Double:
      return "doubled";
    case Outcome::Triple:
      return "tripled";
    case Outcome::Homer:
      return "homered";
    case Outcome::Walk:
      return "walked";
    case Outcome::Strikeout:
      return "struck out";
    case Outcome::Groundout:
      return "grounded out";
    case Outcome::Flyout:
      return "flied out";
    case Outcome::Lineout:
      return "lined out";
    case Outcome::Popout:
      return "popped out";
    case Outcome::DoublePlay:
      return "hit into a double play";
    case Outcome::FieldersChoice:
      return "reached on a fielder's choice";
    case Outcome::AtBat:
      return play.basesKept ? "reached on an error" : "had an at-bat";
    case Outcome::TakesFirst:
      return "took first base";
    case Outcome::Sacrifice:
      return "sacrificed";
    default:
      return "batted";
  }
}

// The board kept the bases in all plays.
bool AllOnBases(const GameRecord& game) {
  return !game.plays.empty() && std::ranges::all_of(game.plays, &Play::basesKept);
}

// Who came to bat and is not among the batters, because his line of the sheet has no mark.
std::vector<std::string> BattersWithoutRow(const GameRecord& game) {
  std::vector<std::string> missing;
  for (const Play& play : game.plays) {
    const auto has = [&play](const SideRecord& side) {
      return std::ranges::count(side.batters, play.batter, &BatterRecord::name) > 0;
    };
    if (play.batter.empty() || std::ranges::any_of(game.sides, has)) continue;
    if (std::ranges::count(missing, play.batter) == 0) missing.push_back(play.batter);
  }
  return missing;
}

int OnBase(const Play& play) {
  return static_cast<int>(
      std::ranges::count_if(play.after, [](const std::string& name) { return !name.empty(); }));
}

bool IsAtBat(Outcome outcome) {
  return EndsTimeAtBat(outcome) && outcome != Outcome::Walk && outcome != Outcome::TakesFirst &&
         outcome != Outcome::Sacrifice && outcome != Outcome::PutOnBase;
}

// How often each player did something, in the order in which they did it first.
class Tally {
 public:
  void Add(const std::string& name, int count = 1) {
    const auto found = std::ranges::find(counts_, name, &Count::name);
    if (found != counts_.end()) {
      found->count += count;
    } else if (count > 0) {
      counts_.push_back({name, count});
    }
  }
  // "Judge 2, Voit".
  [[nodiscard]] std::string Text(const ShortNames& names) const {
    std::string text;
    for (const Count& one : counts_) {
      text += (text.empty() ? "" : ", ") + names.Of(one.name);
      if (one.count > 1) text += ' ' + std::to_string(one.count);
    }
    return text;
  }

 private:
  struct Count {
    std::string name;
    int count = 0;
  };
  std::vector<Count> counts_;
};

// What only the plays tell of a side at bat.
struct Situations {
  Tally left;  // runners, by the batter who was out with them on base
  Tally intoDoublePlays;
  Tally hitByPitch;
  Tally sacrifices;
  int doublePlays = 0;
  int teamLeft = 0;
  int inScoringPosition = 0;  // at-bats with a runner on second or third
  int hitsThere = 0;
};

Situations SituationsOf(const GameRecord& game, Side side) {
  Situations told;
  const Play* before = nullptr;
  for (const Play& play : game.plays) {
    const bool sameHalf = before != nullptr && before->half == play.half;
    const bool scoring = sameHalf && (!before->after[1].empty() || !before->after[2].empty());
    before = &play;
    if (game.BattingIn(play) != side) continue;
    if (IsAtBat(play.outcome) && scoring) {
      ++told.inScoringPosition;
      told.hitsThere += IsHit(play.outcome) ? 1 : 0;
    }
    if (IsAtBat(play.outcome) && OutsOf(play) > 0) {
      const int himself = std::ranges::count(play.after, play.batter) > 0 ? 1 : 0;
      told.left.Add(play.batter, OnBase(play) - himself);
    }
    if (play.outcome == Outcome::DoublePlay) {
      ++told.doublePlays;
      told.intoDoublePlays.Add(play.batter);
    }
    if (play.outcome == Outcome::TakesFirst) told.hitByPitch.Add(play.batter);
    if (play.outcome == Outcome::Sacrifice) told.sacrifices.Add(play.batter);
  }
  const std::vector<HalfSums> halves = HalvesOf(game.plays);
  for (const HalfSums& half : halves) {
    const bool finished = game.over || &half != &halves.back();
    if (finished && (half.half % 2 == 0) == (side == Side::Visitors)) told.teamLeft += half.left;
  }
  return told;
}

class Notes {
 public:
  Notes(const GameRecord& game, const SeasonToDate& season, const ShortNames& names)
      : game_(game), season_(season), names_(names) {}

  std::vector<BoxNote> All() {
    Add("E", OfTeams([this](Side side) { return game_.side(side).errors; }, false));
    const bool onBases = AllOnBases(game_);
    std::array<Situations, 2> told;
    for (std::size_t i = 0; i < 2; ++i) told.at(i) = SituationsOf(game_, kSides.at(i));
    const auto of = [&told](Side side) -> Situations& {
      return told.at(side == Side::Visitors ? 0 : 1);
    };
    Add("DP", OfTeams([&](Side side) { return of(Other(side)).doublePlays; }, false));
    if (onBases) {
      Add("LOB", OfPlayers([&](Side side) { return of(side).left.Text(names_); }));
      Add("Team LOB", OfTeams([&](Side side) { return of(side).teamLeft; }, true));
      Add("RISP", OfPlayers([&](Side side) {
            const Situations& own = of(side);
            return game_.side(side).team + ' ' + std::to_string(own.hitsThere) + "-for-" +
                   std::to_string(own.inScoringPosition);
          }));
    }
    AddHits();
    Add("GIDP", OfPlayers([&](Side side) { return of(side).intoDoublePlays.Text(names_); }));
    Add("SAC", OfPlayers([&](Side side) { return of(side).sacrifices.Text(names_); }));
    Add("HBP", OfPlayers([&](Side side) { return of(side).hitByPitch.Text(names_); }));
    return std::move(notes_);
  }

 private:
  void Add(const char* what, std::string text) {
    if (!text.empty()) notes_.push_back({what, std::move(text)});
  }

  template <class Figure>
  std::string OfTeams(Figure figure, bool alsoNone) const {
    std::string text;
    for (const Side side : kSides) {
      const double value = figure(side);
      if (value == 0 && !alsoNone) continue;
      text += (text.empty() ? "" : ", ") + game_.side(side).team + ' ' + DecimalText(value);
    }
    return text;
  }

  template <class Words>
  std::string OfPlayers(Words words) const {
    std::string text;
    for (const Side side : kSides) {
      const std::string own = words(side);
      text += (text.empty() || own.empty() ? "" : ", ") + own;
    }
    return text;
  }

  // "Judge (2), Voit 2 (7)": in this game, where more than one, and of the season.
  std::string Counted(double BatterFigures::*figure) const {
    return OfPlayers([&](Side side) {
      std::string text;
      const SideRecord& own = game_.side(side);
      for (const BatterRecord& batter : own.batters) {
        const double count = batter.figures.*figure;
        if (count == 0) continue;
        text += (text.empty() ? "" : ", ") + names_.Of(batter.name);
        if (count != 1) text += ' ' + DecimalText(count);
        const double ofSeason = season_.Get(own.team, batter.name).batting.*figure;
        if (ofSeason > 0) text += " (" + DecimalText(ofSeason) + ')';
      }
      return text;
    });
  }

  void AddHits() {
    Add("2B", Counted(&BatterFigures::doubles));
    Add("3B", Counted(&BatterFigures::triples));
    Add("HR", Counted(&BatterFigures::homeRuns));
    Add("SB", Counted(&BatterFigures::steals));
  }

  const GameRecord& game_;
  const SeasonToDate& season_;
  const ShortNames& names_;
  std::vector<BoxNote> notes_;
};

}  // namespace

std::string Ordinal(int number) {
  constexpr int kTeens = 11;
  const int last = number % 10;
  const int lastTwo = number % 100;
  const bool teens = lastTwo >= kTeens && lastTwo <= kTeens + 2;
  const char* ending = last == 1 ? "st" : last == 2 ? "nd" : last == 3 ? "rd" : "th";
  return std::to_string(number) + (teens ? "th" : ending);
}

BoxSubstitutes SubstitutesOf(const GameRecord& game, const ShortNames& names) {
  BoxSubstitutes told;
  std::size_t letter = 0;
  for (std::size_t side = 0; side < kSides.size(); ++side) {
    const SideRecord& own = game.side(kSides.at(side));
    const std::vector<BattingPlace> places = PlacesOf(game, kSides.at(side));
    for (const BatterRecord& batter : own.batters) {
      const auto known = std::ranges::find(places, batter.name, &BattingPlace::name);
      if (known == places.end() || known->entrance == Entrance::Start) continue;
      const Play& play = game.plays.at(known->play);
      const bool runs = known->entrance == Entrance::Running;
      const std::string mark = Letters(letter++);
      told.marks[{own.team, batter.name}] = mark;
      told.notes.at(side).push_back(mark + '-' + (runs ? "ran" : DeedOf(play)) + " for " +
                                    names.Of(known->instead) + " in the " +
                                    Ordinal(play.half / 2 + 1));
    }
  }
  return told;
}

std::vector<BoxNote> NotesOf(const GameRecord& game, const SeasonToDate& season,
                             const ShortNames& names) {
  return Notes(game, season, names).All();
}

std::vector<std::string> ScoringOf(const GameRecord& game) {
  std::vector<std::string> scoring;
  std::array<int, 2> score{};
  for (const Play& play : game.plays) {
    const int runs = RunsOf(play);
    if (runs == 0) continue;
    score.at(game.BattingIn(play) == Side::Visitors ? 0 : 1) += runs;
    scoring.push_back(PlayWithInning(play) + ". " + game.sides[0].team + ' ' +
                      std::to_string(score[0]) + ", " + game.sides[1].team + ' ' +
                      std::to_string(score[1]));
  }
  return scoring;
}

std::string RemarkOf(const GameRecord& game) {
  if (game.plays.empty()) {
    return "The plays of this game are not known: it has no runs of its players.";
  }
  std::string teams;
  for (const SideRecord& side : game.sides) {
    if (!side.runsKnown) teams += (teams.empty() ? "" : " and ") + side.team;
  }
  std::string remark;
  if (!teams.empty()) remark = "The plays do not tell who scored all runs of " + teams + '.';
  const std::vector<std::string> missing = BattersWithoutRow(game);
  for (const std::string& name : missing) {
    remark += &name != &missing.front() ? ", " : remark.empty() ? "" : " ";
    remark += name;
  }
  if (missing.empty()) return remark;
  return remark + " batted, but " + (missing.size() == 1 ? "is" : "are") +
         " not marked as having played, so the tables lack " +
         (missing.size() == 1 ? "him." : "them.");
}

}  // namespace dtb
