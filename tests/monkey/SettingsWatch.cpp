#include "tests/monkey/SettingsWatch.h"

#include "device/SettingsKeys.h"

namespace frelta {

namespace {

const std::string kKey = "SomebodyElses";
const PropertyListValue kValue(Array{1, "two"});
const std::string kPath(kSettingsPath);

}  // namespace

std::optional<Dictionary> SettingsWatch::read(const std::string& path) const {
  const auto value =
      house_.window.services.propertyLists->propertyListWithData(house_.window.platform.get(path));
  if (!value || !value->dictionary()) return std::nullopt;
  return *value->dictionary();
}

void SettingsWatch::plant() {
  Dictionary now = read(kPath).value_or(Dictionary());
  now[kKey] = kValue;
  writePropertyListToFile(now, kPath);
  last_ = house_.window.platform.get(kPath);
}

std::string SettingsWatch::look(bool canCopy) {
  const std::string now = house_.window.platform.get(kPath);
  if (now == last_) return {};
  last_ = now;
  if (now.empty()) return "the settings file is gone or empty";
  const auto settings = read(kPath);
  if (!settings) return "the settings file cannot be read";
  const auto found = settings->find(kKey);
  if (found != settings->end())
    return found->second == kValue ? "" : "somebody else's key has changed";
  const auto backup = read(kPath + ".bak");
  plant();
  if (!settings->contains(std::string(keys::kCurrentPreset))) return "somebody else's key is lost";
  const bool isKept = backup && backup->contains(kKey);
  return isKept || !canCopy ? "" : "a preset is applied, and the old settings are lost";
}

}  // namespace frelta
