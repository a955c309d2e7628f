// What plays sounds. Qt's multimedia library brings dozens of others, which nobody should wait for
// before the first sound, so it stands in a module of its own, "libdtb_sounds.so"; on Windows the
// system's own functions do.
#pragma once

#include "platform/qt/wave_file.h"

namespace dtb {

// Belongs to the thread of the windows.
class SoundPlayer {
 public:
  enum class Voice { Once, Loop };

  virtual ~SoundPlayer() = default;
  // Plays a sound once, or again and again until it is stopped. Without a device there is nobody
  // to hear it; a loop is heard as soon as there is one.
  virtual void Play(Voice voice, const WaveFile& wave) = 0;
  virtual void Stop(Voice voice) = 0;
};

// A player of a channel for each voice, which is made with whether its sounds have no end.
template <class Channel>
class VoicesOf : public SoundPlayer {
 public:
  void Play(Voice voice, const WaveFile& wave) override { ChannelOf(voice).Play(wave); }
  void Stop(Voice voice) override { ChannelOf(voice).Stop(); }

 private:
  Channel& ChannelOf(Voice voice) { return voice == Voice::Loop ? loop_ : once_; }

  Channel once_{false};
  Channel loop_{true};
};

// The player of this system; it is never unloaded. Throws ProgramError where that part of the
// program is missing.
[[nodiscard]] SoundPlayer* LoadSoundPlayer();

}  // namespace dtb
