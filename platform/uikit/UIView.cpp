#include "uikit/UIView.h"

#include <algorithm>

namespace frelta {

namespace {

/// Counts how often all views were asked to be laid out anew.
unsigned currentLayoutRound = 0;

// One axis of the platform's autoresizing: the change of the superview's length goes to the
// flexible parts in proportion to their lengths, in equal shares when they are all empty.
void resizeAxis(double& origin, double& length, double oldTotal, double newTotal,
                bool flexibleBefore, bool flexibleLength, bool flexibleAfter) {
  const double delta = newTotal - oldTotal;
  const double after = oldTotal - origin - length;
  const int count = flexibleBefore + flexibleLength + flexibleAfter;
  if (count == 0 || delta == 0) return;
  const double flexible =
      (flexibleBefore ? origin : 0) + (flexibleLength ? length : 0) + (flexibleAfter ? after : 0);
  const auto share = [&](double part) {
    return flexible != 0 ? delta * part / flexible : delta / count;
  };
  const double originShare = flexibleBefore ? share(origin) : 0;
  const double lengthShare = flexibleLength ? share(length) : 0;
  origin += originShare;
  length = std::max(0.0, length + lengthShare);
}

}  // namespace

UIView::~UIView() {
  lifetime_.reset();
  if (animated_) {
    animated_->frame.stop();
    animated_->alpha.stop();
    animated_->backgroundColor.stop();
  }
  if (observer_) observer_->viewWillBeDestroyed(*this);
}

void UIView::setFrame(const CGRect& frame) {
  if (frame == frame_) return;
  if (auto* animated = animatedProperties()) animated->frame.modelWillChange(this->frame());
  const CGSize oldSize = frame_.size;
  frame_ = frame;
  if (frame.size != oldSize) {
    for (const auto& subview : subviews_) subview->resizeWithOldSuperviewSize(oldSize);
    setNeedsLayout();
  }
  didChange();
}

void UIView::resizeWithOldSuperviewSize(CGSize oldSize) {
  const unsigned mask = autoresizingMask_;
  if (mask == UIViewAutoresizingNone) return;
  CGRect frame = this->frame();
  const CGSize newSize = superview_->frame().size;
  resizeAxis(frame.origin.x, frame.size.width, oldSize.width, newSize.width,
             mask & UIViewAutoresizingFlexibleLeftMargin, mask & UIViewAutoresizingFlexibleWidth,
             mask & UIViewAutoresizingFlexibleRightMargin);
  resizeAxis(frame.origin.y, frame.size.height, oldSize.height, newSize.height,
             mask & UIViewAutoresizingFlexibleTopMargin, mask & UIViewAutoresizingFlexibleHeight,
             mask & UIViewAutoresizingFlexibleBottomMargin);
  setFrame(frame);
}

void UIView::setCenter(CGPoint center) {
  CGRect frame = this->frame();
  frame.origin = {center.x - frame.size.width / 2, center.y - frame.size.height / 2};
  setFrame(frame);
}

void UIView::setBoundsOrigin(CGPoint origin) {
  if (origin == boundsOrigin_) return;
  boundsOrigin_ = origin;
  setNeedsLayout();
  didChange();
}

void UIView::setAlpha(double alpha) {
  alpha = std::clamp(alpha, 0.0, 1.0);
  if (alpha == alpha_) return;
  if (auto* animated = animatedProperties()) animated->alpha.modelWillChange(alpha_);
  alpha_ = alpha;
  didChange();
}

void UIView::setHidden(bool hidden) {
  if (hidden == hidden_) return;
  hidden_ = hidden;
  didChange();
}

void UIView::setBackgroundColor(std::optional<UIColor> color) {
  if (color == backgroundColor_) return;
  if (auto* animated = animatedProperties()) {
    animated->backgroundColor.modelWillChange(backgroundColor_);
  }
  backgroundColor_ = color;
  didChange();
}

void UIView::setClipsToBounds(bool clips) {
  if (clips == clipsToBounds_) return;
  clipsToBounds_ = clips;
  didChange();
}

void UIView::setCornerRadius(double radius) {
  if (radius == cornerRadius_) return;
  cornerRadius_ = radius;
  didChange();
}

void UIView::setMaskLayer(std::optional<CAShapeLayer> mask) {
  if (mask == maskLayer_) return;
  maskLayer_ = mask;
  didChange();
}

void UIView::insertSubview(std::unique_ptr<UIView> view, std::size_t index) {
  UIView* raw = view.get();
  index = std::min(index, subviews_.size());
  subviews_.insert(subviews_.begin() + static_cast<std::ptrdiff_t>(index), std::move(view));
  raw->superview_ = this;
  setNeedsLayout();
  if (observer_) observer_->viewDidChangeSubviews(*this);
  // What it is read as may come from views in it that were filled anew meanwhile.
  raw->didChange();
  raw->didMoveToSuperview();
}

std::unique_ptr<UIView> UIView::removeFromSuperview() {
  if (!superview_) return nullptr;
  std::unique_ptr<UIView> self = superview_->lendSubview(*this);
  stopAnimations();
  return self;
}

std::unique_ptr<UIView> UIView::lendSubview(UIView& view) {
  const auto found = std::find_if(subviews_.begin(), subviews_.end(),
                                  [&view](const auto& owner) { return owner.get() == &view; });
  std::unique_ptr<UIView> lent = std::move(*found);
  subviews_.erase(found);
  view.superview_ = nullptr;
  setNeedsLayout();
  if (observer_) observer_->viewDidChangeSubviews(*this);
  view.didMoveToSuperview();
  return lent;
}

void UIView::reorderSubviews(const std::vector<UIView*>& order) {
  std::vector<std::unique_ptr<UIView>> reordered;
  reordered.reserve(order.size());
  for (UIView* wanted : order) {
    const auto found = std::find_if(subviews_.begin(), subviews_.end(),
                                    [wanted](const auto& view) { return view.get() == wanted; });
    if (found != subviews_.end()) reordered.push_back(std::move(*found));
  }
  subviews_ = std::move(reordered);
  if (observer_) observer_->viewDidChangeSubviews(*this);
}

bool UIView::isDescendantOfView(const UIView& other) const {
  for (const UIView* view = this; view; view = view->superview_) {
    if (view == &other) return true;
  }
  return false;
}

void UIView::setNeedsLayout() {
  needsLayout_ = true;
  for (UIView* view = this; view; view = view->superview_) {
    view->subtreeNeedsLayout_ = true;
    if (!view->superview_ && view->observer_) view->observer_->viewNeedsLayout(*view);
  }
}

void UIView::setAllNeedLayout() {
  ++currentLayoutRound;
}

void UIView::layoutIfNeeded() {
  const bool isNewRound = layoutRound_ != currentLayoutRound;
  if (!subtreeNeedsLayout_ && !isNewRound) return;
  if (needsLayout_ || isNewRound) {
    // A layout that throws is not tried again until someone asks for it.
    needsLayout_ = false;
    layoutRound_ = currentLayoutRound;
    layoutSubviews();
    // Adding or resizing subviews during layout asks for no second one.
    needsLayout_ = false;
  }
  subtreeNeedsLayout_ = false;
  // Layout may add or remove subviews of this view, so no iterator is held.
  for (std::size_t i = 0; i < subviews_.size(); ++i) subviews_[i]->layoutIfNeeded();
}

void UIView::sizeToFit() {
  CGRect frame = this->frame();
  frame.size = sizeThatFits(frame.size);
  setFrame(frame);
}

UIView* UIView::hitTest(CGPoint point) {
  if (hidden_ || alpha_ < 0.01 || !bounds().contains(point)) return nullptr;
  for (auto it = subviews_.rbegin(); it != subviews_.rend(); ++it) {
    const CGRect frame = (*it)->frame();
    const CGPoint origin = (*it)->bounds().origin;
    if (UIView* hit = (*it)->hitTest(
            {point.x - frame.minX() + origin.x, point.y - frame.minY() + origin.y})) {
      return hit;
    }
  }
  return this;
}

UIGestureRecognizer* UIView::addGestureRecognizer(std::unique_ptr<UIGestureRecognizer> recognizer) {
  recognizer->view_ = this;
  gestureRecognizers_.push_back(std::move(recognizer));
  didChange();
  return gestureRecognizers_.back().get();
}

bool UIView::endEditing(bool force) {
  bool ended = !isFirstResponder() || resignFirstResponder();
  for (std::size_t i = 0; i < subviews_.size(); ++i)
    ended = subviews_[i]->endEditing(force) && ended;
  return ended;
}

void UIView::setAccessibility(UIAccessibility accessibility) {
  if (accessibility == accessibility_) return;
  accessibility_ = std::move(accessibility);
  didChange();
}

void UIView::setAccessibilityIdentifier(std::string identifier) {
  if (identifier == accessibilityIdentifier_) return;
  accessibilityIdentifier_ = std::move(identifier);
  didChange();
}

void UIView::didChange() {
  if (observer_) observer_->viewDidChange(*this);
}

}  // namespace frelta
