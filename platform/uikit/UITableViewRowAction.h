#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "graphics/UIColor.h"
#include "uikit/IndexPath.h"

namespace frelta {

/// The platform's row action styles, with its values.
enum class UITableViewRowActionStyle { Default = 0, Destructive = Default, Normal = 1 };

/// A button that a swipe on a row brings out.
class UITableViewRowAction {
 public:
  using Handler = std::function<void(UITableViewRowAction&, IndexPath)>;

  /// The handler gets the row's place in the table when the button is pressed.
  static std::shared_ptr<UITableViewRowAction> rowActionWithStyle(UITableViewRowActionStyle style,
                                                                  std::string title,
                                                                  Handler handler) {
    return std::shared_ptr<UITableViewRowAction>(
        new UITableViewRowAction(style, std::move(title), std::move(handler)));
  }

  UITableViewRowActionStyle style() const { return style_; }
  const std::string& title() const { return title_; }
  /// Red for a destructive action and grey for a normal one, until it is set.
  const UIColor& backgroundColor() const { return backgroundColor_; }
  void setBackgroundColor(const UIColor& color) { backgroundColor_ = color; }
  /// For the table.
  void perform(IndexPath path) { handler_(*this, path); }

 private:
  UITableViewRowAction(UITableViewRowActionStyle style, std::string title, Handler handler)
      : style_(style),
        title_(std::move(title)),
        backgroundColor_(style == UITableViewRowActionStyle::Normal ? UIColor::systemGray3Color()
                                                                    : UIColor::systemRedColor()),
        handler_(std::move(handler)) {}

  UITableViewRowActionStyle style_;
  std::string title_;
  UIColor backgroundColor_;
  Handler handler_;
};

using UITableViewRowActions = std::vector<std::shared_ptr<UITableViewRowAction>>;

}  // namespace frelta
