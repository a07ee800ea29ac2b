#include "settings/SettingsFile.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "SettingsTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const std::string kUnreadablePath = std::string(kSettingsPath) + ".unreadable";

class SettingsFile : public SettingsTest {};

TEST_F(SettingsFile, FirstWriteCreatesTheFileAndItsFolder) {
  ASSERT_FALSE(std::filesystem::exists(platform.hostPath(kPreferencesFolder)));

  writeSetting("HideKeyCaps", 0);

  EXPECT_EQ(settingsFile(), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_EQ(writes(), 1u);
}

TEST_F(SettingsFile, DefaultsAreNeverStored) {
  writeSetting("BackgroundMode", 2);
  writeSetting("HideKeyPlane", 1);

  EXPECT_EQ(settingsFile(), (Dictionary{{"BackgroundMode", 2}, {"HideKeyPlane", 1}}));
}

TEST_F(SettingsFile, WritingOneKeyReadsTheFileOnceAndWritesItOnce) {
  putSettings({{"Enabled", 1}});

  writeSetting("Enabled", 0);

  EXPECT_EQ(readsOf(kSettingsPath), 1u);
  EXPECT_EQ(platform.files.count(Operation::Write, kSettingsPath), 1u);
  EXPECT_EQ(writes(), 1u);
}

TEST_F(SettingsFile, WritingKeepsEveryOtherEntryDatesAndDataIncluded) {
  const Dictionary foreign{
      {"Installed", Date{694224000}},
      {"Token", Data{std::string("\0\xff\x01", 3)}},
      {"Nested", Dictionary{{"List", Array{1, "two", 3.5, true}}}},
      {"Large", std::uint64_t{18446744073709551615u}},
      {"Zero", -0.0},
  };
  putSettings(foreign);

  writeSetting("HideKeyCaps", 0);

  Dictionary expected = foreign;
  expected["HideKeyCaps"] = 0;
  EXPECT_EQ(settingsFile(), expected);
}

TEST_F(SettingsFile, WritingStartsFromTheFileNotFromTheManagersCache) {
  putSettings({{"Enabled", 1}});
  FreltaPreferencesManager::getPrefs();
  putSettings({{"Enabled", 1}, {"HideKeyPopups", 1}});

  writeSetting("HideKeyCaps", 0);

  EXPECT_EQ(settingsFile(), (Dictionary{{"Enabled", 1}, {"HideKeyCaps", 0}, {"HideKeyPopups", 1}}));
}

TEST_F(SettingsFile, WritingLeavesTheManagersCacheAsItWas) {
  EXPECT_EQ(pref("HideKeyCaps"), 1);

  writeSetting("HideKeyCaps", 0);

  EXPECT_EQ(pref("HideKeyCaps"), 1);
  FreltaPreferencesManager::clearCache();
  EXPECT_EQ(pref("HideKeyCaps"), 0);
}

TEST_F(SettingsFile, WritingPostsNothing) {
  writeSetting("HideKeyCaps", 0);

  EXPECT_THAT(platform.notifications.posted, IsEmpty());
}

TEST_F(SettingsFile, WritingOverAnUnreadableFileStartsFromNothing) {
  platform.put(kSettingsPath, "not a property list");

  writeSetting("Enabled", 0);

  EXPECT_EQ(settingsFile(), (Dictionary{{"Enabled", 0}}));
}

TEST_F(SettingsFile, LastWriterWinsWhenTheFileIsReplacedBetweenReadAndWrite) {
  putSettings({{"Enabled", 1}});
  platform.files.beforeCall = [this](const FailingFiles::Call& call) {
    if (call.operation == Operation::Write) putSettings({{"HideKeyPopups", 1}});
  };

  writeSetting("HideKeyCaps", 0);

  EXPECT_EQ(settingsFile(), (Dictionary{{"Enabled", 1}, {"HideKeyCaps", 0}}));
}

TEST_F(SettingsFile, FailedWriteLeavesTheOldFileAndSaysNothing) {
  putSettings({{"Enabled", 1}});
  platform.files.fail(Operation::Write);

  EXPECT_NO_THROW(writeSetting("Enabled", 0));

  EXPECT_EQ(settingsFile(), (Dictionary{{"Enabled", 1}}));
  EXPECT_EQ(writes(), 1u);
  EXPECT_THAT(platform.log.lines, IsEmpty());
}

TEST_F(SettingsFile, FailedReadStillWritesTheKey) {
  putSettings({{"Enabled", 1}});
  platform.files.fail(Operation::Read);

  writeSetting("HideKeyCaps", 0);

  EXPECT_EQ(settingsFile(), (Dictionary{{"HideKeyCaps", 0}}));
}

TEST_F(SettingsFile, FolderThatCannotBeMadeLosesTheSettingAndSaysNothing) {
  platform.put("/var/mobile/Library", "a file where the folder should be");

  EXPECT_NO_THROW(writeSetting("Enabled", 0));

  EXPECT_EQ(settingsFile(), std::nullopt);
  EXPECT_EQ(platform.get("/var/mobile/Library"), "a file where the folder should be");
}

TEST_F(SettingsFile, ReadOnlyFolderLeavesTheOldFile) {
  putSettings({{"Enabled", 1}});
  const auto folder = platform.hostPath(kPreferencesFolder);
  std::filesystem::permissions(
      folder, std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
  const bool rootIgnoresPermissions = ::access(folder.c_str(), W_OK) == 0;

  writeSetting("Enabled", 0);

  std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
  EXPECT_EQ(settingsFile(), (Dictionary{{"Enabled", rootIgnoresPermissions ? 0 : 1}}));
}

TEST_F(SettingsFile, LinkOutOfTheRootIsNeitherReadNorWrittenThrough) {
  const std::filesystem::path outside =
      std::filesystem::path(testing::TempDir()) / ("frelta-outside-" + std::to_string(getpid()));
  const auto link = platform.hostPath(kSettingsPath);
  const std::string secret =
      Platform::current().propertyLists->dataWithPropertyList(Dictionary{{"Secret", 1}}).value();
  std::ofstream(outside) << secret;
  std::filesystem::create_directories(link.parent_path());
  std::filesystem::create_symlink(outside, link);

  writeSetting("Enabled", 0);

  std::stringstream after;
  after << std::ifstream(outside).rdbuf();
  std::filesystem::remove(outside);
  EXPECT_EQ(after.str(), secret);
  EXPECT_FALSE(std::filesystem::is_symlink(link));
  EXPECT_EQ(settingsFile(), (Dictionary{{"Enabled", 0}}));
}

TEST_F(SettingsFile, ValueThatNoPropertyListHoldsLeavesTheOldFile) {
  putSettings({{"Enabled", 1}});

  writeSetting("Enabled", Null{});

  EXPECT_EQ(settingsFile(), (Dictionary{{"Enabled", 1}}));
  EXPECT_EQ(writes(), 0u);
}

TEST_F(SettingsFile, OldKeysGoWhenTheWholeFileIsReplaced) {
  putSettings({{"Enabled", 1}, {"HideKeyCaps", 0}});

  writeSettings({{"CurrentPreset", std::string(kPresetA)}});

  EXPECT_EQ(settingsFile(), (Dictionary{{"CurrentPreset", std::string(kPresetA)}}));
  EXPECT_EQ(writes(), 1u);
}

TEST_F(SettingsFile, EveryWriteTellsWhetherItSucceeded) {
  const bool first = writeSetting("Enabled", 1);
  const bool second = writeSettings({{"Enabled", 0}});
  platform.files.fail(Operation::Write);

  EXPECT_TRUE(first);
  EXPECT_TRUE(second);
  EXPECT_FALSE(writeSetting("Enabled", 1));
  EXPECT_FALSE(writeSettings({}));
  EXPECT_FALSE(writeSettingsWithBackup({}, "/var/mobile/Library/Preferences/backup"));
  EXPECT_EQ(settingsFile(), (Dictionary{{"Enabled", 0}}));
}

TEST_F(SettingsFile, AValueThatXMLCannotCarryFreezesNothing) {
  putSettings({{"x", "\x01"}, {"Enabled", 1}});

  writeSetting("Enabled", 0);
  writeSetting("HideKeyCaps", "\uFFFF");

  EXPECT_EQ(settingsFile(), (Dictionary{{"x", "\x01"}, {"Enabled", 0}, {"HideKeyCaps", "\uFFFF"}}));
  EXPECT_THAT(platform.log.lines, IsEmpty());
}

TEST_F(SettingsFile, SettingsThatCannotBeStoredTouchNoFileAndAreLogged) {
  putSettings({{"Enabled", 1}});
  platform.put(kUnreadablePath, "x");
  const std::string before = platform.get(kSettingsPath);
  platform.files.resetCalls();

  const bool isWritten =
      writeSettingsWithBackup({{"CurrentPreset", "caf\xE9.plist"}}, std::string(kPresetA));

  EXPECT_FALSE(isWritten);
  EXPECT_THAT(platform.files.calls(),
              testing::Each(testing::Field(&FailingFiles::Call::operation, Operation::Read)));
  EXPECT_EQ(platform.get(kSettingsPath), before);
  EXPECT_THAT(platform.log.lines,
              ElementsAre("[Frelta] writeSettings has a value that cannot be stored"));
}

TEST_F(SettingsFile, IsBackedUpInPlaceOfAFolderOrAnOlderBackup) {
  const std::string backup = std::string(kSettingsPath) + ".bak";
  for (const std::string& older : {backup, backup + "/file"}) {
    std::filesystem::remove_all(platform.hostPath(backup));
    platform.put(older, "older");
    putSettings({{"Enabled", 1}});
    const std::string before = platform.get(kSettingsPath);

    writeSettingsWithBackup({{"Enabled", 0}}, backup);

    EXPECT_EQ(platform.get(backup), before);
    EXPECT_EQ(settingsFile(), (Dictionary{{"Enabled", 0}}));
  }
}

TEST_F(SettingsFile, ThatIsMissingTakesNothingFromItsBackupsPlace) {
  const std::string backup = std::string(kSettingsPath) + ".bak";
  platform.put(backup + "/file", "older");

  writeSettingsWithBackup({{"Enabled", 0}}, backup);

  EXPECT_EQ(platform.get(backup + "/file"), "older");
  EXPECT_EQ(settingsFile(), (Dictionary{{"Enabled", 0}}));
}

TEST_F(SettingsFile, ThatCannotBeBackedUpIsReplacedAndTheOlderBackupStays) {
  const std::string backup = std::string(kSettingsPath) + ".bak";
  platform.put(backup, "older");
  putSettings({{"Enabled", 1}});
  platform.files.fail(Operation::Copy);

  const bool isWritten = writeSettingsWithBackup({{"Enabled", 0}}, backup);

  EXPECT_TRUE(isWritten);
  EXPECT_EQ(platform.get(backup), "older");
  EXPECT_EQ(settingsFile(), (Dictionary{{"Enabled", 0}}));
}

using UnreadableSettingsFile = SettingsFile;

TEST_F(UnreadableSettingsFile, IsKeptBesideByEveryWriter) {
  const std::vector<std::function<void()>> writers = {
      [] { writeSetting("Enabled", 0); },
      [] {
        writeSettings({{"Enabled", 0}});
      },
      [] {
        writeSettingsWithBackup({{"Enabled", 0}}, std::string(kPresetB));
      },
      [] {
        FreltaPreferencesManager::savePrefs({{"Enabled", 0}});
      }};
  for (const auto& write : writers) {
    platform.log.lines.clear();
    std::filesystem::remove(platform.hostPath(kUnreadablePath));
    platform.put(kSettingsPath, "forty settings, cut sho");

    write();

    EXPECT_EQ(platform.get(kUnreadablePath), "forty settings, cut sho");
    EXPECT_EQ(settingsFile(), (Dictionary{{"Enabled", 0}}));
    EXPECT_THAT(platform.log.lines,
                ElementsAre("[Frelta] writeSettings cannot read the settings file; it is kept as " +
                            kUnreadablePath));
  }
}

TEST_F(UnreadableSettingsFile, OneThatIsNoLongerGivesWayToTheOneThatIsKept) {
  for (const char* later : {"later", "as long"}) {
    platform.log.lines.clear();
    platform.put(kUnreadablePath, "as first");
    platform.put(kSettingsPath, std::string(later) + "!");

    const bool isWritten = writeSetting("Enabled", 0);

    EXPECT_TRUE(isWritten);
    EXPECT_EQ(platform.get(kUnreadablePath), "as first");
    EXPECT_EQ(settingsFile(), (Dictionary{{"Enabled", 0}}));
    EXPECT_THAT(platform.log.lines, SizeIs(1));
  }
}

TEST_F(UnreadableSettingsFile, ALongerOneIsKeptInPlaceOfAShorter) {
  platform.put(kUnreadablePath, "short");
  platform.put(kSettingsPath, "longer");

  writeSetting("Enabled", 0);

  EXPECT_EQ(platform.get(kUnreadablePath), "longer");
}

TEST_F(UnreadableSettingsFile, StaysWhenItCannotBeKept) {
  platform.put(kSettingsPath, "forty settings");
  platform.files.fail(Operation::Copy);

  const bool isWritten = writeSetting("Enabled", 0);

  EXPECT_FALSE(isWritten);
  EXPECT_EQ(platform.get(kSettingsPath), "forty settings");
  EXPECT_EQ(writes(), 0u);
  EXPECT_THAT(
      platform.log.lines,
      ElementsAre("[Frelta] writeSettings cannot read the settings file; it cannot be kept as " +
                  kUnreadablePath + " and is not replaced"));
}

TEST_F(UnreadableSettingsFile, OfASingleByteIsKept) {
  platform.put(kSettingsPath, "x");

  writeSetting("Enabled", 0);

  EXPECT_EQ(platform.get(kUnreadablePath), "x");
  EXPECT_THAT(platform.log.lines, SizeIs(1));
}

TEST_F(UnreadableSettingsFile, WithoutAByteInItHasNothingToKeep) {
  platform.put(kSettingsPath, "");

  writeSetting("Enabled", 0);

  EXPECT_EQ(settingsFile(), (Dictionary{{"Enabled", 0}}));
  EXPECT_FALSE(std::filesystem::exists(platform.hostPath(kUnreadablePath)));
  EXPECT_THAT(platform.log.lines, IsEmpty());
}

TEST_F(SettingsFile, OneThatCanBeReadOrIsMissingIsNotKeptBeside) {
  writeSetting("Enabled", 0);
  writeSetting("Enabled", 1);
  writeSettings({});

  EXPECT_EQ(platform.files.count(Operation::Copy), 0u);
  EXPECT_THAT(platform.log.lines, IsEmpty());
}

TEST_F(SettingsFile, ReadsAsEmptyWhenMissing) {
  EXPECT_THAT(settingsOnDisk(), IsEmpty());
}

TEST_F(SettingsFile, IsReadFromDiskEachTime) {
  putSettings({{"Enabled", 1}});
  settingsOnDisk();
  putSettings({{"Enabled", 0}});

  const Dictionary second = settingsOnDisk();

  EXPECT_EQ(second, (Dictionary{{"Enabled", 0}}));
  EXPECT_EQ(readsOf(kSettingsPath), 2u);
}

}  // namespace
}  // namespace frelta
