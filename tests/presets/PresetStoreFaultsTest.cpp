#include "presets/PresetStore.h"
#include "tests/presets/PresetsTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using PresetStoreFaults = PresetsTest;

TEST_F(PresetStoreFaults, AFolderThatCannotBeListedIsEmpty) {
  putPreset("A", {});
  platform.files.fail(Operation::Contents);

  EXPECT_THAT(presetPaths(), IsEmpty());
}

TEST_F(PresetStoreFaults, AFolderThatCannotBeMadeIsEmpty) {
  std::filesystem::remove_all(platform.hostPath(kFolder));
  platform.files.fail(Operation::CreateDirectory);

  EXPECT_THAT(presetPaths(), IsEmpty());
}

TEST_F(PresetStoreFaults, AFileInPlaceOfTheFolderStaysAndHoldsNothing) {
  std::filesystem::remove_all(platform.hostPath(kFolder));
  platform.put(kPresetsFolder, "a file");
  putSettings({{"HideKeyCaps", 0}});
  FreltaPresets& shown = show();

  shown.savePresetWithName("A");

  EXPECT_THAT(shown.presetsArray(), IsEmpty());
  EXPECT_EQ(platform.get(kPresetsFolder), "a file");
  EXPECT_EQ(settingsFile(), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_EQ(alert(), nullptr);
}

TEST_F(PresetStoreFaults, AWriteThatFailsLeavesThePresetThatWasThereAndAppliesNothing) {
  putPreset("A", {{"Old", 1}});
  putSettings({{"HideKeyCaps", 0}});
  FreltaPresets& shown = show();
  platform.files.fail(Operation::Write);

  shown.savePresetWithName("A");

  EXPECT_EQ(presetFile("A"), (Dictionary{{"Old", 1}}));
  EXPECT_THAT(shown.presetsArray(), ElementsAre(kPresetA));
  EXPECT_EQ(settingsFile(), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_THAT(platform.notifications.posted, IsEmpty());
  EXPECT_EQ(alert(), nullptr);
}

TEST_F(PresetStoreFaults, ApplyingGoesOnWhenTheBackupCannotBeMade) {
  putPreset("A", {});
  platform.put(kBackupPath, "an older one");
  putSettings({{"HideKeyCaps", 0}, {"SwitchPresetsWithDarkMode", 1}});
  platform.files.fail(Operation::Copy);

  applyPreset(kPresetA);

  EXPECT_EQ(settingsFile(),
            (Dictionary{{"CurrentPreset", kPresetA}, {"SwitchPresetsWithDarkMode", 1}}));
  EXPECT_EQ(platform.get(kBackupPath), "an older one");
  EXPECT_THAT(platform.notifications.posted, ElementsAre(kRefresh));
}

TEST_F(PresetStoreFaults, APresetThatCannotBeRemovedIsStillListed) {
  putPreset("A", {});
  FreltaPresets& shown = show();
  platform.files.fail(Operation::Remove);

  removePreset(kPresetA);
  shown.loadPresets();

  EXPECT_THAT(shown.presetsArray(), ElementsAre(kPresetA));
}

TEST_F(PresetStoreFaults, APresetThatVanishesBetweenListAndTapIsNotApplied) {
  putPreset("A", {});
  putSettings({{"HideKeyCaps", 0}});
  show();
  tapRow(0);
  std::filesystem::remove(platform.hostPath(kPresetA));

  press("Confirm");

  EXPECT_EQ(settingsFile(), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_THAT(platform.notifications.posted, IsEmpty());
  EXPECT_THAT(screen->presetsArray(), IsEmpty());
}

}  // namespace
}  // namespace frelta
