#pragma once

#include <cstdint>

namespace frelta {

/// Which kind of style a folder holds, and which kind a selector serves. Any other number counts as
/// an images theme wherever a text or a key is chosen.
enum FreltaStyleMode : std::int32_t {
  FreltaStyleModeImages = 0,
  FreltaStyleModeHTML = 1,
  FreltaStyleModeWidget = 2
};

/// How much of a group is switched on. A single style is all or nothing.
enum FreltaEnabledState : std::int32_t {
  FreltaEnabledStateNone = 0,
  FreltaEnabledStatePartial = 1,
  FreltaEnabledStateAll = 2
};

}  // namespace frelta
