#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>

#include "linux/FileDescriptor.h"
#include "linux/LinuxPropertyListSerialization.h"
#include "presets/FreltaPresetsLightMode.h"
#include "presets/PresetStore.h"
#include "settings/SettingsFile.h"
#include "tests/presets/PresetsTest.h"
#include "tests/support/SystemCallStepper.h"

namespace frelta {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;

/// A device with settings, and a backup of older ones.
class NothingIsLost : public PresetsTest {
 protected:
  NothingIsLost() {
    putPreset("A", {{"Old", 1}});
    restore();
  }

  void restore() {
    putSettings(kSettings);
    before = platform.get(kSettingsPath);
    platform.put(kBackupPath, kOlder);
  }

  const Dictionary kSettings{{"HideKeyCaps", 0}, {"SomebodyElses", "x"}};
  const std::string kOlder = "an older one";
  std::string before;
};

TEST_F(NothingIsLost, ByANameThatXMLCannotCarry) {
  for (const std::string name : {"Work\vKeys", "\uFFFF", "\x01\x1F"}) {
    restore();

    show().savePresetWithName(name);

    EXPECT_EQ(presetFile(name), kSettings);
    EXPECT_EQ(settingsFile(), (Dictionary{{"CurrentPreset", pathOf(name)}}));
    EXPECT_EQ(platform.get(kBackupPath), before);
    EXPECT_EQ(pref("HideKeyCaps"), PropertyListValue(0));
    EXPECT_THAT(tickedNames(), ElementsAre(name));
  }
}

TEST_F(NothingIsLost, ByAPresetWhoseNameIsNotUTF8) {
  std::filesystem::remove(platform.hostPath(kPresetA));
  put(pathOf("caf\xE9"), {});
  show();

  tapRow(0);
  press("Confirm");

  EXPECT_EQ(platform.get(kSettingsPath), before);
  EXPECT_EQ(platform.get(kBackupPath), kOlder);
  EXPECT_EQ(platform.files.count(Operation::Copy), 0u);
  EXPECT_EQ(writes(), 0u);
  EXPECT_EQ(pref("HideKeyCaps"), PropertyListValue(0));
}

TEST_F(NothingIsLost, ByChoosingAPresetWhoseNameIsNotUTF8) {
  std::filesystem::remove(platform.hostPath(kPresetA));
  put(pathOf("caf\xE9"), {});
  show<FreltaPresetsLightMode>();

  tapRow(0);

  EXPECT_EQ(platform.get(kSettingsPath), before);
  EXPECT_EQ(writes(), 0u);
  EXPECT_THAT(tickedNames(), IsEmpty());
}

TEST_F(NothingIsLost, WhenEveryChangeFailsFromAnyOneOnWhileAPresetIsApplied) {
  const Dictionary applied{{"CurrentPreset", kPresetA}};
  std::size_t changes = 0;
  for (; settingsFile() != applied && changes < 10; ++changes) {
    restore();
    platform.files.allowChanges(changes);

    applyPreset(kPresetA);

    if (settingsFile() != applied) {
      EXPECT_EQ(platform.get(kSettingsPath), before) << changes;
    }
    EXPECT_THAT(platform.get(kBackupPath), AnyOf(kOlder, before)) << changes;
  }

  EXPECT_EQ(changes, 1u + 3u) << "the folder, the backup and the settings";
  EXPECT_EQ(platform.get(kBackupPath), before);
}

TEST_F(NothingIsLost, WhenEveryChangeFailsFromAnyOneOnWhileAPresetIsSaved) {
  const Dictionary applied{{"CurrentPreset", kPresetA}};
  FreltaPresets& shown = show();
  std::size_t changes = 0;
  for (; settingsFile() != applied && changes < 10; ++changes) {
    restore();
    putPreset("A", {{"Old", 1}});
    platform.files.allowChanges(changes);

    shown.savePresetWithName("A");

    if (settingsFile() != applied) {
      EXPECT_EQ(platform.get(kSettingsPath), before) << changes;
    }
    EXPECT_THAT(presetFile("A"), AnyOf(Eq(Dictionary{{"Old", 1}}), Eq(kSettings))) << changes;
  }

  EXPECT_EQ(changes, 1u + 4u) << "the preset, the folder, the backup and the settings";
}

TEST_F(NothingIsLost, WhenAKillHitsAnySystemCallOfApplying) {
  const Dictionary applied{{"CurrentPreset", kPresetA}};
  int kills = 0, oldFound = 0, newFound = 0;
  bool hasEnded = false;

  for (int stop = 1; !hasEnded; ++stop) {
    restore();
    // Entering a call finds what leaving the one before it has left.
    const auto status = waitStatusOfSteppedChild(
        [] {
          applyPreset(kPresetA);
          return 0;
        },
        [&](pid_t child, int stops) {
          if (stops == 2 * stop - 1) ::kill(child, SIGKILL);
        });
    if (!status) GTEST_SKIP() << "NOT TESTED: this system does not allow ptrace";
    hasEnded = WIFEXITED(*status);
    if (!hasEnded) ++kills;
    const bool isOld = platform.get(kSettingsPath) == before;
    ASSERT_TRUE(isOld || settingsFile() == applied) << "killed at call " << stop;
    ASSERT_THAT(platform.get(kBackupPath), isOld ? AnyOf(kOlder, before) : AnyOf(before, before))
        << "killed at call " << stop;
    (isOld ? oldFound : newFound)++;
  }

  EXPECT_GT(kills, 40);
  EXPECT_GT(oldFound, 20);
  EXPECT_GT(newFound, 1);
}

TEST_F(NothingIsLost, ByALockOfSomebodyElses) {
  const FileDescriptor folder(
      ::open(platform.hostPath(kPreferencesFolder).c_str(), O_RDONLY | O_CLOEXEC));
  ASSERT_EQ(::flock(folder.get(), LOCK_SH), 0);
  platform.put(std::string(kPreferencesFolder) + "/.frelta-writing/file", "x");

  applyPreset(kPresetA);

  EXPECT_EQ(settingsFile(), (Dictionary{{"CurrentPreset", kPresetA}}));
  EXPECT_EQ(platform.get(kBackupPath), before);
}

TEST_F(NothingIsLost, ByApplyingOverSettingsThatCannotBeRead) {
  platform.put(kSettingsPath, "forty settings, cut sho");

  applyPreset(kPresetA);
  applyPreset(kPresetA);

  EXPECT_EQ(platform.get(std::string(kSettingsPath) + ".unreadable"), "forty settings, cut sho");
}

/// Reads as the real one and can store nothing, as when what two files hold is too large for one.
class FullPropertyLists : public LinuxPropertyListSerialization {
 public:
  std::optional<std::string> dataWithPropertyList(const PropertyListValue&) const override {
    return std::nullopt;
  }
};

TEST_F(NothingIsLost, WhenAPresetIsTooLargeToBeSaved) {
  platform.put(pathOf("folder") + "/file", "x");
  FreltaPresets& shown = show();
  FullPropertyLists full;
  Platform changed = Platform::current();
  changed.propertyLists = &full;
  Platform::install(changed);

  shown.savePresetWithName("A");
  shown.savePresetWithName("folder");

  EXPECT_EQ(presetFile("A"), (Dictionary{{"Old", 1}}));
  EXPECT_TRUE(exists(pathOf("folder") + "/file"));
  EXPECT_EQ(platform.get(kSettingsPath), before);
  EXPECT_EQ(writes(), 0u);
}

}  // namespace
}  // namespace frelta
