// Shows the image as a folder, by FUSE, for as long as the object lives.
#pragma once

#define FUSE_USE_VERSION 32
#include <fuse3/fuse.h>
#include <fuse3/fuse_lowlevel.h>

#include <memory>
#include <string>

#include "image.h"

namespace dtb::appimage {

class Mount {
 public:
  // None where this system, or this person, cannot mount.
  static std::unique_ptr<Mount> Try(Image& image, const std::string& folder);
  ~Mount();
  Mount(const Mount&) = delete;
  Mount& operator=(const Mount&) = delete;

  // What to wait for, and to be called when something came; -1 once others have unmounted it.
  [[nodiscard]] int descriptor() const;
  void Answer();

 private:
  explicit Mount(fuse* mounted) : fuse_(mounted) {}

  fuse* fuse_;
  fuse_buf buffer_{};
};

}  // namespace dtb::appimage
