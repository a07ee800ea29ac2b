#pragma once

#include <optional>
#include <string_view>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// Whether the document has no more bytes, line breaks and references than are read.
bool isWithinXMLLimits(std::string_view bytes);

/// The value of an XML property list within the limits of PropertyListSerialization. Nothing for
/// anything else; a document that declares or refers to entities of its own is refused, and nothing
/// that it names is ever fetched.
std::optional<PropertyListValue> readXMLPropertyList(std::string_view bytes);

}  // namespace frelta
