#include "settings/SettingsFile.h"

#include <optional>
#include <string>
#include <utility>

#include "device/Paths.h"
#include "foundation/Log.h"
#include "foundation/Platform.h"
#include "foundation/PropertyListFiles.h"

namespace frelta {

namespace {

FileManager& files() {
  return *Platform::current().fileManager;
}

std::optional<Dictionary> readSettings() {
  return dictionaryWithContentsOfFile(kSettingsPath);
}

/// True when the settings file may be replaced.
bool keepUnreadableSettings() {
  const std::string kept = std::string(kSettingsPath) + ".unreadable";
  const auto size = files().fileSizeAtPath(kSettingsPath);
  if (!size || *size == 0) return true;
  // What broke first and was longest is most likely what the user wants back.
  const bool isThere = files().fileSizeAtPath(kept).value_or(0) >= *size;
  const bool isKept = isThere || files().copyItemAtPath(kSettingsPath, kept);
  freltaLog("writeSettings cannot read the settings file; " +
            (isThere  ? "a longer one is kept already as " + kept
             : isKept ? "it is kept as " + kept
                      : "it cannot be kept as " + kept + " and is not replaced"));
  return isKept;
}

void backUpSettings(const std::string& path) {
  if (!files().fileSizeAtPath(kSettingsPath)) return;
  // A copy takes the place of a file, but not of a folder.
  if (files().directoryExistsAtPath(path)) files().removeItemAtPath(path);
  files().copyItemAtPath(kSettingsPath, path);
}

bool replaceSettings(const Dictionary& settings, bool isOldReadable,
                     const std::string* backupPath = nullptr) {
  const auto bytes = Platform::current().propertyLists->dataWithPropertyList(settings);
  if (!bytes) {
    freltaLog("writeSettings has a value that cannot be stored");
    return false;
  }
  // A device has the folder; a new device root may not, and the first setting must not get lost.
  files().createDirectoryAtPath(kPreferencesFolder);
  if (!isOldReadable && !keepUnreadableSettings()) return false;
  if (backupPath) backUpSettings(*backupPath);
  return files().writeAtomically(kSettingsPath, *bytes);
}

}  // namespace

Dictionary settingsOnDisk() {
  return readSettings().value_or(Dictionary{});
}

bool writeSettings(const Dictionary& settings) {
  return replaceSettings(settings, readSettings().has_value());
}

bool replaceReadSettings(const Dictionary& settings) {
  return replaceSettings(settings, true);
}

bool writeSettingsWithBackup(const Dictionary& settings, const std::string& backupPath) {
  return replaceSettings(settings, readSettings().has_value(), &backupPath);
}

bool writeSetting(std::string_view key, PropertyListValue value) {
  std::optional<Dictionary> read = readSettings();
  const bool isReadable = read.has_value();
  Dictionary settings = std::move(read).value_or(Dictionary{});
  settings.insert_or_assign(std::string(key), std::move(value));
  return replaceSettings(settings, isReadable);
}

}  // namespace frelta
