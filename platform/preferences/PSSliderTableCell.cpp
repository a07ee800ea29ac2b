#include "preferences/PSSliderTableCell.h"

#include <cmath>
#include <utility>

namespace frelta {

namespace {

double finite(const PropertyListValue* value, double fallback) {
  return value && std::isfinite(value->doubleValue()) ? value->doubleValue() : fallback;
}

}  // namespace

PSSliderTableCell::PSSliderTableCell(std::string reuseIdentifier,
                                     std::shared_ptr<PSSpecifier> specifier)
    : PSControlTableCell(std::move(reuseIdentifier), std::move(specifier)) {
  control_ = addSubview(std::make_unique<UISlider>());
  control_->addTarget(
      this, "controlChanged", [this](UIControl&) { writeValue(control_->value()); },
      UIControlEventValueChanged);
}

void PSSliderTableCell::refreshCellContents() {
  PSControlTableCell::refreshCellContents();
  const double minimum = finite(specifier()->propertyForKey("min"), 0);
  control_->setRange(minimum, finite(specifier()->propertyForKey("max"), 1));
  control_->setAccessibility({.isElement = true, .label = specifier()->name()});
  const auto value = readValue();
  control_->setValue(finite(value ? &*value : nullptr, minimum));
}

}  // namespace frelta
