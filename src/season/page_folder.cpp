#include "season/page_folder.h"

#include <system_error>
#include <utility>
#include <vector>

#include "base/paths.h"
#include "base/whole_file.h"

namespace dtb {
namespace {

constexpr const char* kBeingWritten = " (being written)";

// Programs that died while they wrote pages leave these.
void RemoveDrafts(const std::filesystem::path& folder, std::string_view kind) {
  std::error_code fault;
  std::vector<std::filesystem::path> drafts;
  for (std::filesystem::directory_iterator entry(folder, fault), end; !fault && entry != end;
       entry.increment(fault)) {
    const std::string name = TextOf(entry->path().filename());
    if (name.starts_with(kind) && name.ends_with(kBeingWritten)) drafts.push_back(entry->path());
  }
  for (const auto& draft : drafts) std::filesystem::remove_all(draft, fault);
}

}  // namespace

PageFolder::PageFolder(std::filesystem::path place)
    : place_(std::move(place)), draft_(PathOf(TextOf(place_) + kBeingWritten)) {}

PageFolder::PageFolder(std::filesystem::path place, std::string_view kind,
                       std::initializer_list<const char*> folders)
    : PageFolder(std::move(place)) {
  RemoveDrafts(place_.parent_path(), kind);
  std::error_code fault;
  for (const char* folder : folders) {
    std::filesystem::create_directories(draft_ / folder, fault);
    if (fault) ThrowWriteFault("folder", place_, fault.value());
  }
}

PageFolder::~PageFolder() {
  std::error_code fault;
  std::filesystem::remove_all(draft_, fault);
}

void PageFolder::Write(const std::string& name, std::string_view text) const {
  WriteDraft(draft_ / name, text, "page");
}

void PageFolder::PutInPlace() const { MoveFolderIntoPlace(draft_, place_, "folder"); }

void OfferPages(Platform& platform, const std::string& told, const std::filesystem::path& folder,
                const std::string& title) {
  const Question question{
      told + " They are in\n" + TextOf(folder) + "\n\nDo you want to open them?", title, true};
  if (platform.boxes.Ask(question)) platform.pages.Open(TextOf(folder / "index.html"));
}

}  // namespace dtb
