#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace frelta {

struct Scalar {
  char32_t value = 0;
  std::size_t length = 0;  // bytes it takes in UTF-8
};

/// The Unicode scalar value that starts at the position, which must lie inside the text. Nothing
/// when the bytes there are not well-formed UTF-8.
std::optional<Scalar> scalarAt(std::string_view text, std::size_t position);

/// Whether the bytes are well-formed UTF-8 throughout.
bool isUTF8(std::string_view text);

/// Appends the scalar value, which must be one, in UTF-8.
void appendScalar(std::string& text, char32_t value);

}  // namespace frelta
