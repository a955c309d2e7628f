#include "archive/scorer.h"

#include <algorithm>

#include "archive/day_figures.h"

namespace dtb::archive {
namespace {

constexpr const char* kTooManyPlayers = "too many players come into one game";

// The counts of the rule on relief pitchers: a walk then belongs to the one who left.
bool FavoursBatter(int balls, int strikes) { return balls == 3 || (balls == 2 && strikes < 2); }

int DigitAt(std::string_view text, std::size_t place) {
  return text.size() > place && text[place] >= '0' && text[place] <= '9' ? text[place] - '0' : 0;
}

void CreditHit(Batting& batting, Pitching* pitching, PlateAppearance kind) {
  ++batting.hits;
  if (kind == PlateAppearance::Double) ++batting.doubles;
  if (kind == PlateAppearance::Triple) ++batting.triples;
  if (kind == PlateAppearance::HomeRun) ++batting.homeRuns;
  if (pitching == nullptr) return;
  ++pitching->hits;
  if (kind == PlateAppearance::HomeRun) ++pitching->homeRuns;
}

}  // namespace

void Scorer::Begin(Game game) {
  game_ = std::move(game);
  for (int side = 0; side < 2; ++side) {
    Side& fresh = sides_.at(side);
    fresh.club = &season_.clubs[game_.sides.at(side).club];
    fresh.order.fill(kNobody);
    fresh.pitcher = kNobody;
    fresh.due = 1;
    fresh.entrants.clear();
    fresh.charged = false;
  }
  waiting_.clear();
  inning_ = 0;
  open_ = false;
  won_ = false;
}

Scorer::Entrant* Scorer::EntrantOf(int side, int player) {
  constexpr std::size_t kMostEntrants = 100;
  std::vector<Entrant>& entrants = sides_.at(side).entrants;
  const auto found = std::ranges::find(entrants, player, &Entrant::player);
  if (found != entrants.end()) return &*found;
  if (entrants.size() >= kMostEntrants) return nullptr;
  const Player& entry = PlayerOf(side, player);
  return &entrants.emplace_back(
      Entrant{.player = player, .batting = entry.batting, .pitching = entry.pitching});
}

// False: the game has too many players.
bool Scorer::NotePart(int side, int player, int position, bool starts) {
  const std::size_t before = sides_.at(side).entrants.size();
  Entrant* entrant = EntrantOf(side, player);
  if (entrant == nullptr) return false;
  GameSide& told = game_.sides.at(side);
  const bool isNew = sides_.at(side).entrants.size() > before;
  if (isNew && !starts) told.came.push_back(player);
  const unsigned bit = position > 0 ? 1U << static_cast<unsigned>(position) : 0;
  const bool pitches = position == kPitcher && (entrant->positions & bit) == 0;
  if (pitches && !starts) told.pitched.push_back(player);
  entrant->positions |= bit;
  return true;
}

int Scorer::Find(int side, std::string_view id) {
  Side& team = sides_.at(side);
  const int due = team.order.at(team.due);
  if (due != kNobody && team.club->players[due].id == id) return due;
  for (const Entrant& one : team.entrants) {
    if (team.club->players[one.player].id == id) return one.player;
  }
  return kNobody;
}

// What a change in the middle of a time at bat means for whom its end is charged to.
void Scorer::NoteChange(int side, int player, int order, int position) {
  Side& team = sides_.at(side);
  const bool relieves = side != atBat_ && position == kPitcher && player != team.pitcher;
  if (relieves && FavoursBatter(balls_, strikes_) && owesWalk_ == kNobody) {
    owesWalk_ = team.pitcher;
  }
  const bool batsFor = side == atBat_ && order > 0 && team.order.at(order) == batter_;
  if (batsFor && player != batter_) {
    if (strikes_ == 2 && owesStrikeout_ == kNobody) owesStrikeout_ = batter_;
    batter_ = player;
  }
}

const char* Scorer::Enter(int side, int player, int order, int position, bool starts) {
  if (order < 0 || order > kOrder || position < 1 || position > kPinchRunner) {
    return "there is no such place in the order or on the field";
  }
  Side& team = sides_.at(side);
  if (!NotePart(side, player, position, starts)) return kTooManyPlayers;
  if (open_) NoteChange(side, player, order, position);
  const int leaves = team.order.at(order);
  team.order.at(order) = player;
  if (position == kPitcher) team.pitcher = player;
  GameSide& told = game_.sides.at(side);
  if (starts) {
    if (order > 0) told.order.at(order - 1) = {player, position};
    if (position == kPitcher) told.pitcher = player;
    return nullptr;
  }
  if (leaves == kNobody || leaves == player) return nullptr;
  if (side == atBat_) std::ranges::replace(bases_, leaves, player);
  const Player& old = PlayerOf(side, leaves);
  for (Waiting& one : waiting_) {
    if (one.id == old.id) one.id = PlayerOf(side, player).id;
  }
  return nullptr;
}

void Scorer::PutOnBase(std::string_view id, int base) {
  std::erase_if(waiting_, [base](const Waiting& one) { return one.base == base; });
  waiting_.push_back({std::string(id), base});
}

const char* Scorer::BeginHalf(int inning, int side) {
  const bool first = inning_ == 0;
  const bool whole = first || outs_ == 3;
  inning_ = inning;
  atBat_ = side;
  outs_ = 0;
  bases_.fill(kNobody);
  charged_.fill(kNobody);
  open_ = false;
  owesWalk_ = owesStrikeout_ = kNobody;
  return whole ? nullptr : "the half-inning before it did not have three outs";
}

bool Scorer::InOrder(Side& side, int player) {
  if (side.order.at(side.due) == player) return true;
  for (int place = 1; place <= kOrder; ++place) {
    if (side.order.at(place) != player) continue;
    side.due = place;
    return true;
  }
  return false;
}

const char* Scorer::Score(int inning, int side, int batter, std::string_view count,
                          const Play& play) {
  if (game_.account == Account::BoxScore) return "a play of a game whose figures were given before";
  const char* fault = nullptr;
  game_.account = Account::Plays;
  if (inning != inning_ || side != atBat_) fault = BeginHalf(inning, side);
  for (const Waiting& one : waiting_) {
    const int player = Find(side, one.id);
    if (player == kNobody) fault = "a runner who is not in the game stands on a base";
    bases_.at(one.base) = player;
    charged_.at(one.base) = sides_.at(1 - side).pitcher;
  }
  waiting_.clear();
  if (!play.ended()) {
    open_ = true;
    batter_ = batter;
    balls_ = DigitAt(count, 0);
    strikes_ = DigitAt(count, 1);
  }
  if (const char* moved = MoveRunners(side, batter, play)) fault = moved;
  if (play.ended()) {
    if (const char* odd = CreditPlateAppearance(side, batter, play)) fault = odd;
    open_ = false;
    owesWalk_ = owesStrikeout_ = kNobody;
  }
  return fault;
}

// Who walks is the runner of the pitcher who owes the walk. A pitcher answers for as many runners
// as he left: whoever reaches base by a choice that puts another out takes over the charge for the
// runner in front of him.
std::array<int, kHome> Scorer::ChargesIn(int side, const Play& play) const {
  std::array<int, kHome> charges = charged_;
  const bool owed = play.appearance == PlateAppearance::Walk && owesWalk_ != kNobody;
  charges[0] = owed ? owesWalk_ : sides_.at(1 - side).pitcher;
  if (play.appearance != PlateAppearance::FieldersChoice || play.goes[0] == kIsOut) return charges;
  for (int out = kHome - 1; out > 0; --out) {
    if (bases_.at(out) == kNobody || play.goes.at(out) != kIsOut) continue;
    int charge = charges.at(out);
    for (int behind = out - 1; behind >= 0; --behind) {
      if (behind == 0 || bases_.at(behind) != kNobody) std::swap(charge, charges.at(behind));
    }
  }
  return charges;
}

const char* Scorer::MoveRunners(int side, int batter, const Play& play) {
  const char* fault = nullptr;
  std::array<int, kHome> after{kNobody, kNobody, kNobody, kNobody};
  const std::array<int, kHome> charges = ChargesIn(side, play);
  int left = 0;  // runners, without the batter
  GameSide& told = game_.sides.at(side);
  const int outs = play.outs();
  const bool loaded = std::ranges::none_of(bases_.begin() + 1, bases_.end(),
                                           [](int runner) { return runner == kNobody; });
  for (int from = kHome - 1; from >= 0; --from) {
    const int player = from == 0 ? batter : bases_.at(from);
    int to = play.goes.at(from);
    if (to == kStays && play.appearance == PlateAppearance::HomeRun && player != kNobody) {
      to = kHome;
    }
    if (player == kNobody && to != kStays) fault = "a runner moves from an empty base";
    if (play.steals.at(from) && player != kNobody) ++PlayerOf(side, player).batting.stolenBases;
    if (to == kHome) {
      ++told.runs;
      CountRun(side, batter, player, play.BatsIn(from, outs_, loaded && from == kHome - 1));
      ChargeRun(1 - side, charges.at(from));
    }
    if (to == kStays) to = from;
    if (to < 1 || to >= kHome || player == kNobody) continue;
    left += from > 0 ? 1 : 0;
    // After the third out nobody is told who went where.
    if (after.at(to) != kNobody && outs_ + outs < 3) fault = "two runners stand on one base";
    after.at(to) = player;
    charged_.at(to) = charges.at(from);
  }
  bases_ = after;
  if (play.leavesRunners()) PlayerOf(side, batter).batting.leftOnBase += left;
  if (outs == 0) return fault;
  outs_ += outs;
  if (outs_ > 3) fault = "the half-inning has more than three outs";
  const int pitcher = sides_.at(1 - side).pitcher;
  if (pitcher != kNobody) PlayerOf(1 - side, pitcher).pitching.outs += outs;
  return fault;
}

void Scorer::CountRun(int side, int batter, int player, bool battedIn) {
  if (player != kNobody) ++PlayerOf(side, player).batting.runs;
  if (battedIn) ++PlayerOf(side, batter).batting.runsBattedIn;
}

void Scorer::ChargeRun(int side, int pitcher) {
  if (pitcher != kNobody) ++PlayerOf(side, pitcher).pitching.runs;
}

const char* Scorer::CreditPlateAppearance(int side, int batter, const Play& play) {
  Side& team = sides_.at(side);
  const bool strikeout = play.appearance == PlateAppearance::Strikeout;
  const bool walk = play.appearance == PlateAppearance::Walk;
  const int charged = strikeout && owesStrikeout_ != kNobody ? owesStrikeout_ : batter;
  int pitcher = sides_.at(1 - side).pitcher;
  if (walk && owesWalk_ != kNobody) pitcher = owesWalk_;

  Batting& batting = PlayerOf(side, charged).batting;
  Pitching* pitching = pitcher == kNobody ? nullptr : &PlayerOf(1 - side, pitcher).pitching;
  if (play.countsAsAtBat()) ++batting.atBats;
  if (play.hit()) CreditHit(batting, pitching, play.appearance);
  if (play.appearance == PlateAppearance::HitByPitch) ++batting.hitByPitch;
  if (play.sacrificeHit) ++batting.sacrificeHits;
  if (play.sacrificeFly) ++batting.sacrificeFlies;
  if (play.groundedIntoDoublePlay) ++batting.intoDoublePlays;
  if (strikeout) {
    ++batting.strikeouts;
    if (pitching != nullptr) ++pitching->strikeouts;
  }
  if (walk) {
    ++batting.walks;
    if (pitching != nullptr) ++pitching->walks;
  }
  const bool inOrder = InOrder(team, batter);
  team.due = team.due % kOrder + 1;
  if (!inOrder) return "the batter has no place in the order";
  return pitching == nullptr ? "nobody pitches" : nullptr;
}

void Scorer::ChargeEarnedRuns(int side, int player, int runs) {
  PlayerOf(side, player).pitching.earnedRuns += runs;
  sides_.at(side).charged = true;
}

const char* Scorer::AddBatting(int side, int player, const Batting& figures) {
  if (!NotePart(side, player, 0, false)) return kTooManyPlayers;
  game_.account = Account::BoxScore;
  Batting& sum = PlayerOf(side, player).batting;
  for (const auto figure :
       {&Batting::atBats, &Batting::hits, &Batting::doubles, &Batting::triples, &Batting::homeRuns,
        &Batting::walks, &Batting::strikeouts, &Batting::hitByPitch, &Batting::stolenBases,
        &Batting::sacrificeHits, &Batting::sacrificeFlies, &Batting::runs, &Batting::runsBattedIn,
        &Batting::intoDoublePlays}) {
    sum.*figure += figures.*figure;
  }
  return nullptr;
}

const char* Scorer::AddPitching(int side, int player, const Pitching& figures, bool started) {
  if (started && game_.sides.at(side).pitcher == kNobody) game_.sides.at(side).pitcher = player;
  if (!NotePart(side, player, kPitcher, game_.sides.at(side).pitcher == player)) {
    return kTooManyPlayers;
  }
  game_.account = Account::BoxScore;
  Pitching& sum = PlayerOf(side, player).pitching;
  for (const auto figure :
       {&Pitching::outs, &Pitching::hits, &Pitching::homeRuns, &Pitching::walks,
        &Pitching::strikeouts, &Pitching::runs, &Pitching::earnedRuns, &Pitching::outsUncharged}) {
    sum.*figure += figures.*figure;
  }
  sides_.at(side).charged = true;  // each line tells for itself
  return nullptr;
}

const char* Scorer::NotePosition(int side, int player, int position) {
  return NotePart(side, player, position, false) ? nullptr : kTooManyPlayers;
}

void Scorer::SetRuns(int side, int runs) {
  game_.account = Account::BoxScore;
  game_.sides.at(side).runs = runs;
}

void Scorer::Credit(int Pitching::*decision, std::string_view id) {
  for (int side = 0; side < 2 && !id.empty(); ++side) {
    const int player = Find(side, id);
    if (player == kNobody) continue;
    ++(PlayerOf(side, player).pitching.*decision);
    won_ = won_ || decision == &Pitching::wins;
    return;
  }
}

void Scorer::End() {
  for (int side = 0; side < 2; ++side) {
    GameSide& told = game_.sides.at(side);
    packed_.clear();
    for (const Entrant& one : sides_.at(side).entrants) {
      Player& player = PlayerOf(side, one.player);
      ++player.batting.games;
      player.days.push_back(game_.day);
      for (int position = 1; position < kPositions; ++position) {
        if ((one.positions >> static_cast<unsigned>(position)) & 1U) {
          ++player.batting.gamesAt.at(position);
        }
      }
      if ((one.positions >> kPitcher) & 1U) ++player.pitching.games;
      if (told.pitcher == one.player) ++player.pitching.starts;
      if (!sides_.at(side).charged) {
        player.pitching.outsUncharged += player.pitching.outs - one.pitching.outs;
      }
      if (player.pitching.outsUncharged > one.pitching.outsUncharged) {
        NoteUntold(side, UntoldBit(&Pitching::earnedRuns));
      }
      PackDay(packed_, one.player, one.batting, player.batting, one.pitching, player.pitching);
    }
    if (game_.account == Account::LineUps) NoteUntold(side, kAllUntold);
    if (!won_ && game_.sides[0].runs != game_.sides[1].runs) {
      NoteUntold(side, UntoldBit(&Pitching::wins) | UntoldBit(&Pitching::losses) |
                           UntoldBit(&Pitching::saves));
    }
    told.figures.assign(packed_.begin(), packed_.end());
  }
  season_.games.push_back(std::move(game_));
}

}  // namespace dtb::archive
