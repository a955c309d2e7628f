#include "aids/system_info.h"

namespace dtb {

void StartSysInfo(Platform& platform) {
  if (platform.pages.OpenSystemInformation()) return;
  platform.boxes.Show("System Information Is Unavailable At This Time", BoxIcon::None);
}

}  // namespace dtb
