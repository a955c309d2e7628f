#include "plays/game_events.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

#include "archive/season_fields.h"

namespace dtb::plays {
namespace {

using archive::Number;
using archive::PlateAppearance;
using archive::SideNumber;
using archive::TakeField;

// The marks stand behind the moves, "S8.3-H;2-H(E8)(NR)(UR)".
std::array<RunMark, 4> MarksOf(std::string_view text) {
  std::array<RunMark, 4> marks;
  const std::size_t dot = text.find('.');
  if (dot == std::string_view::npos) return marks;
  std::string_view moves = text.substr(dot + 1);
  while (!moves.empty()) {
    const std::size_t end = std::min(moves.find(';'), moves.size());
    const std::string_view move = moves.substr(0, end);
    moves.remove_prefix(std::min(end + 1, moves.size()));
    const std::size_t from = std::string_view("B123").find(move.substr(0, 1));
    if (move.empty() || from == std::string_view::npos) continue;
    const auto has = [&](std::string_view mark) { return move.find(mark) != move.npos; };
    marks.at(from) = {.battedIn = has("(RBI)"),
                      .notBattedIn = has("(NR)") || has("(NORBI)"),
                      .unearned = has("(UR)"),
                      .unearnedOfTeam = has("(TUR)")};
  }
  return marks;
}

Event EntryOf(std::string_view line, Event::Kind kind) {
  Event entry{.kind = kind, .id = std::string(TakeField(line))};
  TakeField(line);  // the name
  entry.side = SideNumber(TakeField(line)).value();
  entry.order = Number(TakeField(line)).value();
  entry.position = Number(TakeField(line)).value();
  return entry;
}

Event PlayOf(std::string_view line) {
  Event event{.kind = Event::Kind::Play};
  event.inning = Number(TakeField(line)).value();
  event.side = SideNumber(TakeField(line)).value();
  event.id = std::string(TakeField(line));
  event.count = std::string(TakeField(line));
  TakeField(line);  // the pitches
  event.text = std::string(TakeField(line));
  if (!archive::ReadPlay(event.text, event.play)) throw std::runtime_error(event.text);
  event.marks = MarksOf(event.text);
  return event;
}

Event NumberedOf(std::string_view line, Event::Kind kind) {
  Event event{.kind = kind, .id = std::string(TakeField(line))};
  event.number = Number(TakeField(line)).value();
  return event;
}

void AddLine(std::string_view line, std::vector<GameEvents>& games) {
  const auto take = [&line](std::string_view start) {
    const bool starts = line.starts_with(start);
    if (starts) line.remove_prefix(start.size());
    return starts;
  };
  if (take("id,")) {
    games.push_back({std::string(TakeField(line)), {}});
  } else if (take("info,")) {
    const std::string key(TakeField(line));
    games.back().info[key] = TakeField(line);
  } else if (take("start,")) {
    games.back().events.push_back(EntryOf(line, Event::Kind::Start));
  } else if (take("sub,")) {
    games.back().events.push_back(EntryOf(line, Event::Kind::Sub));
  } else if (take("play,")) {
    games.back().events.push_back(PlayOf(line));
  } else if (take("radj,")) {
    games.back().events.push_back(NumberedOf(line, Event::Kind::Runner));
  } else if (take("data,er,")) {
    games.back().events.push_back(NumberedOf(line, Event::Kind::Earned));
  }
}

}  // namespace

std::vector<GameEvents> ReadGames(Archive& archive) {
  std::vector<GameEvents> games;
  for (std::size_t file = 0; file < archive.files().size(); ++file) {
    if (archive.files()[file].name.find(".EV") == std::string::npos) continue;
    std::string bytes;
    archive.Read(file, bytes, Always);
    std::string_view rest = bytes;
    while (!rest.empty()) {
      const std::size_t end = std::min(rest.find('\n'), rest.size());
      std::string_view line = rest.substr(0, end);
      rest.remove_prefix(std::min(end + 1, rest.size()));
      if (line.ends_with('\r')) line.remove_suffix(1);
      AddLine(line, games);
    }
  }
  return games;
}

int GoesTo(const archive::Play& play, int from) {
  const int to = play.goes.at(from);
  if (to != archive::kStays) return to;
  return play.appearance == PlateAppearance::HomeRun ? archive::kHome : from;
}

bool IsBattedIn(const Event& event, int from, int outsBefore, bool forced) {
  const RunMark& mark = event.marks.at(from);
  if (mark.battedIn || mark.notBattedIn) return mark.battedIn;
  switch (event.play.appearance) {
    case PlateAppearance::None:
    case PlateAppearance::Strikeout:
      return false;
    case PlateAppearance::Walk:
    case PlateAppearance::HitByPitch:
    case PlateAppearance::Interference:
      return forced;
    case PlateAppearance::Error:
      return from == 3 && outsBefore < 2;
    default:
      return event.text.find("GDP") == std::string::npos;
  }
}

}  // namespace dtb::plays
