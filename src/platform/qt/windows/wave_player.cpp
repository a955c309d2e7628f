// Plays wave files through the functions for them that Windows has.
#include <windows.h>
//
#include <mmsystem.h>

#include <QTimer>
#include <array>
#include <memory>

#include "platform/qt/sound_player.h"
#include "platform/qt/wave_samples.h"

namespace dtb {
namespace {

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

// A file that sounds on the usual device. It goes there in pieces of half a second, four of which
// wait: so long may the windows be busy before there is a gap.
class Sounding {
 public:
  Sounding(const WaveFile& wave, bool endless) : samples_(wave, endless) {
    const WAVEFORMATEX format = FormatOf(wave);
    if (!samples_.isOpen() ||
        waveOutOpen(&device_, WAVE_MAPPER, &format, 0, 0, CALLBACK_NULL) != MMSYSERR_NOERROR) {
      device_ = nullptr;
      return;
    }
    const DWORD frames = format.nSamplesPerSec / 2 + 1;
    for (Piece& piece : pieces_) {
      piece.bytes.resize(static_cast<qsizetype>(frames * format.nBlockAlign));
      piece.head.lpData = piece.bytes.data();
      piece.head.dwBufferLength = static_cast<DWORD>(piece.bytes.size());
      waveOutPrepareHeader(device_, &piece.head, sizeof(piece.head));
    }
    Refill();
  }
  ~Sounding() {
    if (device_ == nullptr) return;
    waveOutReset(device_);
    for (Piece& piece : pieces_) waveOutUnprepareHeader(device_, &piece.head, sizeof(piece.head));
    waveOutClose(device_);
  }
  Sounding(const Sounding&) = delete;
  Sounding& operator=(const Sounding&) = delete;

  // Hands over what comes next. False once all of it was heard, or nobody hears it.
  bool Refill() {
    bool waits = false;
    for (Piece& piece : pieces_) {
      if (!piece.waits || (piece.head.dwFlags & WHDR_DONE) != 0) piece.waits = Send(piece);
      waits = waits || piece.waits;
    }
    return waits;
  }

 private:
  struct Piece {
    QByteArray bytes;
    WAVEHDR head{};
    bool waits = false;
  };

  bool Send(Piece& piece) {
    if (device_ == nullptr) return false;
    const qint64 count = samples_.read(piece.bytes.data(), piece.bytes.size());
    if (count <= 0) return false;
    piece.head.dwBufferLength = static_cast<DWORD>(count);
    return waveOutWrite(device_, &piece.head, sizeof(piece.head)) == MMSYSERR_NOERROR;
  }

  Samples samples_;
  HWAVEOUT device_ = nullptr;
  std::array<Piece, 4> pieces_;
};

// One sound at a time.
class Channel : public QObject {
 public:
  explicit Channel(bool endless) : endless_(endless) {
    connect(&turn_, &QTimer::timeout, this, [this] { Look(); });
  }

  void Play(const WaveFile& wave) {
    wave_ = wave;
    Sound();
  }
  void Stop() {
    turn_.stop();
    sounding_.reset();
  }

 private:
  static constexpr int kTurn = 100;        // milliseconds
  static constexpr int kLookAgain = 2000;  // the device may go and come back, with its plug

  void Sound() {
    sounding_.reset();
    sounding_ = std::make_unique<Sounding>(wave_, endless_);
    turn_.start(kTurn);
  }

  void Look() {
    if (sounding_ && sounding_->Refill()) return;
    if (!endless_) return Stop();
    // An endless sound that nobody hears waits for the device.
    if (turn_.interval() == kTurn) {
      sounding_.reset();
      turn_.start(kLookAgain);
    } else {
      Sound();
    }
  }

  bool endless_;
  WaveFile wave_;
  QTimer turn_;
  std::unique_ptr<Sounding> sounding_;
};

}  // namespace

SoundPlayer* LoadSoundPlayer() { return new VoicesOf<Channel>; }

}  // namespace dtb
