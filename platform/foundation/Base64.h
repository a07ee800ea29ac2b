#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace frelta {

/// RFC 4648, section 4: the standard alphabet, "=" padding, no line breaks.
std::string base64EncodedString(std::string_view bytes);

/// Strict: nothing for any character outside the alphabet (white space included), or missing, extra
/// or misplaced padding. Bits under the padding are passed over: section 3.5 lets a decoder refuse
/// them where a second spelling of the same bytes does harm, and nothing here compares spellings.
/// An empty text gives empty bytes.
std::optional<std::string> dataFromBase64String(std::string_view text);

}  // namespace frelta
