#pragma once

#include <cstdint>
#include <iterator>
#include <random>

namespace frelta {

/// Chance that is the same for the same seed, with every compiler and library.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : engine_(seed) {}

  /// 0 to one less than the number, which is at least 1.
  int below(int number) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(number)); }
  /// Both ends included.
  int between(int least, int most) { return least + below(most - least + 1); }
  bool oneIn(int number) { return below(number) == 0; }
  /// One of a range that is not empty.
  template <typename Range>
  const auto& pick(const Range& range) {
    return range[static_cast<std::size_t>(below(static_cast<int>(std::size(range))))];
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace frelta
