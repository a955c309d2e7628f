// Sounds through Qt's multimedia library.
#pragma once

#include <memory>

#include "platform/platform.h"
#include "platform/qt/sound_player.h"

namespace dtb {

// Looks at wave files, and has them played by the module for it, which is loaded with the first
// sound; before that nothing of the sound system is touched.
class QtSounds : public Sounds {
 public:
  void PlayOnce(const std::filesystem::path& file) override;
  void StartLoop(const std::filesystem::path& file) override;
  void StopLoop() override;
  void Silence() override;

 private:
  std::unique_ptr<SoundPlayer> player_;  // none: no sound yet
};

}  // namespace dtb
