#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "graphics/CGGeometry.h"
#include "graphics/UIColor.h"
#include "uikit/CAShapeLayer.h"
#include "uikit/UIGestureRecognizer.h"
#include "uikit/UIViewAnimation.h"

namespace frelta {

class UIView;

/// Watches one view for whoever shows it on a screen.
class UIViewObserver {
 public:
  virtual ~UIViewObserver() = default;
  /// Something that can be seen or read of the view has changed.
  virtual void viewDidChange(UIView& view) = 0;
  /// Subviews were added, removed or reordered.
  virtual void viewDidChangeSubviews(UIView& view) = 0;
  /// The view or one below it wants a layout pass.
  virtual void viewNeedsLayout(UIView& view) = 0;
  /// The last call for this view.
  virtual void viewWillBeDestroyed(UIView& view) = 0;
};

enum UIViewAutoresizing : unsigned {
  UIViewAutoresizingNone = 0,
  UIViewAutoresizingFlexibleLeftMargin = 1 << 0,
  UIViewAutoresizingFlexibleWidth = 1 << 1,
  UIViewAutoresizingFlexibleRightMargin = 1 << 2,
  UIViewAutoresizingFlexibleTopMargin = 1 << 3,
  UIViewAutoresizingFlexibleHeight = 1 << 4,
  UIViewAutoresizingFlexibleBottomMargin = 1 << 5,
};

/// What a view is to someone who cannot see it.
struct UIAccessibility {
  enum class Role { None, StaticText, Heading, Button, Switch, Group, Link, Cell };

  /// Whether the view is one element; its subviews are then hidden from assistive technology. A
  /// group is none, it holds some: its label is its name, which the texts in it need not repeat,
  /// and its value its description.
  bool isElement = false;
  Role role = Role::None;
  std::string label = {};
  /// What it stands at, as text: the value of a title-value row, the text of a field.
  std::string value = {};
  /// Only for switches.
  bool on = false;
  bool operator==(const UIAccessibility&) const = default;
};

/// A rectangle of the retained view tree. A superview owns its subviews, back to front.
class UIView {
 public:
  UIView() = default;
  explicit UIView(const CGRect& frame) : frame_(frame) {}
  virtual ~UIView();
  UIView(const UIView&) = delete;
  UIView& operator=(const UIView&) = delete;

  /// In the superview's coordinates, points.
  virtual CGRect frame() const { return frame_; }
  /// Resizes the subviews by their autoresizing masks and asks for layout when the size changes.
  /// Can be animated.
  virtual void setFrame(const CGRect& frame);
  /// In the view's own coordinates.
  CGRect bounds() const { return {boundsOrigin_, frame().size}; }
  CGPoint center() const { return {frame().midX(), frame().midY()}; }
  /// Moves the view; its size stays. Can be animated.
  void setCenter(CGPoint center);

  double alpha() const { return alpha_; }
  /// Can be animated.
  void setAlpha(double alpha);
  bool isHidden() const { return hidden_; }
  void setHidden(bool hidden);
  /// Nothing is drawn behind the view when there is no colour. Can be animated.
  const std::optional<UIColor>& backgroundColor() const { return backgroundColor_; }
  void setBackgroundColor(std::optional<UIColor> color);
  bool clipsToBounds() const { return clipsToBounds_; }
  void setClipsToBounds(bool clips);
  double cornerRadius() const { return cornerRadius_; }
  void setCornerRadius(double radius);
  /// What of the view's background is drawn; all of it when there is none.
  const std::optional<CAShapeLayer>& maskLayer() const { return maskLayer_; }
  void setMaskLayer(std::optional<CAShapeLayer> mask);
  unsigned autoresizingMask() const { return autoresizingMask_; }
  void setAutoresizingMask(unsigned mask) { autoresizingMask_ = mask; }

  /// Runs the block now. What it sets of frames, centres, alphas and background colours holds for
  /// the model at once; what is shown comes from what was shown before to it in that many seconds,
  /// along the platform's ease-in-ease-out curve. Without a length, or while animations are off,
  /// it is shown at once and the completion called before this returns.
  ///
  /// The completion is called once, by the main queue: with true when the time is over, also when
  /// the block changed nothing; with false as soon as a later change takes over one of the
  /// properties that the block changed, in a block of its own or not, or one of their views leaves
  /// its superview or goes. The properties that were not taken over run on. Setting a property to
  /// the value that it has is no change. What the completion refers to may be gone by then: see
  /// lifetime(). Blocks may be nested; each has its own length and completion. When the block
  /// throws, what it had changed is animated, and nothing completes.
  static void animateWithDuration(double seconds, const std::function<void()>& animations,
                                  std::function<void(bool finished)> completion = {});
  /// Runs the block now; animations in it have no length.
  static void performWithoutAnimation(const std::function<void()>& actions);
  /// While animations are off all of them have no length. They are on at first.
  static bool areAnimationsEnabled();
  static void setAnimationsEnabled(bool areEnabled);
  /// Shows this view and all below it at the model's values at once.
  void stopAnimations();
  /// What is shown now.
  UIViewPresentation presentation() const;
  /// Whether what is shown is on its way to the model's values.
  bool isAnimating() const;
  /// Expires when the view goes: for work that refers to the view and runs later.
  std::weak_ptr<const void> lifetime() const { return lifetime_; }

  UIView* superview() const { return superview_; }
  std::span<const std::unique_ptr<UIView>> subviews() const { return subviews_; }
  /// Takes the view and puts it in front of the others. Returns it for the caller to keep a look
  /// at.
  template <typename View>
  View* addSubview(std::unique_ptr<View> view) {
    View* raw = view.get();
    insertSubview(std::move(view), subviews_.size());
    return raw;
  }
  void insertSubview(std::unique_ptr<UIView> view, std::size_t index);
  /// Gives the view back to the caller; null when it has no superview.
  std::unique_ptr<UIView> removeFromSuperview();
  /// Whether the view is the other one or below it.
  bool isDescendantOfView(const UIView& other) const;
  /// Called after the superview changed; superview() is the new one.
  virtual void didMoveToSuperview() {}

  void setNeedsLayout();
  /// Has every view there is laid out anew by the next layoutIfNeeded() that reaches it, those that
  /// are in no window when they come into one: what all of them see has changed, such as the
  /// appearance.
  static void setAllNeedLayout();
  /// Runs the pending layout of the view and of all below it.
  void layoutIfNeeded();
  virtual void layoutSubviews() {}
  /// The size that fits the contents best within the given one.
  virtual CGSize sizeThatFits(CGSize) const { return frame().size; }
  /// Takes the size that fits; the origin stays.
  void sizeToFit();

  /// The front-most visible view at the point (own coordinates), itself included; null outside.
  virtual UIView* hitTest(CGPoint point);

  UIGestureRecognizer* addGestureRecognizer(std::unique_ptr<UIGestureRecognizer> recognizer);
  std::span<const std::unique_ptr<UIGestureRecognizer>> gestureRecognizers() const {
    return gestureRecognizers_;
  }

  /// Whether the view takes the keyboard's input.
  virtual bool isFirstResponder() const { return false; }
  virtual bool becomeFirstResponder() { return false; }
  virtual bool resignFirstResponder() { return true; }
  /// Takes the keyboard away from a text field at or below this view. True when none has it then.
  bool endEditing(bool force);

  virtual UIAccessibility accessibility() const { return accessibility_; }
  void setAccessibility(UIAccessibility accessibility);
  /// Tells views apart across reloads; never shown.
  const std::string& accessibilityIdentifier() const { return accessibilityIdentifier_; }
  void setAccessibilityIdentifier(std::string identifier);

  /// At most one watches a view; it outlives its watch.
  void setObserver(UIViewObserver* observer) { observer_ = observer; }
  UIViewObserver* observer() const { return observer_; }

 protected:
  /// Tells the observer that the view looks or reads differently now.
  void didChange();
  void setBoundsOrigin(CGPoint origin);
  /// Gives one of the subviews to the caller, who will add it again at once: what moves at and
  /// below it moves on.
  std::unique_ptr<UIView> lendSubview(UIView& view);
  /// Brings the subviews into another order; must be a permutation of them.
  void reorderSubviews(const std::vector<UIView*>& order);

 private:
  void resizeWithOldSuperviewSize(CGSize oldSize);
  /// Where to tell of a change of the model; null when it concerns no animation.
  UIViewAnimatedProperties* animatedProperties();

  CGRect frame_;
  CGPoint boundsOrigin_;
  double alpha_ = 1;
  double cornerRadius_ = 0;
  unsigned autoresizingMask_ = UIViewAutoresizingNone;
  bool hidden_ = false;
  bool clipsToBounds_ = false;
  bool needsLayout_ = true;
  bool subtreeNeedsLayout_ = true;
  unsigned layoutRound_ = 0;  // of the last layout
  std::optional<UIColor> backgroundColor_;
  std::optional<CAShapeLayer> maskLayer_;
  std::unique_ptr<UIViewAnimatedProperties> animated_;  // null when nothing was animated
  UIView* superview_ = nullptr;                         // owns this view
  std::vector<std::unique_ptr<UIView>> subviews_;
  std::vector<std::unique_ptr<UIGestureRecognizer>> gestureRecognizers_;
  UIAccessibility accessibility_;
  std::string accessibilityIdentifier_;
  UIViewObserver* observer_ = nullptr;  // not owned
  std::shared_ptr<const void> lifetime_ = std::make_shared<char>();
};

}  // namespace frelta
