#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// Reads the settings: the settings file over the preset in force over the built-in defaults, from
/// memory once the file has been loaded. Only the creation of the shared instance is thread-safe;
/// everything else belongs to the main thread. No operation reports failure.
class FreltaPreferencesManager {
 public:
  static FreltaPreferencesManager& sharedInstance();

  /// The 21 built-in defaults, built afresh on every call.
  static Dictionary defaultPrefs();

  /// The settings file's contents, loaded on the first call and kept until clearCache(). Empty when
  /// there is no file; null when there is one that cannot be read, which the next call tries again.
  /// Loading also loads the preset that "CurrentPreset" names.
  static std::shared_ptr<const Dictionary> getPrefs();

  /// The key's value from the settings file, else the preset, else the defaults; present even when
  /// it is 0 or "". Null when none of them has the key. Owned by the manager and good until what is
  /// loaded changes (clearCache(), updateForDarkMode(), a setter): copy what must live longer.
  static const PropertyListValue* getPrefForKey(std::string_view key);

  /// Forgets what was loaded; currentPresetPath() stays.
  static void clearCache();

  /// Replaces the settings file, atomically. The cache stays as it is.
  static void savePrefs(const Dictionary& prefs);

  /// Version of the settings' form.
  static int kCurrentVersion();

  /// Puts the preset chosen for the key window's appearance in force, in memory only, until the
  /// settings are next loaded. Returns whether the preset changed.
  static bool updateForDarkMode();

  /// Whether the key window was dark when updateForDarkMode() last looked.
  bool lastWindowWasDark() const { return lastWindowWasDark_; }
  void setLastWindowWasDark(bool dark) { lastWindowWasDark_ = dark; }

  /// The settings file as last loaded, or null.
  const std::shared_ptr<const Dictionary>& cachedPrefs() const { return cachedPrefs_; }
  void setCachedPrefs(std::shared_ptr<const Dictionary> prefs);

  /// The preset in force, or null.
  const std::shared_ptr<const Dictionary>& cachedPreset() const { return cachedPreset_; }
  void setCachedPreset(std::shared_ptr<const Dictionary> preset);

  /// The file that cachedPreset() was read from, or would have been had it been readable.
  const std::optional<std::string>& currentPresetPath() const { return currentPresetPath_; }
  void setCurrentPresetPath(std::optional<std::string> path) {
    currentPresetPath_ = std::move(path);
  }

 private:
  FreltaPreferencesManager() = default;
  void loadIfNeeded();
  void findValuesInForce();

  bool lastWindowWasDark_ = false;
  std::shared_ptr<const Dictionary> cachedPrefs_;
  std::shared_ptr<const Dictionary> cachedPreset_;
  std::optional<std::string> currentPresetPath_;
  /// Each key's value with the three layers laid over each other, so that a read is one short
  /// search; empty when a layer has changed. Keys and values belong to the layers.
  std::unordered_map<std::string_view, const PropertyListValue*> inForce_;
};

}  // namespace frelta
