#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "SettingsTest.h"
#include "settings/SettingsFile.h"

namespace frelta {
namespace {

using testing::IsNull;
using testing::NotNull;

constexpr std::string_view kWhole =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict><key>HideKeyCaps</key><integer>0</integer></dict></plist>
)";

std::string repeated(std::string_view text, int times) {
  std::string result;
  result.reserve(text.size() * times);
  for (int i = 0; i < times; ++i) result += text;
  return result;
}

std::string randomBytes(std::size_t count) {
  std::mt19937 random(1);
  std::string bytes(count, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

/// The bytes are made only for the test that needs them: some are many.
struct BadFile {
  std::string name;
  std::function<std::string()> bytes;

  friend void PrintTo(const BadFile& file, std::ostream* out) { *out << file.name; }
};

/// Every reader finds such a file unreadable; every writer starts from nothing.
class UnreadableSettings : public SettingsTest, public testing::WithParamInterface<BadFile> {};

TEST_P(UnreadableSettings, ReadAsTheDefaults) {
  platform.put(kSettingsPath, GetParam().bytes());

  const auto value = pref("HideKeyCaps");

  EXPECT_EQ(value, 1);
  EXPECT_EQ(pref("CurrentPreset"), std::nullopt);
  EXPECT_THAT(FreltaPreferencesManager::getPrefs(), IsNull());
  EXPECT_FALSE(FreltaPreferencesManager::updateForDarkMode());
}

TEST_P(UnreadableSettings, AreReplacedByTheNextWriteAndKeptBeside) {
  const std::string bytes = GetParam().bytes();
  platform.put(kSettingsPath, bytes);

  writeSetting("HideKeyCaps", 0);

  EXPECT_EQ(settingsFile(), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_TRUE(platform.get(std::string(kSettingsPath) + ".unreadable") == bytes);
}

TEST_P(UnreadableSettings, LeaveNoPresetWhenTheyAreOne) {
  putSettings({{"CurrentPreset", std::string(kPresetA)}});
  platform.put(kPresetA, GetParam().bytes());

  const auto value = pref("HideKeyCaps");

  EXPECT_EQ(value, 1);
  EXPECT_THAT(manager.cachedPreset(), IsNull());
}

const std::string kOpen = "<plist version=\"1.0\">";

std::vector<BadFile> badFiles() {
  return {
      {"Empty", [] { return ""; }},
      {"Truncated", [] { return std::string(kWhole.substr(0, kWhole.size() - 20)); }},
      {"TrailingText", [] { return std::string(kWhole) + "more"; }},
      {"RandomBytes", [] { return randomBytes(4096); }},
      {"BinaryHeaderOnly", [] { return "bplist00"; }},
      {"BinaryHeaderAndNoise", [] { return "bplist00" + randomBytes(4096); }},
      {"Array", [] { return kOpen + "<array><string>Enabled</string></array></plist>"; }},
      {"String", [] { return kOpen + "<string>Enabled</string></plist>"; }},
      {"TextForm", [] { return "{ HideKeyCaps = 0; }"; }},
      {"FiftyMegabytesOfBlanks", [] { return std::string(50'000'000, ' '); }},
      {"MoreThanTheLimit",
       [] {
         return kOpen + std::string(PropertyListSerialization::kMaximumBytes, ' ') +
                "<dict/></plist>";
       }},
      {"NestedDeep",
       [] {
         return kOpen + repeated("<dict><key>k</key>", 100'000) + "<true/>" +
                repeated("</dict>", 100'000) + "</plist>";
       }},
      {"NestedDeepAndOpen", [] { return kOpen + repeated("<array>", 100'000); }},
      {"EntityDeclarations",
       [] {
         return "<!DOCTYPE plist [<!ENTITY a \"aaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]>" + kOpen +
                "<dict><key>HideKeyCaps</key><string>&b;</string></dict></plist>";
       }},
      {"ExternalEntity",
       [] {
         return "<!DOCTYPE plist [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>" + kOpen +
                "<dict><key>HideKeyCaps</key><string>&a;</string></dict></plist>";
       }},
  };
}

INSTANTIATE_TEST_SUITE_P(Each, UnreadableSettings, testing::ValuesIn(badFiles()),
                         [](const auto& file) { return file.param.name; });

class BadSettings : public SettingsTest {};

TEST_F(BadSettings, FolderInTheFilesPlaceReadsAsTheDefaults) {
  std::filesystem::create_directories(platform.hostPath(kSettingsPath));

  const auto value = pref("HideKeyCaps");

  EXPECT_EQ(value, 1);
  EXPECT_THAT(FreltaPreferencesManager::getPrefs(), IsNull());
}

TEST_F(BadSettings, FiftyMegabytesUnderAForeignKeyAreReadAndKept) {
  const Data large{std::string(36'000'000, 'x')};
  putSettings({{"HideKeyCaps", 0}, {"Foreign", large}});

  writeSetting("Enabled", 0);

  EXPECT_GT(platform.get(kSettingsPath).size(), 48'000'000u);
  EXPECT_EQ(pref("HideKeyCaps"), 0);
  EXPECT_EQ(pref("Foreign"), large);
}

TEST_F(BadSettings, LinkOutOfTheRootReadsAsNoFile) {
  const auto outside = std::filesystem::temp_directory_path() /
                       ("frelta-outside-" + std::to_string(getpid()) + ".plist");
  std::ofstream(outside) << kWhole;
  const auto link = platform.hostPath(kSettingsPath);
  std::filesystem::create_directories(link.parent_path());
  std::filesystem::create_symlink(outside, link);

  const auto value = pref("HideKeyCaps");

  std::filesystem::remove(outside);
  EXPECT_EQ(value, 1);
  EXPECT_THAT(FreltaPreferencesManager::getPrefs(), NotNull());
}

TEST_F(BadSettings, CurrentPresetOutOfTheRootIsNotRead) {
  const auto outside = std::filesystem::temp_directory_path() /
                       ("frelta-preset-" + std::to_string(getpid()) + ".plist");
  std::ofstream(outside) << kWhole;
  const std::string path = repeated("/..", 20) + outside.string();
  putSettings({{"CurrentPreset", path}});

  const auto value = pref("HideKeyCaps");

  std::filesystem::remove(outside);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(manager.currentPresetPath(), path);
}

TEST_F(BadSettings, FailedReadIsTriedAgain) {
  putSettings({{"HideKeyCaps", 0}});
  platform.files.fail(Operation::Read);
  EXPECT_EQ(pref("HideKeyCaps"), 1);

  platform.files.succeed(Operation::Read);

  EXPECT_EQ(pref("HideKeyCaps"), 0);
  EXPECT_EQ(readsOf(kSettingsPath), 2u);
}

TEST_F(BadSettings, FileThatVanishesBeforeItIsReadIsTriedAgain) {
  putSettings({{"HideKeyCaps", 0}});
  platform.files.beforeCall = [this](const FailingFiles::Call& call) {
    if (call.operation == Operation::Read) std::filesystem::remove(platform.hostPath(call.path));
  };
  EXPECT_EQ(pref("HideKeyCaps"), 1);
  EXPECT_THAT(manager.cachedPrefs(), IsNull());

  putSettings({{"HideKeyCaps", 7}});
  platform.files.beforeCall = nullptr;

  EXPECT_EQ(pref("HideKeyCaps"), 7);
}

std::vector<PropertyListValue> wrongValues() {
  return {true,
          -1,
          std::uint64_t{18446744073709551615u},
          2.5,
          "",
          "yes",
          "not/a/path",
          std::string(100'000, 'x'),
          Date{1},
          Data{"bytes"},
          Array{1, "two"},
          Dictionary{{"key", "value"}}};
}

TEST_F(BadSettings, WrongTypedValuesUnderEveryKeyComeBackAsTheyAre) {
  for (const PropertyListValue& wrong : wrongValues()) {
    Dictionary settings;
    for (const SettingKey& key : settingKeys()) settings.emplace(key.name, wrong);
    putSettings(settings);
    FreltaPreferencesManager::clearCache();

    for (const SettingKey& key : settingKeys()) EXPECT_EQ(pref(key.name), wrong) << key.name;
    EXPECT_NO_THROW(FreltaPreferencesManager::updateForDarkMode());
  }
}

TEST_F(BadSettings, CurrentPresetThatIsNoStringEqualsNoPath) {
  for (const PropertyListValue& wrong : wrongValues()) {
    if (wrong.isString()) continue;
    manager.setCurrentPresetPath(std::string(kPresetA));
    putSettings({{"CurrentPreset", wrong}});
    FreltaPreferencesManager::clearCache();

    EXPECT_EQ(pref("CurrentPreset"), wrong);

    EXPECT_EQ(manager.currentPresetPath(), std::nullopt);
    EXPECT_THAT(manager.cachedPreset(), IsNull());
  }
}

TEST_F(BadSettings, WrongTypedValuesOfAPresetComeBackAsTheyAre) {
  for (const PropertyListValue& wrong : wrongValues()) {
    Dictionary preset;
    for (const SettingKey& key : settingKeys()) preset.emplace(key.name, wrong);
    put(kPresetA, preset);
    putSettings({{"CurrentPreset", std::string(kPresetA)}});
    FreltaPreferencesManager::clearCache();

    for (const SettingKey& key : settingKeys()) {
      if (key.name == "CurrentPreset") continue;
      EXPECT_EQ(pref(key.name), wrong) << key.name;
    }
  }
}

}  // namespace
}  // namespace frelta
