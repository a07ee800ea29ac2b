#include "presets/PresetsRegistration.h"

#include <memory>

#include "presets/FreltaPresetsDarkMode.h"
#include "presets/FreltaPresetsLightMode.h"

namespace frelta {

void registerPresets(PSClassRegistry& classes) {
  classes.registerController("FreltaPresets", [] { return std::make_shared<FreltaPresets>(); });
  classes.registerController("FreltaPresetsLightMode",
                             [] { return std::make_shared<FreltaPresetsLightMode>(); });
  classes.registerController("FreltaPresetsDarkMode",
                             [] { return std::make_shared<FreltaPresetsDarkMode>(); });
}

}  // namespace frelta
