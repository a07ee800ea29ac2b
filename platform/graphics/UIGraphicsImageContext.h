#pragma once

#include <memory>

#include "graphics/CGGeometry.h"
#include "graphics/UIColor.h"
#include "graphics/UIImage.h"

namespace frelta {

/// A canvas to draw a picture on. All lengths are points from the top left corner.
class UIGraphicsImageContext {
 public:
  virtual ~UIGraphicsImageContext() = default;

  /// What is drawn from now on shows only inside the rounded rectangle, smooth at its edge.
  virtual void clipToRoundedRect(const CGRect& rect, double cornerRadius) = 0;
  /// What is drawn from now on throws a shadow: its shape in the colour, moved by the offset and
  /// blurred by a Gaussian whose standard deviation is half the blur radius.
  virtual void setShadow(CGSize offset, double blurRadius, const UIColor::Components& colour) = 0;
  /// Draws the image over what is there, stretched to the rectangle. Nothing for an image without
  /// content or a rectangle without area.
  virtual void drawImage(const UIImage& image, const CGRect& rect) = 0;
  /// What has been drawn so far, at the canvas's scale.
  virtual std::shared_ptr<const UIImage> image() const = 0;
};

}  // namespace frelta
