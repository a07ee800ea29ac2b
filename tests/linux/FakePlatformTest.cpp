#include "fake/FakePlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace frelta {
namespace {

using testing::Eq;
using testing::IsEmpty;
using testing::Optional;
using Operation = FailingFiles::Operation;

TEST(FakePlatform, InstallsOneOfEachServiceWhileItLives) {
  auto fake = std::make_unique<FakePlatform>();

  const Platform installed = Platform::current();
  FakePlatform* const expected = fake.get();

  EXPECT_EQ(installed.fileManager, &expected->files);
  EXPECT_NE(installed.propertyLists, nullptr);
  EXPECT_NE(installed.json, nullptr);
  EXPECT_EQ(installed.darwinNotificationCenter, &expected->notifications);
  EXPECT_EQ(installed.processes, &expected->processes);
  EXPECT_EQ(installed.log, &expected->log);
  EXPECT_EQ(installed.mainQueue, &expected->mainQueue);
  EXPECT_EQ(installed.random, &expected->random);
  EXPECT_EQ(installed.system, &expected->system);

  fake.reset();

  EXPECT_EQ(Platform::current().fileManager, nullptr);
}

TEST(FakePlatform, AnEarlierOneThatGoesLeavesTheLaterOneInstalled) {
  auto earlier = std::make_unique<FakePlatform>();
  FakePlatform later;

  earlier.reset();

  EXPECT_EQ(Platform::current().fileManager, &later.files);
}

TEST(FakePlatform, HasItsOwnDeviceWhoseFilesGoWithIt) {
  std::filesystem::path root;

  {
    FakePlatform platform;
    root = platform.hostPath("/");
    EXPECT_TRUE(std::filesystem::is_empty(root));
    platform.put("/a/b/file", std::string_view("nul\0", 4));
    EXPECT_THAT(platform.files.contentsAtPath("/a/b/file", 10),
                Optional(Eq(std::string("nul\0", 4))));
    platform.files.writeAtomically("/a/b/file", "new");
    EXPECT_EQ(platform.get("/a/b/file"), "new");
    EXPECT_EQ(platform.get("/none"), "");
    EXPECT_EQ(platform.hostPath("/a/b"), root / "a/b");
  }

  EXPECT_FALSE(std::filesystem::exists(root));
}

TEST(FakePlatform, PuttingAndGettingAreNotCounted) {
  FakePlatform platform;

  platform.put("/file", "x");
  platform.get("/file");

  EXPECT_THAT(platform.files.calls(), IsEmpty());
}

TEST(FailingFiles, CountsEachCallByOperationAndPath) {
  FakePlatform platform;
  FailingFiles& files = platform.files;

  files.writeAtomically("/a", "x");
  files.writeAtomically("/b", "x");
  files.contentsAtPath("/a", 10);
  files.copyItemAtPath("/a", "/c");

  EXPECT_EQ(files.calls().size(), 4u);
  EXPECT_EQ(files.count(Operation::Write), 2u);
  EXPECT_EQ(files.count(Operation::Write, "/b"), 1u);
  EXPECT_EQ(files.count(Operation::Read, "/b"), 0u);
  EXPECT_EQ(files.count(Operation::Copy, "/a"), 1u);
  EXPECT_EQ(files.count(Operation::Copy, "/c"), 0u);

  files.resetCalls();

  EXPECT_EQ(files.count(Operation::Write), 0u);
}

TEST(FailingFiles, EachOperationFailsOnDemandAndRecovers) {
  FakePlatform platform;
  FailingFiles& files = platform.files;
  const std::vector<std::pair<Operation, std::function<bool()>>> operations = {
      {Operation::FileExists, [&] { return files.fileExistsAtPath("/folder/file"); }},
      {Operation::DirectoryExists, [&] { return files.directoryExistsAtPath("/folder"); }},
      {Operation::Contents, [&] { return files.contentsOfDirectoryAtPath("/folder").has_value(); }},
      {Operation::Size, [&] { return files.fileSizeAtPath("/folder/file").has_value(); }},
      {Operation::Read, [&] { return files.contentsAtPath("/folder/file", 9).has_value(); }},
      {Operation::CreateDirectory, [&] { return files.createDirectoryAtPath("/made"); }},
      {Operation::Copy, [&] { return files.copyItemAtPath("/folder/file", "/copy"); }},
      {Operation::Write, [&] { return files.writeAtomically("/written", "x"); }},
      {Operation::Remove, [&] { return files.removeItemAtPath("/folder"); }},
  };
  platform.put("/folder/file", "x");

  for (const auto& [operation, perform] : operations) {
    files.fail(operation);
    EXPECT_FALSE(perform());
    EXPECT_FALSE(std::filesystem::exists(platform.hostPath("/made")) &&
                 operation == Operation::CreateDirectory);
    files.succeed(operation);
    EXPECT_TRUE(perform());
    EXPECT_EQ(files.count(operation), 2u);
  }
}

TEST(FailingFiles, LetsATestChangeTheFilesBeforeACall) {
  FakePlatform platform;
  platform.files.beforeCall = [&](const FailingFiles::Call& call) {
    platform.put(call.path, "changed");
  };

  EXPECT_THAT(platform.files.contentsAtPath("/file", 10), Optional(Eq("changed")));
}

}  // namespace
}  // namespace frelta
