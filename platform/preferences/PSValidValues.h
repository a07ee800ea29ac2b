#pragma once

#include <optional>
#include <string>
#include <vector>

#include "preferences/PSSpecifier.h"

namespace frelta {

/// One of the values that a row offers under "validValues", and its name under "validTitles".
struct PSValidValue {
  PropertyListValue value;
  std::string title;
  /// Whether it stands for every higher number too.
  bool andHigher = false;
};

/// As many as there are both values and titles. The last one stands for higher numbers too where
/// the row's "validValuesGoOn" is true.
std::vector<PSValidValue> validValues(const PSSpecifier& specifier);

/// Which of them the value is; nothing for none. A number is compared as a number, whatever type it
/// was stored as.
std::optional<std::size_t> indexOfValidValue(const std::vector<PSValidValue>& values,
                                             const std::optional<PropertyListValue>& value);

/// A text or number as text, an array as the number of its entries; empty for anything else.
std::string textForValue(const std::optional<PropertyListValue>& value);

/// The title of the row's valid value, else the value as text.
std::string titleForValue(const PSSpecifier& specifier,
                          const std::optional<PropertyListValue>& value);

}  // namespace frelta
