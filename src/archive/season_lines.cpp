#include "archive/season_lines.h"

#include <algorithm>
#include <utility>

#include "archive/season_fields.h"
#include "archive/season_finish.h"
#include "base/utf8.h"

namespace dtb::archive {
namespace {

// "L", "R" or "B"; archives have other signs for what nobody knows.
std::string Hand(std::string_view text) {
  return text == "L" || text == "R" || text == "B" ? std::string(text) : std::string();
}

}  // namespace

template <class TakeLines>
bool SeasonLines::EachLine(const std::string& file, std::string_view bytes, const GoOn& goOn,
                           TakeLines take) {
  constexpr int kLinesBetween = 256;
  const auto all = static_cast<double>(bytes.size()) + 1;
  file_ = &file;
  line_ = notedLine_ = 0;
  while (!bytes.empty()) {
    if (line_ % kLinesBetween == 0 && !goOn(1 - static_cast<double>(bytes.size()) / all)) {
      return false;
    }
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    ++line_;
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!line.empty() && line != "\x1A") take(line);
  }
  return true;
}

// A line counts once, whatever is wrong with it.
void SeasonLines::Note(const char* what) {
  if (std::exchange(notedLine_, line_) == line_) return;
  ++season_.faultCount;
  if (season_.faults.size() < kFaultsKept) season_.faults.push_back({*file_, line_, what});
}

// A name that no person has is cut.
std::string SeasonLines::Name(std::string_view bytes) {
  constexpr std::size_t kLongestRead = 4 * season_limit::kNameBytes;
  std::string name = Readable(bytes.substr(0, kLongestRead));
  if (name.size() <= season_limit::kNameBytes) return name;
  Note("a name that is far too long");
  std::size_t most = season_limit::kNameBytes;
  while (most > 0 && ContinuesCharacter(name[most])) --most;
  name.resize(most);
  return name;
}

int SeasonLines::ClubOf(int year, std::string_view id) {
  const auto key = std::pair(year, std::string(id));
  const auto found = clubs_.find(key);
  if (found != clubs_.end()) return found->second;
  const char* fault = !IsId(id)                                      ? "a club without a name"
                      : season_.clubs.size() >= season_limit::kClubs ? "far too many clubs"
                                                                     : nullptr;
  if (fault != nullptr) {
    Note(fault);
    return kNobody;
  }
  const int club = static_cast<int>(season_.clubs.size());
  Club& fresh = season_.clubs.emplace_back();
  fresh.year = year;
  fresh.id = key.second;
  players_.emplace_back();
  clubs_.emplace(key, club);
  return club;
}

// A player whom no roster names has the name that the game gives him.
int SeasonLines::PlayerOf(int club, std::string_view id, std::string_view name) {
  Places& places = players_[club];
  if (const auto found = places.find(id); found != places.end()) return found->second;
  std::vector<Player>& players = season_.clubs[club].players;
  const bool full =
      players.size() >= season_limit::kPlayersOfClub || allPlayers_ >= season_limit::kPlayers;
  if (full || !IsId(id)) {
    Note(full ? "far too many players for a club" : "a player without a name");
    return kNobody;
  }
  ++allPlayers_;
  const int player = static_cast<int>(players.size());
  Player& fresh = players.emplace_back();
  fresh.id = std::string(id);
  const std::string whole = Name(name);
  const std::size_t blank = whole.find(' ');
  if (blank != std::string::npos) fresh.first = whole.substr(0, blank);
  fresh.last = blank == std::string::npos ? whole : whole.substr(blank + 1);
  places.emplace(fresh.id, player);
  return player;
}

bool SeasonLines::TakeClubs(const std::string& file, int year, std::string_view bytes,
                            const GoOn& goOn) {
  return EachLine(file, bytes, goOn, [&](std::string_view line) {
    const std::string_view id = TakeField(line);
    const std::string_view league = TakeField(line);
    const std::string city = Name(TakeField(line));
    const std::string nickname = Name(TakeField(line));
    if (id.empty() || city.empty()) return Note("no club");
    const int place = ClubOf(year, id);
    if (place == kNobody) return;
    Club& club = season_.clubs[place];
    club.listed = true;
    club.league = Name(league);
    club.city = city;
    club.nickname = nickname;
  });
}

bool SeasonLines::TakeRoster(const std::string& file, int year, std::string_view club,
                             std::string_view bytes, const GoOn& goOn) {
  return EachLine(file, bytes, goOn, [&](std::string_view line) {
    const std::string_view id = TakeField(line);
    const std::string last = Name(TakeField(line));
    const std::string first = Name(TakeField(line));
    const std::string_view bats = TakeField(line);
    const std::string_view throws = TakeField(line);
    TakeField(line);  // his own club, on the roster of a game of several clubs
    if (id.empty() || last.empty()) return Note("a roster line without a player");
    const int place = ClubOf(year, club);
    const int known = place == kNobody ? kNobody : PlayerOf(place, id, {});
    if (known == kNobody) return;
    Player& player = season_.clubs[place].players[known];
    player.last = last;
    player.first = first;
    player.bats = Hand(bats);
    player.throws = Hand(throws);
    player.position = Name(TakeField(line));
  });
}

bool SeasonLines::TakeGames(const std::string& file, std::string_view bytes, const GoOn& goOn) {
  state_ = State::None;
  const bool whole = EachLine(file, bytes, goOn, [&](std::string_view line) { TakeLine(line); });
  CloseGame();
  return whole;
}

void SeasonLines::TakeLine(std::string_view line) {
  if (line.starts_with("play,")) return TakePlay(line.substr(5));
  if (line.starts_with("info,")) return TakeInfo(line.substr(5));
  if (line.starts_with("sub,")) return TakeEntry(line.substr(4), false);
  if (line.starts_with("start,")) return TakeEntry(line.substr(6), true);
  if (line.starts_with("data,")) return TakeEarnedRuns(line.substr(5));
  if (line.starts_with("id,")) return TakeId(line.substr(3));
  if (line.starts_with("radj,")) return TakeRunner(line.substr(5));
  if (line.starts_with("stat,")) return TakeFigures(line.substr(5));
  if (line.starts_with("line,")) return TakeLineScore(line.substr(5));
  // Remarks, hands and the order out of turn change no figure: each play names its batter.
  constexpr std::array<std::string_view, 7> kOthers{"com,",     "badj,",    "padj,", "ladj,",
                                                    "presadj,", "version,", "event,"};
  const auto starts = [&](std::string_view word) { return line.starts_with(word); };
  if (std::ranges::none_of(kOthers, starts)) Note("an unknown kind of line");
}

void SeasonLines::TakeId(std::string_view id) {
  CloseGame();
  id = TakeField(id);
  state_ = State::Skipped;
  constexpr std::size_t kIdLength = 12;  // three letters, year, month, day, number
  const bool named = id.size() == kIdLength &&
                     id.substr(3).find_first_not_of("0123456789") == std::string_view::npos;
  if (!named) return Note("no game's name");
  if (season_.games.size() >= season_limit::kGames) return Note("far too many games");
  if (!seen_.emplace(id).second) return Note("a game that was read before");
  state_ = State::Heading;
  game_ = Game{};
  decisions_.clear();
  game_.id = std::string(id);
  game_.number = id.back() - '0';
  game_.date = game_.id.substr(3, 4) + '-' + game_.id.substr(7, 2) + '-' + game_.id.substr(9, 2);
  game_.day = DayOf(game_.date);
  home_ = game_.id.substr(0, 3);
  visitors_.clear();
}

void SeasonLines::TakeInfo(std::string_view line) {
  if (state_ == State::None) Note("a line before the first game");
  const std::string_view what = TakeField(line);
  const std::string_view value = TakeField(line);
  if (what == "forfeit") return TakeForfeit(value);
  if (state_ != State::Heading) return;
  for (const auto& [word, decision] :
       {std::pair{"wp", &Pitching::wins}, {"lp", &Pitching::losses}, {"save", &Pitching::saves}}) {
    if (what == word) decisions_.emplace_back(decision, value);
  }
  if (what == "visteam") visitors_ = std::string(value);
  if (what == "hometeam") home_ = std::string(value);
}

void SeasonLines::TakeForfeit(std::string_view to) {
  const Forfeit forfeit = to == "V"   ? Forfeit::ToVisitors
                          : to == "H" ? Forfeit::ToHome
                          : to == "T" ? Forfeit::ToNobody
                                      : Forfeit::No;
  if (state_ == State::Heading) game_.forfeit = forfeit;
  if (state_ == State::Open) scorer_.NoteForfeit(forfeit);
}

// True once the game can be counted.
bool SeasonLines::OpenGame() {
  if (state_ == State::Open) return true;
  if (state_ == State::None) Note("a line before the first game");
  if (state_ != State::Heading) return false;
  if (visitors_.empty() || home_.empty() || visitors_ == home_) {
    Note("a game without its two teams");
    state_ = State::Skipped;
    return false;
  }
  const int year = Number(std::string_view(game_.date).substr(0, 4)).value_or(0);
  const std::array<int, 2> clubs{ClubOf(year, visitors_), ClubOf(year, home_)};
  if (std::ranges::find(clubs, kNobody) != clubs.end()) {
    state_ = State::Skipped;
    return false;
  }
  for (std::size_t side = 0; side < 2; ++side) game_.sides.at(side).club = clubs.at(side);
  scorer_.Begin(game_);
  state_ = State::Open;
  return true;
}

void SeasonLines::CloseGame() {
  if (state_ == State::Open) {
    for (const auto& [decision, id] : decisions_) scorer_.Credit(decision, id);
    scorer_.End();
  }
  state_ = State::None;
}

void SeasonLines::TakeEntry(std::string_view line, bool starts) {
  if (!OpenGame()) return;
  const std::string_view id = TakeField(line);
  const std::string_view name = TakeField(line);
  const auto side = SideNumber(TakeField(line));
  const auto order = Number(TakeField(line));
  const auto position = Number(TakeField(line));
  if (id.empty() || !side || !order || !position) return Note("a lineup line without a player");
  const int player = PlayerOf(game_.sides.at(*side).club, id, name);
  if (player == kNobody) return;
  if (const char* fault = scorer_.Enter(*side, player, *order, *position, starts)) Note(fault);
}

void SeasonLines::TakePlay(std::string_view line) {
  if (!OpenGame()) return;
  const auto inning = Number(TakeField(line));
  const auto side = SideNumber(TakeField(line));
  const std::string_view id = TakeField(line);
  const std::string_view count = TakeField(line);
  TakeField(line);  // the pitches
  if (!inning || *inning < 1 || !side || id.empty() || line.empty()) return Note("no play");
  int batter = scorer_.Find(*side, id);
  if (batter == kNobody) {
    batter = PlayerOf(game_.sides.at(*side).club, id, {});
    Note("a batter who is not in the game");
    if (batter == kNobody) return;
  }
  Play play;
  if (!ReadPlay(line, play)) Note("a play that cannot be read, or only in part");
  if (const char* fault = scorer_.Score(*inning, *side, batter, count, play)) Note(fault);
}

void SeasonLines::TakeEarnedRuns(std::string_view line) {
  if (TakeField(line) != "er" || !OpenGame()) return;
  const std::string_view id = TakeField(line);
  const auto runs = Number(TakeField(line));
  constexpr int kMostRuns = 99;
  if (!runs || *runs < 0 || *runs > kMostRuns) return Note("earned runs without a number");
  for (int side = 0; side < 2; ++side) {
    const int player = scorer_.Find(side, id);
    if (player != kNobody) return scorer_.ChargeEarnedRuns(side, player, *runs);
  }
  Note("earned runs of a pitcher who is not in the game");
}

void SeasonLines::TakeRunner(std::string_view line) {
  if (!OpenGame()) return;
  const std::string_view id = TakeField(line);
  const auto base = Number(TakeField(line));
  if (!base || *base < 1 || *base >= kHome) return Note("a runner without a base");
  scorer_.PutOnBase(id, *base);
}

Season SeasonLines::Take() {
  FinishSeason(season_);
  return std::move(season_);
}

}  // namespace dtb::archive
