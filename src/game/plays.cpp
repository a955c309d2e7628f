#include "game/plays.h"

#include <algorithm>

#include "game/field_text.h"

namespace dtb {
namespace {

std::string BytesOf(const Play& play) {
  std::string bytes;
  FieldWriter{bytes}.Put(play);
  return bytes;
}

}  // namespace

int OutsOf(const Play& play) {
  switch (play.outcome) {
    case Outcome::Strikeout:
    case Outcome::Groundout:
    case Outcome::Flyout:
    case Outcome::Lineout:
    case Outcome::Popout:
    case Outcome::FieldersChoice:
    case Outcome::ThrownOut:
    case Outcome::Sacrifice:
      return 1;
    case Outcome::DoublePlay:
      return 2;
    default:
      return 0;
  }
}

std::string RunnerOutIn(const Play& play) {
  for (const Move& move : play.moves) {
    if (move.to == kPutOut && move.from != kAtBatPlace) return move.name;
  }
  return "";
}

int RunsOf(const Play& play) {
  const auto home = std::ranges::count(play.moves, kHomePlate, &Move::to);
  return static_cast<int>(home) + (play.outcome == Outcome::RunBattedIn ? 1 : 0);
}

Play PlayList::At(std::size_t place) const {
  Play play;
  FieldReader(std::string_view(bytes_).substr(heads_.at(place).start))(play);
  return play;
}

std::vector<Play> PlayList::All() const {
  std::vector<Play> plays(size());
  FieldReader reader(bytes_);
  for (Play& play : plays) reader(play);
  return plays;
}

void PlayList::Append(const Play& play) {
  heads_.push_back({bytes_.size(), play.half, play.outcome});
  bytes_ += BytesOf(play);
}

void PlayList::Replace(std::size_t place, const Play& play) {
  const std::size_t start = heads_.at(place).start;
  const std::size_t end = place + 1 < size() ? heads_[place + 1].start : bytes_.size();
  heads_[place] = {start, play.half, play.outcome};
  const std::string bytes = BytesOf(play);
  bytes_.replace(start, end - start, bytes);
  for (std::size_t later = place + 1; later < size(); ++later) {
    heads_[later].start += bytes.size() - (end - start);
  }
}

}  // namespace dtb
