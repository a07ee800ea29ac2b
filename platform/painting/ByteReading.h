#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace frelta {

inline std::uint8_t byteAt(std::string_view bytes, std::size_t at) {
  return at < bytes.size() ? static_cast<std::uint8_t>(bytes[at]) : 0;
}

// Numbers of at most 4 bytes at a place; bytes beyond the end count as 0.

inline std::uint32_t bigEndianAt(std::string_view bytes, std::size_t at, std::size_t size) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < size; ++i) number = number << 8 | byteAt(bytes, at + i);
  return number;
}

inline std::uint32_t littleEndianAt(std::string_view bytes, std::size_t at, std::size_t size) {
  std::uint32_t number = 0;
  for (std::size_t i = size; i-- > 0;) number = number << 8 | byteAt(bytes, at + i);
  return number;
}

}  // namespace frelta
