// Any bytes as a photo, logo, park or chart.
#include "fuzz.h"
#include "platform/qt/qt_pictures.h"

using namespace dtb;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto file = fuzz::WriteInput("any.jpg", fuzz::BytesOf(data, size));
  QtPictures pictures;
  const auto recognised = pictures.Recognise(file);
  const auto loaded = pictures.Load(file);
  fuzz::Require(!loaded || recognised, "what can be decoded is recognised by its head");
  if (!loaded) return 0;
  const QImage image = pictures.Image(*loaded);
  fuzz::Require(!image.isNull(), "what was loaded can be shown");
  fuzz::Require(std::max(image.width(), image.height()) <= 1200, "no larger than can be shown");
  return 0;
}
