#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace frelta {

/// The items that look the same in every screen, with the platform's values.
enum class UIBarButtonSystemItem { Add = 4 };

/// A button of the navigation bar.
class UIBarButtonItem {
 public:
  using Action = std::function<void()>;

  /// The action must not outlive what it captures.
  UIBarButtonItem(UIBarButtonSystemItem item, Action action)
      : systemItem_(item), action_(std::move(action)) {}

  UIBarButtonSystemItem systemItem() const { return systemItem_; }
  /// What a tap does.
  void perform() const {
    if (action_) action_();
  }

 private:
  UIBarButtonSystemItem systemItem_;
  Action action_;
};

}  // namespace frelta
