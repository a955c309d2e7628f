// Plays wave files through Qt's multimedia library. They are read as they sound, so that an hour of
// crowd takes no more memory than a die; a loop goes on without a gap.
#include <QAudioDevice>
#include <QAudioSink>
#include <QFile>
#include <QMediaDevices>
#include <QTimer>
#include <array>
#include <memory>

#include "platform/qt/sound_player.h"

namespace dtb {
namespace {

// The samples of a file, once or without an end.
class Samples : public QIODevice {
 public:
  Samples(const WaveFile& wave, bool endless)
      : file_(wave.path), start_(wave.start), length_(wave.length), endless_(endless) {
    if (file_.open(QIODevice::ReadOnly) && file_.seek(start_)) open(QIODevice::ReadOnly);
  }
  [[nodiscard]] bool isSequential() const override { return true; }
  [[nodiscard]] qint64 bytesAvailable() const override {
    return (endless_ ? length_ : start_ + length_ - file_.pos()) + QIODevice::bytesAvailable();
  }

 protected:
  qint64 readData(char* data, qint64 most) override {
    qint64 done = 0;
    while (done < most) {
      const qint64 left = start_ + length_ - file_.pos();
      if (left <= 0 && (!endless_ || !file_.seek(start_))) break;
      const qint64 count =
          file_.read(data + done, std::min(most - done, left > 0 ? left : length_));
      if (count <= 0) break;  // the file became shorter
      done += count;
    }
    return done;
  }
  qint64 writeData(const char* /*data*/, qint64 /*most*/) override { return -1; }

 private:
  QFile file_;
  qint64 start_;
  qint64 length_;
  bool endless_;
};

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

class StreamPlayer : public SoundPlayer {
 public:
  void Play(Voice voice, const WaveFile& wave) override { ChannelOf(voice).Play(wave); }
  void Stop(Voice voice) override { ChannelOf(voice).Stop(); }

 private:
  Channel& ChannelOf(Voice voice) { return voice == Voice::Loop ? loop_ : once_; }

  Channel once_{false};
  Channel loop_{true};
};

}  // namespace
}  // namespace dtb

extern "C" Q_DECL_EXPORT dtb::SoundPlayer* MakeSoundPlayer() { return new dtb::StreamPlayer; }
