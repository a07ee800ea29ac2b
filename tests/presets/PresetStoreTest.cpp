#include "presets/PresetStore.h"

#include "tests/presets/PresetsTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

using PresetStore = PresetsTest;

TEST_F(PresetStore, MakesItsFolderWithThoseAboveItOnTheFirstListing) {
  std::filesystem::remove_all(platform.hostPath("/Library"));

  const auto paths = presetPaths();

  EXPECT_THAT(paths, IsEmpty());
  EXPECT_TRUE(exists(kFolder));
}

TEST_F(PresetStore, LeavesAFolderThatIsThereAlone) {
  presetPaths();

  EXPECT_EQ(platform.files.count(Operation::CreateDirectory), 0u);
  EXPECT_EQ(platform.files.count(Operation::Contents), 1u);
}

TEST_F(PresetStore, ListsOnlyNamesThatEndWithTheExtensionAsItIsWritten) {
  for (const char* name : {"A.plist", "notes.txt", "x.PLIST", "x.plist.bak", "plist", ".plist"})
    platform.put(kFolder + name, "anything");
  std::filesystem::create_directory(platform.hostPath(kFolder + "folder.plist"));

  EXPECT_THAT(presetPaths(), UnorderedElementsAre(kFolder + "A.plist", kFolder + ".plist",
                                                  kFolder + "folder.plist"));
}

TEST_F(PresetStore, KeepsTheOrderInWhichTheFolderIsListed) {
  for (int i = 0; i < 100; ++i) putPreset(std::to_string(i * 7919 % 1000), {});
  std::vector<std::string> expected;
  const auto names = platform.files.contentsOfDirectoryAtPath(kFolder);
  for (const std::string& name : names.value()) expected.push_back(kFolder + name);

  EXPECT_EQ(presetPaths(), expected);
  EXPECT_FALSE(std::ranges::is_sorted(expected)) << "the order shows nothing";
}

TEST_F(PresetStore, SavingFoldsTheAppliedPresetIntoTheNewOne) {
  putPreset("A", {{"HideKeyCaps", 0}, {"HideKeyPlane", 1}, {"Odd", Array{1, Data{"x"}}}});
  putSettings({{"CurrentPreset", kPresetA}, {"HideKeyCaps", 1}, {"Enabled", 1}});

  savePreset(pathOf("New"));

  EXPECT_EQ(
      presetFile("New"),
      (Dictionary{
          {"HideKeyCaps", 1}, {"HideKeyPlane", 1}, {"Odd", Array{1, Data{"x"}}}, {"Enabled", 1}}));
}

TEST_F(PresetStore, SavingLeavesOutWhatSaysWhichPresetIsInForce) {
  const Dictionary pointers{{"CurrentPreset", kPresetA},
                            {"FreltaPresetsDarkMode", kPresetA},
                            {"FreltaPresetsLightMode", kPresetB},
                            {"SwitchPresetsWithDarkMode", 1},
                            {"HideKeyCaps", 1}};
  putPreset("A", pointers);
  putSettings(pointers);

  savePreset(pathOf("New"));

  EXPECT_EQ(presetFile("New"), (Dictionary{{"HideKeyCaps", 1}}));
}

// The path of what is in force is no setting of the user's: in a preset it would travel to others.
TEST_F(PresetStore, SavingWithAPresetThatCannotBeReadSavesTheSettingsAloneWithoutItsPath) {
  platform.put(kPresetB, "not a property list");
  for (const PropertyListValue& preset :
       {PropertyListValue(kPresetA), PropertyListValue(kPresetB), PropertyListValue(7)}) {
    putSettings({{"CurrentPreset", preset}, {"HideKeyCaps", 0}});

    savePreset(pathOf("New"));

    EXPECT_EQ(presetFile("New"), (Dictionary{{"HideKeyCaps", 0}}));
  }
}

TEST_F(PresetStore, SavingWithoutSettingsThatCanBeReadSavesAPresetWithNoKeys) {
  savePreset(pathOf("First"));
  platform.put(kSettingsPath, "<plist><dict>");
  savePreset(pathOf("Second"));

  EXPECT_EQ(presetFile("First"), Dictionary{});
  EXPECT_EQ(presetFile("Second"), Dictionary{});
}

TEST_F(PresetStore, SavingReplacesAPresetOfThatName) {
  putPreset("A", {{"Old", 1}});
  putSettings({{"HideKeyCaps", 0}});

  savePreset(kPresetA);

  EXPECT_EQ(presetFile("A"), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_EQ(platform.files.count(Operation::Remove), 0u);
  EXPECT_EQ(writes(), 1u);
}

TEST_F(PresetStore, SavingReplacesAFolderOfThatName) {
  platform.put(pathOf("A") + "/file", "x");
  putSettings({{"HideKeyCaps", 0}});

  savePreset(kPresetA);

  EXPECT_EQ(presetFile("A"), (Dictionary{{"HideKeyCaps", 0}}));
}

TEST_F(PresetStore, SavingWritesAPropertyListInXML) {
  putSettings({{"HideKeyCaps", 0}});

  savePreset(kPresetA);

  EXPECT_THAT(platform.get(kPresetA), testing::StartsWith("<?xml"));
}

TEST_F(PresetStore, ApplyingLeavesThePathAndTheChoiceForLightAndDark) {
  putPreset("A", {});
  putSettings({{"CurrentPreset", kPresetB},
               {"FreltaPresetsDarkMode", kPresetA},
               {"FreltaPresetsLightMode", kPresetB},
               {"SwitchPresetsWithDarkMode", 1},
               {"HideKeyCaps", 0},
               {"SomebodyElses", "x"}});

  applyPreset(kPresetA);

  EXPECT_EQ(settingsFile(), (Dictionary{{"CurrentPreset", kPresetA},
                                        {"FreltaPresetsDarkMode", kPresetA},
                                        {"FreltaPresetsLightMode", kPresetB},
                                        {"SwitchPresetsWithDarkMode", 1}}));
}

TEST_F(PresetStore, ApplyingAddsNoChoiceThatWasNotThere) {
  putPreset("A", {});
  putSettings({{"SwitchPresetsWithDarkMode", 0}});

  applyPreset(kPresetA);

  EXPECT_EQ(settingsFile(),
            (Dictionary{{"CurrentPreset", kPresetA}, {"SwitchPresetsWithDarkMode", 0}}));
}

TEST_F(PresetStore, ApplyingLeavesTheSettingsAsTheyWereAsTheOneBackup) {
  putPreset("A", {});
  platform.put(kBackupPath, "an older one");
  putSettings({{"HideKeyCaps", 0}});
  const std::string before = platform.get(kSettingsPath);

  applyPreset(kPresetA);

  EXPECT_EQ(platform.get(kBackupPath), before);
}

TEST_F(PresetStore, ApplyingBacksUpSettingsThatCannotBeReadByteForByte) {
  putPreset("A", {});
  platform.put(kSettingsPath, "no property list");

  applyPreset(kPresetA);

  EXPECT_EQ(platform.get(kBackupPath), "no property list");
  EXPECT_EQ(settingsFile(), (Dictionary{{"CurrentPreset", kPresetA}}));
}

TEST_F(PresetStore, ApplyingWithoutASettingsFileLeavesAnOlderBackup) {
  putPreset("A", {});
  platform.put(kBackupPath, "an older one");

  applyPreset(kPresetA);

  EXPECT_EQ(platform.get(kBackupPath), "an older one");
  EXPECT_EQ(settingsFile(), (Dictionary{{"CurrentPreset", kPresetA}}));
}

TEST_F(PresetStore, ApplyingDropsTheCacheAndTellsOnce) {
  putPreset("A", {{"HideKeyCaps", 0}});
  putSettings({{"HideKeyCaps", 1}});
  pref("HideKeyCaps");

  applyPreset(kPresetA);

  EXPECT_EQ(pref("HideKeyCaps"), PropertyListValue(0));
  EXPECT_THAT(platform.notifications.posted, ElementsAre(kRefresh));
}

TEST_F(PresetStore, ApplyingGoesThroughItsStepsInOrder) {
  putPreset("A", {});
  putSettings({{"HideKeyCaps", 1}});
  platform.put(kBackupPath, "old");
  std::vector<std::pair<Operation, std::string>> changes;
  platform.files.beforeCall = [&](const FailingFiles::Call& call) {
    using enum FailingFiles::Operation;
    if (call.operation == Remove || call.operation == Copy || call.operation == Write)
      changes.emplace_back(call.operation, call.path);
  };

  applyPreset(kPresetA);

  EXPECT_THAT(changes, ElementsAre(std::pair(Operation::Copy, std::string(kSettingsPath)),
                                   std::pair(Operation::Write, std::string(kSettingsPath))));
}

TEST_F(PresetStore, ABackupTakesThePlaceOfAFolder) {
  putPreset("A", {});
  platform.put(kBackupPath + "/file", "x");
  putSettings({{"HideKeyCaps", 0}});
  const std::string before = platform.get(kSettingsPath);

  applyPreset(kPresetA);

  EXPECT_EQ(platform.get(kBackupPath), before);
}

TEST_F(PresetStore, ApplyingTellsWhenTheSettingsAreWrittenAndTheCacheIsDropped) {
  putPreset("A", {{"HideKeyCaps", 0}});
  putSettings({{"HideKeyCaps", 1}});
  pref("HideKeyCaps");
  std::vector<std::optional<PropertyListValue>> seen;
  platform.notifications.whenPosted = [&](std::string_view) {
    seen.push_back(pref("CurrentPreset"));
    seen.push_back(pref("HideKeyCaps"));
  };

  applyPreset(kPresetA);

  EXPECT_THAT(seen, ElementsAre(PropertyListValue(kPresetA), PropertyListValue(0)));
}

TEST_F(PresetStore, ApplyingAPresetThatIsGoneDoesNothing) {
  putSettings({{"HideKeyCaps", 1}});

  applyPreset(kPresetA);

  EXPECT_EQ(settingsFile(), (Dictionary{{"HideKeyCaps", 1}}));
  EXPECT_FALSE(exists(kBackupPath));
  EXPECT_THAT(platform.notifications.posted, IsEmpty());
}

TEST_F(PresetStore, RemovingThePresetInForceLeavesTheSettingsNamingIt) {
  putPreset("A", {{"HideKeyCaps", 0}});
  applyPreset(kPresetA);

  removePreset(kPresetA);

  EXPECT_FALSE(exists(kPresetA));
  EXPECT_EQ(settingsFile(), (Dictionary{{"CurrentPreset", kPresetA}}));
  FreltaPreferencesManager::clearCache();
  EXPECT_EQ(pref("HideKeyCaps"), PropertyListValue(1));
}

}  // namespace
}  // namespace frelta
