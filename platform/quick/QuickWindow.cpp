#include "quick/QuickWindow.h"

#include <QKeyEvent>
#include <QPointerEvent>
#include <algorithm>
#include <cmath>

#include "quick/EventGuard.h"
#include "quick/FocusKeeper.h"
#include "quick/ViewSearch.h"
#include "uikit/UIAccessibilityState.h"

namespace frelta {

QuickWindow::QuickWindow(std::shared_ptr<UIViewController> root, Appearance& appearance)
    : appearance_(appearance),
      uiWindow_(std::make_unique<UIWindow>()),
      column_(new QQuickItem(contentItem())),
      gestures_(*uiWindow_, *column_) {
  uiWindow_->setRootViewController(std::move(root));
  mirror_ = std::make_unique<ViewMirror>(*uiWindow_, *column_);
  useAppearance();
  connect(&appearance_, &Appearance::changed, this, &QuickWindow::useAppearance);
  connect(this, &QQuickWindow::afterAnimating, mirror_.get(), &ViewMirror::flush);
  new FocusKeeper(*this);
  QAccessible::installActivationObserver(this);
  UIAccessibilitySetVoiceOverRunning(QAccessible::isActive());
}

QuickWindow::~QuickWindow() {
  QAccessible::removeActivationObserver(this);
  disconnect(this, nullptr, mirror_.get(), nullptr);
  // The mirror watches the views until it goes.
  mirror_.reset();
}

QQuickItem* QuickWindow::itemFor(const UIView& view) const {
  const auto* node = dynamic_cast<const ViewNode*>(view.observer());
  return node && node->item() && node->item()->window() == this ? node->item() : nullptr;
}

void QuickWindow::accessibilityActiveChanged(bool active) {
  UIAccessibilitySetVoiceOverRunning(active);
  mirror_->layoutTables();
}

void QuickWindow::useAppearance() {
  mirror_->setStyle(appearance_.style(), appearance_.highContrast(), appearance_.reducedMotion());
  UIView::setAnimationsEnabled(!appearance_.reducedMotion());
  setColor(mirror_->theme().groupedBackground());
}

bool QuickWindow::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) usedByKeys_ = true;
  // Qt's software renderer may be asked for a frame that nobody wants any more, paints what changes
  // while it does, and then shows none of it. What changes before, it knows of.
  if (event->type() == QEvent::UpdateRequest) mirror_->flush();
  if (!event->isPointerEvent()) return QQuickWindow::event(event);
  const auto& pointer = static_cast<const QPointerEvent&>(*event);
  if (pointer.isBeginEvent()) usedByKeys_ = false;
  if (event->type() == QEvent::MouseButtonPress &&
      static_cast<const QMouseEvent&>(*event).button() == Qt::BackButton) {
    if (back_ && uiWindow_->subviews().size() == 1) guardEvent(back_);
    return true;
  }
  gestures_.watch(pointer);
  const bool taken = QQuickWindow::event(event);
  gestures_.noteGrabber(pointer);
  return taken;
}

void QuickWindow::resizeEvent(QResizeEvent* event) {
  QQuickWindow::resizeEvent(event);
  layoutColumn();
}

void QuickWindow::layoutColumn() {
  const double columnWidth = std::min<double>(width(), kMaximumColumnWidth);
  const double margin = std::floor((width() - columnWidth) / 2);
  column_->setX(margin);
  mirror_->setSideMargin(margin);
  uiWindow_->setFrame({0, 0, columnWidth, static_cast<double>(height())});
  mirror_->flush();
}

UIView* QuickWindow::focusedView() const {
  return viewOf(activeFocusItem());
}

UITableView* QuickWindow::tableForKeys() const {
  for (UIView* view = focusedView(); view; view = view->superview()) {
    if (auto* table = dynamic_cast<UITableView*>(view)) return table;
  }
  const auto screens = uiWindow_->subviews();
  return screens.empty() ? nullptr : frontTable(*screens.back());
}

bool QuickWindow::scrollByKey(int key) {
  UITableView* table = tableForKeys();
  if (!table) return false;
  // What was the last row stays in sight.
  const double page = std::max(1.0, table->frame().size.height - UITableView::kDefaultRowHeight);
  CGPoint offset = table->targetContentOffset();
  switch (key) {
    case Qt::Key_PageUp:
      offset.y -= page;
      break;
    case Qt::Key_PageDown:
      offset.y += page;
      break;
    case Qt::Key_Home:
      offset.y = 0;
      break;
    case Qt::Key_End:
      offset.y = table->contentSize().height;
      break;
    default:
      return false;
  }
  guardEvent([&] { table->setContentOffset(offset, true); });
  return true;
}

void QuickWindow::keyPressEvent(QKeyEvent* event) {
  QQuickWindow::keyPressEvent(event);
  if (event->isAccepted()) return;
  if (event->key() == Qt::Key_Menu && Gestures::performLongPress(focusedView())) return;
  if (scrollByKey(event->key())) {
    event->accept();
    return;
  }
  const bool altLeft = event->key() == Qt::Key_Left && event->modifiers() == Qt::AltModifier;
  if (back_ && (altLeft || event->key() == Qt::Key_Escape || event->key() == Qt::Key_Back)) {
    guardEvent(back_);
    event->accept();
  }
}

}  // namespace frelta
