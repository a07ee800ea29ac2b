#pragma once

#include "preferences/PSControlTableCell.h"
#include "uikit/UISlider.h"

namespace frelta {

/// A number between "min" and "max", 0 and 1 unless given; stored when the drag ends.
class PSSliderTableCell : public PSControlTableCell {
 public:
  PSSliderTableCell(std::string reuseIdentifier, std::shared_ptr<PSSpecifier> specifier);

  UISlider* control() const { return control_; }

  void refreshCellContents() override;

 protected:
  UIView& controlView() override { return *control_; }

 private:
  UISlider* control_;  // owned as a subview
};

}  // namespace frelta
