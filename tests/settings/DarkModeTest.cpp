#include <filesystem>
#include <string>
#include <vector>

#include "SettingsTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;
using enum UserInterfaceStyle;

/// Records when the windows are asked for among the file operations.
class CountedSystem : public SystemInformation {
 public:
  SystemVersion systemVersion() const override { return version; }
  std::vector<Window> windows() const override {
    ++windowQueries;
    return openWindows;
  }
  double screenScale() const override { return 2; }
  SystemVersion version{13, 0, 0};
  std::vector<Window> openWindows{{true, Dark}};
  mutable int windowQueries = 0;
};

/// Preset A is in force and chosen for light, preset B for dark; the one window is dark.
class DarkMode : public SettingsTest {
 protected:
  DarkMode() {
    Platform services = Platform::current();
    services.system = &system;
    Platform::install(services);
    put(kPresetA, {{"HideKeyCaps", 10}});
    put(kPresetB, {{"HideKeyCaps", 20}});
    putSettings(settings);
  }

  static bool update() { return FreltaPreferencesManager::updateForDarkMode(); }

  Dictionary settings{{"SwitchPresetsWithDarkMode", 1},
                      {"CurrentPreset", std::string(kPresetA)},
                      {"FreltaPresetsLightMode", std::string(kPresetA)},
                      {"FreltaPresetsDarkMode", std::string(kPresetB)}};
  CountedSystem system;
};

TEST_F(DarkMode, PutsTheDarkPresetInForce) {
  const bool changed = update();

  EXPECT_TRUE(changed);
  EXPECT_EQ(manager.currentPresetPath(), kPresetB);
  EXPECT_EQ(pref("HideKeyCaps"), 20);
  EXPECT_TRUE(manager.lastWindowWasDark());
}

TEST_F(DarkMode, GoesBackToTheLightPreset) {
  update();
  system.openWindows = {{true, Light}};

  const bool changed = update();

  EXPECT_TRUE(changed);
  EXPECT_EQ(manager.currentPresetPath(), kPresetA);
  EXPECT_EQ(pref("HideKeyCaps"), 10);
  EXPECT_FALSE(manager.lastWindowWasDark());
}

TEST_F(DarkMode, ChangesMemoryOnly) {
  update();

  EXPECT_EQ(settingsFile(), settings);
  EXPECT_EQ(writes(), 0u);
  EXPECT_THAT(platform.notifications.posted, IsEmpty());
  EXPECT_EQ(pref("CurrentPreset"), std::string(kPresetA));
}

TEST_F(DarkMode, LastsUntilTheSettingsAreLoadedAgain) {
  update();

  FreltaPreferencesManager::clearCache();

  EXPECT_EQ(pref("HideKeyCaps"), 10);
  EXPECT_EQ(manager.currentPresetPath(), kPresetA);
}

TEST_F(DarkMode, SystemOlderThanThirteenReadsNothing) {
  for (const SystemVersion old : {SystemVersion{12, 99, 99}, SystemVersion{0, 0, 0}}) {
    system.version = old;
    platform.files.resetCalls();

    const bool changed = update();

    EXPECT_FALSE(changed);
    EXPECT_THAT(platform.files.calls(), IsEmpty());
    EXPECT_EQ(system.windowQueries, 0);
  }
}

TEST_F(DarkMode, LaterSystemsSwitchToo) {
  system.version = {16, 0, 0};

  EXPECT_TRUE(update());
}

TEST_F(DarkMode, DoesNotLookAtTheWindowsWhileSwitchedOff) {
  for (const PropertyListValue& off : {PropertyListValue(0), PropertyListValue("no"),
                                       PropertyListValue(Array{1}), PropertyListValue(Date{1})}) {
    settings["SwitchPresetsWithDarkMode"] = off;
    putSettings(settings);
    FreltaPreferencesManager::clearCache();

    const bool changed = update();

    EXPECT_FALSE(changed);
    EXPECT_FALSE(manager.lastWindowWasDark());
    EXPECT_EQ(system.windowQueries, 0);
    EXPECT_EQ(manager.currentPresetPath(), kPresetA);
  }
}

TEST_F(DarkMode, IsOffByDefault) {
  settings.erase("SwitchPresetsWithDarkMode");
  putSettings(settings);

  EXPECT_FALSE(update());
}

TEST_F(DarkMode, AnyNumberButZeroSwitchesItOn) {
  settings["SwitchPresetsWithDarkMode"] = -3;
  putSettings(settings);

  EXPECT_TRUE(update());
}

TEST_F(DarkMode, NoKeyWindowChangesNothing) {
  manager.setLastWindowWasDark(true);
  for (const auto& windows :
       {std::vector<SystemInformation::Window>{}, {{false, Light}, {false, Light}}}) {
    system.openWindows = windows;

    const bool changed = update();

    EXPECT_FALSE(changed);
    EXPECT_TRUE(manager.lastWindowWasDark());
    EXPECT_EQ(manager.currentPresetPath(), kPresetA);
  }
}

TEST_F(DarkMode, FirstKeyWindowInTheirOrderDecides) {
  system.openWindows = {{false, Light}, {true, Dark}, {true, Light}};

  const bool changed = update();

  EXPECT_TRUE(changed);
  EXPECT_EQ(manager.currentPresetPath(), kPresetB);
}

TEST_F(DarkMode, UnspecifiedStyleCountsAsLight) {
  manager.setLastWindowWasDark(true);
  system.openWindows = {{true, Unspecified}};

  const bool changed = update();

  EXPECT_FALSE(changed);
  EXPECT_FALSE(manager.lastWindowWasDark());
}

TEST_F(DarkMode, PresetAlreadyInForceIsNotReadAgain) {
  update();
  manager.setLastWindowWasDark(false);
  const auto preset = manager.cachedPreset();
  platform.files.resetCalls();

  const bool changed = update();

  EXPECT_FALSE(changed);
  EXPECT_TRUE(manager.lastWindowWasDark());
  EXPECT_EQ(manager.cachedPreset(), preset);
  EXPECT_THAT(platform.files.calls(), IsEmpty());
}

TEST_F(DarkMode, NoDarkPresetChosenKeepsTheCurrentOne) {
  settings.erase("FreltaPresetsDarkMode");
  putSettings(settings);

  const bool changed = update();

  EXPECT_FALSE(changed);
  EXPECT_TRUE(manager.lastWindowWasDark());
  EXPECT_EQ(manager.currentPresetPath(), kPresetA);
  EXPECT_EQ(pref("HideKeyCaps"), 10);
}

TEST_F(DarkMode, NoPresetChosenAndNoneInForceChangesNothing) {
  putSettings({{"SwitchPresetsWithDarkMode", 1}});

  const bool changed = update();

  EXPECT_FALSE(changed);
  EXPECT_EQ(manager.currentPresetPath(), std::nullopt);
}

TEST_F(DarkMode, SwitchesWhenNoPresetWasInForce) {
  settings.erase("CurrentPreset");
  putSettings(settings);

  const bool changed = update();

  EXPECT_TRUE(changed);
  EXPECT_EQ(pref("HideKeyCaps"), 20);
}

TEST_F(DarkMode, PresetChosenThatIsMissingLeavesNoPresetInForce) {
  std::filesystem::remove(platform.hostPath(kPresetB));

  const bool changed = update();

  EXPECT_TRUE(changed);
  EXPECT_EQ(manager.currentPresetPath(), kPresetB);
  EXPECT_THAT(manager.cachedPreset(), IsNull());
  EXPECT_EQ(pref("HideKeyCaps"), 1);
}

TEST_F(DarkMode, PresetChosenThatIsUnreadableLeavesNoPresetInForce) {
  platform.put(kPresetB, "bplist00 but not really");

  const bool changed = update();

  EXPECT_TRUE(changed);
  EXPECT_THAT(manager.cachedPreset(), IsNull());
}

TEST_F(DarkMode, PresetChosenAsSomethingElseThanAStringCountsAsNotChosen) {
  for (const PropertyListValue& wrong :
       {PropertyListValue(1), PropertyListValue(Data{"/x"}), PropertyListValue(Dictionary{})}) {
    settings["FreltaPresetsDarkMode"] = wrong;
    putSettings(settings);
    FreltaPreferencesManager::clearCache();

    const bool changed = update();

    EXPECT_FALSE(changed);
    EXPECT_EQ(manager.currentPresetPath(), kPresetA);
  }
}

TEST_F(DarkMode, ReadsTheSettingsOnceAndEachPresetOnce) {
  update();

  EXPECT_EQ(readsOf(kSettingsPath), 1u);
  EXPECT_EQ(readsOf(kPresetA), 1u);
  EXPECT_EQ(readsOf(kPresetB), 1u);
}

TEST_F(DarkMode, ReadsTheChosenPathsBeforeItLooksForTheWindow) {
  system.openWindows = {};

  const bool changed = update();

  EXPECT_FALSE(changed);
  EXPECT_THAT(manager.cachedPrefs(), NotNull());
  EXPECT_EQ(system.windowQueries, 1);
}

}  // namespace
}  // namespace frelta
