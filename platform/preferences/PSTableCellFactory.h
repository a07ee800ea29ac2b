#pragma once

#include <memory>
#include <string>

#include "preferences/PSClassRegistry.h"
#include "preferences/PSTableCell.h"

namespace frelta {

/// Cells made from it with the same name may take each other's rows.
std::string rowKeyOf(const PSSpecifier& specifier);

/// A new cell for the row, of its registered class or the framework's own for its kind, not yet
/// refreshed; the framework's where the class throws. A framework cell's reuse identifier is the
/// row's key.
std::unique_ptr<PSTableCell> tableCellForSpecifier(const std::shared_ptr<PSSpecifier>& specifier,
                                                   const PSClassRegistry& classes);

}  // namespace frelta
