// Plays wave files through Qt's multimedia library. They are read as they sound, so that an hour of
// crowd takes no more memory than a die; a loop goes on without a gap.
#include <QAudioDevice>
#include <QAudioSink>
#include <QMediaDevices>
#include <QTimer>
#include <array>
#include <memory>

#include "platform/qt/sound_player.h"
#include "platform/qt/wave_samples.h"

namespace dtb {
namespace {

// One sound at a time.
class Channel : public QObject {
 public:
  explicit Channel(bool endless) : endless_(endless) {
    // The device may go and come back, with the sound server or its plug.
    constexpr int kLookAgain = 2000;  // milliseconds
    again_.setInterval(kLookAgain);
    connect(&again_, &QTimer::timeout, this, [this] { Sound(); });
  }

  void Play(const WaveFile& wave) {
    wave_ = wave;
    Sound();
  }
  void Stop() {
    again_.stop();
    sink_.reset();
    samples_.reset();
  }

 private:
  void Sound() {
    Stop();
    if (endless_) again_.start();
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull()) return;
    QAudioFormat format;
    format.setChannelCount(wave_.channels);
    format.setSampleRate(wave_.rate);
    format.setSampleFormat(wave_.bits == 8 ? QAudioFormat::UInt8 : QAudioFormat::Int16);
    samples_ = std::make_unique<Samples>(wave_, endless_);
    sink_ = std::make_unique<QAudioSink>(device, format);
    // Not within its own signal, which a sink does not survive.
    connect(
        sink_.get(), &QAudioSink::stateChanged, this, [this] { Look(); }, Qt::QueuedConnection);
    sink_->start(samples_.get());
    Look();
  }

  // A loop that sounds needs no second look; one that fell silent is begun again.
  void Look() {
    if (!sink_) return;
    const bool sounds = sink_->state() == QAudio::ActiveState;
    if (endless_ && sounds) again_.stop();
    if (endless_ && !sounds) again_.start();
    const bool over = sink_->state() == QAudio::IdleState || sink_->state() == QAudio::StoppedState;
    if (!endless_ && over) Stop();
  }

  bool endless_;
  WaveFile wave_;
  QTimer again_;
  std::unique_ptr<Samples> samples_;
  std::unique_ptr<QAudioSink> sink_;  // gone before what it reads
};

}  // namespace
}  // namespace dtb

extern "C" Q_DECL_EXPORT dtb::SoundPlayer* MakeSoundPlayer() {
  return new dtb::VoicesOf<dtb::Channel>;
}
