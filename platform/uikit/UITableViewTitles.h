#pragma once

#include <map>
#include <string>

#include "uikit/UILabel.h"
#include "uikit/UITableViewLayout.h"

namespace frelta {

/// The labels of a table's sections, as far as they are on and near the screen.
class UITableViewTitles {
 public:
  /// The table owns the labels and outlives this.
  explicit UITableViewTitles(UIView& table) : table_(table) {}

  /// Has those between the two heights (content coordinates) and no others.
  void place(const UITableViewLayout& layout, double minY, double maxY);

 private:
  struct Labels {
    UILabel* header = nullptr;
    UILabel* footer = nullptr;
  };
  UILabel* placed(UILabel* label, const std::string& text, const CGRect& frame, bool header);

  UIView& table_;
  std::map<int, Labels> labels_;
};

}  // namespace frelta
