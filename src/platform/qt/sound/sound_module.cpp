// Plays wave files through the toolkit's multimedia library. A sound is decoded once, and a loop
// goes on without a gap, since the samples are mixed from memory.
#include <QAudioDevice>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>
#include <array>
#include <memory>

#include "platform/qt/sound_player.h"

namespace dtb {
namespace {

static_assert(SoundPlayer::kEndless == QSoundEffect::Infinite);

class EffectPlayer : public SoundPlayer {
 public:
  void Play(Voice voice, const QString& file, int times) override {
    if (QMediaDevices::defaultAudioOutput().isNull()) return;
    auto& effect = effects_.at(static_cast<std::size_t>(voice));
    const QUrl source = QUrl::fromLocalFile(file);
    if (!effect) effect = std::make_unique<QSoundEffect>();
    effect->stop();
    if (effect->source() != source) effect->setSource(source);
    effect->setLoopCount(times);
    effect->play();
  }
  void Stop(Voice voice) override {
    if (auto& effect = effects_.at(static_cast<std::size_t>(voice))) effect->stop();
  }

 private:
  std::array<std::unique_ptr<QSoundEffect>, 2> effects_;
};

}  // namespace
}  // namespace dtb

extern "C" Q_DECL_EXPORT dtb::SoundPlayer* MakeSoundPlayer() { return new dtb::EffectPlayer; }
