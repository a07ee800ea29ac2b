#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace frelta {

class RandomSource {
 public:
  virtual ~RandomSource() = default;
  /// 32 uniformly distributed bits.
  virtual std::uint32_t random32() = 0;
};

/// A random (version 4, RFC 9562) UUID in upper case with hyphens.
std::string uuidString(RandomSource& random);

}  // namespace frelta
