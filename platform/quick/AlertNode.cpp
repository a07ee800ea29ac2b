#include "quick/AlertNode.h"

#include <QKeyEvent>
#include <QQuickWindow>

#include "quick/EventGuard.h"
#include "quick/FocusItem.h"
#include "quick/ShownText.h"
#include "uikit/UIAlertController.h"

namespace frelta {

void AlertNode::syncContents() {
  title_ = shownText(viewAs<UIAlertControllerView>(*this)->controller().title());
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

UIView* AlertNode::initialFocus() const {
  return viewAs<UIAlertControllerView>(*this)->initialFocus();
}

bool AlertNode::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && item()) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
      moveFocus(key == Qt::Key_Tab);
      return true;
    }
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && isOnButtonWithoutRing()) {
      if (!static_cast<QKeyEvent*>(event)->isAutoRepeat()) pressDefault();
      return true;
    }
  }
  return ModalNode::eventFilter(watched, event);
}

bool AlertNode::isOnButtonWithoutRing() const {
  const auto* button = qobject_cast<const FocusItem*>(window()->activeFocusItem());
  return button && item()->isAncestorOf(button) && !button->visualFocus();
}

void AlertNode::moveFocus(bool forwards) {
  QQuickItem* const start = window()->activeFocusItem();
  QQuickItem* next = start ? start : item();
  // The chain goes through the whole window; only what is in the alert counts.
  do {
    next = next->nextItemInFocusChain(forwards);
  } while (next && next != start && !item()->isAncestorOf(next));
  if (next) next->forceActiveFocus(forwards ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

}  // namespace frelta
