#include "windows/shared/line_up_entry.h"

#include <QList>
#include <algorithm>

#include "game/player_name.h"
#include "platform/qt/qt_text.h"

namespace dtb {

QString ShownEntry(const std::string& entry) {
  constexpr std::size_t kShownBytes = 600;
  return ToQt(std::string_view(entry).substr(0, kShownBytes));
}

LineUpEntry PartsOf(const std::string& entry) {
  const QString shown = ShownEntry(entry);
  const auto mark = shown.indexOf(QLatin1Char('='));
  if (mark < 0) return {shown, {}};
  return {shown.left(mark), shown.mid(mark + 1).trimmed()};
}

QString ShortName(const QString& name) {
  const QString whole = name.simplified();
  const QString last = ToQt(LastNameOf(FromQt(whole)));
  if (last == whole) return name;
  const bool lastFirst = whole.startsWith(last + QLatin1Char(','));
  const QString first = lastFirst ? whole.mid(last.size() + 1).trimmed() : whole;
  const auto letters = first.toUcs4();
  if (letters.isEmpty()) return name;
  const char32_t initial = letters.first();
  return QString::fromUcs4(&initial, 1) + QStringLiteral(". ") + last;
}

QString RemarkOf(const LineupList& list, const std::string& player) {
  if (player.empty()) return {};
  const auto line = std::ranges::find(list.entries(), player,
                                      [](const auto& entry) { return PlayerNameOf(entry); });
  return line == list.entries().end() ? QString() : PartsOf(*line).remark;
}

}  // namespace dtb
