#include "settings/RefreshNotification.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fake/FakePlatform.h"

namespace frelta {
namespace {

using testing::ElementsAre;

TEST(RefreshNotification, PostsItsNameOnce) {
  FakePlatform platform;

  postRefreshNotification();

  EXPECT_THAT(platform.notifications.posted, ElementsAre("com.tarno.frelta.refresh"));
}

TEST(RefreshNotification, FollowsARowsOwnNotification) {
  FakePlatform platform;

  postNotification("com.tarno.frelta.row");
  postRefreshNotification();

  EXPECT_THAT(platform.notifications.posted,
              ElementsAre("com.tarno.frelta.row", "com.tarno.frelta.refresh"));
}

TEST(RefreshNotification, TouchesNoFile) {
  FakePlatform platform;

  postRefreshNotification();

  EXPECT_EQ(platform.files.calls().size(), 0u);
}

}  // namespace
}  // namespace frelta
