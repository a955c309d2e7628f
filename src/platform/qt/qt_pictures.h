// Pictures from files, decoded once. Any thread may decode one; what is remembered belongs to the
// thread of the windows.
#pragma once

#include <QImage>
#include <QString>
#include <list>
#include <unordered_map>

#include "platform/platform.h"

namespace dtb {

// The picture in a file for a place of the given size in pixels of the screen: decoded in the
// file's own size, or in a half, quarter or eighth of it where that still fills the place. Null for
// what is no picture.
[[nodiscard]] QImage DecodedFor(const QString& file, const QSize& place);

// The picture in a file in its own size, for a reader who looks close. Null for what is no picture.
[[nodiscard]] QImage DecodedWhole(const QString& file);

// Why a file gives no picture, as a whole sentence that names it.
[[nodiscard]] QString WhyNoPicture(const QString& file);

// Decodes photos and logos no larger than the board can show them, and remembers the outcome for as
// long as the file stays as it is, failures too. A file that is no regular file, larger than
// 512 MiB, of more than 100 million pixels or of a format that is no photo's is no picture.
class QtPictures : public Pictures {
 public:
  std::optional<Picture> Load(const std::filesystem::path& file) override;
  std::optional<Picture> Recognise(const std::filesystem::path& file) override;
  std::string WhyNone(const std::filesystem::path& file) override;

  // The pixels of a picture; empty if the file went bad since it was loaded.
  [[nodiscard]] QImage Image(const Picture& picture);

 private:
  struct Entry {
    std::uint64_t stamp = 0;
    bool loaded = false;
    QImage image;
    std::list<std::string>::iterator use;
  };

  Entry& Refresh(const std::string& path, std::uint64_t stamp);
  void ForgetOldImages();

  std::unordered_map<std::string, Entry> entries_;
  std::list<std::string> uses_;  // least recently used first
  qint64 bytes_ = 0;
};

}  // namespace dtb
