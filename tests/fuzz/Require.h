#pragma once

#include <cstdlib>

namespace frelta {

/// Ends the program, which the fuzzer reports with the input, unless the condition holds.
inline void require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace frelta
