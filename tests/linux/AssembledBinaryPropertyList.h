#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace frelta {

/// The bytes that the pairs of hexadecimal digits stand for.
inline std::string bytesFromHex(std::string_view digits) {
  const auto value = [](char digit) { return digit <= '9' ? digit - '0' : digit - 'a' + 10; };
  std::string bytes;
  for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
    bytes += static_cast<char>(value(digits[i]) * 16 + value(digits[i + 1]));
  return bytes;
}

inline std::string bigEndian(std::uint64_t number, int size) {
  std::string bytes;
  for (int shift = size * 8 - 8; shift >= 0; shift -= 8)
    bytes += static_cast<char>(number >> shift);
  return bytes;
}

/// A binary property list put together from its objects' bytes, as right or as wrong as a test
/// wants it.
struct AssembledBinaryPropertyList {
  std::vector<std::string> objects;
  std::uint64_t topObject = 0;
  int offsetSize = 4;
  int referenceSize = 1;

  std::string bytes() const {
    std::string file = "bplist00", offsets;
    for (const std::string& object : objects) {
      offsets += bigEndian(file.size(), offsetSize);
      file += object;
    }
    return file + offsets + trailer(file.size());
  }

  std::string trailer(std::uint64_t offsetTable) const {
    return std::string(6, '\0') + bigEndian(static_cast<std::uint64_t>(offsetSize), 1) +
           bigEndian(static_cast<std::uint64_t>(referenceSize), 1) + bigEndian(objects.size(), 8) +
           bigEndian(topObject, 8) + bigEndian(offsetTable, 8);
  }
};

}  // namespace frelta
