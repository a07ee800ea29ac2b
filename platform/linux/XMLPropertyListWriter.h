#pragma once

#include <optional>
#include <string>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// The value as an XML property list in UTF-8. Nothing when the form cannot hold it, as
/// PropertyListSerialization says.
std::optional<std::string> writeXMLPropertyList(const PropertyListValue& value);

}  // namespace frelta
