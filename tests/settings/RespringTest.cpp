#include "settings/Respring.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fake/FakePlatform.h"

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

TEST(Respring, SaysNothingWhenNoProcessCanBeStarted) {
  FakePlatform platform;
  platform.processes.failsToLaunch = true;

  EXPECT_NO_THROW(respring());

  EXPECT_THAT(platform.log.lines, IsEmpty());
}

}  // namespace
}  // namespace frelta
