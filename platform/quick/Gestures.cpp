#include "quick/Gestures.h"

#include <QGuiApplication>
#include <QPointerEvent>
#include <QStyleHints>
#include <algorithm>
#include <utility>

#include "quick/EventGuard.h"

namespace frelta {

namespace {

/// The recogniser of that kind which the view or the next one around it has first; null for none.
template <typename Recognizer>
Recognizer* recognizerAround(UIView* view) {
  for (; view; view = view->superview()) {
    for (const auto& recognizer : view->gestureRecognizers()) {
      if (auto* found = dynamic_cast<Recognizer*>(recognizer.get())) return found;
    }
  }
  return nullptr;
}

}  // namespace

void Gestures::watch(const QPointerEvent& event) {
  if (event.pointCount() != 1) {
    cancel();
    return;
  }
  const QPointF point = event.points().constFirst().scenePosition();
  const auto* mouse = dynamic_cast<const QMouseEvent*>(&event);
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
      press(point, !mouse || mouse->button() == Qt::LeftButton);
      if (mouse && mouse->button() == Qt::RightButton) performLongPress(viewAt(point));
      break;
    case QEvent::MouseMove:
    case QEvent::TouchUpdate:
      move(point);
      break;
    case QEvent::MouseButtonRelease:
    case QEvent::TouchEnd:
      release(point);
      break;
    case QEvent::TouchCancel:
      cancel();
      break;
    default:
      break;
  }
}

void Gestures::noteGrabber(const QPointerEvent& event) {
  if (event.pointCount() != 1) return;
  grabber_ = qobject_cast<QQuickItem*>(event.exclusiveGrabber(event.points().constFirst()));
}

UILongPressGestureRecognizer* Gestures::longPress() const {
  return longPressView_.expired() ? nullptr : longPress_;
}

void Gestures::press(QPointF point, bool mainButton) {
  cancel();
  if (!mainButton) return;
  tap_ = point;
  UIView* hit = viewAt(point);
  longPress_ = recognizerAround<UILongPressGestureRecognizer>(hit);
  if (!longPress_) return;
  longPressView_ = longPress_->view()->lifetime();
  longPress_->touchBegan({point.x(), point.y()}, [this] { takePress(); });
}

void Gestures::takePress() {
  tap_.reset();
  if (!longPress_->cancelsTouchesInView() || !grabber_) return;
  grabber_->ungrabMouse();
  grabber_->ungrabTouchPoints();
}

void Gestures::move(QPointF point) {
  if (tap_ &&
      (point - *tap_).manhattanLength() >= QGuiApplication::styleHints()->startDragDistance()) {
    tap_.reset();
  }
  if (auto* recognizer = longPress()) {
    guardEvent([&] { recognizer->touchMoved({point.x(), point.y()}); });
  }
}

void Gestures::release(QPointF point) {
  if (auto* recognizer = longPress()) guardEvent([&] { recognizer->touchEnded(); });
  longPressView_.reset();
  if (std::exchange(tap_, std::nullopt)) deliverTap(point);
}

void Gestures::cancel() {
  tap_.reset();
  if (auto* recognizer = longPress()) guardEvent([&] { recognizer->touchCancelled(); });
  longPressView_.reset();
}

bool Gestures::performLongPress(UIView* view) {
  auto* recognizer = recognizerAround<UILongPressGestureRecognizer>(view);
  if (recognizer) guardEvent([&] { recognizer->performPress(); });
  return recognizer != nullptr;
}

UIView* Gestures::viewAt(QPointF point) const {
  const CGSize size = root_.frame().size;
  double x = std::clamp(point.x() - column_.x(), 0.0, std::max(0.0, size.width - 1));
  if (QGuiApplication::layoutDirection() == Qt::RightToLeft) x = size.width - x;
  return root_.hitTest({x, point.y()});
}

// What the items make of the same release comes after it.
void Gestures::deliverTap(QPointF point) {
  UIView* hit = viewAt(point);
  // A tap into the field that is being edited is for the field alone.
  if (hit && hit->isFirstResponder()) return;
  if (auto* recognizer = recognizerAround<UITapGestureRecognizer>(hit)) {
    guardEvent([&] { recognizer->recognize(); });
  }
}

}  // namespace frelta
