#include "foundation/UTF8.h"

namespace frelta {

std::optional<Scalar> scalarAt(std::string_view text, std::size_t position) {
  const auto byteAt = [&](std::size_t offset) -> unsigned {
    const std::size_t index = position + offset;
    return index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
  };
  const unsigned lead = byteAt(0);
  if (lead < 0x80) return Scalar{lead, 1};
  if (lead < 0xC2 || lead > 0xF4) return std::nullopt;

  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  char32_t value = lead & (0xFFu >> (length + 1));
  for (std::size_t offset = 1; offset < length; ++offset) {
    const unsigned next = byteAt(offset);
    if ((next & 0xC0) != 0x80) return std::nullopt;
    value = value << 6 | (next & 0x3F);
  }
  static constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
  if (value < kSmallest[length] || value > 0x10FFFF || surrogate) return std::nullopt;
  return Scalar{value, length};
}

bool isUTF8(std::string_view text) {
  for (std::size_t position = 0; position < text.size();) {
    const auto scalar = scalarAt(text, position);
    if (!scalar) return false;
    position += scalar->length;
  }
  return true;
}

void appendScalar(std::string& text, char32_t value) {
  const auto trail = [&](unsigned shift) {
    text += static_cast<char>(0x80 | (value >> shift & 0x3F));
  };
  if (value < 0x80) {
    text += static_cast<char>(value);
  } else if (value < 0x800) {
    text += static_cast<char>(0xC0 | value >> 6);
    trail(0);
  } else if (value < 0x10000) {
    text += static_cast<char>(0xE0 | value >> 12);
    trail(6);
    trail(0);
  } else {
    text += static_cast<char>(0xF0 | value >> 18);
    trail(12);
    trail(6);
    trail(0);
  }
}

}  // namespace frelta
