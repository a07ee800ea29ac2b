#include "uikit/UITableViewController.h"

namespace frelta {

UITableView& UITableViewController::tableView() {
  view();
  return *table_;
}

std::unique_ptr<UIView> UITableViewController::loadView() {
  auto table = std::make_unique<UITableView>(CGRect{}, UITableViewStyle::Plain);
  table_ = table.get();
  table_->setDataSource(this);
  table_->setDelegate(this);
  return table;
}

}  // namespace frelta
