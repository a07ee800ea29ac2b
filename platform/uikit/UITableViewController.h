#pragma once

#include "uikit/UITableView.h"
#include "uikit/UIViewController.h"

namespace frelta {

/// A screen that is one table, which it fills and hears.
class UITableViewController : public UIViewController,
                              public UITableViewDataSource,
                              public UITableViewDelegate {
 public:
  /// With a table in the plain style.
  UITableViewController() = default;

  /// The screen's view.
  UITableView& tableView();

 protected:
  std::unique_ptr<UIView> loadView() override;

 private:
  UITableView* table_ = nullptr;
};

}  // namespace frelta
