// Wave files: where their samples lie, and what they are.
#pragma once

#include <QString>
#include <optional>

namespace dtb {

struct WaveFile {
  QString path;
  int channels = 0;
  int rate = 0;  // samples a second, of each channel
  int bits = 0;  // of a sample: 8 or 16
  qint64 start = 0;
  qint64 length = 0;  // bytes, whole samples of all channels
};

// Reads the head of a file. Nothing for what is no wave file, is broken, or has samples that are
// compressed.
[[nodiscard]] std::optional<WaveFile> ReadWave(const QString& path);

}  // namespace dtb
