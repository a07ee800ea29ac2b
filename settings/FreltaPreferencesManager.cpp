#include "settings/FreltaPreferencesManager.h"

#include <algorithm>
#include <utility>

#include "device/Paths.h"
#include "device/SettingsKeys.h"
#include "foundation/Platform.h"
#include "foundation/PropertyListFiles.h"
#include "settings/SettingsFile.h"

namespace frelta {

namespace {

std::shared_ptr<const Dictionary> dictionaryAtPath(std::string_view path) {
  auto contents = dictionaryWithContentsOfFile(path);
  return contents ? std::make_shared<const Dictionary>(*std::move(contents)) : nullptr;
}

std::optional<std::string> stringOf(const PropertyListValue* value) {
  return value && value->string() ? std::optional(*value->string()) : std::nullopt;
}

}  // namespace

FreltaPreferencesManager& FreltaPreferencesManager::sharedInstance() {
  static FreltaPreferencesManager instance;
  return instance;
}

Dictionary FreltaPreferencesManager::defaultPrefs() {
  Dictionary defaults;
  for (const SettingKey& key : settingKeys()) {
    if (key.defaultValue) defaults.emplace(key.name, *key.defaultValue);
  }
  return defaults;
}

std::shared_ptr<const Dictionary> FreltaPreferencesManager::getPrefs() {
  sharedInstance().loadIfNeeded();
  return sharedInstance().cachedPrefs_;
}

const PropertyListValue* FreltaPreferencesManager::getPrefForKey(std::string_view key) {
  FreltaPreferencesManager& shared = sharedInstance();
  shared.loadIfNeeded();
  if (shared.inForce_.empty()) shared.findValuesInForce();
  const auto found = shared.inForce_.find(key);
  return found != shared.inForce_.end() ? found->second : nullptr;
}

void FreltaPreferencesManager::clearCache() {
  sharedInstance().setCachedPreset(nullptr);
  sharedInstance().setCachedPrefs(nullptr);
}

void FreltaPreferencesManager::savePrefs(const Dictionary& prefs) {
  writeSettings(prefs);
}

int FreltaPreferencesManager::kCurrentVersion() {
  return 2;
}

bool FreltaPreferencesManager::updateForDarkMode() {
  const SystemInformation& system = *Platform::current().system;
  if (system.systemVersion() < SystemVersion{13, 0, 0}) return false;
  const auto* switches = getPrefForKey(keys::kSwitchPresetsWithDarkMode);
  if (!switches || !switches->boolValue()) return false;
  const auto darkPreset = stringOf(getPrefForKey(keys::kPresetForDarkMode));
  const auto lightPreset = stringOf(getPrefForKey(keys::kPresetForLightMode));

  const auto windows = system.windows();
  const auto keyWindow = std::ranges::find_if(windows, &SystemInformation::Window::isKeyWindow);
  if (keyWindow == windows.end()) return false;
  const bool dark = keyWindow->userInterfaceStyle == UserInterfaceStyle::Dark;
  FreltaPreferencesManager& shared = sharedInstance();
  shared.lastWindowWasDark_ = dark;

  const auto& target = dark ? darkPreset : lightPreset;
  if (!target || shared.currentPresetPath_ == target) return false;
  shared.currentPresetPath_ = target;
  shared.setCachedPreset(dictionaryAtPath(*target));
  return true;
}

void FreltaPreferencesManager::setCachedPrefs(std::shared_ptr<const Dictionary> prefs) {
  cachedPrefs_ = std::move(prefs);
  inForce_.clear();
}

void FreltaPreferencesManager::setCachedPreset(std::shared_ptr<const Dictionary> preset) {
  cachedPreset_ = std::move(preset);
  inForce_.clear();
}

void FreltaPreferencesManager::loadIfNeeded() {
  if (cachedPrefs_) return;
  setCachedPreset(nullptr);
  const FileManager& files = *Platform::current().fileManager;
  if (!files.fileExistsAtPath(kSettingsPath)) {
    setCachedPrefs(std::make_shared<const Dictionary>());
    return;
  }
  setCachedPrefs(dictionaryAtPath(kSettingsPath));
  const auto* preset = cachedPrefs_ ? valueForKey(*cachedPrefs_, keys::kCurrentPreset) : nullptr;
  if (!preset) return;
  // A preset that is not named by a string is in force nowhere: it equals no path and has no file.
  currentPresetPath_ = stringOf(preset);
  if (currentPresetPath_ && files.fileExistsAtPath(*currentPresetPath_)) {
    setCachedPreset(dictionaryAtPath(*currentPresetPath_));
  }
}

void FreltaPreferencesManager::findValuesInForce() {
  for (const auto* layer : {cachedPrefs_.get(), cachedPreset_.get()}) {
    if (!layer) continue;
    for (const auto& [key, value] : *layer) inForce_.emplace(key, &value);
  }
  for (const SettingKey& key : settingKeys()) {
    if (key.defaultValue) inForce_.emplace(key.name, &*key.defaultValue);
  }
}

}  // namespace frelta
