#include "platform/qt/qt_sounds.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QtEndian>

#include "platform/paths.h"
#include "platform/qt/qt_text.h"
#include "shell/program_error.h"

namespace dtb {
namespace {

// What the toolkit plays: samples of 8 or 16 bits, not compressed.
bool IsPlayable(const QByteArray& format) {
  constexpr qsizetype kFormatSize = 16;
  constexpr quint16 kPlain = 1;
  if (format.size() < kFormatSize) return false;
  const auto word = [&](int at) { return qFromLittleEndian<quint16>(format.constData() + at); };
  const quint16 channels = word(2);
  const auto rate = qFromLittleEndian<quint32>(format.constData() + 4);
  const quint16 block = word(12);
  const quint16 bits = word(14);
  return word(0) == kPlain && channels > 0 && rate > 0 && (bits == 8 || bits == 16) &&
         block == channels * bits / 8;
}

// A wave file begins with "RIFF", four bytes of length and "WAVE". Chunks follow, each of a name,
// its length and its bytes; the format must make sense, and the samples after it must be there.
bool IsWave(const QString& path) {
  constexpr qint64 kHead = 12;
  constexpr qint64 kChunkHead = 8;
  constexpr qint64 kLongestFormat = 4096;
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return false;
  const QByteArray head = file.read(kHead);
  if (head.size() < kHead || !head.startsWith("RIFF") || !head.endsWith("WAVE")) return false;
  for (bool playable = false;;) {
    const QByteArray chunk = file.read(kChunkHead);
    if (chunk.size() < kChunkHead) return false;
    const qint64 length = qFromLittleEndian<quint32>(chunk.constData() + 4);
    const qint64 left = file.size() - file.pos();
    if (length > left) return false;
    if (chunk.startsWith("data")) return playable && length > 0;
    if (chunk.startsWith("fmt ")) {
      playable = length <= kLongestFormat && IsPlayable(file.peek(length));
      if (!playable) return false;
    }
    // A chunk of an odd length is followed by a byte that counts for nothing.
    if (!file.seek(file.pos() + length + length % 2)) return false;
  }
}

// Beside the executable, or where the package has it. Throws ProgramError where it is missing.
SoundPlayer* LoadPlayer() {
  const QString beside = QCoreApplication::applicationDirPath();
  QString complaint;
  for (const char* folder : {"/", "/../lib/kelvane-diamond-table/"}) {
    QLibrary module(beside + QLatin1String(folder) + QStringLiteral("libdtb_sounds.so"));
    if (!QFileInfo::exists(module.fileName())) continue;
    if (const auto make = reinterpret_cast<MakeSoundPlayer*>(module.resolve(kMakeSoundPlayer))) {
      // cppcheck-suppress CastIntegerToAddressAtReturn // the module's function makes a player
      return make();
    }
    complaint = QStringLiteral(" (") + module.errorString() + QLatin1Char(')');
  }
  throw ProgramError(error_number::kFileNotFound,
                     "The part of the program that plays sounds, \"libdtb_sounds.so\", is missing "
                     "or cannot be used" +
                         FromQt(complaint) + ". Install the program again to hear sounds.");
}

}  // namespace

void QtSounds::PlayOnce(const std::filesystem::path& file) {
  const QString path = ToQt(TextOf(file));
  if (!IsWave(path)) return;
  try {
    if (!player_) player_.reset(LoadPlayer());
  } catch (const ProgramError&) {
    return;  // what is asked for is a sound, and its lack is silent
  }
  player_->Play(SoundPlayer::Voice::Once, path, 1);
}

void QtSounds::StartLoop(const std::filesystem::path& file) {
  const QString path = ToQt(TextOf(file));
  if (!QFileInfo::exists(path)) {
    throw ProgramError(error_number::kFileNotFound,
                       "The sound file \"" + TextOf(file) + "\" was not found.");
  }
  if (!IsWave(path)) {
    throw ProgramError(
        error_number::kInvalidFileFormat,
        "The file \"" + TextOf(file) +
            "\" is broken, or not a plain wave file of 8 or 16 bits, so it cannot be played.");
  }
  if (!player_) player_.reset(LoadPlayer());
  player_->Play(SoundPlayer::Voice::Loop, path, SoundPlayer::kEndless);
}

void QtSounds::StopLoop() {
  if (player_) player_->Stop(SoundPlayer::Voice::Loop);
}

void QtSounds::Silence() {
  if (player_) player_->Stop(SoundPlayer::Voice::Once);
  StopLoop();
}

}  // namespace dtb
