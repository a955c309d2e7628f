#include "replay/box_page.h"

#include <QFile>
#include <algorithm>

#include "base/program_error.h"
#include "database/kept_record.h"
#include "platform/qt/qt_text.h"
#include "record/box_text.h"
#include "record/story.h"

namespace dtb::replay {
namespace {

// Without day and park, which change from run to run.
QStringList PageOf(GameRecord game) {
  game.date.clear();
  game.park.clear();
  SeasonToDate season;
  season.Add(game);
  return ToQt(BoxText(BoxScoreOf(game, season))).split('\n');
}

QStringList Differences(const QString& where, const QStringList& shown, const QStringList& wanted) {
  QStringList differences;
  for (qsizetype line = 0; line < std::max(shown.size(), wanted.size()); ++line) {
    if (shown.value(line) == wanted.value(line)) continue;
    differences += QStringLiteral("%1, line %2: \"%3\", must be \"%4\"")
                       .arg(where)
                       .arg(line + 1)
                       .arg(shown.value(line), wanted.value(line));
  }
  return differences;
}

}  // namespace

QStringList BoxDifferences(Board& board, const QString& page) {
  const GameRecord game = RecordOf(board);
  const QStringList shown = PageOf(game);
  QStringList differences;
  try {
    const auto stored =
        ReadRecord(board.platform.database, game.id, {game.sides[0].team, game.sides[1].team});
    if (!stored) return {QStringLiteral("the saved game is not in the database")};
    differences += Differences("box of the database", PageOf(*stored), shown);
    if (StoryText(StoryOf(*stored)) != StoryText(StoryOf(game))) {
      differences += QStringLiteral("the saved game's story differs from the board's");
    }
  } catch (const ProgramError& failure) {
    differences += ToQt(failure.what());
  }
  QFile file(page);
  if (!file.open(QIODevice::ReadOnly)) return differences;
  return differences + Differences(page, shown, QString::fromUtf8(file.readAll()).split('\n'));
}

}  // namespace dtb::replay
