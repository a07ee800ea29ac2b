#pragma once

#include <optional>
#include <string>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// The value as an XML property list in UTF-8. Nothing when the form cannot hold it as it is, as
/// PropertyListSerialization says, or no reader would take so many values or so deep a nesting.
std::optional<std::string> writeXMLPropertyList(const PropertyListValue& value);

}  // namespace frelta
