// Archives on the disk: zip files by minizip, folders by the file system.
#pragma once

#include "platform/archive.h"

namespace dtb {

class ZipArchives : public Archives {
 public:
  std::unique_ptr<Archive> OpenArchive(const std::filesystem::path& zipOrFolder,
                                       const GoOn& goOn) override;
};

}  // namespace dtb
