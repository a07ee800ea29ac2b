#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace frelta {

/// The text as one line of printable UTF-8, for a log or a terminal: control characters, line
/// breaks, what turns the direction of text round and bytes that are not UTF-8 appear as escapes
/// ("\n", "\x1b", "\u2028", "\u202e"). A longer line than that many bytes is cut
/// between characters and ends in an ellipsis; the limit is at least the ellipsis' 3 bytes.
std::string harmlessLine(std::string_view text, std::size_t maximumBytes);

}  // namespace frelta
