#pragma once

#include <memory>

#include "graphics/UIImage.h"
#include "uikit/UIView.h"

namespace frelta {

/// How a picture fills its view; the platform's values.
enum class UIViewContentMode {
  ScaleToFill = 0,
  /// As large as fits whole, in the middle, with its own proportions.
  ScaleAspectFit = 1,
};

/// A picture. It says nothing to assistive technology unless it is given a label.
class UIImageView : public UIView {
 public:
  using UIView::UIView;

  /// Null for none.
  const std::shared_ptr<const UIImage>& image() const { return image_; }
  void setImage(std::shared_ptr<const UIImage> image);
  UIViewContentMode contentMode() const { return contentMode_; }
  void setContentMode(UIViewContentMode mode);
  /// Where the picture is drawn in a view of that size, by the content mode; an empty rectangle
  /// when there is nothing to draw.
  CGRect imageRect(CGSize size) const;

  /// The picture's own size; none without one.
  CGSize sizeThatFits(CGSize size) const override;

 private:
  std::shared_ptr<const UIImage> image_;
  UIViewContentMode contentMode_ = UIViewContentMode::ScaleToFill;
};

}  // namespace frelta
