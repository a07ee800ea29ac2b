#include "preferences/PSSwitchTableCell.h"

#include <utility>

namespace frelta {

PSSwitchTableCell::PSSwitchTableCell(std::string reuseIdentifier,
                                     std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(UITableViewCellStyle::Default, std::move(reuseIdentifier), std::move(specifier)) {
  auto control = std::make_unique<UISwitch>();
  control_ = control.get();
  control_->addTarget(
      this, "controlChanged",
      [this](UIControl&) {
        didChange();
        writeValue(control_->isOn() ? 1 : 0);
      },
      UIControlEventValueChanged);
  setAccessoryView(std::move(control));
}

void PSSwitchTableCell::refreshCellContents() {
  PSTableCell::refreshCellContents();
  const auto value = readValue();
  control_->setOn(value && value->boolValue());
  didChange();
}

UIAccessibility PSSwitchTableCell::accessibility() const {
  UIAccessibility accessibility = PSTableCell::accessibility();
  accessibility.role = UIAccessibility::Role::Switch;
  accessibility.on = control_->isOn();
  return accessibility;
}

bool PSSwitchTableCell::accessibilityActivate() {
  control_->toggle();
  return true;
}

}  // namespace frelta
