#include "archive/play.h"

#include <algorithm>
#include <string>

namespace dtb::archive {
namespace {

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsStrength(char c) { return c == '+' || c == '-'; }

constexpr bool IsMark(char c) { return c == '!' || c == '?' || c == '#'; }

// The piece before the first mark outside brackets, which goes with it.
std::string_view Cut(std::string_view& rest, char mark) {
  int depth = 0;
  std::size_t end = 0;
  for (; end < rest.size(); ++end) {
    const char c = rest[end];
    if (c == '(') ++depth;
    if (c == ')') --depth;
    if (c == mark && depth <= 0) break;
  }
  const std::string_view piece = rest.substr(0, end);
  rest.remove_prefix(std::min(rest.size(), end + 1));
  return piece;
}

// Takes a start away.
bool Take(std::string_view& text, std::string_view start) {
  if (!text.starts_with(start)) return false;
  text.remove_prefix(start.size());
  return true;
}

int BaseOf(char c) {
  if (c == 'B') return 0;
  if (c == 'H') return kHome;
  return c >= '1' && c <= '3' ? c - '0' : -1;
}

// "(E5/TH)", "(4E3)": fielders of whom one erred. "(26)": fielders who made an out.
enum class Fielders { None, Out, Error };

Fielders FieldersIn(std::string_view bracket) {
  const std::string_view who = bracket.substr(0, bracket.find('/'));
  bool erred = false;
  for (const char c : who) {
    if (c == 'E') erred = true;
    if (c != 'E' && !IsDigit(c)) return Fielders::None;
  }
  if (who.empty()) return Fielders::None;
  return erred ? Fielders::Error : Fielders::Out;
}

// All brackets of a move together: an error undoes the out unless others made one after all.
bool OutStands(std::string_view brackets) {
  bool erred = false;
  while (!brackets.empty()) {
    const std::size_t open = brackets.find('(');
    if (open == std::string_view::npos) break;
    const std::size_t close = brackets.find(')', open);
    if (close == std::string_view::npos) break;
    const Fielders fielders = FieldersIn(brackets.substr(open + 1, close - open - 1));
    if (fielders == Fielders::Out) return true;
    erred = erred || fielders == Fielders::Error;
    brackets.remove_prefix(close + 1);
  }
  return !erred;
}

class Reader {
 public:
  explicit Reader(Play& play) : play_(play) {}

  bool Read(std::string_view text) {
    std::string_view description = Cut(text, '.');
    const std::string_view moves = text;
    bool understood = true;
    std::string_view event = Cut(description, '/');
    if (!description.empty()) ReadModifiers(description);
    if (!ReadEvent(event)) understood = false;
    if (!ReadMoves(moves)) understood = false;
    return understood;
  }

 private:
  void ReadModifiers(std::string_view modifiers) {
    while (!modifiers.empty()) {
      std::string_view one = Cut(modifiers, '/');
      while (!one.empty() && IsStrength(one.back())) one.remove_suffix(1);
      play_.sacrificeHit = play_.sacrificeHit || one == "SH";
      play_.sacrificeFly = play_.sacrificeFly || one == "SF";
      play_.groundedIntoDoublePlay = play_.groundedIntoDoublePlay || one.ends_with("GDP");
    }
  }

  void BatterGoes(PlateAppearance appearance, int to) {
    play_.appearance = appearance;
    play_.goes[0] = to;
  }

  // What may stand behind the letter of a hit, an error or a choice: fielders, how hard.
  static bool IsFielders(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return IsDigit(c) || IsStrength(c); });
  }

  bool ReadEvent(std::string_view event) {
    if (event.empty()) return false;
    switch (event.front()) {
      case 'S':
        if (!event.starts_with("SB")) return OnBase(PlateAppearance::Single, 1, event.substr(1));
        return ReadRunnerEvents(event);
      case 'D':
        if (event.starts_with("DI")) return ReadRunnerEvents(event);
        Take(event, "DGR");
        if (!event.empty() && event.front() == 'D') event.remove_prefix(1);
        return OnBase(PlateAppearance::Double, 2, event);
      case 'T':
        return OnBase(PlateAppearance::Triple, 3, event.substr(1));
      case 'H':
        if (Take(event, "HP")) return OnBase(PlateAppearance::HitByPitch, 1, event);
        if (!Take(event, "HR")) event.remove_prefix(1);
        return OnBase(PlateAppearance::HomeRun, kHome, event);
      case 'W':
        if (event.starts_with("WP")) return ReadRunnerEvents(event);
        return OnBase(PlateAppearance::Walk, 1, {}) && ReadJoined(event.substr(1));
      case 'I':
        Take(event, "IW") || Take(event, "I");
        return OnBase(PlateAppearance::Walk, 1, {}) && ReadJoined(event);
      case 'K':
        return ReadStrikeout(event.substr(1));
      case 'E':
        return OnBase(PlateAppearance::Error, 1, event.substr(1));
      case 'F':
        if (Take(event, "FC")) return OnBase(PlateAppearance::FieldersChoice, 1, event);
        return Take(event, "FLE") && IsFielders(event);
      case 'C':
        if (event.starts_with("CS")) return ReadRunnerEvents(event);
        return OnBase(PlateAppearance::Interference, 1, event.substr(1));
      case 'N':
        return event == "NP";
      case 'P':
      case 'B':
      case 'O':
        return ReadRunnerEvents(event);
      default:
        return IsDigit(event.front()) && ReadFieldedOut(event);
    }
  }

  bool OnBase(PlateAppearance appearance, int to, std::string_view fielders) {
    BatterGoes(appearance, to);
    return IsFielders(fielders);
  }

  bool ReadJoined(std::string_view rest) {
    if (rest.empty()) return true;
    return Take(rest, "+") && ReadRunnerEvents(rest);
  }

  // "K", "K23", "K+SB2"; an error among the fielders of the third strike leaves the batter safe.
  bool ReadStrikeout(std::string_view rest) {
    const std::size_t end = std::min(rest.find('+'), rest.size());
    const std::string_view fielders = rest.substr(0, end);
    const bool erred = FieldersIn(fielders) == Fielders::Error;
    BatterGoes(PlateAppearance::Strikeout, erred ? 1 : kIsOut);
    const bool understood = fielders.empty() || FieldersIn(fielders) != Fielders::None;
    return ReadJoined(rest.substr(end)) && understood;
  }

  // "SB3;SB2", "CS2(26)", "POCS2(1361)", "PO1(E3)", "WP", "PB", "BK", "DI", "OA", "E2".
  bool ReadRunnerEvents(std::string_view events) {
    bool understood = true;
    while (!events.empty()) {
      if (!ReadRunnerEvent(Cut(events, ';'))) understood = false;
    }
    return understood;
  }

  bool ReadRunnerEvent(std::string_view event) {
    for (const std::string_view plain : {"WP", "PB", "BK", "DI", "OA"}) {
      if (event == plain) return true;
    }
    if (Take(event, "E")) return IsFielders(event);
    const bool steal = Take(event, "SB");
    const bool pickedOff = !steal && Take(event, "PO");
    const bool caught = !steal && Take(event, "CS");
    if ((!steal && !pickedOff && !caught) || event.empty()) return false;
    const int base = BaseOf(event.front());
    const bool ahead = steal || caught;  // the base named is the one he ran for
    const int from = ahead ? base - 1 : base;
    if (from < 1 || from >= kHome) return false;
    const bool out = !steal && OutStands(event.substr(1));
    if (steal) play_.steals.at(from) = true;
    if (out) play_.goes.at(from) = kIsOut;
    if (!out && ahead) play_.goes.at(from) = base;
    return true;
  }

  // "63", "64(1)3", "3(B)6(1)", "54(1)", "6E3": whom a bracket names is out, and the batter is
  // where fielders stand behind the last bracket.
  bool ReadFieldedOut(std::string_view fielders) {
    BatterGoes(PlateAppearance::Out, 1);
    while (!fielders.empty()) {
      const std::size_t end = std::min(fielders.find('('), fielders.size());
      std::string_view who = fielders.substr(0, end);
      while (!who.empty() && IsStrength(who.back())) who.remove_suffix(1);
      const Fielders kind = FieldersIn(who);
      if (kind == Fielders::None) return false;
      const bool erred = kind == Fielders::Error;
      fielders.remove_prefix(end);
      if (fielders.empty()) {
        if (!erred) play_.goes[0] = kIsOut;
        if (erred) play_.appearance = PlateAppearance::Error;
        return true;
      }
      const int base = fielders.size() > 2 && fielders[2] == ')' ? BaseOf(fielders[1]) : -1;
      if (base < 0 || base == kHome) return false;
      if (!erred) play_.goes.at(base) = kIsOut;
      fielders.remove_prefix(3);
    }
    if (play_.goes[0] != kIsOut) play_.appearance = PlateAppearance::FieldersChoice;
    return true;
  }

  bool ReadMoves(std::string_view moves) {
    bool understood = true;
    while (!moves.empty()) {
      const std::string_view move = Cut(moves, ';');
      const int from = move.size() < 3 ? -1 : BaseOf(move[0]);
      const int to = move.size() < 3 ? -1 : BaseOf(move[2]);
      if (from < 0 || from == kHome || to < 1 || (move[1] != '-' && move[1] != 'X')) {
        understood = false;
        continue;
      }
      const std::string_view brackets = move.substr(3);
      const auto says = [brackets](std::string_view mark) {
        return brackets.find(mark) != std::string_view::npos;
      };
      if (says("(RBI)")) play_.marks.at(from) = RunMark::BattedIn;
      if (says("(NR)") || says("(NORBI)")) play_.marks.at(from) = RunMark::NotBattedIn;
      const bool out = move[1] == 'X' && OutStands(brackets);
      play_.goes.at(from) = out ? kIsOut : to;
    }
    return understood;
  }

  Play& play_;
};

}  // namespace

bool Play::countsAsAtBat() const {
  switch (appearance) {
    case PlateAppearance::None:
    case PlateAppearance::Walk:
    case PlateAppearance::HitByPitch:
    case PlateAppearance::Interference:
      return false;
    default:
      return !sacrificeHit && !sacrificeFly;
  }
}

int Play::outs() const { return static_cast<int>(std::ranges::count(goes, kIsOut)); }
bool Play::BatsIn(int from, int outsBefore, bool forced) const {
  const RunMark mark = marks.at(from);
  if (mark != RunMark::None) return mark == RunMark::BattedIn;
  switch (appearance) {
    case PlateAppearance::None:
    case PlateAppearance::Strikeout:
      return false;
    case PlateAppearance::Walk:
    case PlateAppearance::HitByPitch:
    case PlateAppearance::Interference:
      return forced;
    case PlateAppearance::Error:
      return from == kHome - 1 && outsBefore < 2;
    default:
      return !groundedIntoDoublePlay;
  }
}

bool Play::leavesRunners() const {
  const bool byChoice = appearance == PlateAppearance::FieldersChoice && outs() > 0;
  return countsAsAtBat() && !hit() && (goes[0] == kIsOut || byChoice);
}

int Play::runs() const { return static_cast<int>(std::ranges::count(goes, kHome)); }

bool ReadPlay(std::string_view text, Play& play) {
  play = Play{};
  // Marks of doubt and wonder say nothing.
  if (std::ranges::none_of(text, IsMark)) return Reader(play).Read(text);
  std::string plain(text);
  std::erase_if(plain, IsMark);
  return Reader(play).Read(plain);
}

}  // namespace dtb::archive
