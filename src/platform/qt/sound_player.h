// The part of the program that plays sounds: a module of its own, since the multimedia library
// brings dozens of others, which nobody should wait for before the first sound.
#pragma once

#include "platform/qt/wave_file.h"

namespace dtb {

class SoundPlayer {
 public:
  enum class Voice { Once, Loop };

  virtual ~SoundPlayer() = default;
  // Plays a sound once, or again and again until it is stopped. Without a device there is nobody
  // to hear it; a loop is heard as soon as there is one.
  virtual void Play(Voice voice, const WaveFile& wave) = 0;
  virtual void Stop(Voice voice) = 0;
};

// What the module "libdtb_sounds.so" gives under this name; it is never unloaded.
using MakeSoundPlayer = SoundPlayer*();
inline constexpr const char* kMakeSoundPlayer = "MakeSoundPlayer";

}  // namespace dtb
