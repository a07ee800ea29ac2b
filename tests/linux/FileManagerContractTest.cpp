#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <memory>

#include "fake/FailingFiles.h"
#include "tests/linux/DeviceFiles.h"

namespace frelta {
namespace {

using testing::Eq;
using testing::Optional;
using testing::UnorderedElementsAre;

/// A file manager over the root, with what it needs to live.
struct Subject {
  std::unique_ptr<FileManager> inner;
  std::unique_ptr<FileManager> files;
};

struct Implementation {
  std::string name;
  Subject (*make)(const std::filesystem::path& root);
};

const Implementation kKernel{
    "Kernel", [](const std::filesystem::path& root) {
      return Subject{nullptr, std::make_unique<LinuxFileManager>(root, PathLookup::Kernel)};
    }};
const Implementation kByHand{
    "ByHand", [](const std::filesystem::path& root) {
      return Subject{nullptr, std::make_unique<LinuxFileManager>(root, PathLookup::ByHand)};
    }};
const Implementation kFailing{"FailingFiles", [](const std::filesystem::path& root) {
                                auto inner = std::make_unique<LinuxFileManager>(root);
                                auto files = std::make_unique<FailingFiles>(*inner);
                                return Subject{std::move(inner), std::move(files)};
                              }};

class FileManagerContract : public testing::TestWithParam<Implementation> {
 protected:
  DeviceFiles device;
  Subject subject = GetParam().make(device.root());
  FileManager& files = *subject.files;
};

INSTANTIATE_TEST_SUITE_P(All, FileManagerContract, testing::Values(kKernel, kByHand, kFailing),
                         [](const auto& implementation) { return implementation.param.name; });

TEST_P(FileManagerContract, FindsFilesAndFolders) {
  device.put("/a/file", "x");

  EXPECT_TRUE(files.fileExistsAtPath("/a/file"));
  EXPECT_FALSE(files.directoryExistsAtPath("/a/file"));
  EXPECT_TRUE(files.fileExistsAtPath("/a"));
  EXPECT_TRUE(files.directoryExistsAtPath("/a"));
  EXPECT_TRUE(files.directoryExistsAtPath("/a/"));
  EXPECT_TRUE(files.directoryExistsAtPath("/"));
  EXPECT_FALSE(files.fileExistsAtPath("/a/other"));
  EXPECT_FALSE(files.fileExistsAtPath("/a/file/"));
  EXPECT_FALSE(files.fileExistsAtPath("/a/file/."));
  EXPECT_FALSE(files.fileExistsAtPath("/a/file/.."));
}

TEST_P(FileManagerContract, FollowsLinksToFilesAndFolders) {
  device.put("/a/file", "four");
  device.link("/relative", "a/file");
  device.link("/absolute", "/a/file");
  device.link("/folder", "a/");
  device.link("/dangling", "nowhere");

  EXPECT_THAT(files.contentsAtPath("/relative", 10), Optional(Eq("four")));
  EXPECT_THAT(files.contentsAtPath("/absolute", 10), Optional(Eq("four")));
  EXPECT_THAT(files.contentsAtPath("/folder/file", 10), Optional(Eq("four")));
  EXPECT_THAT(files.fileSizeAtPath("/absolute"), Optional(4u));
  EXPECT_TRUE(files.directoryExistsAtPath("/folder"));
  EXPECT_FALSE(files.fileExistsAtPath("/relative/"));
  EXPECT_FALSE(files.fileExistsAtPath("/dangling"));
}

TEST_P(FileManagerContract, UnfitPathsReadAsMissing) {
  device.put("/a", "x");
  const std::vector<std::string> unfit = {"",
                                          "a",
                                          "./a",
                                          std::string("/a\0", 3),
                                          std::string("/\0/a", 4),
                                          "/" + std::string(300, 'n'),
                                          "/a/" + std::string(5000, '/') + "b",
                                          "/" + std::string(100'000, 'x')};

  for (const auto& path : unfit) {
    EXPECT_FALSE(files.fileExistsAtPath(path)) << path;
    EXPECT_FALSE(files.directoryExistsAtPath(path)) << path;
    EXPECT_EQ(files.contentsOfDirectoryAtPath(path), std::nullopt) << path;
    EXPECT_EQ(files.fileSizeAtPath(path), std::nullopt) << path;
    EXPECT_EQ(files.contentsAtPath(path, 10), std::nullopt) << path;
    EXPECT_FALSE(files.createDirectoryAtPath(path)) << path;
    EXPECT_FALSE(files.removeItemAtPath(path)) << path;
    EXPECT_FALSE(files.copyItemAtPath(path, "/copy")) << path;
    EXPECT_FALSE(files.copyItemAtPath("/a", path)) << path;
    EXPECT_FALSE(files.writeAtomically(path, "new")) << path;
  }
  EXPECT_THAT(DeviceFiles::names(device.root()), UnorderedElementsAre("a"));
  EXPECT_EQ(device.get("/a"), "x");
}

TEST_P(FileManagerContract, ListsAFolderWithHiddenNames) {
  device.put("/a/one", "");
  device.put("/a/.two", "");
  device.put("/a/three/four", "");
  device.link("/a/five", "nowhere");

  EXPECT_THAT(files.contentsOfDirectoryAtPath("/a"),
              Optional(UnorderedElementsAre("one", ".two", "three", "five")));
  EXPECT_THAT(files.contentsOfDirectoryAtPath("/a/three/.."), Optional(testing::SizeIs(4)));
  EXPECT_EQ(files.contentsOfDirectoryAtPath("/a/one"), std::nullopt);
  EXPECT_EQ(files.contentsOfDirectoryAtPath("/b"), std::nullopt);
}

TEST_P(FileManagerContract, ListsAnEmptyFolderAsEmptyAgainAndAgain) {
  device.put("/full/one", "");
  std::filesystem::create_directory(device.host("/empty"));

  EXPECT_THAT(files.contentsOfDirectoryAtPath("/empty"), Optional(testing::IsEmpty()));
  EXPECT_THAT(files.contentsOfDirectoryAtPath("/full"), Optional(testing::SizeIs(1)));
  EXPECT_THAT(files.contentsOfDirectoryAtPath("/full"), Optional(testing::SizeIs(1)));
}

TEST_P(FileManagerContract, AStampTellsOneStateOfAFileFromAnother) {
  device.put("/file", "first");
  const auto first = files.fileStampAtPath("/file");
  const auto again = files.fileStampAtPath("/file");
  device.put("/file", "longer");
  const auto longer = files.fileStampAtPath("/file");
  ASSERT_TRUE(files.writeAtomically("/file", "former"));

  EXPECT_TRUE(first);
  EXPECT_EQ(again, first);
  EXPECT_NE(longer, first);
  EXPECT_NE(files.fileStampAtPath("/file"), longer);
  EXPECT_EQ(files.fileStampAtPath("/"), std::nullopt);
  EXPECT_EQ(files.fileStampAtPath("/none"), std::nullopt);
}

TEST_P(FileManagerContract, TellsTheSizeOfRegularFilesOnly) {
  device.put("/file", std::string(12345, 'x'));
  ASSERT_EQ(::mkfifo(device.host("/pipe").c_str(), 0644), 0);

  EXPECT_THAT(files.fileSizeAtPath("/file"), Optional(12345u));
  EXPECT_EQ(files.fileSizeAtPath("/pipe"), std::nullopt);
  EXPECT_EQ(files.fileSizeAtPath("/"), std::nullopt);
  EXPECT_EQ(files.fileSizeAtPath("/none"), std::nullopt);
}

TEST_P(FileManagerContract, ReadsWholeFilesUpToTheMaximum) {
  std::string bytes(200'000, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 31 >> 3);
  device.put("/file", bytes);
  device.put("/empty", "");

  EXPECT_THAT(files.contentsAtPath("/file", bytes.size()), Optional(Eq(bytes)));
  EXPECT_EQ(files.contentsAtPath("/file", bytes.size() - 1), std::nullopt);
  EXPECT_THAT(files.contentsAtPath("/file", UINT64_MAX), Optional(Eq(bytes)));
  EXPECT_THAT(files.contentsAtPath("/empty", 0), Optional(Eq("")));
  EXPECT_EQ(files.contentsAtPath("/", 10), std::nullopt);
}

TEST_P(FileManagerContract, NeverWaitsForAPipe) {
  ASSERT_EQ(::mkfifo(device.host("/pipe").c_str(), 0644), 0);

  EXPECT_EQ(files.contentsAtPath("/pipe", 10), std::nullopt);
  EXPECT_FALSE(files.copyItemAtPath("/pipe", "/copy"));
  EXPECT_FALSE(files.fileExistsAtPath("/copy"));
}

TEST_P(FileManagerContract, MakesAFolderAndThoseAboveIt) {
  EXPECT_TRUE(files.createDirectoryAtPath("/a/b/c/"));
  EXPECT_TRUE(files.createDirectoryAtPath("/a/b/c"));
  EXPECT_TRUE(files.createDirectoryAtPath("//d//e/../f"));
  EXPECT_TRUE(files.createDirectoryAtPath("/"));

  EXPECT_TRUE(std::filesystem::is_directory(device.host("/a/b/c")));
  EXPECT_TRUE(std::filesystem::is_directory(device.host("/d/f")));
}

TEST_P(FileManagerContract, MakesNoFolderWhereAFileStands) {
  device.put("/file", "x");
  device.link("/dangling", "nowhere");

  EXPECT_FALSE(files.createDirectoryAtPath("/file"));
  EXPECT_FALSE(files.createDirectoryAtPath("/file/below"));
  EXPECT_FALSE(files.createDirectoryAtPath("/dangling"));

  EXPECT_THAT(DeviceFiles::names(device.root()), UnorderedElementsAre("file", "dangling"));
  EXPECT_EQ(device.get("/file"), "x");
}

TEST_P(FileManagerContract, RemovesAFileALinkAndAFolderWithAllItHolds) {
  device.put("/keep/file", "x");
  device.put("/file", "x");
  device.link("/link", "keep");
  device.put("/folder/a/b/file", "x");
  device.put("/folder/c/file", "x");
  device.link("/folder/a/link", "../../keep");
  std::filesystem::create_directory(device.host("/folder/empty"));

  EXPECT_TRUE(files.removeItemAtPath("/file"));
  EXPECT_TRUE(files.removeItemAtPath("/link"));
  EXPECT_TRUE(files.removeItemAtPath("/folder/"));

  EXPECT_THAT(DeviceFiles::names(device.root()), UnorderedElementsAre("keep"));
  EXPECT_EQ(device.get("/keep/file"), "x");
}

TEST_P(FileManagerContract, RemovingWhatIsMissingFails) {
  device.put("/file", "x");

  EXPECT_FALSE(files.removeItemAtPath("/none"));
  EXPECT_FALSE(files.removeItemAtPath("/none/below"));
  EXPECT_FALSE(files.removeItemAtPath("/file/below"));
  EXPECT_FALSE(files.removeItemAtPath("/"));
  EXPECT_FALSE(files.removeItemAtPath("/file/.."));

  EXPECT_EQ(device.get("/file"), "x");
}

TEST_P(FileManagerContract, CopiesAFileWithItsPermissions) {
  const std::string bytes(300'000, 'c');
  device.put("/a/file", bytes);
  ASSERT_EQ(::chmod(device.host("/a/file").c_str(), 0666), 0);
  device.link("/link", "a/file");

  EXPECT_TRUE(files.copyItemAtPath("/a/file", "/copy"));
  EXPECT_TRUE(files.copyItemAtPath("/link", "/a/copy"));

  EXPECT_EQ(device.get("/copy"), bytes);
  EXPECT_EQ(device.get("/a/copy"), bytes);
  EXPECT_FALSE(std::filesystem::is_symlink(device.host("/a/copy")));
  EXPECT_EQ(std::filesystem::status(device.host("/copy")).permissions(),
            std::filesystem::perms(0666));
}

TEST_P(FileManagerContract, ACopyTakesThePlaceOfAFileOrLink) {
  device.put("/from", "new");
  device.put("/file", "old");
  device.put("/target", "old");
  device.link("/link", "target");
  device.link("/dangling", "nowhere");

  for (const char* path : {"/file", "/link", "/dangling"})
    EXPECT_TRUE(files.copyItemAtPath("/from", path)) << path;

  for (const char* path : {"/file", "/link", "/dangling"}) {
    EXPECT_EQ(device.get(path), "new") << path;
    EXPECT_FALSE(std::filesystem::is_symlink(device.host(path))) << path;
  }
  EXPECT_EQ(device.get("/target"), "old");
  EXPECT_EQ(device.get("/from"), "new");
}

TEST_P(FileManagerContract, ACopyThatFailsLeavesWhatStoodThereAndNothingBeside) {
  device.put("/from", "new");
  device.put("/file", "old");
  device.put("/folder/file", "old");

  EXPECT_FALSE(files.copyItemAtPath("/from", "/folder"));
  EXPECT_FALSE(files.copyItemAtPath("/from", "/none/file"));
  EXPECT_FALSE(files.copyItemAtPath("/folder", "/file"));
  EXPECT_FALSE(files.copyItemAtPath("/none", "/file"));

  EXPECT_EQ(device.get("/file"), "old");
  EXPECT_EQ(device.get("/folder/file"), "old");
  EXPECT_THAT(DeviceFiles::names(device.root()), UnorderedElementsAre("from", "file", "folder"));
}

TEST_P(FileManagerContract, WritesANewFileAndReplacesAnOldOne) {
  const std::string longer(300'000, 'l');
  device.put("/a/old", "old and longer than the new one");

  EXPECT_TRUE(files.writeAtomically("/a/old", "new"));
  EXPECT_TRUE(files.writeAtomically("/a/new", longer));
  EXPECT_TRUE(files.writeAtomically("/empty", ""));

  EXPECT_EQ(device.get("/a/old"), "new");
  EXPECT_EQ(device.get("/a/new"), longer);
  EXPECT_EQ(files.contentsAtPath("/empty", 0), "");
  EXPECT_THAT(DeviceFiles::names(device.host("/a")), UnorderedElementsAre("old", "new"));
}

TEST_P(FileManagerContract, AReaderThatHasTheOldFileOpenKeepsIt) {
  device.put("/file", "old");
  std::ifstream reader(device.host("/file"));

  ASSERT_TRUE(files.writeAtomically("/file", "new"));

  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old");
}

TEST_P(FileManagerContract, WritesUnderTheLongestName) {
  const std::string path = "/" + std::string(255, 'n');

  EXPECT_TRUE(files.writeAtomically(path, "new"));

  EXPECT_EQ(device.get(path), "new");
}

TEST_P(FileManagerContract, AFailedWriteLeavesNothingBeside) {
  device.put("/folder/file", "x");

  EXPECT_FALSE(files.writeAtomically("/none/file", "new"));
  EXPECT_FALSE(files.writeAtomically("/folder", "new"));
  EXPECT_FALSE(files.writeAtomically("/folder/file/below", "new"));
  EXPECT_FALSE(files.writeAtomically("/folder/..", "new"));

  EXPECT_THAT(DeviceFiles::names(device.root()), UnorderedElementsAre("folder"));
  EXPECT_THAT(DeviceFiles::names(device.host("/folder")), UnorderedElementsAre("file"));
}

TEST_P(FileManagerContract, AWriteReplacesALinkAndLeavesItsTarget) {
  device.put("/target", "old");
  device.link("/link", "target");

  EXPECT_TRUE(files.writeAtomically("/link", "new"));

  EXPECT_EQ(device.get("/target"), "old");
  EXPECT_EQ(device.get("/link"), "new");
  EXPECT_FALSE(std::filesystem::is_symlink(device.host("/link")));
}

}  // namespace
}  // namespace frelta
