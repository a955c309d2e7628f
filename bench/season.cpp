#include "bench/season.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QTemporaryDir>
#include <array>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "base/paths.h"
#include "platform/qt/qt_text.h"

namespace dtb {
namespace {

constexpr int kTeams = 30;
constexpr int kBatters = 15;  // of a team; 11 of them play
constexpr int kPitchers = 10;
constexpr int kStarters = 9;

constexpr std::array kFirstNames{"Al",   "Ángel", "Bo",   "Cy",    "Dale", "Éric",  "Gus", "Héctor",
                                 "Ivan", "Jack",  "José", "Ken",   "Lou",  "Max",   "Ned", "Ozzie",
                                 "Pat",  "Ray",   "Sam",  "Tómas", "Vic",  "Willie"};
constexpr std::array kLastNames{"Adams", "Baker",     "Castillo", "de Groot", "Evers",
                                "Ford",  "García",    "Hoffman",  "Iglesias", "Jones",
                                "Kelly", "Lindström", "Muñoz",    "O'Neill",  "Peña",
                                "Quinn", "Reed",      "Suárez",   "Torres",   "Young"};

std::string TeamName(int team) {
  constexpr std::array kTowns{"Ashford",  "Brookline", "Carver",   "Dunmore", "Eastport",
                              "Fairview", "Grantham",  "Hartwell", "Ironton", "Juniper"};
  return std::string(kTowns.at(team % 10)) + " " + std::to_string(1960 + team / 10);
}

std::string PlayerOf(int team, int player) {
  const auto number = static_cast<std::size_t>(team * (kBatters + kPitchers) + player);
  return std::string(kFirstNames.at(number % kFirstNames.size())) + " " +
         kLastNames.at(number / kFirstNames.size() % kLastNames.size()) +
         (number < kFirstNames.size() * kLastNames.size() ? "" : " Jr.");
}

// "MMDDYYHHmmss", fifteen games a day.
std::string GameID(int game) {
  std::string id;
  const int day = game / 15;
  for (const int part : {4 + day / 28 % 6, 1 + day % 28, 20 + day / 168, 10 + game % 15 / 2,
                         game * 7 % 60, game * 13 % 60}) {
    id += static_cast<char>('0' + part / 10);
    id += static_cast<char>('0' + part % 10);
  }
  return id;
}

using Texts = std::vector<std::string>;

// All values are texts, as a save binds them; "" is Null.
void Insert(SQLite::Statement& insert, const Texts& texts) {
  insert.reset();
  insert.clearBindings();
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (!texts[i].empty()) insert.bindNoCopy(static_cast<int>(i) + 1, texts[i]);
  }
  insert.exec();
}

// The tables of the plays: 18 half-innings of four plays and more, with a run in every sixth.
class PlaysOfSeason {
 public:
  explicit PlaysOfSeason(SQLite::Database& database)
      : game_(database, "INSERT INTO Games VALUES (?,?,?,?,?,?,?)"),
        play_(database, "INSERT INTO Plays VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"),
        run_(database, "INSERT INTO Runs VALUES (?,?,?,?,?,?,?,?,?,?)"),
        decision_(database, "INSERT INTO Decisions VALUES (?,?,?,?)") {}

  void Play(int game, int visitors, int home, const std::string& id) {
    std::string date = "2026-00-00";
    date[6] = id[1];
    date[8] = id[2];
    date[9] = id[3];
    Insert(game_, {id, "0123456789abcdef", date, "", "Summit Field (day)", LineupOf(visitors),
                   LineupOf(home)});
    std::array<int, 2> due{};
    number_ = 0;
    for (int half = 0; half < 18; ++half) {
      const bool top = half % 2 == 0;
      Half(half, top ? visitors : home, top ? home : visitors, due.at(half % 2), id);
    }
    Insert(decision_, {PitcherOf(home, 0), "W", TeamName(home), id});
    Insert(decision_, {PitcherOf(visitors, 0), "L", TeamName(visitors), id});
    if (game % 2 == 0) Insert(decision_, {PitcherOf(home, 2), "S", TeamName(home), id});
  }

 private:
  static std::string PitcherOf(int team, int player) {
    return PlayerOf(team, kBatters + 3 * player);
  }
  static std::string LineupOf(int team) {
    std::string lineup;
    for (int player = 0; player < kStarters + 2; ++player) {
      lineup += (player == 0 ? "" : "\n") + std::to_string(player % kStarters + 1) + "\tSS\t" +
                PlayerOf(team, player);
    }
    return lineup;
  }

  void Half(int half, int batting, int fielding, int& due, const std::string& id) {
    const std::string pitcher = PitcherOf(fielding, half / 8);
    std::string onFirst;
    std::string onSecond;
    int outs = 0;
    while (outs < 3) {
      const std::string batter = PlayerOf(batting, due++ % kStarters);
      const auto draw = random_() % 100;
      std::string moves;
      const auto add = [&moves](const std::string& move) {
        moves += (moves.empty() ? "" : "\n") + move;
      };
      const int outsBefore = outs;
      const bool scores = draw < 30 && !onSecond.empty();
      const std::string runner = onSecond;
      if (draw < 30) {
        if (scores) add("2-H " + onSecond);
        if (!onFirst.empty()) add("1-2 " + onFirst);
        add("B-1 " + batter);
        onSecond = onFirst;
        onFirst = batter;
      } else {
        ++outs;
        add("B-X " + batter);
      }
      ++number_;
      const std::string number = std::to_string(number_);
      Insert(play_,
             {number, std::to_string(half / 2 + 1), half % 2 == 0 ? "a_VIS" : "b_HOME",
              std::to_string(outsBefore), TeamName(batting), batter, TeamName(fielding), pitcher,
              draw < 30   ? "1B"
              : draw < 55 ? "K"
                          : "GO",
              "1", moves, onFirst, onSecond, "", id});
      if (!scores) continue;
      Insert(run_, {number, runner, batter, pitcher, "1", "1", "0", TeamName(batting),
                    TeamName(fielding), id});
    }
  }

  std::mt19937 random_{2020};
  int number_ = 0;
  SQLite::Statement game_;
  SQLite::Statement play_;
  SQLite::Statement run_;
  SQLite::Statement decision_;
};

class Season {
 public:
  explicit Season(SQLite::Database& database)
      : batting_(database, "INSERT INTO Batting VALUES (?,?,?,?,?,?,?,?,?,?,?,?)"),
        pitching_(database, "INSERT INTO Pitching VALUES (?,?,?,?,?,?,?,?,?)"),
        score_(
            database,
            "INSERT INTO BoxScores (Team, I1, I2, I3, I4, I5, I6, I7, I8, I9, Runs, Hits, Errors,"
            " Host, GameID) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"),
        record_(database, "INSERT INTO WinLoss VALUES (?,?,?)"),
        pairing_(database, "INSERT INTO Matchups VALUES (?,?)"),
        plays_(database) {}

  void Play(int game) {
    const int visitors = Draw(kTeams);
    const int home = (visitors + 1 + Draw(kTeams - 1)) % kTeams;
    const std::string id = GameID(game);
    const int visitorsRuns = RecordTeam(visitors, "a_VIS", id);
    const int homeRuns = RecordTeam(home, "b_HOME", id);
    Insert(record_, {TeamName(visitors), Counter(visitorsRuns > homeRuns ? 1 : 0),
                     Counter(visitorsRuns < homeRuns ? 1 : 0)});
    Insert(record_, {TeamName(home), Counter(visitorsRuns < homeRuns ? 1 : 0),
                     Counter(visitorsRuns > homeRuns ? 1 : 0)});
    Insert(pairing_, {TeamName(visitors) + "  vs  " + TeamName(home), "1"});
    plays_.Play(game, visitors, home, id);
  }

 private:
  int Draw(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  bool Chance(int percent) { return Draw(100) < percent; }
  static std::string Counter(int count) { return count == 0 ? "" : std::to_string(count); }

  // Returns the team's runs.
  int RecordTeam(int team, const char* host, const std::string& id) {
    for (int player = 0; player < kStarters + 2; ++player) {
      RecordBatter(
          PlayerOf(team, player < kStarters ? player : kStarters + Draw(kBatters - kStarters)),
          player < kStarters ? 3 + Draw(3) : Draw(2), TeamName(team), id);
    }
    constexpr std::array kInnings{"5.33", "2.67", "1.00"};
    for (int player = 0; player < 3; ++player) {
      Texts row{PlayerOf(team, kBatters + 3 * player + Draw(3))};
      for (const int below : {7 - 2 * player, 4 - player, 7 - 2 * player, 2, 4 - player}) {
        row.push_back(Counter(Draw(below)));
      }
      row.insert(row.end(), {kInnings.at(player), TeamName(team), id});
      Insert(pitching_, row);
    }
    Texts line{TeamName(team)};
    int runs = 0;
    for (int inning = 0; inning < 9; ++inning) {
      const int scored = Chance(28) ? 1 + Draw(3) : 0;
      runs += scored;
      line.push_back(std::to_string(scored));
    }
    line.insert(line.end(), {std::to_string(runs), std::to_string(runs + Draw(8)),
                             std::to_string(Draw(3)), host, id});
    Insert(score_, line);
    return runs;
  }

  void RecordBatter(const std::string& name, int atBats, const std::string& team,
                    const std::string& id) {
    enum { kK, kBB, kSingle, kDouble, kTriple, kHR, kSB, kRBI, kAB, kCounters };
    std::array<int, kCounters> counters{};
    counters[kAB] = atBats;
    for (int i = 0; i < atBats; ++i) {
      const int outcome = Draw(1000);
      if (outcome < 220) ++counters[kK];
      if (outcome >= 220 && outcome < 380) ++counters[kSingle];
      if (outcome >= 380 && outcome < 430) ++counters[kDouble];
      if (outcome >= 430 && outcome < 435) ++counters[kTriple];
      if (outcome >= 435 && outcome < 465) ++counters[kHR];
      if (outcome >= 330 && outcome < 465) ++counters[kRBI];
    }
    counters[kBB] = Chance(25) ? 1 + Draw(2) : 0;
    counters[kSB] = Chance(6) ? 1 : 0;
    Texts row{name};
    for (const int counter : counters) row.push_back(Counter(counter));
    row.insert(row.end(), {team, id});
    Insert(batting_, row);
  }

  std::mt19937 random_{1960};
  SQLite::Statement batting_;
  SQLite::Statement pitching_;
  SQLite::Statement score_;
  SQLite::Statement record_;
  SQLite::Statement pairing_;
  PlaysOfSeason plays_;
};

void Write(const std::filesystem::path& file, int games) {
  SQLite::Database database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  for (const char* name : {"/schema.sql", "/play_tables.sql"}) {
    std::ifstream schema(std::string(DTB_PROGRAM_FOLDER) + name);
    database.exec(std::string{std::istreambuf_iterator<char>(schema), {}});
  }
  SQLite::Transaction transaction(database);
  Season season(database);
  for (int game = 0; game < games; ++game) season.Play(game);
  transaction.commit();
}

}  // namespace

const std::filesystem::path& SeasonOf(int games) {
  static const QTemporaryDir folder;
  static std::map<int, std::filesystem::path> files;
  auto& file = files[games];
  if (file.empty()) {
    file = PathOf(FromQt(folder.filePath(QString("season%1.mdb").arg(games))));
    Write(file, games);
  }
  return file;
}

}  // namespace dtb
