#include <SQLiteCpp/SQLiteCpp.h>

#include <QMap>
#include <QRegularExpression>
#include <algorithm>
#include <vector>

#include "base/paths.h"
#include "base/text_cell.h"
#include "game/play_sums.h"
#include "platform/qt/qt_text.h"
#include "platform/sqlite/sqlite_database.h"
#include "replay/game_state.h"
#include "replay/gestures.h"
#include "replay/script_check.h"

namespace dtb::replay {
namespace {

using Figures = QMap<QString, QString>;  // "Team, Player: RBI" and "2"

QString Batter(const QString& team, const QString& name) { return team + ", " + name + ": "; }
QString Pitcher(const QString& team, const QString& name) {
  return team + ", " + name + " (pitching): ";
}
QString LeftOn(const QString& team) { return team + ": left on base"; }
QString Inning(const QString& team, qsizetype inning) {
  return QString("%1: inning %2").arg(team).arg(inning + 1);
}

struct Form {
  const char* kind;
  QRegularExpression pattern;
  const char* form;
};

const std::vector<Form>& Forms() {
  static const std::vector<Form> forms{
      {"LINE", QRegularExpression("^LINE .+ \\| (\\d+|-)( (\\d+|-))* \\| R \\d+ H \\d+$"),
       "LINE TEAM | 0 2 1 ... | R RUNS H HITS; '-' for an inning that was not played"},
      {"LEFT", QRegularExpression("^LEFT .+ \\| \\d+$"), "LEFT TEAM | RUNNERS LEFT ON BASE"},
      {"BATTING", QRegularExpression("^BATTING .+ \\| .+ \\| (\\S+=\\S+( \\S+=\\S+)*)?$"),
       "BATTING TEAM | PLAYER | AB=4 1B=1 ..."},
      {"PITCHING", QRegularExpression("^PITCHING .+ \\| .+ \\| (\\S+=\\S+( \\S+=\\S+)*)?$"),
       "PITCHING TEAM | PLAYER | IP=7.33 K=5 ..."}};
  return forms;
}

// What a file of figures expects.
struct Expected {
  Figures sheet;
  Figures plays;  // what only the plays of the game tell
};

// The figures of a line that has its form.
Expected FiguresIn(const QString& line) {
  Expected expected;
  Figures& figures = expected.sheet;
  const QString kind = line.section(' ', 0, 0);
  const QStringList parts = line.section(' ', 1).split(" | ");
  if (kind == "LEFT") {
    expected.plays[LeftOn(parts[0])] = parts[1];
  } else if (kind == "LINE") {
    const QStringList innings = parts[1].split(' ');
    for (qsizetype i = 0; i < innings.size(); ++i) {
      figures[Inning(parts[0], i)] = innings[i] == "-" ? "" : innings[i];
    }
    figures[parts[0] + ": R"] = parts[2].section(' ', 1, 1);
    figures[parts[0] + ": H"] = parts[2].section(' ', 3, 3);
  } else {
    const QString who = (kind == "PITCHING" ? Pitcher : Batter)(parts[0], parts[1]);
    for (const QString& counter : parts[2].split(' ', Qt::SkipEmptyParts)) {
      const QString name = counter.section('=', 0, 0);
      (name == "R" ? expected.plays : figures)[who + name] = counter.section('=', 1);
    }
  }
  return expected;
}

void AddPlays(Figures& figures, Board& board, Side batting) {
  const PlaySums sums = SumsOf(board, batting);
  const QString team = ToQt(SideOf(board, batting).team.value());
  const QString others = ToQt(SideOf(board, Other(batting)).team.value());
  for (const auto& [name, runs] : sums.runs) {
    figures[Batter(team, ToQt(name)) + "R"] = QString::number(runs);
  }
  for (const auto& [name, runs] : sums.charged) {
    figures[Pitcher(others, ToQt(name)) + "R"] = QString::number(runs);
  }
  figures[LeftOn(team)] = QString::number(sums.leftOnBase);
}

// The figures of the plays that are expected; a player without runs has 0.
Figures PlaysNamedIn(const Figures& expected, Board& board) {
  Figures all;
  for (const Side side : {Side::Visitors, Side::Home}) AddPlays(all, board, side);
  Figures named;
  for (const QString& figure : expected.keys()) named[figure] = all.value(figure, "0");
  return named;
}

void AddSide(Figures& figures, const SideFields& side) {
  namespace column = stat_column;
  const QString team = ToQt(side.team.value());
  const auto score = [&](int cell) { return ToQt(side.score.at(cell).text.value()); };
  for (int inning = 0; inning < kInnings; ++inning) figures[Inning(team, inning)] = score(inning);
  figures[team + ": R"] = score(kTotalRuns);
  figures[team + ": H"] = score(kTotalHits);
  const auto cell = [&](int row, int at) { return ToQt(side.grid.Text(row, at)); };
  for (int row = 1; row < side.grid.rows(); ++row) {
    const QString batter = Batter(team, cell(row, column::kBatter));
    const QString pitcher = Pitcher(team, cell(row, column::kPitcher));
    for (int at = column::kStrikeouts; at <= column::kInningsPitched; ++at) {
      if (at != column::kPitcher) {
        figures[(at < column::kPitcher ? batter : pitcher) + cell(0, at)] = cell(row, at);
      }
    }
  }
}

struct SavedGame {
  std::string id;  // GameID
  const RowsBefore& rowsBefore;
};

// A row that stands twice is no row of a figure.
void AddStored(Figures& figures, const QString& figure, const QString& text) {
  figures[figure] = figures.contains(figure) ? "stored twice" : text;
}

// Calls the function with each row that the game added to a table under its GameID.
template <class Function>
void ForEachRow(SQLite::Database& database, const char* table, const SavedGame& game,
                Function&& function) {
  SQLite::Statement rows(database,
                         std::string("SELECT * FROM ") + table + " WHERE GameID = ? AND rowid > ?");
  rows.bind(1, game.id);
  rows.bind(2, game.rowsBefore.at(table));
  while (rows.executeStep()) {
    function([&rows](const char* column) { return ToQt(rows.getColumn(column).getString()); });
  }
}

// The rows of a game as they stand in the file, under the names of the sheet's columns.
void AddFile(Figures& figures, const std::string& file, const SavedGame& game) {
  SQLite::Database database(file);
  ForEachRow(database, "Batting", game, [&figures](const auto& cell) {
    const QString who = Batter(cell("Team"), cell("Batter"));
    for (const char* counter : {"k", "BB", "1B", "2B", "3B", "HR", "SB", "RBI", "AB"}) {
      AddStored(figures, who + QString(counter).toUpper(), cell(counter));
    }
  });
  ForEachRow(database, "Pitching", game, [&figures](const auto& cell) {
    const QString who = Pitcher(cell("Team"), cell("Pitcher"));
    for (const auto& [counter, column] :
         {std::pair{"K", "k"}, {"BB", "BB"}, {"H", "Hits"}, {"HR", "HR"}, {"ER", "Runs"}}) {
      AddStored(figures, who + counter, cell(column));
    }
    AddStored(figures, who + "IP", ToQt(TwoDecimals(NumberOf(FromQt(cell("IP"))))));
  });
  ForEachRow(database, "BoxScores", game, [&figures](const auto& cell) {
    const QString team = cell("Team");
    for (int inning = 0; inning < kInnings; ++inning) {
      const std::string column = std::string("I").append(std::to_string(inning + 1));
      AddStored(figures, Inning(team, inning), cell(column.c_str()));
    }
    AddStored(figures, team + ": R", cell("Runs"));
    AddStored(figures, team + ": H", cell("Hits"));
  });
}

// A reserve who never stood on the first piece has no row. The players whose figures go are
// returned.
QStringList RemoveUnplayed(Figures& figures, const SideFields& side) {
  QStringList players;
  for (int row = 1; row < side.grid.rows(); ++row) {
    if (side.grid.Text(row, stat_column::kPlayed) == "1") continue;
    const QString who =
        Batter(ToQt(side.team.value()), ToQt(side.grid.Text(row, stat_column::kBatter)));
    const auto removed =
        figures.removeIf([&who](const auto& figure) { return figure.key().startsWith(who); });
    if (removed > 0) players += who.chopped(2);
  }
  return players;
}

QStringList Differences(const QString& place, const Figures& actual, const Figures& expected,
                        const Figures& places) {
  Figures all = actual;
  all.insert(expected);
  QStringList differences;
  for (const QString& figure : all.keys()) {
    const QString is = actual.value(figure);
    const QString should = expected.value(figure);
    if (is == should) continue;
    // A figure that no line expects has the place of the file.
    differences += QString("%1: %2, %3 is %4, expected: %5")
                       .arg(places.value(figure, places[""]), place, figure,
                            is.isEmpty() ? "empty" : is, should.isEmpty() ? "empty" : should);
  }
  return differences;
}

}  // namespace

std::optional<LineFault> FaultOfFigures(const QString& line) {
  if (line.isEmpty()) return std::nullopt;
  const QString kind = line.section(' ', 0, 0);
  const auto form =
      std::ranges::find(Forms(), kind, [](const Form& one) { return QString(one.kind); });
  if (form == Forms().end()) {
    return LineFault{'"' + kind + "\" is not a kind of figures", "LINE, BATTING, PITCHING or LEFT"};
  }
  if (form->pattern.match(line).hasMatch()) return std::nullopt;
  return LineFault{"the figures cannot be read", form->form};
}

RowsBefore LastRows(const Board& board) try {
  RowsBefore last;
  SQLite::Database database(TextOf(board.platform.programFolder / kDatabaseFile));
  for (const char* table : {"Batting", "Pitching", "BoxScores"}) {
    last[table] = database.execAndGet(std::string("SELECT ifnull(max(rowid), 0) FROM ") + table);
  }
  return last;
} catch (const SQLite::Exception& error) {
  throw Refused(QString("the database takes no games: ") + error.what());
}

Comparison Compare(Board& board, const QString& expectedFile, const RowsBefore& rowsBefore) {
  Expected expected;
  Figures places{{"", expectedFile}};
  const QStringList lines = LinesOf(expectedFile);
  for (qsizetype i = 0; i < lines.size(); ++i) {
    if (lines[i].isEmpty()) continue;
    const Expected line = FiguresIn(lines[i]);
    for (const QString& figure : line.sheet.keys() + line.plays.keys()) {
      places[figure] = QString("%1:%2").arg(expectedFile).arg(i + 1);
    }
    expected.sheet.insert(line.sheet);
    expected.plays.insert(line.plays);
  }
  Figures shown;
  for (const Side side : {Side::Visitors, Side::Home}) AddSide(shown, SideOf(board, side));
  Figures stored;
  AddFile(stored, TextOf(board.platform.programFolder / kDatabaseFile),
          {board.sheet.tb_TimeStamp2.value(), rowsBefore});
  Comparison result{Differences("sheet", shown, expected.sheet, places), {}};
  result.differences +=
      Differences("plays", PlaysNamedIn(expected.plays, board), expected.plays, places);
  for (const Side side : {Side::Visitors, Side::Home}) {
    result.withoutRow += RemoveUnplayed(expected.sheet, SideOf(board, side));
  }
  result.differences += Differences("database", stored, expected.sheet, places);
  return result;
}

}  // namespace dtb::replay
