#pragma once

#include <cmath>
#include <cstring>
#include <random>
#include <string>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// Makes presets of every type that both JSON and a property list hold, the same ones for the same
/// seed.
class GeneratedPresets {
 public:
  explicit GeneratedPresets(std::uint64_t seed) : random_(seed) {}

  Dictionary next() {
    Dictionary preset;
    for (std::uint64_t i = below(12); i > 0; --i) preset[text()] = value(1);
    return preset;
  }

 private:
  static constexpr int kDeepest = 4;

  std::uint64_t below(std::uint64_t bound) { return random_() % bound; }

  PropertyListValue value(int depth) {
    switch (below(depth < kDeepest ? 8 : 6)) {
      case 0:
        return below(2) == 0;
      case 1:
        return static_cast<std::int64_t>(random_()) >> below(64);
      case 2:
        return random_();
      case 3:
        return real();
      case 6: {
        Array array;
        for (std::uint64_t i = below(4); i > 0; --i) array.push_back(value(depth + 1));
        return array;
      }
      case 7: {
        Dictionary dictionary;
        for (std::uint64_t i = below(4); i > 0; --i) dictionary[text()] = value(depth + 1);
        return dictionary;
      }
      default:
        return text();
    }
  }

  double real() {
    // No +0.0: Python's binary writer takes it and -0.0 for the same object.
    static constexpr double kSpecial[] = {-0.0, 1.0, 0.1, 1e22, 5e-324, 1.7976931348623157e308};
    if (below(3) == 0) return kSpecial[below(std::size(kSpecial))];
    const std::uint64_t bits = random_();
    double number;
    std::memcpy(&number, &bits, sizeof number);
    return std::isfinite(number) ? number : 0.5;
  }

  std::string text() {
    static const char* const kPieces[] = {
        "HideKeyCaps", "a",   " ",       "\t",     "\n",
        "\r",          "é",   "e\u0301", "😀",      "👩‍👩‍👧",
        "<&>\"'",      "]]>", "\\",      "/",      "ключ",
        "\u2028",      "-",   ".plist",  "\u00a0", "0"};
    std::string result;
    for (std::uint64_t i = below(6); i > 0; --i) result += kPieces[below(std::size(kPieces))];
    return result;
  }

  std::mt19937_64 random_;
};

}  // namespace frelta
