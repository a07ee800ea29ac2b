#include "uikit/UIScrollView.h"

#include <algorithm>

#include "foundation/Platform.h"

namespace frelta {

namespace {
constexpr double kScrollSeconds = 0.3;  // the platform's
constexpr double kStepSeconds = 1.0 / 60;
}  // namespace

struct UIScrollView::Scrolling {
  Scrolling(CGPoint start, CGPoint end) : from(start), to(end) {}
  CGPoint from;
  CGPoint to;
  UIViewAnimation time{kScrollSeconds, {}};
};

void UIScrollView::setFrame(const CGRect& frame) {
  UIView::setFrame(frame);
  moveTo(contentOffset());
}

void UIScrollView::setContentSize(CGSize size) {
  if (size == contentSize_) return;
  contentSize_ = size;
  moveTo(contentOffset());
  didChange();
}

CGPoint UIScrollView::clamped(CGPoint offset) const {
  const CGSize visible = frame().size;
  return {std::clamp(offset.x, 0.0, std::max(0.0, contentSize_.width - visible.width)),
          std::clamp(offset.y, 0.0, std::max(0.0, contentSize_.height - visible.height))};
}

void UIScrollView::moveTo(CGPoint offset) {
  offset = clamped(offset);
  if (offset == contentOffset()) return;
  setBoundsOrigin(offset);
  scrollViewDidScroll();
}

CGPoint UIScrollView::targetContentOffset() const {
  return scrolling_ ? clamped(scrolling_->to) : contentOffset();
}

void UIScrollView::setContentOffset(CGPoint offset, bool animated) {
  scrolling_.reset();
  if (!animated || !areAnimationsEnabled() || clamped(offset) == contentOffset()) {
    moveTo(offset);
    return;
  }
  scrolling_ = std::make_shared<Scrolling>(contentOffset(), offset);
  scheduleStep();
}

void UIScrollView::scheduleStep() {
  const std::weak_ptr<Scrolling> scrolling = scrolling_;
  Platform::current().mainQueue->after(kStepSeconds, [this, scrolling] {
    // Gone with the view, and when something else scrolls it.
    const std::shared_ptr<Scrolling> step = scrolling.lock();
    if (!step) return;
    if (step->time.isRunning()) {
      scheduleStep();
    } else {
      scrolling_.reset();
    }
    moveTo(mixed(CGRect(step->from, {}), CGRect(step->to, {}), step->time.progress()).origin);
  });
}

void UIScrollView::userDidScroll(CGPoint offset) {
  // Beyond the ends the window bounces by itself; the content stays where it is. What is told to be
  // where it is was not moved by the user.
  if (clamped(offset) != contentOffset()) setContentOffset(offset);
}

void UIScrollView::scrollRectToVisible(const CGRect& rect, bool animated) {
  const CGRect visible = bounds();
  CGPoint offset = contentOffset();
  if (rect.minY() < visible.minY()) {
    offset.y = rect.minY();
  } else if (rect.maxY() > visible.maxY()) {
    offset.y = std::min(rect.minY(), rect.maxY() - visible.size.height);
  }
  setContentOffset(offset, animated);
}

}  // namespace frelta
