// Fields as one text of bytes, and back.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/program_error.h"
#include "game/board_state.h"
#include "game/stat_sheet.h"

namespace dtb {

// A text that does not tell what it should.
class DamagedText : public ProgramError {
 public:
  DamagedText() : ProgramError(error_number::kInvalidFileFormat, "The text is damaged") {}
};

// Puts values into a text, one behind the other. A text goes in with its length in front.
class FieldWriter {
 public:
  explicit FieldWriter(std::string& text) : text_(text) {}

  template <class... Values>
  void operator()(const Values&... values) {
    (Put(values), ...);
  }

  void Put(std::string_view value);
  void Put(const std::string& value) { Put(std::string_view(value)); }
  void Put(bool value) { text_ += value ? '1' : '0'; }
  void Put(int value) { PutNumber(static_cast<std::uint32_t>(value)); }
  void Put(double value);
  void Put(Colour value);
  void Put(const Picture& value);
  void Put(const LineupList& list);
  void Put(const ScoreCell& cell) { (*this)(cell.text, cell.colour); }
  void Put(const GamePiece& piece) {
    (*this)(piece.picture, piece.tag, piece.plate, piece.store, piece.left, piece.top);
  }
  void Put(const PitchedOuts& outs);
  void Put(const ReportedInnings& innings) {
    (*this)(innings.row, innings.written, innings.before);
  }
  // Cells and column widths; the rest of a grid's looks does not change in a game.
  void Put(const StatGrid& grid);
  void Put(Outcome outcome) { PutNumber(static_cast<std::uint64_t>(outcome)); }
  void Put(const Runner& runner) { (*this)(runner.name, runner.pitcher, runner.byError); }
  void Put(const Move& move);
  void Put(const Play& play);
  // A mark stands behind the last play, not their number in front: what is the same in two games
  // stays the same from the start.
  void Put(const PlayList& plays);
  template <class T>
  void Put(const Field<T>& field) {
    Put(field.value());
  }
  template <class T, std::size_t size>
  void Put(const std::array<T, size>& values) {
    for (const T& value : values) Put(value);
  }

 private:
  void PutNumber(std::uint64_t number);
  std::string& text_;
};

// Takes them out again in the same order, into fields of copies: nothing hears of it. Throws
// DamagedText where the text ends early or tells something else.
class FieldReader {
 public:
  explicit FieldReader(std::string_view text) : text_(text) {}

  template <class... Values>
  void operator()(Values&... values) {
    (Take(values), ...);
  }

  void Take(std::string& value);
  void Take(bool& value);
  void Take(int& value) { value = static_cast<int>(static_cast<std::uint32_t>(TakeNumber())); }
  void Take(double& value);
  void Take(Colour& value);
  void Take(Picture& value);
  void Take(LineupList& list);
  void Take(ScoreCell& cell) { (*this)(cell.text, cell.colour); }
  void Take(GamePiece& piece) {
    (*this)(piece.picture, piece.tag, piece.plate, piece.store, piece.left, piece.top);
  }
  void Take(PitchedOuts& outs);
  void Take(ReportedInnings& innings) { (*this)(innings.row, innings.written, innings.before); }
  // The grid has its size already.
  void Take(StatGrid& grid);
  void Take(Outcome& outcome);
  void Take(Runner& runner) { (*this)(runner.name, runner.pitcher, runner.byError); }
  void Take(Move& move);
  void Take(Play& play);
  void Take(PlayList& plays);
  template <class T>
  void Take(Field<T>& field) {
    T value{};
    Take(value);
    field = Field<T>(std::move(value));
  }
  template <class T, std::size_t size>
  void Take(std::array<T, size>& values) {
    for (T& value : values) Take(value);
  }

  [[nodiscard]] bool AtEnd() const { return text_.empty(); }

 private:
  char TakeByte();
  std::uint64_t TakeNumber();
  std::string_view TakeText();
  std::string_view text_;
};

}  // namespace dtb
