#include "pages/RootPageFilter.h"

#include <set>
#include <string_view>

#include "settings/FreltaPreferencesManager.h"

namespace frelta {

namespace {

using Keys = std::set<std::string_view>;

bool isOn(std::string_view key) {
  const PropertyListValue* value = FreltaPreferencesManager::getPrefForKey(key);
  return value && value->boolValue();
}

/// What stays while the add-on is off.
const Keys& alwaysVisible() {
  static const Keys kKeys{"Enabled", "Respring",      "FreltaFooterCell", "Twitter",
                          "Support", "RespringLabel", "FreltaBannerCell", "Settings"};
  return kKeys;
}

Keys hiddenKeys() {
  Keys hidden{"backgroundImageContentModeInt",
              "FreltaImageCell",
              "FreltaThemesCell",
              "FreltaHTMLCell",
              "FreltaWidgetCell",
              "FreltaPresetsLightMode",
              "FreltaPresetsDarkMode",
              "FreltaPresetsInfo"};
  const PropertyListValue* mode = FreltaPreferencesManager::getPrefForKey("BackgroundMode");
  const int number = mode ? mode->intValue() : 0;
  // Mode 0 hides nothing of its own: the colour rows are there in every mode.
  if (number == 1) {
    hidden.erase("FreltaHTMLCell");
  } else if (number == 2) {
    hidden.erase("FreltaImageCell");
    hidden.erase("backgroundImageContentModeInt");
  } else if (number == 3) {
    hidden.erase("FreltaThemesCell");
  } else if (number >= 4) {
    hidden.erase("FreltaWidgetCell");
  }
  if (isOn("SwitchPresetsWithDarkMode")) {
    hidden.erase("FreltaPresetsLightMode");
    hidden.erase("FreltaPresetsDarkMode");
    hidden.erase("FreltaPresetsInfo");
  }
  return hidden;
}

}  // namespace

void removeHiddenRows(PSSpecifierList& rows) {
  const bool enabled = isOn("Enabled");
  const Keys keys = enabled ? hiddenKeys() : alwaysVisible();
  std::erase_if(rows, [&](const std::shared_ptr<PSSpecifier>& row) {
    const std::string* key = row->stringForKey("key");
    const bool listed = key && keys.contains(*key);
    return enabled ? listed : !listed;
  });
}

}  // namespace frelta
