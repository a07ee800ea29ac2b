#include "quick/AlertNode.h"

#include <QKeyEvent>
#include <QQuickWindow>

#include "quick/EventGuard.h"
#include "quick/ViewMirror.h"
#include "uikit/UIAlertController.h"

namespace frelta {

AlertNode::AlertNode(UIAlertControllerView& view, ViewMirror& mirror) : ViewNode(view, mirror) {
  connect(&mirror, &ViewMirror::sideMarginChanged, this, &AlertNode::sideMarginChanged);
}

double AlertNode::sideMargin() const {
  return mirror().sideMargin();
}

void AlertNode::syncContents() {
  title_ = QString::fromStdString(viewAs<UIAlertControllerView>(*this)->controller().title());
}

void AlertNode::pressDefault() {
  if (view()) press(viewAs<UIAlertControllerView>(*this)->controller().defaultAction());
}

void AlertNode::pressCancel() {
  if (view()) press(viewAs<UIAlertControllerView>(*this)->controller().cancelAction());
}

void AlertNode::press(UIAlertAction* action) {
  if (!action) return;
  guardEvent(
      [&] { viewAs<UIAlertControllerView>(*this)->controller().userDidPressAction(*action); });
}

void AlertNode::itemMade() {
  connect(item(), &QQuickItem::windowChanged, this, &AlertNode::windowChanged);
}

void AlertNode::windowChanged(QQuickWindow* window) {
  if (window_) window_->removeEventFilter(this);
  window_ = window;
  if (window) {
    focusBefore_ = window->activeFocusItem();
    window->installEventFilter(this);
    // The items of the subviews are still to be made.
    QMetaObject::invokeMethod(this, &AlertNode::takeKeyboard, Qt::QueuedConnection);
  } else if (focusBefore_ && focusBefore_->window()) {
    // The reason decides whether a focus ring shows, as before.
    focusBefore_->forceActiveFocus(
        static_cast<Qt::FocusReason>(focusBefore_->property("focusReason").toInt()));
  }
}

void AlertNode::takeKeyboard() {
  if (!view() || !window_) return;
  UIView* first = viewAs<UIAlertControllerView>(*this)->initialFocus();
  QQuickItem* wanted = first ? mirror().nodeFor(*first).item() : nullptr;
  (wanted ? wanted : item())->forceActiveFocus(Qt::PopupFocusReason);
}

bool AlertNode::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && item()) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
      moveFocus(key == Qt::Key_Tab);
      return true;
    }
  }
  return ViewNode::eventFilter(watched, event);
}

void AlertNode::moveFocus(bool forwards) {
  QQuickItem* const start = window_->activeFocusItem();
  QQuickItem* next = start ? start : item();
  // The chain goes through the whole window; only what is in the alert counts.
  do {
    next = next->nextItemInFocusChain(forwards);
  } while (next && next != start && !item()->isAncestorOf(next));
  if (next) next->forceActiveFocus(forwards ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

}  // namespace frelta
