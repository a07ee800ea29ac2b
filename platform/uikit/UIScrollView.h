#pragma once

#include <memory>

#include "uikit/UIView.h"

namespace frelta {

/// A view on a larger content; its bounds' origin is the part's place in the content.
class UIScrollView : public UIView {
 public:
  explicit UIScrollView(const CGRect& frame = {}) : UIView(frame) { setClipsToBounds(true); }

  /// A larger frame shows no more than the content: the offset gives way.
  void setFrame(const CGRect& frame) override;

  CGSize contentSize() const { return contentSize_; }
  void setContentSize(CGSize size);
  CGPoint contentOffset() const { return bounds().origin; }
  /// Shows that point at the top left, kept within the content. Animated, the content moves there
  /// on the main queue's clock, until something else scrolls it.
  void setContentOffset(CGPoint offset, bool animated = false);
  /// Where the content is, or is being moved to.
  CGPoint targetContentOffset() const;
  /// Scrolls as little as makes the rectangle (content coordinates) visible.
  void scrollRectToVisible(const CGRect& rect, bool animated = false);
  /// The user scrolled to there; calls scrollViewDidScroll.
  void userDidScroll(CGPoint offset);
  /// Whether an animated scrolling is under way.
  bool isScrollAnimating() const { return scrolling_ != nullptr; }

 protected:
  virtual void scrollViewDidScroll() {}

 private:
  struct Scrolling;
  CGPoint clamped(CGPoint offset) const;
  void moveTo(CGPoint offset);
  void scheduleStep();
  CGSize contentSize_;
  std::shared_ptr<Scrolling> scrolling_;  // null when nothing is animated
};

}  // namespace frelta
