#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace frelta {

/// Length in UTF-16 code units of UTF-8 text; a byte that is not UTF-8 counts as one unit.
std::size_t utf16Length(std::string_view text);

/// The platform's path rules. Trailing slashes are ignored; "/" is its own last component; a name
/// that only starts with a dot (".plist") has no extension.
std::string_view lastPathComponent(std::string_view path);
std::string_view stringByDeletingPathExtension(std::string_view path);
/// One "/" between the two, whatever the path ends with; an empty path gives the component.
std::string stringByAppendingPathComponent(std::string_view path, std::string_view component);

}  // namespace frelta
