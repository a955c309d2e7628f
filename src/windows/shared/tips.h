// Words that come up while the pointer rests on a control.
#pragma once

#include <QString>
#include <QStringList>

namespace dtb {

// "Rolls these dice (X)": what a control does, and the key that does the same.
[[nodiscard]] inline QString TipWithKey(const QString& words, const QString& key) {
  return QStringLiteral("%1 (%2)").arg(words, key);
}

// Lines that may hold names, shown letter by letter as they stand. Empty ones are left out.
[[nodiscard]] inline QString TipOfLines(QStringList lines) {
  constexpr qsizetype kLongest = 2000;  // letters; no screen shows more
  lines.removeAll(QString());
  if (lines.isEmpty()) return {};
  for (QString& line : lines) line = line.left(kLongest).toHtmlEscaped();
  return QStringLiteral("<qt><p style=\"white-space:pre-wrap\">%1</p></qt>")
      .arg(lines.join(QStringLiteral("<br>")));
}

}  // namespace dtb
