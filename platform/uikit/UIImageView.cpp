#include "uikit/UIImageView.h"

#include <algorithm>
#include <utility>

namespace frelta {

void UIImageView::setImage(std::shared_ptr<const UIImage> image) {
  if (image == image_) return;
  image_ = std::move(image);
  didChange();
}

void UIImageView::setContentMode(UIViewContentMode mode) {
  if (mode == contentMode_) return;
  contentMode_ = mode;
  didChange();
}

CGRect UIImageView::imageRect(CGSize size) const {
  const CGSize own = image_ ? image_->size() : CGSize();
  if (!(own.width > 0 && own.height > 0 && size.width > 0 && size.height > 0)) return {};
  if (contentMode_ == UIViewContentMode::ScaleToFill) return {{}, size};
  const double scale = std::min(size.width / own.width, size.height / own.height);
  const CGSize fitted{own.width * scale, own.height * scale};
  return {{(size.width - fitted.width) / 2, (size.height - fitted.height) / 2}, fitted};
}

CGSize UIImageView::sizeThatFits(CGSize) const {
  return image_ ? image_->size() : CGSize();
}

}  // namespace frelta
