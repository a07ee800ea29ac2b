#pragma once

#include <cstdint>
#include <vector>

namespace frelta {

/// What the command line asks of the monkey.
struct MonkeyOptions {
  std::vector<std::uint64_t> seeds{1, 2};
  /// For each of them.
  int steps = 1000;
  /// Whether each step is printed.
  bool tracing = false;
};

inline MonkeyOptions& monkeyOptions() {
  static MonkeyOptions options;
  return options;
}

}  // namespace frelta
