#pragma once

#include <vector>

#include "preferences/PSTableCell.h"
#include "preferences/PSValidValues.h"
#include "uikit/UISegmentedControl.h"

namespace frelta {

/// A choice of a few values, side by side over the whole row. The label only names it to those who
/// cannot see it; where there is none, the title of its group does.
class PSSegmentTableCell : public PSTableCell {
 public:
  PSSegmentTableCell(std::string reuseIdentifier, std::shared_ptr<PSSpecifier> specifier);

  UISegmentedControl* control() const { return control_; }

  void refreshCellContents() override;
  void layoutSubviews() override;
  /// The control speaks for itself.
  UIAccessibility accessibility() const override { return {}; }

 private:
  void replaceControl(std::vector<std::string> titles);

  UISegmentedControl* control_ = nullptr;  // owned as a subview
  std::vector<PSValidValue> values_;
};

}  // namespace frelta
