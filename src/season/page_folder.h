// Folders of web pages, written whole or not at all.
#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/platform.h"

namespace dtb {

// Pages on their way into a folder that is put in place when all of them stand.
class PageFolder {
 public:
  // `kind` is what the names of all folders of such pages begin with: drafts that a program left
  // which died are removed. The folder holds these folders. Throws ProgramError, as all below.
  PageFolder(std::filesystem::path place, std::string_view kind,
             std::initializer_list<const char*> folders);
  // What was not put in place is gone.
  ~PageFolder();
  PageFolder(const PageFolder&) = delete;
  PageFolder& operator=(const PageFolder&) = delete;

  void Write(const std::string& name, std::string_view text) const;
  void PutInPlace() const;

 private:
  explicit PageFolder(std::filesystem::path place);

  std::filesystem::path place_;
  std::filesystem::path draft_;
};

// Says what was written and where the folder is, and opens its first page if the person wants it.
void OfferPages(Platform& platform, const std::string& told, const std::filesystem::path& folder,
                const std::string& title);

}  // namespace dtb
