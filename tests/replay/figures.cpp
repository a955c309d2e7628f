#include <QFile>
#include <QMap>

#include "platform/qt/qt_text.h"
#include "replay/game_state.h"

namespace dtb::replay {
namespace {

using Figures = QMap<QString, QString>;  // "Team, Player: RBI" and "2"

QString Batter(const QString& team, const QString& name) { return team + ", " + name + ": "; }
QString Pitcher(const QString& team, const QString& name) {
  return team + ", " + name + " (pitching): ";
}
QString Inning(const QString& team, qsizetype inning) {
  return QString("%1: inning %2").arg(team).arg(inning + 1);
}

void AddExpected(Figures& figures, const QString& line) {
  const QString kind = line.section(' ', 0, 0);
  const QStringList parts = line.section(' ', 1).split(" | ");
  if (parts.size() != 3) {
    figures[line] = "a line that can be read";
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
      figures[who + counter.section('=', 0, 0)] = counter.section('=', 1);
    }
  }
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

}  // namespace

QStringList Differences(Board& board, const QString& expectedFile) {
  QFile file(expectedFile);
  if (!file.open(QIODevice::ReadOnly)) return {expectedFile + " cannot be read"};
  Figures expected;
  for (const QString& line : QString::fromUtf8(file.readAll()).remove('\r').split('\n')) {
    if (!line.isEmpty()) AddExpected(expected, line);
  }
  Figures actual;
  for (const Side side : {Side::Visitors, Side::Home}) {
    AddSide(actual, SideOf(board, side));
  }
  Figures all = actual;
  all.insert(expected);
  QStringList differences;
  for (const QString& figure : all.keys()) {
    const QString is = actual.value(figure);
    const QString should = expected.value(figure);
    if (is == should) continue;
    differences +=
        QString("%1 is %2, should be %3")
            .arg(figure, is.isEmpty() ? "empty" : is, should.isEmpty() ? "empty" : should);
  }
  return differences;
}

}  // namespace dtb::replay
