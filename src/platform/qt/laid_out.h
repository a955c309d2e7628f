// The record of what the program put into the person's folder.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace dtb {

// The size of a file and the time when anything of it last changed, its name and its owner
// included: as long as both are the same, it need not be read.
struct FileStamp {
  qint64 size = -1;  // -1: it is not there
  qint64 changed = 0;
  bool operator==(const FileStamp&) const = default;
};
[[nodiscard]] FileStamp StampOfFile(const QString& path);

struct LaidOutFile {
  QByteArray sum;      // checksum of the file as it was put there; "": it was not yet
  QByteArray putting;  // of the one that was about to be put there; "": none
  FileStamp source;    // as they were when they were read last
  FileStamp target;
  bool own = false;  // what stood there then was the person's
  bool operator==(const LaidOutFile&) const = default;
};

using LaidOut = QHash<QString, LaidOutFile>;

// An empty record for a file that is not there. Lines of earlier versions have a checksum and a
// name alone.
[[nodiscard]] LaidOut ReadLaidOut(const QString& path);
// Throws ProgramError if the record cannot be written.
void WriteLaidOut(const QString& path, const LaidOut& record);

}  // namespace dtb
