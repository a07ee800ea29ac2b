#include "preferences/PSValidValues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <variant>

namespace frelta {

namespace {

bool isSame(const PropertyListValue& valid, const PropertyListValue& stored) {
  if (valid.isString()) return valid == stored;
  if (valid.isInteger() || valid.isBoolean()) {
    return valid.longLongValue() == stored.longLongValue();
  }
  return valid.isNumber() ? valid.doubleValue() == stored.doubleValue() : valid == stored;
}

bool standsFor(const PSValidValue& valid, const PropertyListValue& stored) {
  return isSame(valid.value, stored) ||
         (valid.andHigher && stored.intValue() > valid.value.intValue());
}

const Array* arrayForKey(const PSSpecifier& specifier, std::string_view key) {
  const PropertyListValue* value = specifier.propertyForKey(key);
  return value ? value->array() : nullptr;
}

}  // namespace

std::vector<PSValidValue> validValues(const PSSpecifier& specifier) {
  const Array* values = arrayForKey(specifier, "validValues");
  const Array* titles = arrayForKey(specifier, "validTitles");
  std::vector<PSValidValue> result;
  if (!values || !titles) return result;
  const std::size_t count = std::min(values->size(), titles->size());
  result.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    result.push_back({(*values)[i], textForValue((*titles)[i])});
  }
  const PropertyListValue* goesOn = specifier.propertyForKey("validValuesGoOn");
  if (!result.empty() && goesOn) result.back().andHigher = goesOn->boolValue();
  return result;
}

std::optional<std::size_t> indexOfValidValue(const std::vector<PSValidValue>& values,
                                             const std::optional<PropertyListValue>& value) {
  if (!value) return std::nullopt;
  const auto found = std::ranges::find_if(
      values, [&](const PSValidValue& valid) { return standsFor(valid, *value); });
  if (found == values.end()) return std::nullopt;
  return static_cast<std::size_t>(found - values.begin());
}

std::string textForValue(const std::optional<PropertyListValue>& value) {
  if (!value) return {};
  if (const std::string* text = value->string()) return *text;
  if (const Array* array = value->array()) return std::to_string(array->size());
  if (value->isInteger() || value->isBoolean()) {
    if (const auto* large = std::get_if<std::uint64_t>(&value->storage())) {
      return std::to_string(*large);
    }
    return std::to_string(value->longLongValue());
  }
  if (!value->isNumber()) return {};
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.begin(), digits.end(), value->doubleValue()).ptr;
  return std::string(digits.begin(), end);
}

std::string titleForValue(const PSSpecifier& specifier,
                          const std::optional<PropertyListValue>& value) {
  const std::vector<PSValidValue> values = validValues(specifier);
  const auto index = indexOfValidValue(values, value);
  return index ? values[*index].title : textForValue(value);
}

}  // namespace frelta
