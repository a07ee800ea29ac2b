#pragma once

#include <optional>
#include <string_view>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// What every binary property list starts with.
inline constexpr std::string_view kBinaryPropertyListSignature = "bplist00";

/// The value of a binary property list within the limits of PropertyListSerialization, each value
/// and its bytes counted as often as the file refers to it. All of them may take 4 MiB and 64 bytes
/// for each of the file's: containers shared by shared ones go beyond, and long texts that are
/// referred to more than a hundred times. A UID reads as the dictionary {"CF$UID": number}. Nothing
/// for anything else, nulls and sets included.
std::optional<PropertyListValue> readBinaryPropertyList(std::string_view bytes);

}  // namespace frelta
