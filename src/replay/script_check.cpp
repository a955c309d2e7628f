#include "replay/script_check.h"

#include <QFile>
#include <QFileInfo>

#include "replay/game_state.h"
#include "replay/gestures.h"

namespace dtb::replay {

QStringList LinesOf(const QString& file) {
  QFile script(file);
  if (!script.open(QIODevice::ReadOnly)) {
    throw Refused(file + ": cannot be read: " + script.errorString());
  }
  QStringList lines = QString::fromUtf8(script.readAll()).remove('\r').split('\n');
  if (lines.last().isEmpty()) lines.removeLast();
  return lines;
}

QString FaultText(const QString& file, qsizetype line, const QString& what, const QString& standing,
                  const QString& expected) {
  QString text = QString("%1:%2: %3").arg(file).arg(line).arg(what);
  if (!standing.isEmpty()) text += "\n  stands there: " + standing;
  if (!expected.isEmpty()) text += "\n  expected: " + expected;
  return text;
}

QStringList FaultsOfScript(const QString& script, const QString& figures, const QDir& program) {
  QStringList faults;
  const auto look = [&faults](const QString& file, const auto& faultOf) {
    const QStringList lines = LinesOf(file);
    for (qsizetype i = 0; i < lines.size(); ++i) {
      const std::optional<LineFault> fault = faultOf(lines[i]);
      if (fault) faults += FaultText(file, i + 1, fault->what, lines[i], fault->expected);
    }
  };
  const ScriptFolders folders{QFileInfo(script).dir(), program};
  look(script, [&folders](const QString& line) { return FaultOfLine(line, &folders); });
  if (!figures.isEmpty()) look(figures, FaultOfFigures);
  return faults;
}

}  // namespace dtb::replay
