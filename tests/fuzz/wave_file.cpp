// Any bytes as a sound.
#include "platform/qt/wave_file.h"

#include "fuzz.h"
#include "platform/qt/qt_text.h"

using namespace dtb;

namespace {

// A wave file of a few samples.
std::string Good() {
  using namespace std::string_literals;
  return "RIFF\x30\0\0\0WAVEfmt "
         "\x10\0\0\0\x01\0\x01\0\x22\x56\0\0\x44\xAC\0\0\x02\0\x10\0data\x08\0\0\0"
         "\1\2\3\4\5\6\7\b"s;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes = fuzz::Edited(Good(), fuzz::BytesOf(data, size));
  const auto wave = ReadWave(ToQt(fuzz::WriteInput("any.wav", bytes).string()));
  if (!wave) return 0;
  const qint64 block = qint64{wave->channels} * wave->bits / 8;
  fuzz::Require(block > 0 && wave->rate > 0, "what is played has samples");
  fuzz::Require(wave->length > 0 && wave->length % block == 0, "whole samples alone");
  fuzz::Require(wave->start > 0 && wave->start + wave->length <= std::ssize(bytes),
                "within the file");
  return 0;
}
