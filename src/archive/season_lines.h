// The lines of an archive's files, put together to a season.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "archive/scorer.h"
#include "archive/season.h"
#include "platform/archive.h"

namespace dtb::archive {

// Takes whole files in the order clubs, rosters, events, and fills the season. Bytes of any kind
// are taken; what makes no sense is noted in Season::faults. Each is false once `goOn` was.
class SeasonLines {
 public:
  SeasonLines() : scorer_(season_) {}
  SeasonLines(const SeasonLines&) = delete;
  SeasonLines& operator=(const SeasonLines&) = delete;

  bool TakeClubs(const std::string& file, int year, std::string_view bytes, const GoOn& goOn);
  // The players of the roster are the club's, whatever club their lines name.
  bool TakeRoster(const std::string& file, int year, std::string_view club, std::string_view bytes,
                  const GoOn& goOn);
  bool TakeGames(const std::string& file, std::string_view bytes, const GoOn& goOn);
  void NoteSkipped(std::string what) { season_.skipped.push_back(std::move(what)); }

  // The season, finished.
  [[nodiscard]] Season Take();

 private:
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };
  using Places = std::unordered_map<std::string, int, TextHash, std::equal_to<>>;

  // All lines of a file that are not blank, each with its number.
  template <class TakeLines>
  bool EachLine(const std::string& file, std::string_view bytes, const GoOn& goOn, TakeLines take);
  void Note(const char* what);

  // kNobody for what is no name, and where the season is full; both are noted.
  int ClubOf(int year, std::string_view id);
  int PlayerOf(int club, std::string_view id, std::string_view name);
  std::string Name(std::string_view bytes);
  void TakeLine(std::string_view line);
  void TakeId(std::string_view id);
  void TakeInfo(std::string_view line);
  void TakeEntry(std::string_view line, bool starts);
  void TakePlay(std::string_view line);
  void TakeEarnedRuns(std::string_view line);
  void TakeRunner(std::string_view line);
  void TakeForfeit(std::string_view to);
  // Of games that have no plays.
  void TakeFigures(std::string_view line);
  const char* TakeBattingLine(int side, int player, std::string_view line);
  const char* TakePitchingLine(int side, int player, std::string_view line);
  void TakeLineScore(std::string_view line);
  bool OpenGame();
  void CloseGame();

  Season season_;
  Scorer scorer_;
  std::map<std::pair<int, std::string>, int, std::less<>> clubs_;
  std::vector<Places> players_;  // of each club, by id
  std::size_t allPlayers_ = 0;
  std::set<std::string, std::less<>> seen_;  // games
  const std::string* file_ = nullptr;
  int line_ = 0;
  int notedLine_ = 0;
  // The game in progress.
  enum class State { None, Heading, Open, Skipped } state_ = State::None;
  Game game_;
  std::vector<std::pair<int Pitching::*, std::string>> decisions_;  // of the pitchers, by id
  std::string visitors_;
  std::string home_;
};

}  // namespace dtb::archive
