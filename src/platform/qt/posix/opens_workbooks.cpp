#include "platform/qt/opens_workbooks.h"

#include <QProcess>
#include <QStandardPaths>
#include <algorithm>
#include <array>

namespace dtb {

bool OpensWorkbooks() {
  // The desktop's own answer; where there is no such tool, a look for the usual programs.
  const QString tool = QStandardPaths::findExecutable(QStringLiteral("xdg-mime"));
  if (tool.isEmpty()) {
    constexpr std::array kPrograms{"localc", "libreoffice", "soffice", "gnumeric", "excel"};
    return std::any_of(kPrograms.begin(), kPrograms.end(), [](const char* program) {
      return !QStandardPaths::findExecutable(QLatin1String(program)).isEmpty();
    });
  }
  constexpr int kLongestAnswer = 5000;  // milliseconds; it takes less than a hundred
  QProcess query;
  query.start(tool, {QStringLiteral("query"), QStringLiteral("default"),
                     QStringLiteral("application/"
                                    "vnd.openxmlformats-officedocument.spreadsheetml.sheet")});
  return query.waitForFinished(kLongestAnswer) &&
         !query.readAllStandardOutput().trimmed().isEmpty();
}

}  // namespace dtb
