#include "settings/Respring.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fake/FakePlatform.h"
#include "linux/LinuxProcessLauncher.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Respring, KillsTheBackBoardProcessWithSignalNine) {
  FakePlatform platform;

  respring();

  ASSERT_EQ(platform.processes.spawned.size(), 1u);
  EXPECT_EQ(platform.processes.spawned[0].path, "/usr/bin/killall");
  EXPECT_THAT(platform.processes.spawned[0].argumentVector,
              ElementsAre("killall", "-9", "backboardd"));
}

TEST(Respring, WaitsForNoProcessAndQueuesNothing) {
  FakePlatform platform;

  respring();

  EXPECT_THAT(platform.processes.runs, IsEmpty());
  EXPECT_EQ(platform.mainQueue.pending(), 0u);
}

TEST(Respring, NeitherWritesNorPosts) {
  FakePlatform platform;

  respring();

  EXPECT_THAT(platform.files.calls(), IsEmpty());
  EXPECT_THAT(platform.notifications.posted, IsEmpty());
}

/// The real launcher on a system whose programs are all missing.
class WithoutPrograms : public LinuxProcessLauncher {
 public:
  bool spawn(const std::string& path, const std::vector<std::string>& argumentVector) override {
    ++spawned;
    return LinuxProcessLauncher::spawn("/missing" + path, argumentVector);
  }
  int spawned = 0;
};

TEST(Respring, SaysNothingWhenItsProgramIsMissing) {
  FakePlatform platform;
  WithoutPrograms launcher;
  Platform services = Platform::current();
  services.processes = &launcher;
  Platform::install(services);

  EXPECT_NO_THROW(respring());

  EXPECT_EQ(launcher.spawned, 1);
  EXPECT_THAT(platform.log.lines, IsEmpty());
}

}  // namespace
}  // namespace frelta
