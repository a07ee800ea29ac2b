#include "settings/RefreshNotification.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fake/FakePlatform.h"
#include "settings/FreltaPreferencesManager.h"
#include "settings/SettingsFile.h"

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

TEST(RefreshNotification, HasTheManagerForgetWhatItLoadedOnTheQueuesNextTurn) {
  FakePlatform platform;
  FreltaPreferencesManager::clearCache();
  forgetSettingsAtRefresh();
  FreltaPreferencesManager::getPrefs();
  writeSetting("backgroundImage", "/new.png");

  postRefreshNotification();
  const auto* atOnce = FreltaPreferencesManager::getPrefForKey("backgroundImage");
  platform.mainQueue.runPending();
  const auto* afterwards = FreltaPreferencesManager::getPrefForKey("backgroundImage");

  EXPECT_EQ(atOnce, nullptr);
  ASSERT_NE(afterwards, nullptr);
  EXPECT_EQ(*afterwards, PropertyListValue("/new.png"));
  FreltaPreferencesManager::clearCache();
}

TEST(RefreshNotification, LeavesTheManagerAloneWhenItIsAnotherName) {
  FakePlatform platform;
  forgetSettingsAtRefresh();
  const auto loaded = FreltaPreferencesManager::getPrefs();

  postNotification("com.tarno.frelta.row");
  platform.mainQueue.runPending();

  EXPECT_EQ(FreltaPreferencesManager::sharedInstance().cachedPrefs(), loaded);
  FreltaPreferencesManager::clearCache();
}

TEST(RefreshNotification, IsNotWatchedWhereThereIsNoCentre) {
  FakePlatform platform;
  Platform without = Platform::current();
  without.darwinNotificationCenter = nullptr;
  Platform::install(without);

  EXPECT_NO_THROW(forgetSettingsAtRefresh());
}

}  // namespace
}  // namespace frelta
