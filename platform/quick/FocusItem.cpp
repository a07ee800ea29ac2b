#include "quick/FocusItem.h"

#include <QFocusEvent>

namespace frelta {

bool FocusItem::visualFocus() const {
  return hasActiveFocus() && (reason_ == Qt::TabFocusReason || reason_ == Qt::BacktabFocusReason ||
                              reason_ == Qt::ShortcutFocusReason);
}

void FocusItem::focusInEvent(QFocusEvent* event) {
  QQuickItem::focusInEvent(event);
  // A window that comes back to the front leaves it as it was.
  setFocusReason(event->reason() == Qt::ActiveWindowFocusReason ? reason_ : event->reason());
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
