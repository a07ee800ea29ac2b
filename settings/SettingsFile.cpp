#include "settings/SettingsFile.h"

#include <string>
#include <utility>

#include "foundation/Platform.h"
#include "foundation/PropertyListFiles.h"
#include "settings/SettingsKeys.h"

namespace frelta {

Dictionary settingsOnDisk() {
  return dictionaryWithContentsOfFile(kSettingsPath).value_or(Dictionary{});
}

void writeSettings(const Dictionary& settings) {
  // A device has the folder; a new device root may not, and the first setting must not get lost.
  Platform::current().fileManager->createDirectoryAtPath(kPreferencesFolder);
  writePropertyListToFile(settings, kSettingsPath);
}

void writeSetting(std::string_view key, PropertyListValue value) {
  Dictionary settings = settingsOnDisk();
  settings.insert_or_assign(std::string(key), std::move(value));
  writeSettings(settings);
}

}  // namespace frelta
