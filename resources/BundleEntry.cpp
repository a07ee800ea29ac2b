#include "pages/PagesRegistration.h"
#include "presets/PresetsRegistration.h"
#include "settings/RefreshNotification.h"

extern "C" __attribute__((visibility("default"))) void PSBundleRegisterClasses(
    frelta::PSClassRegistry& classes) {
  frelta::registerPages(classes);
  frelta::registerPresets(classes);
  frelta::forgetSettingsAtRefresh();
}
