#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace frelta {

/// The platform's action styles, with its values.
enum class UIAlertActionStyle { Default = 0, Cancel = 1, Destructive = 2 };

/// One button of an alert.
class UIAlertAction {
 public:
  using Handler = std::function<void(UIAlertAction&)>;

  /// The handler runs after the alert has closed, so it may present the next one; null for an
  /// action that only closes.
  static std::shared_ptr<UIAlertAction> actionWithTitle(std::string title, UIAlertActionStyle style,
                                                        Handler handler = nullptr) {
    return std::shared_ptr<UIAlertAction>(
        new UIAlertAction(std::move(title), style, std::move(handler)));
  }

  const std::string& title() const { return title_; }
  UIAlertActionStyle style() const { return style_; }
  /// For the alert.
  void perform() {
    if (handler_) handler_(*this);
  }

 private:
  UIAlertAction(std::string title, UIAlertActionStyle style, Handler handler)
      : title_(std::move(title)), style_(style), handler_(std::move(handler)) {}

  std::string title_;
  UIAlertActionStyle style_;
  Handler handler_;
};

}  // namespace frelta
