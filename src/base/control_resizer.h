// How the controls of a form follow the form's size.
#pragma once

namespace dtb {

struct Place {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

// Keeps every control of a form in proportion to the form. All places and font sizes are worked out
// from the layout at the base size, never from the current one, so that rounding does not pile up.
class ControlResizer {
 public:
  // The inner size of the form at which the layout stands as drawn, in layout units.
  ControlResizer(double baseWidth, double baseHeight)
      : baseWidth_(baseWidth), baseHeight_(baseHeight) {}

  // The form has a new inner size, in pixels. A size below one pixel counts as one.
  void FormResized(double innerWidth, double innerHeight);

  [[nodiscard]] double baseWidth() const { return baseWidth_; }
  [[nodiscard]] double baseHeight() const { return baseHeight_; }
  [[nodiscard]] double scaleX() const { return scaleX_; }
  [[nodiscard]] double scaleY() const { return scaleY_; }
  // Fonts follow the smaller of the two scales.
  [[nodiscard]] double fontScale() const { return scaleX_ < scaleY_ ? scaleX_ : scaleY_; }

  // A control's place in pixels, for its place in layout units.
  [[nodiscard]] Place Scaled(const Place& base) const;

  // The form's height that goes with a width, so that the layout keeps its proportions.
  [[nodiscard]] double HeightFor(double innerWidth) const {
    return innerWidth * baseHeight_ / baseWidth_;
  }
  [[nodiscard]] double WidthFor(double innerHeight) const {
    return innerHeight * baseWidth_ / baseHeight_;
  }

 private:
  double baseWidth_;
  double baseHeight_;
  double scaleX_ = 1;
  double scaleY_ = 1;
};

// How much smaller than its layout a form starts, on any screen.
inline constexpr double kLaunchShrink = 1 / 1.055;

// The scale at which a form of the base size starts: the launch shrink, or less where the screen's
// free area, in the same units as the base size, is too small for that.
[[nodiscard]] double ScaleAtLaunch(double baseWidth, double baseHeight, double freeWidth,
                                   double freeHeight);

}  // namespace dtb
