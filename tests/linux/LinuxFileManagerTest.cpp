#include "linux/LinuxFileManager.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <atomic>
#include <thread>

#include "tests/linux/DeviceFiles.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/MountNamespace.h"
#include "tests/support/SystemCallFilter.h"

namespace frelta {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr int kCannotBeTested = 77;

std::size_t openDescriptors() {
  return DeviceFiles::names("/proc/self/fd").size();
}

/// Folders inside folders, deeper than any path can name.
void makeDeepTree(const std::filesystem::path& top, int depth) {
  FileDescriptor folder(::open(top.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  for (int i = 0; i < depth; ++i) {
    ASSERT_EQ(::mkdirat(folder.get(), "folder", 0755), 0);
    FileDescriptor(::openat(folder.get(), "file", O_CREAT | O_WRONLY | O_CLOEXEC, 0644)).reset();
    folder = FileDescriptor(::openat(folder.get(), "folder", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  }
}

TEST(LinuxFileManager, RemovesATreeDeeperThanPathsWithFewDescriptors) {
  const DeviceFiles device;
  LinuxFileManager files(device.root());
  makeDeepTree(device.root(), 2000);

  const int status = exitStatusOfChild([&] {
    const auto limit = static_cast<rlim_t>(openDescriptors() + 8);
    const rlimit descriptors{limit, limit};
    ::setrlimit(RLIMIT_NOFILE, &descriptors);
    return files.removeItemAtPath("/folder") && files.removeItemAtPath("/file") ? 0 : 1;
  });

  EXPECT_EQ(status, 0);
  EXPECT_THAT(DeviceFiles::names(device.root()), IsEmpty());
}

TEST(LinuxFileManager, RemovesAFolderWithThousandsOfEntries) {
  const DeviceFiles device;
  LinuxFileManager files(device.root());
  for (int i = 0; i < 1500; ++i) device.put("/a/b/" + std::to_string(i), "");
  for (int i = 0; i < 200; ++i) device.put("/a/folder" + std::to_string(i) + "/file", "");

  EXPECT_TRUE(files.removeItemAtPath("/a"));

  EXPECT_THAT(DeviceFiles::names(device.root()), IsEmpty());
}

TEST(LinuxFileManager, RemovesAllItCanOfATreeAndTellsThatSomethingIsLeft) {
  const DeviceFiles device;
  device.put("/tree/locked/file", "x");
  device.put("/tree/open/file", "x");
  std::filesystem::permissions(device.root().parent_path(), std::filesystem::perms(0755));
  for (const char* path : {"/", "/tree", "/tree/open"})
    std::filesystem::permissions(device.host(path), std::filesystem::perms(0777));
  std::filesystem::permissions(device.host("/tree/locked"), std::filesystem::perms(0555));

  // The superuser would be let in.
  const int status = exitStatusOfChild([&] {
    if (::geteuid() == 0 && ::seteuid(65534) != 0) return kCannotBeTested;
    return LinuxFileManager(device.root()).removeItemAtPath("/tree") ? 1 : 0;
  });

  std::filesystem::permissions(device.host("/tree/locked"), std::filesystem::perms(0755));
  EXPECT_EQ(status, 0);
  EXPECT_THAT(DeviceFiles::names(device.host("/tree")), UnorderedElementsAre("locked"));
}

TEST(LinuxFileManager, AFileThatGrowsWhileReadIsRefusedBeyondTheMaximum) {
  const DeviceFiles device;
  const LinuxFileManager files(device.root());
  device.put("/file", "start");
  constexpr std::uint64_t kMaximum = 1 << 20;
  std::atomic<bool> isOver = false;
  std::thread grower([&] {
    const FileDescriptor file(::open(device.host("/file").c_str(), O_WRONLY | O_APPEND));
    const std::string chunk(4096, 'g');
    for (int i = 0; i < 20'000 && !isOver; ++i)
      if (::write(file.get(), chunk.data(), chunk.size()) < 0) break;
  });

  std::size_t largest = 0;
  while (const auto bytes = files.contentsAtPath("/file", kMaximum))
    largest = std::max(largest, bytes->size());
  isOver = true;
  grower.join();

  EXPECT_LE(largest, kMaximum);
  EXPECT_EQ(files.contentsAtPath("/file", kMaximum), std::nullopt);
}

TEST(LinuxFileManager, ReadsWhatTheKernelMakesUpWhileItIsRead) {
  // Such a file says that it is empty.
  const LinuxFileManager files("/proc");

  const auto whole = files.contentsAtPath("/cpuinfo", 10 << 20);
  const auto cut = files.contentsAtPath("/cpuinfo", 4);

  EXPECT_GT(whole.value_or("").size(), 4u);
  EXPECT_EQ(cut, std::nullopt);
}

TEST(LinuxFileManager, AFileThatIsTooLargeIsNotReadAtAll) {
  const DeviceFiles device;
  const LinuxFileManager files(device.root());
  device.put("/file", "too large");

  const int status = exitStatusOfChild([&] {
    dieAtSystemCall(SYS_read);
    return files.contentsAtPath("/file", 3) ? 1 : 0;
  });

  EXPECT_EQ(status, 0);
}

TEST(LinuxFileManager, AFolderWhoseListingBreaksOffHasNoContents) {
  const DeviceFiles device;
  const LinuxFileManager files(device.root());
  device.put("/file", "x");

  const int status = exitStatusOfChild([&] {
    failSystemCall(SYS_getdents64, EIO);
    return files.contentsOfDirectoryAtPath("/") ? 1 : 0;
  });

  EXPECT_EQ(status, 0);
}

TEST(LinuxFileManager, ReadsNoDevices) {
  const LinuxFileManager files("/dev");

  EXPECT_EQ(files.contentsAtPath("/zero", 10), std::nullopt);
  EXPECT_EQ(files.contentsAtPath("/null", 10), std::nullopt);
  EXPECT_TRUE(files.fileExistsAtPath("/null"));
}

TEST(LinuxFileManager, AFullDiskKeepsTheOldFileAndHoldsNoLitter) {
  const DeviceFiles device;

  const int status = exitStatusOfChild([&] {
    if (!enterOwnMountNamespace() ||
        ::mount("disk", device.root().c_str(), "tmpfs", 0, "size=64k") != 0)
      return kCannotBeTested;
    LinuxFileManager files(device.root());
    const std::string old(30'000, 'o');
    if (!files.writeAtomically("/file", old)) return 1;
    if (files.writeAtomically("/file", std::string(200'000, 'n'))) return 2;
    if (!files.writeAtomically("/other", "room for this")) return 3;
    if (files.copyItemAtPath("/file", "/copy")) return 4;
    if (device.get("/file") != old) return 5;
    return DeviceFiles::names(device.root()) == std::set<std::string>{"file", "other"} ? 0 : 6;
  });

  if (status == kCannotBeTested) GTEST_SKIP() << "NOT TESTED: no file system can be mounted here";
  EXPECT_EQ(status, 0);
}

TEST(LinuxFileManager, KeepsNoDescriptorsOpen) {
  for (const PathLookup lookup : {PathLookup::Kernel, PathLookup::ByHand}) {
    const DeviceFiles device;
    LinuxFileManager files(device.root(), lookup);
    const std::size_t before = openDescriptors();

    files.createDirectoryAtPath("/a/b/c");
    files.writeAtomically("/a/file", "x");
    files.writeAtomically("/a/b", "x");
    files.copyItemAtPath("/a/file", "/a/copy");
    files.copyItemAtPath("/a/file", "/a/copy");
    files.contentsAtPath("/a/copy", 10);
    files.contentsAtPath("/a/copy", 0);
    files.contentsOfDirectoryAtPath("/a/../a");
    files.contentsOfDirectoryAtPath("/a/copy");
    files.fileSizeAtPath("/a/copy");
    files.sweepDirectoryAtPath("/a");
    files.removeItemAtPath("/a");

    EXPECT_EQ(openDescriptors(), before);
  }
}

}  // namespace
}  // namespace frelta
