#include "presets/PresetStore.h"

#include <utility>

#include "device/Paths.h"
#include "device/SettingsKeys.h"
#include "foundation/Platform.h"
#include "foundation/PropertyListFiles.h"
#include "settings/FreltaPreferencesManager.h"
#include "settings/RefreshNotification.h"
#include "settings/SettingsFile.h"

namespace frelta {

namespace {

/// The choice for light and dark appearance belongs to no preset.
constexpr std::string_view kAppearanceKeys[] = {keys::kPresetForDarkMode, keys::kPresetForLightMode,
                                                keys::kSwitchPresetsWithDarkMode};

FileManager& files() {
  return *Platform::current().fileManager;
}

void remove(Dictionary& dictionary, std::string_view key) {
  if (const auto found = dictionary.find(key); found != dictionary.end()) dictionary.erase(found);
}

/// The preset in force, nothing when there is none that can be read.
std::optional<Dictionary> presetUnder(const Dictionary& settings) {
  const PropertyListValue* path = valueForKey(settings, keys::kCurrentPreset);
  return path && path->string() ? dictionaryWithContentsOfFile(*path->string()) : std::nullopt;
}

}  // namespace

std::vector<std::string> presetPaths() {
  if (!files().fileExistsAtPath(kPresetsFolder)) files().createDirectoryAtPath(kPresetsFolder);
  const auto names = files().contentsOfDirectoryAtPath(kPresetsFolder);
  std::vector<std::string> paths;
  if (!names) return paths;
  const std::string folder = std::string(kPresetsFolder) + "/";
  for (const std::string& name : *names) {
    if (name.ends_with(".plist")) paths.push_back(folder + name);
  }
  return paths;
}

bool presetExistsAtPath(std::string_view path) {
  return files().fileExistsAtPath(path);
}

void removePreset(std::string_view path) {
  files().removeItemAtPath(path);
}

bool savePreset(std::string_view path) {
  Dictionary preset = settingsOnDisk();
  // The settings are laid over the preset: keys that they have already stay.
  if (auto under = presetUnder(preset)) preset.merge(*under);
  // No preset names another one, nor does one whose own could not be read.
  remove(preset, keys::kCurrentPreset);
  for (const std::string_view key : kAppearanceKeys) remove(preset, key);
  const auto bytes = Platform::current().propertyLists->dataWithPropertyList(std::move(preset));
  if (!bytes) return false;
  // A file goes when the new one is whole; a folder would not.
  if (files().directoryExistsAtPath(path)) removePreset(path);
  return files().writeAtomically(path, *bytes);
}

void applyPreset(std::string_view path) {
  if (!presetExistsAtPath(path)) return;
  Dictionary before = settingsOnDisk();
  Dictionary settings{{std::string(keys::kCurrentPreset), path}};
  for (const std::string_view key : kAppearanceKeys) {
    if (auto kept = before.extract(std::string(key))) settings.insert(std::move(kept));
  }
  writeSettingsWithBackup(settings, std::string(kSettingsPath) + ".bak");
  FreltaPreferencesManager::clearCache();
  postRefreshNotification();
}

}  // namespace frelta
