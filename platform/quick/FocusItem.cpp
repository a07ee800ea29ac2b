#include "quick/FocusItem.h"

#include <QFocusEvent>

#include "quick/QuickWindow.h"

namespace frelta {

bool FocusItem::visualFocus() const {
  return hasActiveFocus() && (reason_ == Qt::TabFocusReason || reason_ == Qt::BacktabFocusReason ||
                              reason_ == Qt::ShortcutFocusReason);
}

void FocusItem::focusInEvent(QFocusEvent* event) {
  QQuickItem::focusInEvent(event);
  switch (event->reason()) {
    case Qt::ActiveWindowFocusReason:
      // A window that comes back to the front leaves it as it was.
      setFocusReason(reason_);
      break;
    case Qt::OtherFocusReason: {
      // So does what brings its page back; whoever went back by keys sees where they are.
      const auto* quick = qobject_cast<const QuickWindow*>(window());
      setFocusReason(quick && quick->isUsedByKeys() ? Qt::TabFocusReason : reason_);
      break;
    }
    default:
      setFocusReason(event->reason());
  }
}

void FocusItem::focusOutEvent(QFocusEvent* event) {
  QQuickItem::focusOutEvent(event);
  setFocusReason(reason_);
}

void FocusItem::setFocusReason(Qt::FocusReason reason) {
  reason_ = reason;
  Q_EMIT focusReasonChanged();
}

}  // namespace frelta
