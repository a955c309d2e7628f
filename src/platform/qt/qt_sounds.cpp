#include "platform/qt/qt_sounds.h"

#include <QFileInfo>

#include "base/paths.h"
#include "base/program_error.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/wave_file.h"

namespace dtb {

void QtSounds::PlayOnce(const std::filesystem::path& file) {
  const auto wave = ReadWave(ToQt(TextOf(file)));
  if (!wave) return;
  try {
    if (!player_) player_.reset(LoadSoundPlayer());
  } catch (const ProgramError&) {
    return;  // what is asked for is a sound, and its lack is silent
  }
  player_->Play(SoundPlayer::Voice::Once, *wave);
}

void QtSounds::StartLoop(const std::filesystem::path& file) {
  const QString path = ToQt(TextOf(file));
  if (!QFileInfo::exists(path)) {
    throw ProgramError(error_number::kFileNotFound,
                       "The sound file \"" + TextOf(file) + "\" was not found.");
  }
  const auto wave = ReadWave(path);
  if (!wave) {
    throw ProgramError(
        error_number::kInvalidFileFormat,
        "The file \"" + TextOf(file) +
            "\" is broken, or not a plain wave file of 8 or 16 bits, so it cannot be played.");
  }
  if (!player_) player_.reset(LoadSoundPlayer());
  player_->Play(SoundPlayer::Voice::Loop, *wave);
}

void QtSounds::StopLoop() {
  if (player_) player_->Stop(SoundPlayer::Voice::Loop);
}

void QtSounds::Silence() {
  if (player_) player_->Stop(SoundPlayer::Voice::Once);
  StopLoop();
}

}  // namespace dtb
