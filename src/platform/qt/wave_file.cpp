#include "platform/qt/wave_file.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

namespace dtb {
namespace {

// False for a format that cannot be played.
bool ReadFormat(const QByteArray& format, WaveFile& wave) {
  constexpr qsizetype kFormatSize = 16;
  constexpr quint16 kPlain = 1;
  constexpr quint32 kFastest = 192000;
  if (format.size() < kFormatSize) return false;
  const auto word = [&](int at) { return qFromLittleEndian<quint16>(format.constData() + at); };
  const auto rate = qFromLittleEndian<quint32>(format.constData() + 4);
  const quint16 block = word(12);
  wave.channels = word(2);
  wave.rate = static_cast<int>(rate);
  wave.bits = word(14);
  return word(0) == kPlain && wave.channels > 0 && rate > 0 && rate <= kFastest &&
         (wave.bits == 8 || wave.bits == 16) && block == wave.channels * wave.bits / 8;
}

}  // namespace

// A wave file begins with "RIFF", four bytes of length and "WAVE". Chunks follow, each of a name,
// its length and its bytes; the format must make sense, and the samples after it must be there.
std::optional<WaveFile> ReadWave(const QString& path) {
  constexpr qint64 kHead = 12;
  constexpr qint64 kChunkHead = 8;
  constexpr qint64 kLongestFormat = 4096;
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return std::nullopt;
  const QByteArray head = file.read(kHead);
  if (head.size() < kHead || !head.startsWith("RIFF") || !head.endsWith("WAVE")) {
    return std::nullopt;
  }
  WaveFile wave{.path = path};
  for (bool playable = false;;) {
    const QByteArray chunk = file.read(kChunkHead);
    if (chunk.size() < kChunkHead) return std::nullopt;
    const qint64 length = qFromLittleEndian<quint32>(chunk.constData() + 4);
    const qint64 left = file.size() - file.pos();
    if (length > left) return std::nullopt;
    if (chunk.startsWith("data")) {
      if (!playable) return std::nullopt;
      wave.start = file.pos();
      wave.length = length - length % (wave.channels * wave.bits / 8);
      return wave.length > 0 ? std::optional(wave) : std::nullopt;
    }
    if (chunk.startsWith("fmt ")) {
      playable = length <= kLongestFormat && ReadFormat(file.peek(length), wave);
      if (!playable) return std::nullopt;
    }
    // A chunk of an odd length is followed by a byte that counts for nothing.
    if (!file.seek(file.pos() + length + length % 2)) return std::nullopt;
  }
}

}  // namespace dtb
