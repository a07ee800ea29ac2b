#include "quick/QuickWindow.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointerEvent>
#include <QStyleHints>
#include <algorithm>
#include <cmath>
#include <utility>

#include "quick/EventGuard.h"
#include "uikit/UIAccessibilityState.h"

namespace frelta {

QuickWindow::QuickWindow(std::shared_ptr<UIViewController> root, Appearance& appearance)
    : appearance_(appearance),
      uiWindow_(std::make_unique<UIWindow>()),
      column_(new QQuickItem(contentItem())) {
  uiWindow_->setRootViewController(std::move(root));
  mirror_ = std::make_unique<ViewMirror>(*uiWindow_, *column_);
  useAppearance();
  connect(&appearance_, &Appearance::changed, this, &QuickWindow::useAppearance);
  connect(this, &QQuickWindow::afterAnimating, mirror_.get(), &ViewMirror::flush);
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
  mirror_->setStyle(appearance_.style());
  setColor(mirror_->theme().groupedBackground());
}

bool QuickWindow::event(QEvent* event) {
  if (event->isPointerEvent()) watchForTap(static_cast<const QPointerEvent&>(*event));
  return QQuickWindow::event(event);
}

void QuickWindow::watchForTap(const QPointerEvent& event) {
  if (event.pointCount() != 1) {
    pressed_.reset();
    return;
  }
  const QPointF point = event.points().constFirst().scenePosition();
  const auto* mouse = dynamic_cast<const QMouseEvent*>(&event);
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
      pressed_.reset();
      if (!mouse || mouse->button() == Qt::LeftButton) pressed_ = point;
      break;
    case QEvent::MouseMove:
    case QEvent::TouchUpdate:
      if (pressed_ && (point - *pressed_).manhattanLength() >=
                          QGuiApplication::styleHints()->startDragDistance()) {
        pressed_.reset();
      }
      break;
    case QEvent::MouseButtonRelease:
    case QEvent::TouchEnd:
      if (std::exchange(pressed_, std::nullopt)) deliverTap(point);
      break;
    default:
      break;
  }
}

// To the innermost view at the point that watches for taps. What the items make of the same release
// comes after it.
void QuickWindow::deliverTap(QPointF point) {
  const CGSize size = uiWindow_->frame().size;
  double x = std::clamp(point.x() - column_->x(), 0.0, std::max(0.0, size.width - 1));
  if (mirror_->isRightToLeft()) x = size.width - x;
  UIView* hit = uiWindow_->hitTest({x, point.y()});
  // A tap into the field that is being edited is for the field alone.
  if (hit && hit->isFirstResponder()) return;
  for (UIView* view = hit; view; view = view->superview()) {
    for (const auto& recognizer : view->gestureRecognizers()) {
      if (!dynamic_cast<UITapGestureRecognizer*>(recognizer.get())) continue;
      guardEvent([&] { recognizer->recognize(); });
      return;
    }
  }
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

void QuickWindow::keyPressEvent(QKeyEvent* event) {
  QQuickWindow::keyPressEvent(event);
  if (event->isAccepted()) return;
  const bool altLeft = event->key() == Qt::Key_Left && event->modifiers() == Qt::AltModifier;
  if (back_ && (altLeft || event->key() == Qt::Key_Escape || event->key() == Qt::Key_Back)) {
    guardEvent(back_);
    event->accept();
  }
}

}  // namespace frelta
