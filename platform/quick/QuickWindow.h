#pragma once

#include <QAccessible>
#include <QQuickWindow>
#include <functional>
#include <memory>

#include "quick/Appearance.h"
#include "quick/Gestures.h"
#include "quick/ViewMirror.h"
#include "uikit/UITableView.h"
#include "uikit/UIWindow.h"

namespace frelta {

/// A desktop window that shows one controller's views in a column of readable width, centred.
class QuickWindow : public QQuickWindow, private QAccessible::ActivationObserver {
  Q_OBJECT

 public:
  /// The widest column of views, points: lists become hard to read beyond.
  static constexpr double kMaximumColumnWidth = 640;

  /// The appearance outlives the window.
  QuickWindow(std::shared_ptr<UIViewController> root, Appearance& appearance);
  ~QuickWindow() override;

  UIWindow& uiWindow() { return *uiWindow_; }
  ViewMirror& mirror() { return *mirror_; }
  /// The item that shows the view; null when it is not on the screen.
  QQuickItem* itemFor(const UIView& view) const;

  /// Whether the user's last input was a key and not the pointer: what takes the keyboard then
  /// shows that it has it.
  bool isUsedByKeys() const { return usedByKeys_; }

  /// Called for what means "back": Escape, Alt+Left, the back key and the mouse's back button. The
  /// mouse's does nothing while an alert asks.
  void setBackHandler(std::function<void()> handler) { back_ = std::move(handler); }

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void accessibilityActiveChanged(bool active) override;
  void layoutColumn();
  void useAppearance();
  /// The view whose item, or one in it, has the keyboard; null when none has.
  UIView* focusedView() const;
  /// What the keyboard scrolls: the table that has it, or the front-most one.
  UITableView* tableForKeys() const;
  bool scrollByKey(int key);

  Appearance& appearance_;
  std::unique_ptr<UIWindow> uiWindow_;
  QQuickItem* column_;  // owned by the content item
  Gestures gestures_;
  std::unique_ptr<ViewMirror> mirror_;
  std::function<void()> back_;
  bool usedByKeys_ = false;
};

}  // namespace frelta
