// The part of the program that plays sounds: a module of its own, since the multimedia library
// brings dozens of others, which nobody should wait for before the first sound.
#pragma once

#include <QString>

namespace dtb {

class SoundPlayer {
 public:
  enum class Voice { Once, Loop };
  static constexpr int kEndless = -2;  // as the toolkit counts

  virtual ~SoundPlayer() = default;
  // Without a device there is nobody to hear the sound, and nothing to wait for.
  virtual void Play(Voice voice, const QString& file, int times) = 0;
  virtual void Stop(Voice voice) = 0;
};

// What the module "libdtb_sounds.so" gives under this name; it is never unloaded.
using MakeSoundPlayer = SoundPlayer*();
inline constexpr const char* kMakeSoundPlayer = "MakeSoundPlayer";

}  // namespace dtb
