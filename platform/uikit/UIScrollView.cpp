#include "uikit/UIScrollView.h"

#include <algorithm>

namespace frelta {

void UIScrollView::setFrame(const CGRect& frame) {
  UIView::setFrame(frame);
  setContentOffset(contentOffset());
}

void UIScrollView::setContentSize(CGSize size) {
  if (size == contentSize_) return;
  contentSize_ = size;
  setContentOffset(contentOffset());
  didChange();
}

CGPoint UIScrollView::clamped(CGPoint offset) const {
  const CGSize visible = frame().size;
  return {std::clamp(offset.x, 0.0, std::max(0.0, contentSize_.width - visible.width)),
          std::clamp(offset.y, 0.0, std::max(0.0, contentSize_.height - visible.height))};
}

void UIScrollView::setContentOffset(CGPoint offset) {
  offset = clamped(offset);
  if (offset == contentOffset()) return;
  setBoundsOrigin(offset);
  scrollViewDidScroll();
}

void UIScrollView::userDidScroll(CGPoint offset) {
  // Beyond the ends the window bounces by itself; the content stays where it is.
  setContentOffset(offset);
}

void UIScrollView::scrollRectToVisible(const CGRect& rect) {
  const CGRect visible = bounds();
  CGPoint offset = contentOffset();
  if (rect.minY() < visible.minY()) {
    offset.y = rect.minY();
  } else if (rect.maxY() > visible.maxY()) {
    offset.y = std::min(rect.minY(), rect.maxY() - visible.size.height);
  }
  setContentOffset(offset);
}

}  // namespace frelta
