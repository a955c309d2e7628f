// The samples of a wave file, as a player reads them.
#pragma once

#include <QFile>
#include <QIODevice>
#include <algorithm>

#include "platform/qt/wave_file.h"

namespace dtb {

// Once or without an end. Not open where the file cannot be read.
class Samples : public QIODevice {
 public:
  Samples(const WaveFile& wave, bool endless)
      : file_(wave.path), start_(wave.start), length_(wave.length), endless_(endless) {
    if (file_.open(QIODevice::ReadOnly) && file_.seek(start_)) open(QIODevice::ReadOnly);
  }
  [[nodiscard]] bool isSequential() const override { return true; }
  [[nodiscard]] qint64 bytesAvailable() const override {
    return (endless_ ? length_ : start_ + length_ - file_.pos()) + QIODevice::bytesAvailable();
  }

 protected:
  qint64 readData(char* data, qint64 most) override {
    qint64 done = 0;
    while (done < most) {
      const qint64 left = start_ + length_ - file_.pos();
      if (left <= 0 && (!endless_ || !file_.seek(start_))) break;
      const qint64 count =
          file_.read(data + done, std::min(most - done, left > 0 ? left : length_));
      if (count <= 0) break;  // the file became shorter
      done += count;
    }
    return done;
  }
  qint64 writeData(const char* /*data*/, qint64 /*most*/) override { return -1; }

 private:
  QFile file_;
  qint64 start_;
  qint64 length_;
  bool endless_;
};

}  // namespace dtb
