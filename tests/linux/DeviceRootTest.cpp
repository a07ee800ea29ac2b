#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <atomic>
#include <cstdio>
#include <thread>

#include "linux/DeviceRoot.h"
#include "tests/linux/DeviceFiles.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/SystemCallFilter.h"

namespace frelta {
namespace {

using testing::Eq;
using testing::IsEmpty;
using testing::Optional;

class DeviceRootTest : public testing::TestWithParam<PathLookup> {
 protected:
  DeviceFiles device;
  LinuxFileManager files{device.root(), GetParam()};
};

INSTANTIATE_TEST_SUITE_P(All, DeviceRootTest,
                         testing::Values(PathLookup::Kernel, PathLookup::ByHand),
                         [](const auto& implementation) {
                           return implementation.param == PathLookup::Kernel ? "Kernel" : "ByHand";
                         });

TEST_P(DeviceRootTest, DotsDoNotLeadAboveTheRoot) {
  device.put("/file", "in");
  device.put("/a/file", "in a");

  EXPECT_THAT(files.contentsAtPath("/../../file", 10), Optional(Eq("in")));
  EXPECT_THAT(files.contentsAtPath("/a/../../../a/./file", 10), Optional(Eq("in a")));
  EXPECT_TRUE(files.writeAtomically("/../outside.txt", "new"));
  EXPECT_FALSE(files.fileExistsAtPath("/../outside"));

  EXPECT_EQ(device.get("/outside.txt"), "new");
  EXPECT_THAT(DeviceFiles::names(device.outside()), IsEmpty());
}

TEST_P(DeviceRootTest, LinksDoNotLeadOutOfTheRoot) {
  device.link("/relative", "../outside");
  device.link("/absolute", device.outside());
  device.link("/up", "../../../..");
  std::filesystem::create_directories(device.root().string() + device.outside().string());

  EXPECT_FALSE(files.writeAtomically("/relative/file", "new"));
  EXPECT_TRUE(files.writeAtomically("/absolute/file", "new"));
  EXPECT_TRUE(files.writeAtomically("/up/top", "new"));
  EXPECT_TRUE(files.createDirectoryAtPath("/up/made"));
  EXPECT_FALSE(files.removeItemAtPath("/relative/none"));

  EXPECT_THAT(DeviceFiles::names(device.outside()), IsEmpty());
  EXPECT_EQ(device.get(device.outside().string() + "/file"), "new");
  EXPECT_EQ(device.get("/top"), "new");
  EXPECT_TRUE(std::filesystem::is_directory(device.host("/made")));
}

TEST_P(DeviceRootTest, WritingAndRemovingALinkLeavesWhatIsOutside) {
  std::ofstream(device.outside() / "file") << "outside";
  device.link("/file", device.outside() / "file");
  device.link("/folder", device.outside());
  device.put("/tree/file", "x");
  device.link("/tree/folder", device.outside());

  EXPECT_EQ(files.contentsAtPath("/file", 10), std::nullopt);
  EXPECT_TRUE(files.writeAtomically("/file", "new"));
  EXPECT_TRUE(files.removeItemAtPath("/folder"));
  EXPECT_TRUE(files.removeItemAtPath("/tree"));

  EXPECT_EQ(DeviceFiles::read(device.outside() / "file"), "outside");
  EXPECT_EQ(device.get("/file"), "new");
}

TEST_P(DeviceRootTest, LinksThroughLinksAreFollowedInOrder) {
  device.put("/a/b/file", "found");
  device.link("/one", "/two/b");
  device.link("/two", "./a/../three");
  device.link("/three", "//a");
  device.link("/a/b/back", "../../one/absolute");
  device.link("/a/b/absolute", "/one/file");

  EXPECT_THAT(files.contentsAtPath("/one/../b/back", 10), Optional(Eq("found")));
}

TEST_P(DeviceRootTest, LinksThatGoRoundAreMissing) {
  device.link("/self", "self");
  device.link("/ping", "pong");
  device.link("/pong", "/ping/x");

  EXPECT_FALSE(files.fileExistsAtPath("/self"));
  EXPECT_FALSE(files.fileExistsAtPath("/ping/file"));
  EXPECT_FALSE(files.writeAtomically("/ping/file", "new"));
  EXPECT_TRUE(files.writeAtomically("/self", "new"));
}

TEST_P(DeviceRootTest, FortyLinksAreFollowedAndNoMore) {
  device.put("/link0", "end");
  for (int i = 1; i <= 41; ++i)
    device.link("/link" + std::to_string(i), "link" + std::to_string(i - 1));

  EXPECT_THAT(files.contentsAtPath("/link40", 10), Optional(Eq("end")));
  EXPECT_EQ(files.contentsAtPath("/link41", 10), std::nullopt);
}

TEST_P(DeviceRootTest, FoldersSwappedForLinksMeanwhileDoNotLetAWriteOut) {
  std::filesystem::create_directories(device.host("/a/b"));
  device.link("/a/link", device.outside());
  const std::string folder = device.host("/a/b");
  const std::string link = device.host("/a/link");
  std::atomic<bool> isOver = false;
  std::thread swapper([&] {
    while (!isOver) ::renameat2(AT_FDCWD, folder.c_str(), AT_FDCWD, link.c_str(), RENAME_EXCHANGE);
  });

  // A write may find the link each time for a while.
  int written = 0;
  for (int i = 0; i < 300 || written == 0; ++i) {
    written += files.writeAtomically("/a/b/file", "new");
    written += files.writeAtomically("/a/b/../../a/b/file", "new");
    files.removeItemAtPath("/a/b/file");
  }
  isOver = true;
  swapper.join();

  EXPECT_THAT(DeviceFiles::names(device.outside()), IsEmpty());
}

TEST_P(DeviceRootTest, TheRootIsMadeWhenMissing) {
  const auto root = device.outside() / "new" / "root";

  LinuxFileManager made(root, GetParam());

  EXPECT_TRUE(made.writeAtomically("/file", "new"));
  EXPECT_EQ(DeviceFiles::read(root / "file"), "new");
}

TEST_P(DeviceRootTest, ARootThatIsMadeIsForThisUserOnly) {
  const auto root = device.outside() / "new" / "root";
  const mode_t before = ::umask(022);

  LinuxFileManager made(root, GetParam());

  ::umask(before);
  for (const auto& path : {root, root.parent_path()})
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0700)) << path;
}

TEST_P(DeviceRootTest, ARootThatIsThereKeepsItsPermissions) {
  std::filesystem::permissions(device.root(), std::filesystem::perms(0750));

  LinuxFileManager opened(device.root(), GetParam());

  EXPECT_EQ(std::filesystem::status(device.root()).permissions(), std::filesystem::perms(0750));
}

TEST_P(DeviceRootTest, ARootThatCannotBeOpenedReadsAsEmpty) {
  device.put("/file", "x");

  LinuxFileManager broken(device.host("/file"), GetParam());

  EXPECT_FALSE(broken.fileExistsAtPath("/"));
  EXPECT_FALSE(broken.createDirectoryAtPath("/a"));
  EXPECT_FALSE(broken.writeAtomically("/a", "x"));
}

TEST(DeviceRoot, IsLookedUpByTheKernelUnlessToldOtherwise) {
  const DeviceFiles device;
  const auto writeWith = [&](PathLookup lookup) {
    return waitStatusOfChild([&] {
      dieAtSystemCall(SYS_openat2);
      return LinuxFileManager(device.root(), lookup).writeAtomically("/file", "x") ? 0 : 1;
    });
  };

  const int kernel = writeWith(PathLookup::Kernel);
  const int byHand = writeWith(PathLookup::ByHand);

  EXPECT_TRUE(WIFSIGNALED(kernel) && WTERMSIG(kernel) == SIGSYS);
  EXPECT_TRUE(WIFEXITED(byHand) && WEXITSTATUS(byHand) == 0);
}

TEST(DeviceRoot, IsLookedUpByHandWhereTheKernelCannot) {
  for (const int error : {ENOSYS, EPERM, EINVAL}) {
    const DeviceFiles device;
    device.link("/link", "/../../b");

    const int status = exitStatusOfChild([&] {
      failSystemCall(SYS_openat2, error);
      LinuxFileManager files(device.root());
      return files.createDirectoryAtPath("/b/c") && files.writeAtomically("/link/c/file", "x") ? 0
                                                                                               : 1;
    });

    EXPECT_EQ(status, 0) << error;
    EXPECT_EQ(device.get("/b/c/file"), "x") << error;
  }
}

TEST(DeviceRoot, AMissingFileIsNotLookedUpTwice) {
  const DeviceFiles device;

  // By hand the lookup needs readlinkat() for the link, which would kill.
  const int status = exitStatusOfChild([&] {
    device.link("/link", "nowhere");
    LinuxFileManager files(device.root());
    dieAtSystemCall(SYS_readlinkat);
    return files.fileExistsAtPath("/link") ? 1 : 0;
  });

  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace frelta
