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

std::string ManOf(int team, int man) {
  const auto number = static_cast<std::size_t>(team * (kBatters + kPitchers) + man);
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
        pairing_(database, "INSERT INTO Matchups VALUES (?,?)") {}

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
  }

 private:
  using Texts = std::vector<std::string>;

  int Draw(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  bool Chance(int percent) { return Draw(100) < percent; }
  static std::string Counter(int count) { return count == 0 ? "" : std::to_string(count); }

  // All values are texts, as a save binds them; "" is Null.
  static void Insert(SQLite::Statement& insert, const Texts& texts) {
    insert.reset();
    insert.clearBindings();
    for (std::size_t i = 0; i < texts.size(); ++i) {
      if (!texts[i].empty()) insert.bindNoCopy(static_cast<int>(i) + 1, texts[i]);
    }
    insert.exec();
  }

  // Returns the team's runs.
  int RecordTeam(int team, const char* host, const std::string& id) {
    for (int man = 0; man < kStarters + 2; ++man) {
      RecordBatter(ManOf(team, man < kStarters ? man : kStarters + Draw(kBatters - kStarters)),
                   man < kStarters ? 3 + Draw(3) : Draw(2), TeamName(team), id);
    }
    constexpr std::array kInnings{"5.33", "2.67", "1.00"};
    for (int man = 0; man < 3; ++man) {
      Texts row{ManOf(team, kBatters + 3 * man + Draw(3))};
      for (const int below : {7 - 2 * man, 4 - man, 7 - 2 * man, 2, 4 - man}) {
        row.push_back(Counter(Draw(below)));
      }
      row.insert(row.end(), {kInnings.at(man), TeamName(team), id});
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
};

void Write(const std::filesystem::path& file, int games) {
  std::ifstream schema(DTB_PROGRAM_FOLDER "/schema.sql");
  SQLite::Database database(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  database.exec(std::string{std::istreambuf_iterator<char>(schema), {}});
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
