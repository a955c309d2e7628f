#include "base/control_resizer.h"

#include <algorithm>

namespace dtb {

void ControlResizer::FormResized(double innerWidth, double innerHeight) {
  scaleX_ = std::max(innerWidth, 1.0) / baseWidth_;
  scaleY_ = std::max(innerHeight, 1.0) / baseHeight_;
}

Place ControlResizer::Scaled(const Place& base) const {
  return {base.left * scaleX_, base.top * scaleY_, base.width * scaleX_, base.height * scaleY_};
}

double ScaleAtLaunch(double baseWidth, double baseHeight, double freeWidth, double freeHeight) {
  return std::min({kLaunchShrink, freeWidth / baseWidth, freeHeight / baseHeight});
}

}  // namespace dtb
