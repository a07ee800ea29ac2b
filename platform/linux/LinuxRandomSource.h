#pragma once

#include "foundation/RandomSource.h"

namespace frelta {

/// The system's random numbers.
class LinuxRandomSource : public RandomSource {
 public:
  std::uint32_t random32() override;
};

}  // namespace frelta
