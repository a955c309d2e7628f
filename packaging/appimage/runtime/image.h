// The file system that lies behind the program in its own file.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

extern "C" {
#include <squashfuse/squashfuse.h>
}

namespace dtb::appimage {

// What cannot be done, in words for whoever started the file.
class Fault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Image {
 public:
  // Throws Fault where the file cannot be read, is shorter than it should be, or holds no image.
  explicit Image(const std::string& file);
  ~Image();
  Image(const Image&) = delete;
  Image& operator=(const Image&) = delete;

  // Where the image begins in the file.
  [[nodiscard]] std::uint64_t offset() const { return offset_; }

  // What stands under a path, as in "/usr/games". False where nothing does, or it cannot be read.
  [[nodiscard]] bool Find(const std::string& path, sqfs_inode& inode);
  [[nodiscard]] bool Load(sqfs_inode_id id, sqfs_inode& inode);
  [[nodiscard]] struct stat StatusOf(sqfs_inode& inode);
  // The number of bytes read, fewer at the end of the file; -1 where it is damaged.
  [[nodiscard]] std::int64_t Read(sqfs_inode& inode, std::uint64_t from, std::span<char> into);
  // "" where it is damaged.
  [[nodiscard]] std::string LinkTarget(sqfs_inode& inode);
  [[nodiscard]] sqfs* system() { return &system_; }

  // Writes every file of the image into a folder that exists. Throws Fault.
  void Extract(const std::string& folder);

 private:
  void ExtractOne(sqfs_inode& inode, const std::string& path);
  void ExtractFile(sqfs_inode& inode, const std::string& path);

  std::string file_;
  int descriptor_ = -1;
  std::uint64_t offset_ = 0;
  sqfs system_{};
};

}  // namespace dtb::appimage
