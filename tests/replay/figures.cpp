#include "replay/figures.h"

#include <QFile>
#include <QMap>
#include <QSet>

#include "platform/qt/qt_text.h"

namespace dtb::replay {
namespace {

using Counters = QMap<QString, QString>;
using Figures = QMap<QString, Counters>;  // by team, or by team and player

QString Batting(const QString& team, const QString& player) { return team + ", " + player; }
QString Pitching(const QString& team, const QString& player) {
  return Batting(team, player) + " (pitching)";
}

void AddLineScore(Counters& counters, const QString& cells) {
  const QStringList innings = cells.split(' ', Qt::SkipEmptyParts);
  for (int i = 0; i < innings.size(); ++i) {
    if (innings[i] != "-") counters.insert(QString("inning %1").arg(i + 1), innings[i]);
  }
}

Figures Expected(const QString& text) {
  Figures figures;
  for (const QString& line : text.split('\n', Qt::SkipEmptyParts)) {
    const QString kind = line.section(' ', 0, 0);
    QStringList parts = line.section(' ', 1).split('|');
    for (QString& part : parts) part = part.trimmed();
    if (parts.size() != 3) {
      figures[line].insert("the line", "readable");
    } else if (kind == "LINE") {
      Counters& counters = figures[parts[0]];
      AddLineScore(counters, parts[1]);
      counters.insert("R", parts[2].section(' ', 1, 1));
      counters.insert("H", parts[2].section(' ', 3, 3));
    } else {
      Counters& counters =
          figures[kind == "PITCHING" ? Pitching(parts[0], parts[1]) : Batting(parts[0], parts[1])];
      for (const QString& counter : parts[2].split(' ', Qt::SkipEmptyParts)) {
        counters.insert(counter.section('=', 0, 0), counter.section('=', 1));
      }
    }
  }
  return figures;
}

void AddSide(Figures& figures, const SideFields& side) {
  const QString team = ToQt(side.team.value());
  for (int inning = 0; inning < kInnings; ++inning) {
    figures[team].insert(QString("inning %1").arg(inning + 1),
                         ToQt(side.score.at(inning).text.value()));
  }
  figures[team].insert("R", ToQt(side.score.at(kTotalRuns).text.value()));
  figures[team].insert("H", ToQt(side.score.at(kTotalHits).text.value()));
  namespace column = stat_column;
  const auto cell = [&](int row, int at) { return ToQt(side.grid.Text(row, at)); };
  for (int row = 1; row < side.grid.rows(); ++row) {
    const QString batter = Batting(team, cell(row, column::kBatter));
    for (int at = column::kStrikeouts; at <= column::kAtBats; ++at) {
      figures[batter].insert(cell(0, at), cell(row, at));
    }
    const QString pitcher = Pitching(team, cell(row, column::kPitcher));
    for (int at = column::kPitcherStrikeouts; at <= column::kInningsPitched; ++at) {
      figures[pitcher].insert(cell(0, at), cell(row, at));
    }
  }
}

QString Shown(const QString& figure) { return figure.isEmpty() ? "none" : figure; }

}  // namespace

QStringList Differences(Board& board, const QString& expectedFile) {
  QFile file(expectedFile);
  if (!file.open(QIODevice::ReadOnly)) return {expectedFile + ": cannot be read"};
  const Figures expected = Expected(QString::fromUtf8(file.readAll()).remove('\r'));
  Figures actual;
  for (const Side side : {Side::Visitors, Side::Home}) {
    AddSide(actual, SideOf(board, side));
  }
  QStringList differences;
  Figures all = expected;
  for (auto who = actual.begin(); who != actual.end(); ++who) all[who.key()].insert(who.value());
  for (auto who = all.begin(); who != all.end(); ++who) {
    for (const QString& counter : who.value().keys()) {
      const QString is = actual.value(who.key()).value(counter);
      const QString should = expected.value(who.key()).value(counter);
      if (is == should) continue;
      differences +=
          QString("%1: %2 is %3, should be %4").arg(who.key(), counter, Shown(is), Shown(should));
    }
  }
  return differences;
}

}  // namespace dtb::replay
