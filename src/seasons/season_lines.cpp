#include "seasons/season_lines.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "teams/team_file.h"

namespace dtb::seasons {
namespace {

// The next field of a line, without the quotation marks around it.
std::string_view NextField(std::string_view& line) {
  std::string_view field;
  if (!line.empty() && line.front() == '"') {
    const std::size_t end = std::min(line.find('"', 1), line.size());
    field = line.substr(1, end - 1);
    line.remove_prefix(std::min(end + 1, line.size()));
    line.remove_prefix(std::min(line.find(','), line.size()));
  } else {
    field = line.substr(0, line.find(','));
    line.remove_prefix(field.size());
  }
  if (!line.empty()) line.remove_prefix(1);
  return field;
}

std::optional<int> Number(std::string_view text) {
  int number = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (fault != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<int> SideNumber(std::string_view text) {
  if (text == "0") return 0;
  if (text == "1") return 1;
  return std::nullopt;
}

// Text that the person will read: one line of UTF-8.
std::string Readable(std::string_view bytes) {
  std::string text = DecodedText(std::string(bytes));
  std::erase_if(text, [](unsigned char c) { return c < 0x20 || c == 0x7F; });
  const std::size_t start = std::min(text.find_first_not_of(' '), text.size());
  text.erase(0, start);
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

// "L", "R" or "B"; archives have other signs for what nobody knows.
std::string Hand(std::string_view text) {
  return text == "L" || text == "R" || text == "B" ? std::string(text) : std::string();
}

}  // namespace

template <class TakeLines>
void SeasonLines::EachLine(const std::string& file, std::string_view bytes, TakeLines take) {
  file_ = &file;
  line_ = notedLine_ = 0;
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    ++line_;
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!line.empty() && line != "\x1A") take(line);
  }
}

// A line counts once, whatever is wrong with it.
void SeasonLines::Note(const char* what) {
  if (std::exchange(notedLine_, line_) == line_) return;
  ++season_.faultCount;
  if (season_.faults.size() < kFaultsKept) season_.faults.push_back({*file_, line_, what});
}

int SeasonLines::ClubOf(int year, std::string_view id) {
  const auto key = std::pair(year, std::string(id));
  const auto found = clubs_.find(key);
  if (found != clubs_.end()) return found->second;
  const int club = static_cast<int>(season_.clubs.size());
  season_.clubs.push_back({year, key.second, Readable(id), {}, {}});
  men_.emplace_back();
  clubs_.emplace(key, club);
  return club;
}

// A man whom no roster names has the name that the game gives him.
int SeasonLines::ManOf(int club, std::string_view id, std::string_view name) {
  Places& places = men_[club];
  if (const auto found = places.find(id); found != places.end()) return found->second;
  std::vector<Man>& men = season_.clubs[club].men;
  const int man = static_cast<int>(men.size());
  Man& fresh = men.emplace_back();
  fresh.id = std::string(id);
  const std::string whole = Readable(name);
  const std::size_t blank = whole.find(' ');
  if (blank != std::string::npos) fresh.first = whole.substr(0, blank);
  fresh.last = blank == std::string::npos ? whole : whole.substr(blank + 1);
  places.emplace(fresh.id, man);
  return man;
}

void SeasonLines::TakeClubs(const std::string& file, int year, std::string_view bytes) {
  EachLine(file, bytes, [&](std::string_view line) {
    const std::string_view id = NextField(line);
    NextField(line);  // the league
    const std::string city = Readable(NextField(line));
    const std::string nickname = Readable(NextField(line));
    if (id.empty() || city.empty()) return Note("no club");
    Club& club = season_.clubs[ClubOf(year, id)];
    club.city = city;
    club.nickname = nickname;
  });
}

void SeasonLines::TakeRoster(const std::string& file, int year, std::string_view bytes) {
  EachLine(file, bytes, [&](std::string_view line) {
    const std::string_view id = NextField(line);
    const std::string last = Readable(NextField(line));
    const std::string first = Readable(NextField(line));
    const std::string_view bats = NextField(line);
    const std::string_view throws = NextField(line);
    const std::string_view club = NextField(line);
    if (id.empty() || last.empty() || club.empty()) return Note("no man of a roster");
    const int place = ClubOf(year, club);
    Man& man = season_.clubs[place].men[ManOf(place, id, {})];
    man.last = last;
    man.first = first;
    man.bats = Hand(bats);
    man.throws = Hand(throws);
    man.position = Readable(NextField(line));
  });
}

void SeasonLines::TakeGames(const std::string& file, std::string_view bytes) {
  state_ = State::None;
  EachLine(file, bytes, [&](std::string_view line) { TakeLine(line); });
  CloseGame();
}

void SeasonLines::TakeLine(std::string_view line) {
  if (line.starts_with("play,")) return TakePlay(line.substr(5));
  if (line.starts_with("info,")) return TakeInfo(line.substr(5));
  if (line.starts_with("sub,")) return TakeEntry(line.substr(4), false);
  if (line.starts_with("start,")) return TakeEntry(line.substr(6), true);
  if (line.starts_with("data,")) return TakeEarnedRuns(line.substr(5));
  if (line.starts_with("id,")) return TakeId(line.substr(3));
  if (line.starts_with("radj,")) return TakeRunner(line.substr(5));
  // Remarks, hands and the order out of turn change no figure: each play names its batter.
  constexpr std::array<std::string_view, 8> kOthers{"com,",     "badj,",    "padj,", "ladj,",
                                                    "presadj,", "version,", "line,", "stat,"};
  const auto starts = [&](std::string_view word) { return line.starts_with(word); };
  if (std::ranges::none_of(kOthers, starts)) Note("a kind of line that is not known");
}

void SeasonLines::TakeId(std::string_view id) {
  CloseGame();
  id = NextField(id);
  state_ = State::Skipped;
  constexpr std::size_t kIdLength = 12;  // three letters, year, month, day, number
  const bool named = id.size() == kIdLength &&
                     id.substr(3).find_first_not_of("0123456789") == std::string_view::npos;
  if (!named) return Note("no game's name");
  if (!seen_.emplace(id).second) return Note("a game that was read before");
  state_ = State::Heading;
  game_ = Game{};
  game_.id = std::string(id);
  game_.number = id.back() - '0';
  game_.date = game_.id.substr(3, 4) + '-' + game_.id.substr(7, 2) + '-' + game_.id.substr(9, 2);
  home_ = game_.id.substr(0, 3);
  visitors_.clear();
}

void SeasonLines::TakeInfo(std::string_view line) {
  if (state_ == State::None) Note("a line before the first game");
  if (state_ != State::Heading) return;
  if (line.starts_with("visteam,")) visitors_ = std::string(line.substr(8));
  if (line.starts_with("hometeam,")) home_ = std::string(line.substr(9));
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
  game_.sides[0].club = ClubOf(year, visitors_);
  game_.sides[1].club = ClubOf(year, home_);
  scorer_.Begin(game_);
  state_ = State::Open;
  return true;
}

void SeasonLines::CloseGame() {
  if (state_ == State::Open) scorer_.End();
  state_ = State::None;
}

void SeasonLines::TakeEntry(std::string_view line, bool starts) {
  if (!OpenGame()) return;
  const std::string_view id = NextField(line);
  const std::string_view name = NextField(line);
  const auto side = SideNumber(NextField(line));
  const auto order = Number(NextField(line));
  const auto position = Number(NextField(line));
  if (id.empty() || !side || !order || !position) return Note("no man who comes into a game");
  const int man = ManOf(game_.sides.at(*side).club, id, name);
  if (const char* fault = scorer_.Enter(*side, man, *order, *position, starts)) Note(fault);
}

void SeasonLines::TakePlay(std::string_view line) {
  if (!OpenGame()) return;
  const auto inning = Number(NextField(line));
  const auto side = SideNumber(NextField(line));
  const std::string_view id = NextField(line);
  const std::string_view count = NextField(line);
  NextField(line);  // the pitches
  if (!inning || *inning < 1 || !side || id.empty() || line.empty()) return Note("no play");
  int batter = scorer_.Find(*side, id);
  if (batter == kNobody) {
    batter = ManOf(game_.sides.at(*side).club, id, {});
    Note("a batter who is not in the game");
  }
  Play play;
  if (!ReadPlay(line, play)) Note("a play that makes no sense, or only in part");
  if (const char* fault = scorer_.Score(*inning, *side, batter, count, play)) Note(fault);
}

void SeasonLines::TakeEarnedRuns(std::string_view line) {
  if (NextField(line) != "er" || !OpenGame()) return;
  const std::string_view id = NextField(line);
  const auto runs = Number(NextField(line));
  constexpr int kMostRuns = 99;
  if (!runs || *runs < 0 || *runs > kMostRuns) return Note("no number of earned runs");
  for (int side = 0; side < 2; ++side) {
    const int man = scorer_.Find(side, id);
    if (man != kNobody) return scorer_.ChargeEarnedRuns(side, man, *runs);
  }
  Note("earned runs of a pitcher who is not in the game");
}

void SeasonLines::TakeRunner(std::string_view line) {
  if (!OpenGame()) return;
  const std::string_view id = NextField(line);
  const auto base = Number(NextField(line));
  if (!base || *base < 1 || *base >= kHome) return Note("no base for a runner");
  scorer_.PutOnBase(id, *base);
}

Season SeasonLines::Take() {
  std::ranges::sort(season_.games, [](const Game& a, const Game& b) {
    return std::tie(a.date, a.number, a.id) < std::tie(b.date, b.number, b.id);
  });
  return std::move(season_);
}

}  // namespace dtb::seasons
