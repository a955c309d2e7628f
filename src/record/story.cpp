#include "record/story.h"

#include <algorithm>
#include <array>
#include <map>

#include "base/text_cell.h"
#include "base/words.h"
#include "game/play_sums.h"
#include "game/play_words.h"
#include "game/player_name.h"
#include "record/batting_places.h"
#include "record/box_notes.h"
#include "record/box_score.h"

namespace dtb {
namespace {

constexpr std::array kOutsInWords{"", "One out.", "Two out.", "Three out."};

class Teller {
 public:
  explicit Teller(const GameRecord& game) : game_(game) {
    for (const Side side : {Side::Visitors, Side::Home}) {
      for (const BattingPlace& place : PlacesOf(game, side)) {
        if (place.entrance == Entrance::Start) continue;
        entrances_[place.play].push_back(place);
      }
    }
  }

  std::vector<StoryHalf> Halves() {
    for (std::size_t number = 0; number < game_.plays.size(); ++number) {
      Tell(game_.plays[number], number);
    }
    EndHalf(game_.over);
    return std::move(halves_);
  }

 private:
  static std::size_t Index(Side side) { return side == Side::Visitors ? 0 : 1; }

  void Tell(const Play& play, std::size_t number) {
    const Side batting = game_.BattingIn(play);
    const Side fielding = Other(batting);
    const std::string pitcher = LastNameOf(play.pitcher);
    if (halves_.empty() || half_ != play.half) {
      EndHalf(true);
      half_ = play.half;
      batting_ = batting;
      halves_.push_back({.title = TitleOf(play, batting)});
    } else if (!pitchers_.at(Index(fielding)).empty() &&
               pitchers_.at(Index(fielding)) != play.pitcher) {
      Say(pitcher + " relieves " + LastNameOf(pitchers_.at(Index(fielding))) + '.');
    }
    pitchers_.at(Index(fielding)) = play.pitcher;
    for (const BattingPlace& place : entrances_[number]) {
      const bool runs = place.entrance == Entrance::Running;
      Say(LastNameOf(place.name) + (runs ? " runs for " : " bats for ") +
          LastNameOf(place.instead) + '.');
    }
    const int outs = OutsOf(play);
    outs_ = std::min(play.outsBefore + outs, 3);
    Say(PlayInWords(play) + '.' + (outs > 0 ? std::string(" ") + kOutsInWords.at(outs_) : ""));
    runs_ += RunsOf(play);
    hits_ += IsHit(play.outcome) ? 1 : 0;
    left_ = static_cast<int>(
        std::ranges::count_if(play.after, [](const auto& name) { return !name.empty(); }));
    onBases_ = onBases_ && play.basesKept;
    score_.at(Index(batting)) += RunsOf(play);
  }

  void Say(std::string sentence) { halves_.back().sentences.push_back(std::move(sentence)); }

  std::string TitleOf(const Play& play, Side batting) const {
    std::string title(play.half % 2 == 0 ? "Top of the " : "Bottom of the ");
    title += Ordinal(play.half / 2 + 1) + ", " + game_.side(batting).team + " at bat";
    return play.pitcher.empty() ? title : title + ", " + LastNameOf(play.pitcher) + " pitching";
  }

  // The sums of the half-inning, once it is over.
  void EndHalf(bool over) {
    if (halves_.empty() || !over) return;
    std::string text = (runs_ == 0 ? "No runs" : Counted(runs_, "run")) + ", " +
                       (hits_ == 0 ? "no hits" : Counted(hits_, "hit"));
    if (onBases_) text += ", " + (left_ == 0 ? "nobody" : std::to_string(left_)) + " left on base";
    halves_.back().summary = text + ". " + game_.sides[0].team + ' ' + std::to_string(score_[0]) +
                             ", " + game_.sides[1].team + ' ' + std::to_string(score_[1]) + '.';
    runs_ = hits_ = left_ = 0;
    onBases_ = true;
  }

  const GameRecord& game_;
  std::map<std::size_t, std::vector<BattingPlace>> entrances_;
  std::vector<StoryHalf> halves_;
  std::array<std::string, 2> pitchers_;
  std::array<int, 2> score_{};
  Side batting_ = Side::Visitors;
  int half_ = -1;
  int outs_ = 0;
  int runs_ = 0;
  int hits_ = 0;
  int left_ = 0;
  bool onBases_ = true;
};

}  // namespace

Story StoryOf(const GameRecord& game) {
  Story story{.headline = BoxHeadline(game), .scoring = ScoringOf(game), .halves = {}};
  story.halves = Teller(game).Halves();
  return story;
}

std::string StoryText(const Story& story) {
  std::string text = story.headline + '\n';
  if (!story.scoring.empty()) text += "\nScoring plays\n";
  for (const std::string& play : story.scoring) text += play + '\n';
  for (const StoryHalf& half : story.halves) {
    text += '\n' + half.title + '\n';
    for (std::size_t i = 0; i < half.sentences.size(); ++i) {
      text += (i > 0 ? " " : "") + half.sentences[i];
    }
    text += '\n';
    if (!half.summary.empty()) text += half.summary + '\n';
  }
  return text;
}

}  // namespace dtb
