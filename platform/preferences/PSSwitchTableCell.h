#pragma once

#include "preferences/PSTableCell.h"
#include "uikit/UISwitch.h"

namespace frelta {

/// A switch for a value of 0 or 1.
class PSSwitchTableCell : public PSTableCell {
 public:
  PSSwitchTableCell(std::string reuseIdentifier, std::shared_ptr<PSSpecifier> specifier);

  UISwitch* control() const { return control_; }

  void refreshCellContents() override;
  /// The whole row is the switch.
  UIAccessibility accessibility() const override;
  bool accessibilityActivate() override;

 private:
  UISwitch* control_;  // owned as the accessory view
};

}  // namespace frelta
