#include "settings/SettingsFile.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "SettingsTest.h"

namespace frelta {
namespace {

using testing::IsEmpty;

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
  EXPECT_EQ(readsOf(kSettingsPath), 0u);
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
