#include "foundation/RandomSource.h"

namespace frelta {

std::string uuidString(RandomSource& random) {
  std::array<std::uint32_t, 4> words{};
  for (std::uint32_t& word : words) word = random.random32();
  words[1] = (words[1] & 0xFFFF0FFF) | 0x00004000;  // version 4
  words[2] = (words[2] & 0x3FFFFFFF) | 0x80000000;  // the RFC's variant

  std::string text;
  for (int digit = 0; digit < 32; ++digit) {
    if (digit == 8 || digit == 12 || digit == 16 || digit == 20) text += '-';
    text += "0123456789ABCDEF"[words[digit / 8] >> (28 - digit % 8 * 4) & 0xF];
  }
  return text;
}

}  // namespace frelta
