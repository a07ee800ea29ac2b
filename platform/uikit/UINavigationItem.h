#pragma once

#include <functional>
#include <memory>
#include <string>

#include "uikit/UIBarButtonItem.h"

namespace frelta {

/// What the navigation bar shows while a screen is on top.
class UINavigationItem {
 public:
  const std::string& title() const { return title_; }
  void setTitle(std::string title) {
    title_ = std::move(title);
    changed();
  }
  bool hidesBackButton() const { return hidesBackButton_; }
  void setHidesBackButton(bool hides) {
    hidesBackButton_ = hides;
    changed();
  }

  /// The button at the bar's trailing edge; null for none.
  const std::shared_ptr<UIBarButtonItem>& rightBarButtonItem() const { return rightBarButtonItem_; }
  void setRightBarButtonItem(std::shared_ptr<UIBarButtonItem> item) {
    rightBarButtonItem_ = std::move(item);
    changed();
  }

  /// For the bar that shows it: called at each change; null stops it.
  void setObserver(std::function<void()> observer) { observer_ = std::move(observer); }

 private:
  void changed() const {
    if (observer_) observer_();
  }

  std::string title_;
  bool hidesBackButton_ = false;
  std::shared_ptr<UIBarButtonItem> rightBarButtonItem_;
  std::function<void()> observer_;
};

}  // namespace frelta
