#include "linux/OpenBeneath.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include "tests/linux/DeviceFiles.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/SystemCallFilter.h"

namespace frelta {
namespace {

/// With the kernel's own lookup and without it; with it nothing is looked up a second time.
class OpenBeneath : public testing::TestWithParam<int> {
 protected:
  OpenBeneath() {
    device.put("/a/b/file", "x");
    device.put("/secret/file", "secret");
    device.link("/a/link", "../secret");
    device.link("/a/b/link", "file");
    device.link("/a/out", device.host("/secret"));
  }

  /// What the error is, 0 when it could be opened.
  int errorOf(const std::string& path, int flags) const {
    return exitStatusOfChild([&] {
      const FileDescriptor folder(::open(device.host("/a").c_str(), O_PATH | O_DIRECTORY));
      if (GetParam() != 0)
        failSystemCall(SYS_openat2, GetParam());
      else
        dieAtSystemCall(SYS_openat);
      return openBeneath(folder, path, flags, 0640) ? 0 : errno;
    });
  }

  const DeviceFiles device;
};

INSTANTIATE_TEST_SUITE_P(All, OpenBeneath, testing::Values(0, ENOSYS, EPERM, EINVAL),
                         [](const auto& error) { return "Error" + std::to_string(error.param); });

TEST_P(OpenBeneath, OpensWhatIsThere) {
  EXPECT_EQ(errorOf("b", O_RDONLY | O_DIRECTORY), 0);
  EXPECT_EQ(errorOf("b/file", O_RDONLY), 0);
  EXPECT_EQ(errorOf(".", O_RDONLY), 0);
}

TEST_P(OpenBeneath, FollowsNoLinkOnTheWayNorAtTheEnd) {
  EXPECT_THAT(errorOf("link/file", O_RDONLY), testing::AnyOf(ELOOP, ENOTDIR));
  EXPECT_THAT(errorOf("out/file", O_RDONLY), testing::AnyOf(ELOOP, ENOTDIR));
  EXPECT_EQ(errorOf("b/link", O_RDONLY), ELOOP);
  EXPECT_EQ(errorOf("b/link", O_WRONLY | O_CREAT), ELOOP);
}

TEST_P(OpenBeneath, SaysWhyNot) {
  EXPECT_EQ(errorOf("missing/file", O_RDONLY), ENOENT);
  EXPECT_EQ(errorOf("b/file/below", O_RDONLY), ENOTDIR);
  EXPECT_EQ(errorOf("b/file", O_WRONLY | O_CREAT | O_EXCL), EEXIST);
}

TEST_P(OpenBeneath, CreatesWithThePermissions) {
  EXPECT_EQ(errorOf("b/new", O_WRONLY | O_CREAT | O_EXCL), 0);

  EXPECT_EQ(std::filesystem::status(device.host("/a/b/new")).permissions(),
            std::filesystem::perms(0640));
}

}  // namespace
}  // namespace frelta
