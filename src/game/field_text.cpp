#include "game/field_text.h"

#include <bit>
#include <utility>

namespace dtb {
namespace {

// Numbers are groups of seven bits, the lowest first; the eighth bit tells that more follow.
constexpr unsigned kGroup = 7;
constexpr unsigned kMore = 0x80;

// What a play begins with, and what stands where no further play does.
constexpr char kPlay = '1';
constexpr char kNoPlay = '0';

constexpr std::uint64_t kMostMoves = 64;  // far beyond what four players can do in a play

}  // namespace

void FieldWriter::PutNumber(std::uint64_t number) {
  while (number >= kMore) {
    text_ += static_cast<char>((number & (kMore - 1)) | kMore);
    number >>= kGroup;
  }
  text_ += static_cast<char>(number);
}

void FieldWriter::Put(std::string_view value) {
  PutNumber(value.size());
  text_ += value;
}

void FieldWriter::Put(double value) { PutNumber(std::bit_cast<std::uint64_t>(value)); }

void FieldWriter::Put(Colour value) {
  for (const std::uint8_t part : {value.red, value.green, value.blue}) {
    text_ += static_cast<char>(part);
  }
}

void FieldWriter::Put(const Picture& value) {
  Put(value.path);
  PutNumber(value.stamp);
}

void FieldWriter::Put(const LineupList& list) {
  PutNumber(list.entries().size());
  for (const std::string& entry : list.entries()) Put(entry);
  Put(list.selected());
}

void FieldWriter::Put(const StatGrid& grid) {
  for (int column = 0; column < grid.columns(); ++column) {
    Put(grid.ColumnAt(column).width);
    for (int row = 0; row < grid.rows(); ++row) Put(grid.Text(row, column));
  }
}

void FieldWriter::Put(const PitchedOuts& outs) {
  PutNumber(outs.size());
  for (const auto& [pitcher, count] : outs) (*this)(pitcher, count);
}

void FieldWriter::Put(const Move& move) {
  (*this)(move.name, move.from, move.to, move.pitcher, move.battedIn, move.earned, move.byError);
}

void FieldWriter::Put(const Play& play) {
  text_ += kPlay;
  (*this)(play.half, play.outsBefore, play.outcome, play.batter, play.pitcher, play.basesKept);
  PutNumber(play.moves.size());
  for (const Move& move : play.moves) Put(move);
  Put(play.after);
}

void FieldWriter::Put(const PlayList& plays) {
  text_ += plays.bytes();
  text_ += kNoPlay;
}

char FieldReader::TakeByte() {
  if (text_.empty()) throw DamagedText();
  const char byte = text_.front();
  text_.remove_prefix(1);
  return byte;
}

std::uint64_t FieldReader::TakeNumber() {
  constexpr unsigned kBits = 64;
  std::uint64_t number = 0;
  for (unsigned shift = 0; shift < kBits; shift += kGroup) {
    const auto byte = static_cast<unsigned char>(TakeByte());
    number |= static_cast<std::uint64_t>(byte & (kMore - 1)) << shift;
    if ((byte & kMore) == 0) return number;
  }
  throw DamagedText();
}

std::string_view FieldReader::TakeText() {
  const std::uint64_t size = TakeNumber();
  if (size > text_.size()) throw DamagedText();
  const std::string_view taken = text_.substr(0, size);
  text_.remove_prefix(size);
  return taken;
}

void FieldReader::Take(std::string& value) { value = TakeText(); }

void FieldReader::Take(bool& value) {
  const char byte = TakeByte();
  if (byte != '0' && byte != '1') throw DamagedText();
  value = byte == '1';
}

void FieldReader::Take(double& value) { value = std::bit_cast<double>(TakeNumber()); }

void FieldReader::Take(Colour& value) {
  for (std::uint8_t* part : {&value.red, &value.green, &value.blue}) {
    *part = static_cast<std::uint8_t>(TakeByte());
  }
}

void FieldReader::Take(Picture& value) {
  Take(value.path);
  value.stamp = TakeNumber();
}

void FieldReader::Take(PitchedOuts& outs) {
  outs.clear();
  for (std::uint64_t left = TakeNumber(); left > 0; --left) {
    std::string pitcher;
    Take(pitcher);
    Take(outs[pitcher]);
  }
}

void FieldReader::Take(LineupList& list) {
  LineupList taken;
  for (std::uint64_t left = TakeNumber(); left > 0; --left) {
    taken.Append(std::string(TakeText()));
  }
  int selected = LineupList::kNoRow;
  Take(selected);
  if (selected != LineupList::kNoRow && !taken.HasRow(selected)) throw DamagedText();
  taken.Select(selected);
  list = taken;
}

void FieldReader::Take(Outcome& outcome) {
  const std::uint64_t number = TakeNumber();
  if (number > static_cast<std::uint64_t>(Outcome::PutOnBase)) throw DamagedText();
  outcome = static_cast<Outcome>(number);
}

void FieldReader::Take(Move& move) {
  (*this)(move.name, move.from, move.to, move.pitcher, move.battedIn, move.earned, move.byError);
  const auto isPlace = [](int place) { return place >= kAtBatPlace && place <= kFromBench; };
  if (!isPlace(move.from) || !isPlace(move.to)) throw DamagedText();
}

void FieldReader::Take(Play& play) {
  if (TakeByte() != kPlay) throw DamagedText();
  (*this)(play.half, play.outsBefore, play.outcome, play.batter, play.pitcher, play.basesKept);
  const std::uint64_t moves = TakeNumber();
  if (moves > kMostMoves || play.half < 0) throw DamagedText();
  play.moves.resize(moves);
  for (Move& move : play.moves) Take(move);
  Take(play.after);
}

void FieldReader::Take(PlayList& plays) {
  plays = {};
  while (!text_.empty() && text_.front() == kPlay) {
    Play play;
    Take(play);
    plays.Append(play);
  }
  if (TakeByte() != kNoPlay) throw DamagedText();
}

void FieldReader::Take(StatGrid& grid) {
  for (int column = 0; column < grid.columns(); ++column) {
    int width = 0;
    Take(width);
    grid.SetColumnWidth(column, width);
    for (int row = 0; row < grid.rows(); ++row) grid.SetText(row, column, TakeText());
  }
}

}  // namespace dtb
