// Plays wave files through the functions for them that Windows has. A file lies in memory only as
// far as it is just being played.
#include <windows.h>
//
#include <mmsystem.h>

#include <QFile>
#include <QTimer>
#include <memory>

#include "platform/qt/sound_player.h"

namespace dtb {
namespace {

constexpr DWORD kWithoutEnd = 0xFFFFFFFF;

WAVEFORMATEX FormatOf(const WaveFile& wave) {
  WAVEFORMATEX format{};
  format.wFormatTag = WAVE_FORMAT_PCM;
  format.nChannels = static_cast<WORD>(wave.channels);
  format.nSamplesPerSec = static_cast<DWORD>(wave.rate);
  format.wBitsPerSample = static_cast<WORD>(wave.bits);
  format.nBlockAlign = static_cast<WORD>(wave.channels * wave.bits / 8);
  format.nAvgBytesPerSec = format.nSamplesPerSec * format.nBlockAlign;
  return format;
}

// A file that sounds on the usual device, from its making to its end.
class Sounding {
 public:
  Sounding(const WaveFile& wave, bool endless) : file_(wave.path) {
    if (!file_.open(QIODevice::ReadOnly)) return;
    uchar* samples = file_.map(wave.start, wave.length);
    if (samples == nullptr) return;
    const WAVEFORMATEX format = FormatOf(wave);
    if (waveOutOpen(&device_, WAVE_MAPPER, &format, 0, 0, CALLBACK_NULL) != MMSYSERR_NOERROR) {
      device_ = nullptr;
      return;
    }
    head_.lpData = reinterpret_cast<LPSTR>(samples);
    head_.dwBufferLength = static_cast<DWORD>(wave.length);
    if (waveOutPrepareHeader(device_, &head_, sizeof(head_)) != MMSYSERR_NOERROR) return;
    if (endless) {
      head_.dwFlags |= WHDR_BEGINLOOP | WHDR_ENDLOOP;
      head_.dwLoops = kWithoutEnd;
    }
    sounds_ = waveOutWrite(device_, &head_, sizeof(head_)) == MMSYSERR_NOERROR;
  }
  ~Sounding() {
    if (device_ == nullptr) return;
    waveOutReset(device_);
    waveOutUnprepareHeader(device_, &head_, sizeof(head_));
    waveOutClose(device_);
  }
  Sounding(const Sounding&) = delete;
  Sounding& operator=(const Sounding&) = delete;

  [[nodiscard]] bool IsOver() const {
    return !sounds_ || (*static_cast<const volatile DWORD*>(&head_.dwFlags) & WHDR_DONE) != 0;
  }

 private:
  QFile file_;  // mapped as long as it is open
  HWAVEOUT device_ = nullptr;
  WAVEHDR head_{};
  bool sounds_ = false;
};

// One sound at a time.
class Channel : public QObject {
 public:
  explicit Channel(bool endless) : endless_(endless) {
    // The device may go and come back; a sound that is over needs it no more.
    constexpr int kLookAgain = 2000;  // milliseconds
    again_.setInterval(kLookAgain);
    connect(&again_, &QTimer::timeout, this, [this] { Look(); });
  }

  void Play(const WaveFile& wave) {
    Stop();
    wave_ = wave;
    sounding_ = std::make_unique<Sounding>(wave_, endless_);
    again_.start();
  }
  void Stop() {
    again_.stop();
    sounding_.reset();
  }

 private:
  void Look() {
    if (sounding_ && !sounding_->IsOver()) return;
    endless_ ? Play(WaveFile(wave_)) : Stop();
  }

  bool endless_;
  WaveFile wave_;
  QTimer again_;
  std::unique_ptr<Sounding> sounding_;
};

class WavePlayer : public SoundPlayer {
 public:
  void Play(Voice voice, const WaveFile& wave) override { ChannelOf(voice).Play(wave); }
  void Stop(Voice voice) override { ChannelOf(voice).Stop(); }

 private:
  Channel& ChannelOf(Voice voice) { return voice == Voice::Loop ? loop_ : once_; }

  Channel once_{false};
  Channel loop_{true};
};

}  // namespace

SoundPlayer* LoadSoundPlayer() { return new WavePlayer; }

}  // namespace dtb
