#include "platform/qt/laid_out.h"

#include <QDateTime>
#include <QFileInfo>
#include <QList>

#include "base/paths.h"
#include "base/whole_file.h"
#include "platform/qt/qt_text.h"

namespace dtb {
namespace {

constexpr const char* kPutting = "putting";

QByteArray Text(const FileStamp& stamp) {
  return QByteArray::number(stamp.size) + ' ' + QByteArray::number(stamp.changed);
}

}  // namespace

FileStamp StampOfFile(const QString& path) {
  const QFileInfo file(path);
  if (!file.exists() && !file.isSymLink()) return {};
  return {file.size(), file.metadataChangeTime().toMSecsSinceEpoch()};
}

LaidOut ReadLaidOut(const QString& path) {
  LaidOut record;
  const auto bytes = ReadWholeFile(PathOf(FromQt(path)));
  for (const QByteArray& line : QByteArray::fromStdString(bytes.value_or("")).split('\n')) {
    const qsizetype gap = line.indexOf("  ");
    if (gap <= 0) continue;
    const QList<QByteArray> words = line.left(gap).split(' ');
    LaidOutFile& file = record[QString::fromUtf8(line.mid(gap + 2))];
    if (words.size() == 2 && words[1] == kPutting) {
      file.putting = words[0];
      continue;
    }
    file.sum = words[0];
    constexpr int kAllWords = 6;
    if (words.size() < kAllWords) continue;
    file.source = {words[1].toLongLong(), words[2].toLongLong()};
    file.target = {words[3].toLongLong(), words[4].toLongLong()};
    file.own = words[5] == "own";
  }
  return record;
}

void WriteLaidOut(const QString& path, const LaidOut& record) {
  QByteArray lines;
  for (auto entry = record.cbegin(); entry != record.cend(); ++entry) {
    const LaidOutFile& file = entry.value();
    const QByteArray name = "  " + entry.key().toUtf8() + '\n';
    if (!file.sum.isEmpty()) {
      lines += file.sum + ' ' + Text(file.source) + ' ' + Text(file.target) +
               (file.own ? " own" : " ours") + name;
    }
    if (!file.putting.isEmpty()) lines += file.putting + ' ' + kPutting + name;
  }
  WriteWholeFile(PathOf(FromQt(path)), lines.toStdString());
}

}  // namespace dtb
