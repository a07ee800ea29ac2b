#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace frelta {

/// Some of the ASCII characters, for passing over runs of them quickly.
class AsciiSet {
 public:
  /// The blank to the tilde but for those given.
  static constexpr AsciiSet printableWithout(std::string_view others) {
    AsciiSet set;
    for (char c = ' '; c <= '~'; ++c)
      set.holds_[static_cast<unsigned char>(c)] = others.find(c) == std::string_view::npos;
    return set;
  }

  /// How many characters from the position on belong to the set.
  std::size_t lengthAt(std::string_view text, std::size_t position) const {
    std::size_t end = position;
    while (end < text.size() && holds_[static_cast<unsigned char>(text[end])]) ++end;
    return end - position;
  }

 private:
  std::array<bool, 256> holds_{};
};

}  // namespace frelta
