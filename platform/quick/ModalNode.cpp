#include "quick/ModalNode.h"

#include "quick/QuickWindow.h"

namespace frelta {

ModalNode::ModalNode(UIView& view, ViewMirror& mirror) : ViewNode(view, mirror) {
  connect(&mirror, &ViewMirror::sideMarginChanged, this, &ModalNode::sideMarginChanged);
}

double ModalNode::sideMargin() const {
  return mirror().sideMargin();
}

void ModalNode::itemMade() {
  connect(item(), &QQuickItem::windowChanged, this, &ModalNode::windowChanged);
}

void ModalNode::windowChanged(QQuickWindow* window) {
  if (window_) window_->removeEventFilter(this);
  // What was presented over this one, and stays, keeps the keyboard.
  const QQuickItem* focused = window_ ? window_->activeFocusItem() : nullptr;
  const bool isElsewhere = focused && focused != window_->contentItem();
  window_ = window;
  if (window) {
    focusBefore_ = window->activeFocusItem();
    window->installEventFilter(this);
    // The items of the subviews are still to be made.
    QMetaObject::invokeMethod(this, &ModalNode::takeKeyboard, Qt::QueuedConnection);
  } else if (!isElsewhere && focusBefore_ && focusBefore_->window()) {
    // The reason decides whether a focus ring shows, as before.
    focusBefore_->forceActiveFocus(
        static_cast<Qt::FocusReason>(focusBefore_->property("focusReason").toInt()));
  }
}

void ModalNode::takeKeyboard() {
  if (!view() || !window_) return;
  UIView* first = initialFocus();
  QQuickItem* wanted = first ? mirror().nodeFor(*first).item() : nullptr;
  // Whoever came by keys sees at once where they go next.
  const auto* quick = qobject_cast<const QuickWindow*>(window_);
  const bool byKeys = quick && quick->isUsedByKeys();
  (wanted ? wanted : item())->forceActiveFocus(byKeys ? Qt::TabFocusReason : Qt::PopupFocusReason);
}

}  // namespace frelta
