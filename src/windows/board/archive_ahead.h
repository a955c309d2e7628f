// The archive of the season in use, read before anybody asks for it.
#pragma once

#include <QObject>
#include <QTimer>
#include <thread>

#include "archive/kept_season.h"
#include "windows/shared/hand_over.h"

namespace dtb {

// A thread reads it, so that neither the start nor a click waits; what it read is kept, and told,
// in the thread of the windows, to which all operations belong. What is gone, broken or far too
// large is passed over in silence; the windows that need it tell.
class ArchiveAhead : public QObject {
  Q_OBJECT
 public:
  ArchiveAhead(const Platform& platform, archive::KeptSeason& kept);

  // Soon, once the windows are painted, the archive is read unless that is done.
  void Begin();
  // Ends reading, within moments: a window may read the archive itself, or change which it is.
  void End();

 signals:
  // There is a season, read just now or before.
  void known();

 private:
  void Read();
  void Keep(int reading, const std::filesystem::path& archive,
            std::shared_ptr<const archive::Season> season);

  const Platform& platform_;
  archive::KeptSeason& kept_;
  QTimer soon_;
  int reading_ = 0;  // counts them
  HandOver handOver_;
  std::jthread reader_;  // the last member
};

}  // namespace dtb
