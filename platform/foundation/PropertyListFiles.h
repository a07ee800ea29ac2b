#pragma once

#include <optional>
#include <string_view>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// Property-list files, through the installed Platform. Paths are device paths.

/// The file's dictionary. Nothing when the file is missing, unreadable, malformed, larger than
/// PropertyListSerialization::kMaximumBytes, or holds something other than a dictionary. A file
/// that was refused for what it holds is not read again until it has changed; the Platform's
/// listener for failures is told of it.
std::optional<Dictionary> dictionaryWithContentsOfFile(std::string_view path);

/// Replaces the file with the value's XML form, or its binary one where XML cannot carry it,
/// atomically. False when the value cannot be stored in a property list that would read back, or
/// the write failed; the old file is then untouched.
bool writePropertyListToFile(const PropertyListValue& value, std::string_view path);

}  // namespace frelta
