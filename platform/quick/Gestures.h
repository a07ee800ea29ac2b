#pragma once

#include <QPointF>
#include <QPointer>
#include <QQuickItem>
#include <optional>

#include "uikit/UILongPressGestureRecognizer.h"
#include "uikit/UIView.h"

class QPointerEvent;

namespace frelta {

/// Hands the pointer's presses in a window to the views' gesture recognisers: of each kind, the
/// innermost one at the point.
class Gestures {
 public:
  /// Neither is owned; both outlive this. The column shows the root.
  Gestures(UIView& root, const QQuickItem& column) : root_(root), column_(column) {}
  ~Gestures() { cancel(); }
  Gestures(const Gestures&) = delete;
  Gestures& operator=(const Gestures&) = delete;

  /// Before the items get the event.
  void watch(const QPointerEvent& event);
  /// After the items have had it: notes which of them has the pointer now.
  void noteGrabber(const QPointerEvent& event);
  /// A long press without a pointer on the view or, where it feels none, the next one around it
  /// that does. False when there is none.
  static bool performLongPress(UIView* view);

 private:
  void press(QPointF point, bool mainButton);
  void move(QPointF point);
  void release(QPointF point);
  void cancel();
  void deliverTap(QPointF point);
  /// The press has become a long one: what is under it feels it no more.
  void takePress();
  UIView* viewAt(QPointF point) const;
  /// What follows the press; null when nothing does, or its view is gone.
  UILongPressGestureRecognizer* longPress() const;

  UIView& root_;
  const QQuickItem& column_;
  std::optional<QPointF> tap_;  // where a tap may have begun
  UILongPressGestureRecognizer* longPress_ = nullptr;
  std::weak_ptr<const void> longPressView_;  // its view's lifetime
  QPointer<QQuickItem> grabber_;
};

}  // namespace frelta
