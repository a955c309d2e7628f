// Sounds through the toolkit's multimedia library.
#pragma once

#include <QSoundEffect>
#include <memory>

#include "platform/platform.h"

namespace dtb {

// Plays wave files. Nothing of the sound system is touched before the first sound, and a sound is
// decoded once. The loop goes on without a gap, since the samples are mixed from memory.
class QtSounds : public Sounds {
 public:
  void PlayOnce(const std::filesystem::path& file) override;
  void StartLoop(const std::filesystem::path& file) override;
  void StopLoop() override;
  void Silence() override;

 private:
  std::unique_ptr<QSoundEffect> once_;
  std::unique_ptr<QSoundEffect> loop_;
};

}  // namespace dtb
