#pragma once

#include <optional>
#include <string>
#include <vector>

#include "foundation/PropertyListValue.h"
#include "preferences/PSClassRegistry.h"
#include "preferences/PSSpecifier.h"

namespace frelta {

/// A page as its property list describes it: a dictionary with "items" and perhaps a "title".
struct PSPageDescription {
  std::optional<std::string> title;
  /// Groups and rows in order, without target.
  std::vector<PSSpecifier> items;
  /// What was wrong, at most one line for each item. A bad item is left out; a row that asks for
  /// something unknown is there as a plain one.
  std::vector<std::string> problems;

  /// New specifiers for the items, each row with its group.
  PSSpecifierList specifiers() const;
};

/// Reads the description; never fails. Depends on nothing but its arguments.
PSPageDescription pageDescriptionWithValue(const PropertyListValue& value,
                                           const PSClassRegistry& classes);

}  // namespace frelta
