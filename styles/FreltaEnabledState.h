#pragma once

#include <cstdint>

namespace frelta {

/// How much of a group is switched on. A single style is all or nothing.
enum FreltaEnabledState : std::int32_t {
  FreltaEnabledStateNone = 0,
  FreltaEnabledStatePartial = 1,
  FreltaEnabledStateAll = 2
};

}  // namespace frelta
