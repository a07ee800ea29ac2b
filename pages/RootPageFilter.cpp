#include "pages/RootPageFilter.h"

#include <set>
#include <string_view>

#include "device/SettingsKeys.h"
#include "device/StyleKinds.h"
#include "settings/FreltaPreferencesManager.h"

namespace frelta {

namespace {

constexpr std::string_view kPictureRow = "FreltaImageCell";
constexpr std::int32_t kPictureMode = 2;

using Keys = std::set<std::string_view>;

bool isOn(std::string_view key) {
  const PropertyListValue* value = FreltaPreferencesManager::getPrefForKey(key);
  return value && value->boolValue();
}

/// What stays while the add-on is off.
const Keys& alwaysVisible() {
  static const Keys kKeys{keys::kEnabled, "Respring",      "FreltaFooterCell", "Twitter",
                          "Support",      "RespringLabel", "FreltaBannerCell", "Settings"};
  return kKeys;
}

/// Rows that only some values of "BackgroundMode" show. Mode 0 has none of its own: the colour rows
/// are there in every mode.
bool isShownInMode(std::string_view key, std::int32_t mode) {
  if (key == kPictureRow || key == keys::kBackgroundImageContentMode) return mode == kPictureMode;
  for (const StyleKind& kind : styleKinds()) {
    if (key == kind.rowKey)
      return mode >= kind.firstBackgroundMode && mode <= kind.lastBackgroundMode;
  }
  return true;
}

Keys hiddenKeys() {
  Keys hidden{keys::kBackgroundImageContentMode, kPictureRow};
  for (const StyleKind& kind : styleKinds()) hidden.insert(kind.rowKey);
  const PropertyListValue* mode = FreltaPreferencesManager::getPrefForKey(keys::kBackgroundMode);
  std::erase_if(hidden, [number = mode ? mode->intValue() : 0](std::string_view key) {
    return isShownInMode(key, number);
  });
  if (!isOn(keys::kSwitchPresetsWithDarkMode))
    hidden.insert({keys::kPresetForLightMode, keys::kPresetForDarkMode, "FreltaPresetsInfo"});
  return hidden;
}

}  // namespace

void removeHiddenRows(PSSpecifierList& rows) {
  const bool enabled = isOn(keys::kEnabled);
  const Keys keys = enabled ? hiddenKeys() : alwaysVisible();
  std::erase_if(rows, [&](const std::shared_ptr<PSSpecifier>& row) {
    const std::string* key = row->stringForKey("key");
    const bool listed = key && keys.contains(*key);
    return enabled ? listed : !listed;
  });
}

}  // namespace frelta
