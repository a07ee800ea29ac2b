#include "preferences/PSSpecifier.h"

#include <cmath>
#include <utility>

namespace frelta {

PSSpecifier::PSSpecifier(PSCellType cellType, std::string identifier, Dictionary properties)
    : cellType_(cellType), identifier_(std::move(identifier)), properties_(std::move(properties)) {}

std::string PSSpecifier::name() const {
  const std::string* label = stringForKey("label");
  return label ? *label : std::string();
}

const PropertyListValue* PSSpecifier::propertyForKey(std::string_view key) const {
  return valueForKey(properties_, key);
}

const std::string* PSSpecifier::stringForKey(std::string_view key) const {
  const PropertyListValue* value = propertyForKey(key);
  return value ? value->string() : nullptr;
}

std::optional<double> PSSpecifier::pointsForKey(std::string_view key) const {
  const PropertyListValue* value = propertyForKey(key);
  const double points = value ? value->doubleValue() : 0;
  return std::isfinite(points) && points > 0 ? std::optional(points) : std::nullopt;
}

void PSSpecifier::setProperty(PropertyListValue value, std::string key) {
  properties_.insert_or_assign(std::move(key), std::move(value));
}

void PSSpecifier::setGroup(std::shared_ptr<PSSpecifier> group) {
  group_ = std::move(group);
  if (group_) group_->hasRows_ = true;
}

}  // namespace frelta
