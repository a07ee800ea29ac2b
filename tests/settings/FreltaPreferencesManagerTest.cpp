#include "settings/FreltaPreferencesManager.h"

#include <mutex>
#include <set>
#include <thread>
#include <vector>

#include "SettingsTest.h"

namespace frelta {
namespace {

using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;
using testing::Pointee;

class PreferencesManager : public SettingsTest {};

TEST_F(PreferencesManager, IsOneObjectForAllThreads) {
  std::set<FreltaPreferencesManager*> seen;
  std::mutex lock;
  std::vector<std::thread> threads;

  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([&] {
      auto* instance = &FreltaPreferencesManager::sharedInstance();
      const std::lock_guard guard(lock);
      seen.insert(instance);
    });
  }
  for (auto& thread : threads) thread.join();

  EXPECT_EQ(seen.size(), 1u);
}

TEST_F(PreferencesManager, VersionIsTwo) {
  EXPECT_EQ(FreltaPreferencesManager::kCurrentVersion(), 2);
}

TEST_F(PreferencesManager, DefaultsAreTheTwentyOneKeysThatHaveOne) {
  const Dictionary defaults = FreltaPreferencesManager::defaultPrefs();

  EXPECT_EQ(defaults.size(), 21u);
  for (const SettingKey& key : settingKeys()) {
    const PropertyListValue* value = valueForKey(defaults, key.name);
    EXPECT_EQ(value ? std::optional(*value) : std::nullopt, key.defaultValue) << key.name;
  }
}

TEST_F(PreferencesManager, DefaultsAreBuiltAfreshOnEveryCall) {
  Dictionary first = FreltaPreferencesManager::defaultPrefs();
  first["Enabled"] = 0;

  const Dictionary second = FreltaPreferencesManager::defaultPrefs();

  EXPECT_THAT(valueForKey(second, "Enabled"), Pointee(PropertyListValue(1)));
  EXPECT_EQ(pref("Enabled"), 1);
}

TEST_F(PreferencesManager, FreshSystemReadsTheDefaults) {
  EXPECT_EQ(pref("Enabled"), 1);
  EXPECT_EQ(pref("HideKeyCaps"), 1);
  EXPECT_EQ(pref("EnabledThemePath"), "/Library/Frelta/Themes/Example Images.theme");
}

TEST_F(PreferencesManager, KeysWithoutADefaultReadAsAbsentOnAFreshSystem) {
  for (const char* key : {"EnabledWidgetPath", "CurrentPreset", "CustomTextColour",
                          "CustomBackgroundColour", "CustomKeyCapColour", "NoSuchKey", ""}) {
    EXPECT_EQ(pref(key), std::nullopt) << key;
  }
}

TEST_F(PreferencesManager, MissingFileIsAnEmptyDictionaryThatIsKept) {
  const auto first = FreltaPreferencesManager::getPrefs();
  putSettings({{"Enabled", 0}});
  const auto second = FreltaPreferencesManager::getPrefs();

  ASSERT_THAT(first, NotNull());
  EXPECT_THAT(*first, IsEmpty());
  EXPECT_EQ(first, second);
  EXPECT_EQ(readsOf(kSettingsPath), 0u);
}

TEST_F(PreferencesManager, MissingFileLeavesTheCurrentPresetPath) {
  manager.setCurrentPresetPath(std::string(kPresetA));
  manager.setCachedPreset(std::make_shared<const Dictionary>());

  FreltaPreferencesManager::getPrefs();

  EXPECT_EQ(manager.currentPresetPath(), kPresetA);
  EXPECT_THAT(manager.cachedPreset(), IsNull());
}

TEST_F(PreferencesManager, PresenceNotTruthDecides) {
  putSettings({{"Enabled", 0}, {"EnabledThemePath", ""}, {"HideKeyCaps", false}});

  EXPECT_EQ(pref("Enabled"), 0);
  EXPECT_EQ(pref("EnabledThemePath"), "");
  EXPECT_EQ(pref("HideKeyCaps"), false);
}

TEST_F(PreferencesManager, PageOfRowsReadsTheSettingsFileOnce) {
  putSettings({{"Enabled", 1}, {"CurrentPreset", std::string(kPresetA)}});
  put(kPresetA, {{"HideKeyCaps", 0}});

  for (const SettingKey& key : settingKeys()) pref(key.name);

  EXPECT_EQ(readsOf(kSettingsPath), 1u);
  EXPECT_EQ(readsOf(kPresetA), 1u);
  EXPECT_EQ(platform.files.count(Operation::FileExists, kSettingsPath), 1u);
  EXPECT_EQ(platform.files.count(Operation::FileExists, kPresetA), 1u);
  EXPECT_EQ(platform.files.calls().size(), 4u);
}

TEST_F(PreferencesManager, ChangesByOthersAreSeenOnlyAfterClearCache) {
  putSettings({{"BackgroundMode", 1}});
  EXPECT_EQ(pref("BackgroundMode"), 1);

  putSettings({{"BackgroundMode", 3}});

  EXPECT_EQ(pref("BackgroundMode"), 1);
  FreltaPreferencesManager::clearCache();
  EXPECT_EQ(pref("BackgroundMode"), 3);
}

TEST_F(PreferencesManager, SettingsWinOverThePresetAndThePresetOverTheDefaults) {
  putSettings({{"CurrentPreset", std::string(kPresetA)}, {"HideKeyCaps", 5}});
  put(kPresetA, {{"HideKeyCaps", 6}, {"HideKeyShadows", 7}});

  EXPECT_EQ(pref("HideKeyCaps"), 5);
  EXPECT_EQ(pref("HideKeyShadows"), 7);
  EXPECT_EQ(pref("HideLanguageIndicator"), 1);
}

TEST_F(PreferencesManager, PresetsValueIsPresentWhenItIsZeroOrEmpty) {
  putSettings({{"CurrentPreset", std::string(kPresetA)}});
  put(kPresetA, {{"Enabled", 0}, {"EnabledThemePath", ""}, {"CustomTextColour", "red"}});

  EXPECT_EQ(pref("Enabled"), 0);
  EXPECT_EQ(pref("EnabledThemePath"), "");
  EXPECT_EQ(pref("CustomTextColour"), "red");
}

TEST_F(PreferencesManager, MissingPresetFileIsStillTheCurrentPath) {
  putSettings({{"CurrentPreset", std::string(kPresetA)}});

  FreltaPreferencesManager::getPrefs();

  EXPECT_EQ(manager.currentPresetPath(), kPresetA);
  EXPECT_THAT(manager.cachedPreset(), IsNull());
  EXPECT_EQ(readsOf(kPresetA), 0u);
}

TEST_F(PreferencesManager, UnreadablePresetFileIsStillTheCurrentPath) {
  putSettings({{"CurrentPreset", std::string(kPresetA)}});
  platform.put(kPresetA, "<plist");

  FreltaPreferencesManager::getPrefs();

  EXPECT_EQ(manager.currentPresetPath(), kPresetA);
  EXPECT_THAT(manager.cachedPreset(), IsNull());
  EXPECT_EQ(pref("HideKeyCaps"), 1);
}

TEST_F(PreferencesManager, EmptyCurrentPresetIsAPathOfNoFile) {
  putSettings({{"CurrentPreset", ""}});

  FreltaPreferencesManager::getPrefs();

  EXPECT_EQ(manager.currentPresetPath(), "");
  EXPECT_THAT(manager.cachedPreset(), IsNull());
}

TEST_F(PreferencesManager, SettingsWithoutCurrentPresetKeepThePathOfBefore) {
  manager.setCurrentPresetPath(std::string(kPresetA));
  putSettings({{"Enabled", 1}});

  FreltaPreferencesManager::getPrefs();

  EXPECT_EQ(manager.currentPresetPath(), kPresetA);
  EXPECT_THAT(manager.cachedPreset(), IsNull());
}

TEST_F(PreferencesManager, LoadingDropsThePresetThatWasInForce) {
  manager.setCachedPreset(std::make_shared<const Dictionary>(Dictionary{{"HideKeyCaps", 9}}));
  putSettings({{"Enabled", 1}});

  const auto value = pref("HideKeyCaps");

  EXPECT_EQ(value, 1);
}

TEST_F(PreferencesManager, PresetSetByHandIsReadAtOnce) {
  EXPECT_EQ(pref("HideKeyCaps"), 1);

  manager.setCachedPreset(std::make_shared<const Dictionary>(Dictionary{{"HideKeyCaps", 9}}));

  EXPECT_EQ(pref("HideKeyCaps"), 9);
}

TEST_F(PreferencesManager, SettingsSetByHandAreReadAtOnce) {
  EXPECT_EQ(pref("HideKeyCaps"), 1);

  manager.setCachedPrefs(std::make_shared<const Dictionary>(Dictionary{{"HideKeyCaps", 9}}));

  EXPECT_EQ(pref("HideKeyCaps"), 9);
}

TEST_F(PreferencesManager, ClearCacheForgetsBothDictionariesAndKeepsThePath) {
  putSettings({{"CurrentPreset", std::string(kPresetA)}});
  put(kPresetA, {{"HideKeyCaps", 0}});
  FreltaPreferencesManager::getPrefs();
  ASSERT_THAT(manager.cachedPreset(), NotNull());

  FreltaPreferencesManager::clearCache();

  EXPECT_THAT(manager.cachedPrefs(), IsNull());
  EXPECT_THAT(manager.cachedPreset(), IsNull());
  EXPECT_EQ(manager.currentPresetPath(), kPresetA);
}

TEST_F(PreferencesManager, DictionaryHandedOutOutlivesTheCache) {
  putSettings({{"Enabled", 7}});
  const auto prefs = FreltaPreferencesManager::getPrefs();

  FreltaPreferencesManager::clearCache();

  EXPECT_THAT(valueForKey(*prefs, "Enabled"), Pointee(PropertyListValue(7)));
}

TEST_F(PreferencesManager, UnreadableFileIsNullAndNotReadAgainUntilItChanges) {
  platform.put(kSettingsPath, "random bytes");

  const auto prefs = FreltaPreferencesManager::getPrefs();
  const auto value = pref("HideKeyCaps");

  EXPECT_THAT(prefs, IsNull());
  EXPECT_EQ(value, 1);
  EXPECT_EQ(readsOf(kSettingsPath), 1u);
}

TEST_F(PreferencesManager, FileThatBecameReadableIsLoadedByTheNextRead) {
  platform.put(kSettingsPath, "random bytes");
  ASSERT_THAT(FreltaPreferencesManager::getPrefs(), IsNull());

  putSettings({{"HideKeyCaps", 0}});

  EXPECT_EQ(pref("HideKeyCaps"), 0);
}

TEST_F(PreferencesManager, UnreadableFileDropsThePresetAndKeepsItsPath) {
  manager.setCachedPreset(std::make_shared<const Dictionary>());
  manager.setCurrentPresetPath(std::string(kPresetA));
  platform.put(kSettingsPath, "random bytes");

  FreltaPreferencesManager::getPrefs();

  EXPECT_THAT(manager.cachedPreset(), IsNull());
  EXPECT_EQ(manager.currentPresetPath(), kPresetA);
}

TEST_F(PreferencesManager, SavePrefsReplacesTheWholeFileInOneWrite) {
  putSettings({{"Enabled", 1}, {"HideKeyCaps", 0}});

  FreltaPreferencesManager::savePrefs({{"BackgroundMode", 2}});

  EXPECT_EQ(settingsFile(), (Dictionary{{"BackgroundMode", 2}}));
  EXPECT_EQ(platform.files.count(Operation::Write, kSettingsPath), 1u);
  EXPECT_EQ(writes(), 1u);
}

TEST_F(PreferencesManager, SavePrefsLeavesTheCache) {
  putSettings({{"BackgroundMode", 1}});
  EXPECT_EQ(pref("BackgroundMode"), 1);

  FreltaPreferencesManager::savePrefs({{"BackgroundMode", 2}});

  EXPECT_EQ(pref("BackgroundMode"), 1);
}

TEST_F(PreferencesManager, SavePrefsThatFailsIsSilent) {
  putSettings({{"BackgroundMode", 1}});
  platform.files.fail(Operation::Write);

  EXPECT_NO_THROW(FreltaPreferencesManager::savePrefs({{"BackgroundMode", 2}}));

  EXPECT_EQ(settingsFile(), (Dictionary{{"BackgroundMode", 1}}));
  EXPECT_THAT(platform.log.lines, IsEmpty());
}

TEST_F(PreferencesManager, ReadingWritesAndPostsNothing) {
  putSettings({{"Enabled", 1}});

  for (const SettingKey& key : settingKeys()) pref(key.name);

  EXPECT_EQ(writes(), 0u);
  EXPECT_THAT(platform.notifications.posted, IsEmpty());
}

}  // namespace
}  // namespace frelta
