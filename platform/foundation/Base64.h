#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace frelta {

/// RFC 4648, section 4: the standard alphabet, "=" padding, no line breaks.
std::string base64EncodedString(std::string_view bytes);

/// Strict: nothing for any character outside the alphabet (white space included), missing, extra or
/// misplaced padding, or non-zero bits under the padding. An empty text gives empty bytes.
std::optional<std::string> dataFromBase64String(std::string_view text);

}  // namespace frelta
