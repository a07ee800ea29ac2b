#pragma once

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
  /// Shows that point at the top left, kept within the content.
  void setContentOffset(CGPoint offset);
  /// Scrolls as little as makes the rectangle (content coordinates) visible.
  void scrollRectToVisible(const CGRect& rect);
  /// The user scrolled to there; calls scrollViewDidScroll.
  void userDidScroll(CGPoint offset);

 protected:
  virtual void scrollViewDidScroll() {}

 private:
  CGPoint clamped(CGPoint offset) const;
  CGSize contentSize_;
};

}  // namespace frelta
