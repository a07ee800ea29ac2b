#pragma once

#include "device/SettingsKeys.h"
#include "presets/FreltaPresets.h"

namespace frelta {

/// Chooses the preset for light appearance.
class FreltaPresetsLightMode : public FreltaPresets {
 public:
  std::optional<std::string_view> selectionKey() const override {
    return keys::kPresetForLightMode;
  }
};

}  // namespace frelta
