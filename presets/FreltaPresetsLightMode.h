#pragma once

#include "presets/FreltaPresets.h"

namespace frelta {

/// Chooses the preset for light appearance.
class FreltaPresetsLightMode : public FreltaPresets {
 public:
  std::optional<std::string_view> selectionKey() const override { return "FreltaPresetsLightMode"; }
};

}  // namespace frelta
