#include "quick/ViewSearch.h"

#include "quick/ViewNode.h"

namespace frelta {

UIView* viewOf(const QQuickItem* item) {
  for (; item; item = item->parentItem()) {
    if (const auto* node = item->property("node").value<ViewNode*>()) return node->view();
  }
  return nullptr;
}

UITableView* frontTable(UIView& view) {
  if (view.isHidden()) return nullptr;
  if (auto* table = dynamic_cast<UITableView*>(&view)) return table;
  const auto subviews = view.subviews();
  for (auto subview = subviews.rbegin(); subview != subviews.rend(); ++subview) {
    if (UITableView* table = frontTable(**subview)) return table;
  }
  return nullptr;
}

}  // namespace frelta
