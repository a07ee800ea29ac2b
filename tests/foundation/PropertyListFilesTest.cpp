#include "foundation/PropertyListFiles.h"

#include <gtest/gtest.h>

#include <map>

#include "foundation/Platform.h"
#include "linux/LinuxPropertyListSerialization.h"

namespace frelta {
namespace {

/// Files in memory that can be read and written and count both.
class MemoryFiles : public FileManager {
 public:
  bool fileExistsAtPath(std::string_view path) const override { return files.count(path) != 0; }
  bool directoryExistsAtPath(std::string_view) const override { return false; }
  std::optional<std::vector<std::string>> contentsOfDirectoryAtPath(
      std::string_view) const override {
    return std::nullopt;
  }
  std::optional<std::uint64_t> fileSizeAtPath(std::string_view) const override {
    return std::nullopt;
  }
  std::optional<FileStamp> fileStampAtPath(std::string_view path) const override {
    const auto found = files.find(path);
    if (found == files.end()) return std::nullopt;
    return FileStamp{.size = found->second.size(), .modified = modified};
  }
  std::optional<std::string> contentsAtPath(std::string_view path,
                                            std::uint64_t maximumBytes) const override {
    ++reads;
    largestRead = maximumBytes;
    const auto found = files.find(path);
    if (found == files.end()) return std::nullopt;
    return found->second;
  }
  bool createDirectoryAtPath(std::string_view) override { return false; }
  bool removeItemAtPath(std::string_view) override { return false; }
  bool copyItemAtPath(std::string_view, std::string_view) override { return false; }
  bool writeAtomically(std::string_view path, std::string_view bytes) override {
    ++writes;
    if (diskIsFull) return false;
    files.insert_or_assign(std::string(path), std::string(bytes));
    return true;
  }

  std::map<std::string, std::string, std::less<>> files;
  bool diskIsFull = false;
  std::int64_t modified = 0;
  int writes = 0;
  mutable int reads = 0;
  mutable std::uint64_t largestRead = 0;
};

/// Counts the documents that were judged.
class CountedPropertyLists : public LinuxPropertyListSerialization {
 public:
  std::optional<PropertyListValue> propertyListWithData(std::string_view bytes) const override {
    ++judged;
    return LinuxPropertyListSerialization::propertyListWithData(bytes);
  }

  mutable int judged = 0;
};

class PropertyListFiles : public testing::Test {
 protected:
  PropertyListFiles() {
    Platform platform;
    platform.fileManager = &files;
    platform.propertyLists = &propertyLists;
    Platform::install(platform);
  }
  ~PropertyListFiles() override { Platform::install({}); }

  MemoryFiles files;
  CountedPropertyLists propertyLists;
};

TEST_F(PropertyListFiles, WhatIsWrittenReadsBack) {
  const Dictionary settings{{"HideKeyCaps", 1}, {"since", Date{86400}}, {"blob", Data{"\1\2"}}};

  const bool written = writePropertyListToFile(settings, "/settings.plist");

  EXPECT_TRUE(written);
  EXPECT_EQ(dictionaryWithContentsOfFile("/settings.plist"), settings);
  EXPECT_EQ(files.writes, 1);
  EXPECT_EQ(files.reads, 1);
}

TEST_F(PropertyListFiles, AFileThatCannotBeReadIsJudgedOnceForAllTheRowsOfAPage) {
  files.files["/damaged.plist"] = "<plist><dict><key>of this test</key>";

  for (int row = 0; row < 21; ++row) dictionaryWithContentsOfFile("/damaged.plist");

  EXPECT_EQ(propertyLists.judged, 1);
  EXPECT_EQ(files.reads, 1);
}

TEST_F(PropertyListFiles, AFileThatCouldNotBeReadIsReadAgainOnceItHasChanged) {
  files.files["/changed.plist"] = "<plist><dict><key>another of this test";
  for (int row = 0; row < 3; ++row) dictionaryWithContentsOfFile("/changed.plist");

  files.files["/changed.plist"] = "<plist><dict><key>k</key><true/></dict>";
  files.modified = 1;
  const auto damagedAgain = dictionaryWithContentsOfFile("/changed.plist");
  files.files["/changed.plist"] = "<plist><dict/></plist>";
  files.modified = 2;

  EXPECT_EQ(damagedAgain, std::nullopt);
  EXPECT_EQ(dictionaryWithContentsOfFile("/changed.plist"), Dictionary{});
}

TEST_F(PropertyListFiles, FilesThatCannotBeReadAreJudgedOnceEach) {
  files.files["/one.plist"] = "<plist>one of two";
  files.files["/two.plist"] = "<plist>one of two";

  for (const char* path : {"/one.plist", "/two.plist", "/one.plist", "/two.plist"})
    dictionaryWithContentsOfFile(path);

  EXPECT_EQ(propertyLists.judged, 2);
}

TEST_F(PropertyListFiles, ManyFilesThatCannotBeReadAreNotAllRemembered) {
  for (int i = 0; i < 17; ++i) {
    const std::string path = "/many-" + std::to_string(i) + ".plist";
    files.files[path] = "<plist>";
    dictionaryWithContentsOfFile(path);
  }

  dictionaryWithContentsOfFile("/many-0.plist");

  EXPECT_EQ(propertyLists.judged, 18);
}

TEST_F(PropertyListFiles, AFileThatWasDamagedIsReadOnceItIsWhole) {
  files.files["/settings.plist"] = "<plist><dict>";
  dictionaryWithContentsOfFile("/settings.plist");
  files.files["/settings.plist"] = "<plist><dict/></plist>";

  const auto whole = dictionaryWithContentsOfFile("/settings.plist");

  EXPECT_EQ(whole, Dictionary{});
}

TEST_F(PropertyListFiles, AFileThatIsMissingOrMalformedHasNoDictionary) {
  files.files["/broken.plist"] = "<plist><dict>";
  files.files["/empty.plist"] = "";

  EXPECT_EQ(dictionaryWithContentsOfFile("/broken.plist"), std::nullopt);
  EXPECT_EQ(dictionaryWithContentsOfFile("/empty.plist"), std::nullopt);
  EXPECT_EQ(dictionaryWithContentsOfFile("/missing.plist"), std::nullopt);
}

TEST_F(PropertyListFiles, AnArrayCanBeWrittenButHasNoDictionary) {
  const bool written = writePropertyListToFile(Array{"a"}, "/array.plist");

  EXPECT_TRUE(written);
  EXPECT_EQ(dictionaryWithContentsOfFile("/array.plist"), std::nullopt);
}

TEST_F(PropertyListFiles, AnEmptyDictionaryIsNotAnAbsentOne) {
  ASSERT_TRUE(writePropertyListToFile(Dictionary(), "/empty.plist"));

  EXPECT_EQ(dictionaryWithContentsOfFile("/empty.plist"), Dictionary());
}

TEST_F(PropertyListFiles, AValueThatCannotBeStoredLeavesTheOldFile) {
  ASSERT_TRUE(writePropertyListToFile(Dictionary{{"old", 1}}, "/settings.plist"));

  const bool written = writePropertyListToFile(Dictionary{{"new", Null()}}, "/settings.plist");

  EXPECT_FALSE(written);
  EXPECT_EQ(files.writes, 1);
  EXPECT_EQ(dictionaryWithContentsOfFile("/settings.plist"), (Dictionary{{"old", 1}}));
}

TEST_F(PropertyListFiles, AValueTooLargeToBeReadBackLeavesTheOldFile) {
  ASSERT_TRUE(writePropertyListToFile(Dictionary{{"old", 1}}, "/settings.plist"));
  const std::string large(PropertyListSerialization::kMaximumBytes, 'x');

  const bool written = writePropertyListToFile(Dictionary{{"new", large}}, "/settings.plist");

  EXPECT_FALSE(written);
  EXPECT_EQ(dictionaryWithContentsOfFile("/settings.plist"), (Dictionary{{"old", 1}}));
}

TEST_F(PropertyListFiles, AFailedWriteIsTold) {
  files.diskIsFull = true;

  const bool written = writePropertyListToFile(Dictionary(), "/settings.plist");

  EXPECT_FALSE(written);
}

TEST_F(PropertyListFiles, NoMoreThanTheLargestPropertyListIsEverRead) {
  dictionaryWithContentsOfFile("/settings.plist");

  EXPECT_EQ(files.largestRead, PropertyListSerialization::kMaximumBytes);
}

}  // namespace
}  // namespace frelta
