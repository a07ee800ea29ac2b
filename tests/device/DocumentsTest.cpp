#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "device/Notifications.h"
#include "device/Paths.h"
#include "device/SettingsKeys.h"
#include "device/StyleKinds.h"

namespace frelta {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

std::vector<std::string> linesOf(const std::string& document) {
  std::ifstream file(std::string(FRELTA_SOURCE "/docs/") + document);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

std::string wordFor(SettingKind kind) {
  switch (kind) {
    case SettingKind::Switch:
      return "switch";
    case SettingKind::Integer:
      return "integer";
    case SettingKind::Path:
      return "path";
    case SettingKind::PathList:
      return "array of paths";
    case SettingKind::Colour:
      return "colour";
  }
  return {};
}

std::string defaultOf(const SettingKey& key) {
  if (!key.defaultValue) return {};
  if (const auto* path = key.defaultValue->string()) return " `" + *path + "` |";
  return " " + std::to_string(key.defaultValue->intValue()) + " |";
}

TEST(FilesAndSignals, GivesEveryKeyARowWithItsKindAndDefault) {
  const auto lines = linesOf("files-and-signals.md");

  for (const SettingKey& key : settingKeys()) {
    const std::string row =
        "| `" + std::string(key.name) + "` | " + wordFor(key.kind) + " |" + defaultOf(key);
    EXPECT_THAT(lines, Contains(StartsWith(row)));
  }
}

TEST(FilesAndSignals, NamesTheFilesTheBroadcastAndTheKindsOfStyles) {
  const auto lines = linesOf("files-and-signals.md");

  for (const std::string_view fact :
       {kSettingsPath, kPresetsFolder, kThemesFolder, kBackgroundImagePath, kPlaceholderPath,
        kPackageIdentifier, kRefreshNotification})
    EXPECT_THAT(lines, Contains(HasSubstr(std::string(fact)))) << fact;
  for (const StyleKind& kind : styleKinds()) {
    EXPECT_THAT(lines, Contains(HasSubstr("`" + std::string(kind.enabledPathKey) + "`")));
    const std::string mark(kind.folder.empty() ? kind.suffix : kind.folder);
    EXPECT_THAT(lines, Contains(HasSubstr("`" + mark + "`")));
  }
}

}  // namespace
}  // namespace frelta
