#include "plays/season_scripts.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <utility>

#include "archive/lineup_choice.h"
#include "archive/team_text.h"
#include "game/player_name.h"
#include "plays/play_gestures.h"

namespace dtb::plays {
namespace {

using archive::kHome;
using archive::PlateAppearance;

constexpr std::array kSides{"visitors", "home"};

struct Teams {
  std::array<archive::TeamText, 2> texts;
  std::array<std::vector<std::string>, 2> lineUps;
  PlayerNames names;
};

Teams TeamsOf(const archive::Season& season, const std::string& id) {
  const auto game = std::ranges::find(season.games, id, &archive::Game::id);
  if (game == season.games.end()) throw std::runtime_error("no game " + id);
  Teams teams;
  teams.texts = archive::MakeGameTeams(season, *game, archive::LineForm{}).teams;
  const std::array<archive::LineUp, 2> lineUps = archive::LineUpsOfGame(season, *game);
  for (int side = 0; side < 2; ++side) {
    const archive::LineUp& lineUp = lineUps.at(side);
    std::vector<int> players;  // line by line
    for (const archive::Placed& one : lineUp.order) players.push_back(one.player);
    players.insert(players.end(), lineUp.bench.begin(), lineUp.bench.end());
    players.insert(players.end(), lineUp.pitchers.begin(), lineUp.pitchers.end());
    const archive::Club& club = season.clubs[game->sides.at(side).club];
    for (std::size_t line = 0; line < players.size(); ++line) {
      const std::string name = PlayerNameOf(teams.texts.at(side).lines[line]);
      teams.lineUps.at(side).push_back(name);
      if (players[line] != archive::kNobody) {
        teams.names.at(side)[club.players[players[line]].id] = name;
      }
    }
  }
  return teams;
}

class Writer {
 public:
  Writer(const Teams& teams, GameScript& script)
      : names_(teams.names), script_(script), board_(teams.lineUps, script.earned) {}

  void Write(const GameEvents& game) {
    Start(game);
    for (const Event& event : game.events) Take(event);
    // The board credits both sides' pitchers with the outs of a half-inning in progress.
    for (int side = 0; side < 2; ++side) {
      if (!board_.IsAtBat(side) || board_.outs() == 0) continue;
      script_.differences.push_back({{side, "PITCHING", board_.PitcherOf(side), "IP"},
                                     board_.outs(),
                                     "",
                                     "the game ends in the middle of a half-inning"});
    }
    board_.EndGame();
  }

  [[nodiscard]] const BaseBoard& board() const { return board_; }
  // By a pitcher's earned runs, the plays in which board and archive do not count alike.
  [[nodiscard]] const std::map<Figure, std::string>& unlike() const { return unlike_; }

 private:
  [[nodiscard]] const std::string& Name(int side, const std::string& id) const {
    return names_.at(side).at(id);
  }

  void Say(const std::string& gesture, std::optional<int> out = std::nullopt) {
    script_.gestures.push_back(gesture);
    if (out) script_.gestures.push_back("OUT " + std::to_string(*out));
    board_.Do(gesture, out);
  }
  void Say(const char* verb, int side, const std::string& players) {
    Say(std::string(verb) + ' ' + kSides.at(side) + ' ' + players);
  }

  void Start(const GameEvents& game) {
    for (int side = 0; side < 2; ++side) Say("LOAD", side, script_.teams.at(side) + ".txt");
    Say("BASES ON");
    for (const Event& event : game.events) {
      if (event.kind != Event::Kind::Start) continue;
      order_.at(event.side).at(event.order) = event.id;
      if (event.position == archive::kPitcher) {
        Say("PITCHER", event.side, Name(event.side, event.id));
      }
    }
    Say("ATBAT visitors");
  }

  void Take(const Event& event) {
    if (event.kind == Event::Kind::Sub) return Substitute(event);
    if (event.kind == Event::Kind::Runner) waiting_ = event;
    if (event.kind != Event::Kind::Play || event.text == "NP") return;
    try {
      Play(event);
    } catch (const std::runtime_error& error) {
      throw std::runtime_error(script_.id + ", " + PlayName(event) + ": " + error.what());
    }
  }

  static std::string PlayName(const Event& event) {
    return std::to_string(event.inning) + ' ' + kSides.at(event.side) + ": " + event.text;
  }

  void Substitute(const Event& event) {
    std::string& place = order_.at(event.side).at(event.order);
    const std::string leaves = std::exchange(place, event.id);
    const std::string& comes = Name(event.side, event.id);
    if (event.order > 0 && leaves != event.id) {
      const std::string& goes = Name(event.side, leaves);
      const bool onPiece =
          board_.IsAtBat(event.side) && (board_.BaseOf(goes) > 0 || board_.BatterUp() == goes);
      if (onPiece) Say("RUNNER", event.side, comes + " | " + goes);
      if (!onPiece) Say("SWAP", event.side, goes + " | " + comes);
      if (waiting_.id == leaves) waiting_.id = event.id;
    }
    if (event.position == archive::kPitcher && board_.PitcherOf(event.side) != comes) {
      Say("PITCHER", event.side, comes);
    }
  }

  void Play(const Event& event) {
    const std::string& batter = Name(event.side, event.id);
    if (!board_.IsAtBat(event.side)) {
      if (board_.IsAtBat(1 - event.side)) throw std::runtime_error("the half-inning is not over");
      script_.gestures.push_back("# inning " + std::to_string(event.inning) + ", " +
                                 kSides.at(event.side));
      Say("BATTER", event.side, batter);
    }
    if (board_.BatterUp() != batter) Say("BATTER", event.side, batter);
    if (!waiting_.id.empty()) {
      Say("PLACE " + std::to_string(waiting_.number) + ' ' + Name(event.side, waiting_.id));
      waiting_.id.clear();
    }
    const Figures before = board_.figures();
    const int credited = CreditedRuns(event);
    for (int base = 1; base < kHome; ++base) on_.at(base) = !board_.NameOn(base).empty();
    const std::size_t line = script_.gestures.size();
    RecordPlay(event, board_,
               [this](const std::string& gesture, std::optional<int> out) { Say(gesture, out); });
    ++script_.plays;
    const std::size_t differences = script_.differences.size();
    NoteRuns(event, batter, before, credited);
    NoteStrikeout(event, batter);
    NoteEarnedRuns(event, before);
    if (script_.differences.size() > differences) {
      script_.gestures.insert(script_.gestures.begin() + static_cast<std::ptrdiff_t>(line),
                              "# " + event.text);
    }
  }

  [[nodiscard]] int CreditedRuns(const Event& event) const {
    int credited = 0;
    for (int from = 0; from < kHome; ++from) {
      if (GoesTo(event.play, from) != kHome || (from > 0 && board_.NameOn(from).empty())) continue;
      const bool forced = from == 3 && board_.OnBase() == 3;
      if (IsBattedIn(event, from, board_.outs(), forced)) ++credited;
    }
    return credited;
  }

  void NoteRuns(const Event& event, const std::string& batter, const Figures& before,
                int credited) {
    const Figure figure{event.side, "BATTING", batter, "RBI"};
    const int delta = ValueOf(board_.figures(), figure) - ValueOf(before, figure) - credited;
    if (delta == 0) return;
    const char* why = "the scorer's judgement";
    if (event.play.appearance == PlateAppearance::Error) {
      why = "batted in on an error: the runner would have come home without it";
    } else if (event.play.appearance == PlateAppearance::FieldersChoice && event.play.outs() == 0) {
      why = "batted in on a choice that puts nobody out, recorded as AB";
    }
    script_.differences.push_back({figure, delta, PlayName(event), why});
  }

  // Remembers a play whose runs the board takes for earned, and the archive not, or the other way.
  void NoteEarnedRuns(const Event& event, const Figures& before) {
    int earned = 0;
    for (int from = 0; from < kHome; ++from) {
      const bool runs = GoesTo(event.play, from) == kHome && (from == 0 || on_.at(from));
      if (runs && !event.marks.at(from).unearned) --earned;
    }
    std::vector<std::string> charged;
    for (const auto& [figure, value] : board_.figures()) {
      const int more = value - ValueOf(before, figure);
      if (figure.kind != "PITCHING" || more == 0) continue;
      if (figure.what == "ER") earned += more;
      if (figure.what == "R") charged.push_back(figure.who);
    }
    for (const std::string& pitcher : charged) {
      std::string& plays = unlike_[{1 - event.side, "PITCHING", pitcher, "ER"}];
      if (earned != 0) plays += (plays.empty() ? "" : " + ") + PlayName(event);
    }
  }

  // The third strike got away: the board has the batter on base by AB.
  void NoteStrikeout(const Event& event, const std::string& batter) {
    const bool safe = event.play.appearance == PlateAppearance::Strikeout &&
                      GoesTo(event.play, 0) != archive::kIsOut;
    if (!safe) return;
    const char* why = "the batter reached base on a strikeout, recorded as AB";
    const std::string& pitcher = board_.PitcherOf(1 - event.side);
    script_.differences.push_back({{event.side, "BATTING", batter, "K"}, -1, PlayName(event), why});
    script_.differences.push_back(
        {{1 - event.side, "PITCHING", pitcher, "K"}, -1, PlayName(event), why});
  }

  const PlayerNames& names_;
  GameScript& script_;
  BaseBoard board_;
  std::array<std::array<std::string, archive::kOrder + 1>, 2> order_;
  Event waiting_;
  std::array<bool, 4> on_{};  // the bases that were taken before the play
  std::map<Figure, std::string> unlike_;
};

// What hangs on the count, and on the scorer's judgement of earned runs.
void NoteRest(const Figures& withoutCount, const std::map<Figure, std::string>& unlike,
              GameScript& script) {
  Figures all = withoutCount;
  all.insert(script.archive.begin(), script.archive.end());
  all.insert(script.board.begin(), script.board.end());
  for (const auto& [figure, ignored] : all) {
    if (figure.what == "ER by marks") continue;
    const int archive = ValueOf(script.archive, figure);
    if (figure.what == "DP" || figure.what == "LOB") {
      const int delta = ValueOf(script.board, figure) - archive;
      const char* why = figure.what == "DP"
                            ? "caught in the air, or a run came in on it, recorded as GO"
                            : "the third out by a choice, or a runner out besides the batter";
      if (delta != 0) script.differences.push_back({figure, delta, "", why});
    } else if (figure.what == "ER") {
      const int delta = ValueOf(script.board, figure) - archive;
      if (delta != 0) {
        const auto plays = unlike.find(figure);
        script.differences.push_back({figure, delta, plays == unlike.end() ? "" : plays->second,
                                      delta > 0 ? "unearned by errors that the board does not weigh"
                                                : "earned though AB put a runner on base"});
      }
    } else if (const int delta = ValueOf(withoutCount, figure) - archive; delta != 0) {
      const bool pitcher = figure.kind == "PITCHING";
      script.differences.push_back(
          {figure, delta, "",
           pitcher ? "the count at the change of pitchers charges the walk to who left"
                   : "two strikes at the change of batters charge the strikeout to who left"});
    }
  }
}

}  // namespace

GameScript MakeScript(const archive::Season& season, const GameEvents& game, Earned earned) {
  const Teams teams = TeamsOf(season, game.id);
  GameScript script;
  script.id = game.id;
  script.earned = earned;
  for (int side = 0; side < 2; ++side) {
    script.teams.at(side) = archive::BoardName(teams.texts.at(side).name);
    script.teamFiles.at(side) = archive::BytesOf(teams.texts.at(side));
  }
  Writer writer(teams, script);
  writer.Write(game);
  script.board = writer.board().figures();
  for (int side = 0; side < 2; ++side) {
    script.finished.at(side) = writer.board().Finished(side);
    script.pitchers.at(side) = writer.board().Pitched(side);
  }
  for (const auto& [key, code] : {std::pair{"wp", "W"}, {"lp", "L"}, {"save", "S"}}) {
    const auto pitcher = game.info.find(key);
    if (pitcher == game.info.end()) continue;
    for (const auto& names : teams.names) {
      const auto name = names.find(pitcher->second);
      if (name != names.end()) script.decisions[code] = name->second;
    }
  }
  script.archive = KeepScore(game, teams.names, CountRules::Kept);
  NoteRest(KeepScore(game, teams.names, CountRules::LeftOut), writer.unlike(), script);
  return script;
}

BaseBoard Replay(const GameScript& script) {
  std::array<std::vector<std::string>, 2> lineUps;
  for (int side = 0; side < 2; ++side) lineUps.at(side) = PlayersIn(script.teamFiles.at(side));
  BaseBoard board(std::move(lineUps), script.earned);
  for (std::size_t i = 0; i < script.gestures.size(); ++i) {
    if (script.gestures[i].starts_with("OUT ")) continue;
    std::optional<int> out;
    if (i + 1 < script.gestures.size() && script.gestures[i + 1].starts_with("OUT ")) {
      out = script.gestures[i + 1][4] - '0';
    }
    board.Do(script.gestures[i], out);
  }
  board.EndGame();
  return board;
}

std::vector<std::string> PlayersIn(const std::string& teamFile) {
  std::vector<std::string> players;
  std::istringstream lines(teamFile);
  for (std::string line; std::getline(lines, line);) players.push_back(PlayerNameOf(line));
  return players;
}

}  // namespace dtb::plays
