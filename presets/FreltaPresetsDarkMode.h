#pragma once

#include "device/SettingsKeys.h"
#include "presets/FreltaPresets.h"

namespace frelta {

/// Chooses the preset for dark appearance.
class FreltaPresetsDarkMode : public FreltaPresets {
 public:
  std::optional<std::string_view> selectionKey() const override { return keys::kPresetForDarkMode; }
};

}  // namespace frelta
