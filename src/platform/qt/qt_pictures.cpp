#include "platform/qt/qt_pictures.h"

#include <QByteArrayList>
#include <QDateTime>
#include <QFileInfo>
#include <QImageReader>
#include <algorithm>

#include "base/paths.h"
#include "platform/qt/qt_text.h"

namespace dtb {
namespace {

constexpr qint64 kLargestFile = 512LL * 1024 * 1024;
constexpr qint64 kMillion = 1000LL * 1000;
constexpr qint64 kMostPixels = 100 * kMillion;
// A piece as high as the scene on a screen of twice the reference density needs no more.
constexpr int kLongestSide = 1200;
constexpr qint64 kCacheBytes = 96LL * 1024 * 1024;
constexpr std::size_t kMostEntries = 4096;

QString QtPath(const std::string& path) { return ToQt(path); }

// Changes with the file's contents; 0 for what is no readable regular file.
std::uint64_t StampOf(const std::string& path) {
  if (path.find('\0') != std::string::npos) return 0;
  const QFileInfo info(QtPath(path));
  if (!info.isFile() || info.size() > kLargestFile) return 0;
  const auto modified = static_cast<std::uint64_t>(info.lastModified().toMSecsSinceEpoch());
  constexpr std::uint64_t kMix = 0x9E3779B97F4A7C15;  // spreads the bits: 2^64 / golden ratio
  const std::uint64_t stamp = (modified * kMix) ^ static_cast<std::uint64_t>(info.size());
  return stamp == 0 ? 1 : stamp;
}

bool IsPhotoFormat(const QByteArray& format) {
  static const QByteArrayList formats{"jpeg", "jpg", "png", "gif", "bmp", "webp", "tiff"};
  return formats.contains(format);
}

bool HasTooManyPixels(const QSize& size) {
  return qint64{size.width()} * size.height() > kMostPixels;
}

// False: by its head the file is no photo, or too large.
bool Begin(QImageReader& reader, const std::string& path) {
  reader.setFileName(QtPath(path));
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  // Qt's own limit would turn a large photo of many colours away.
  constexpr int kMostMegabytes = 1024;
  if (QImageReader::allocationLimit() != kMostMegabytes) {
    QImageReader::setAllocationLimit(kMostMegabytes);
  }
  if (!IsPhotoFormat(reader.format())) return false;
  const QSize size = reader.size();
  return size.isValid() && !HasTooManyPixels(size);
}

bool IsTooLarge(const QSize& size) { return std::max(size.width(), size.height()) > kLongestSide; }

QSize Fitted(const QSize& size) {
  return size.scaled(kLongestSide, kLongestSide, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

QImage Decode(const std::string& path) {
  QImageReader reader;
  if (!Begin(reader, path)) return {};
  if (IsTooLarge(reader.size())) reader.setScaledSize(Fitted(reader.size()));
  const QImage image = reader.read();
  // A GIF's picture may be larger than its head says.
  return IsTooLarge(image.size()) ? image.scaled(Fitted(image.size())) : image;
}

}  // namespace

QImage DecodedFor(const QString& file, const QSize& place) {
  QImageReader reader;
  if (StampOf(FromQt(file)) == 0 || !Begin(reader, FromQt(file))) return {};
  constexpr int kSmallestShare = 8;
  const QSize whole = reader.size();
  QSize size = whole;
  // A decoder of JPEG halves in passing.
  for (int share = 2; share <= kSmallestShare; share *= 2) {
    const QSize part((whole.width() + share - 1) / share, (whole.height() + share - 1) / share);
    if (part.width() < place.width() || part.height() < place.height()) break;
    size = part;
  }
  if (size != whole) reader.setScaledSize(size);
  return reader.read();
}

QImage DecodedWhole(const QString& file) {
  QImageReader reader;
  if (StampOf(FromQt(file)) == 0 || !Begin(reader, FromQt(file))) return {};
  return reader.read();
}

QString WhyNoPicture(const QString& file) {
  const QString named = QLatin1Char('"') + file + QStringLiteral("\" ");
  const QFileInfo info(file);
  if (!info.exists()) return named + QStringLiteral("does not exist.");
  if (!info.isFile()) return named + QStringLiteral("is not a file.");
  if (!info.isReadable()) return named + QStringLiteral("cannot be read: you lack permission.");
  if (info.size() > kLargestFile) {
    return named + QStringLiteral("is larger than 512 MiB, the limit for a picture.");
  }
  if (!IsPhotoFormat(QImageReader::imageFormat(file))) {
    return named + QStringLiteral(
                       "is not a picture in a format that can be shown: "
                       "JPEG, PNG, GIF, BMP, WebP or TIFF.");
  }
  QImageReader reader;
  static_cast<void>(Begin(reader, FromQt(file)));
  if (const QSize size = reader.size(); HasTooManyPixels(size)) {
    return named + QStringLiteral("has %1 x %2 pixels; the limit is 100 million.")
                       .arg(size.width())
                       .arg(size.height());
  }
  return named + QStringLiteral("is damaged: it begins as a picture, but cannot be read.");
}

std::optional<Picture> QtPictures::Load(const std::filesystem::path& file) {
  const std::string path = TextOf(file);
  const std::uint64_t stamp = StampOf(path);
  if (stamp == 0 || !Refresh(path, stamp).loaded) return std::nullopt;
  return Picture{path, stamp};
}

std::optional<Picture> QtPictures::Recognise(const std::filesystem::path& file) {
  const std::string path = TextOf(file);
  const std::uint64_t stamp = StampOf(path);
  QImageReader reader;
  if (stamp == 0 || !Begin(reader, path)) return std::nullopt;
  return Picture{path, stamp};
}

std::string QtPictures::WhyNone(const std::filesystem::path& file) {
  return FromQt(WhyNoPicture(ToQt(TextOf(file))));
}

QImage QtPictures::Image(const Picture& picture) {
  if (picture.empty()) return {};
  const std::uint64_t stamp = StampOf(picture.path);
  if (stamp == 0) return {};
  Entry& entry = Refresh(picture.path, stamp);
  if (entry.loaded && entry.image.isNull()) {
    entry.image = Decode(picture.path);
    bytes_ += entry.image.sizeInBytes();
  }
  QImage image = entry.image;
  ForgetOldImages();
  return image;
}

QtPictures::Entry& QtPictures::Refresh(const std::string& path, std::uint64_t stamp) {
  const auto [place, added] = entries_.try_emplace(path);
  Entry& entry = place->second;
  if (added) {
    entry.use = uses_.insert(uses_.end(), path);
  } else {
    uses_.splice(uses_.end(), uses_, entry.use);
  }
  if (entry.stamp == stamp) return entry;
  bytes_ -= entry.image.sizeInBytes();
  entry.stamp = stamp;
  entry.image = Decode(path);
  entry.loaded = !entry.image.isNull();
  bytes_ += entry.image.sizeInBytes();
  ForgetOldImages();
  return entry;
}

// Never touches the entry used last.
void QtPictures::ForgetOldImages() {
  for (auto use = uses_.begin(); bytes_ > kCacheBytes && std::next(use) != uses_.end(); ++use) {
    QImage& image = entries_.at(*use).image;
    bytes_ -= image.sizeInBytes();
    image = {};
  }
  while (uses_.size() > kMostEntries) {
    bytes_ -= entries_.at(uses_.front()).image.sizeInBytes();
    entries_.erase(uses_.front());
    uses_.pop_front();
  }
}

}  // namespace dtb
