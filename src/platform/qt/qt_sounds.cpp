#include "platform/qt/qt_sounds.h"

#include <QAudioDevice>
#include <QFile>
#include <QFileInfo>
#include <QMediaDevices>
#include <QUrl>

#include "platform/paths.h"
#include "platform/qt/qt_text.h"
#include "shell/program_error.h"

namespace dtb {
namespace {

// A wave file begins with "RIFF", four bytes of length and "WAVE".
bool IsWave(const QString& path) {
  constexpr qint64 kHeader = 12;
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return false;
  const QByteArray header = file.read(kHeader);
  return header.startsWith("RIFF") && header.endsWith("WAVE");
}

// Without a device there is nobody to hear the sound, and nothing to wait for.
bool HasDevice() { return !QMediaDevices::defaultAudioOutput().isNull(); }

void Play(std::unique_ptr<QSoundEffect>& effect, const QString& path, int times) {
  const QUrl source = QUrl::fromLocalFile(path);
  if (!effect) effect = std::make_unique<QSoundEffect>();
  effect->stop();
  if (effect->source() != source) effect->setSource(source);
  effect->setLoopCount(times);
  effect->play();
}

}  // namespace

void QtSounds::PlayOnce(const std::filesystem::path& file) {
  const QString path = ToQt(TextOf(file));
  if (IsWave(path) && HasDevice()) Play(once_, path, 1);
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
        "The file \"" + TextOf(file) + "\" is no wave file, so it cannot be played.");
  }
  if (HasDevice()) Play(loop_, path, QSoundEffect::Infinite);
}

void QtSounds::StopLoop() {
  if (loop_) loop_->stop();
}

void QtSounds::Silence() {
  if (once_) once_->stop();
  StopLoop();
}

}  // namespace dtb
