#include "app/ChangeAnnouncer.h"

#include <QSignalSpy>

#include "app/FailureReports.h"
#include "reporting/ReportingFileManager.h"
#include "tests/app/PresetsWindow.h"
#include "tests/support/PrivateBus.h"

namespace frelta {
namespace {

class ChangeAnnouncerTest : public PresetsWindow {
 protected:
  void open() {
    window.services.fileManager = &files;
    window.services.darwinNotificationCenter = &own;
    ASSERT_NO_FATAL_FAILURE(openScreen());
    follower =
        std::make_unique<BroadcastFollower>(own, *window.application->navigationController());
    announcer = std::make_unique<ChangeAnnouncer>(removals, *follower, *window.notes);
    // The first post connects.
    other.post("hello");
  }
  /// What is there for screen readers only; null before the first.
  QQuickItem* announcement() {
    for (QQuickItem* item : quick().contentItem()->childItems()) {
      if (item->objectName() == QStringLiteral("announcement")) return item;
    }
    return nullptr;
  }
  QString said() {
    return announcement() && announcement()->isVisible()
               ? announcement()->property("text").toString()
               : QString();
  }

  PrivateBus bus;
  LinuxDarwinNotificationCenter own;
  LinuxDarwinNotificationCenter other;
  FailureReports failures;
  FileRemovals removals;
  ReportingFileManager files{window.platform.files, failures,
                             [this](std::string_view path) { removals.tell(path); }};
  std::unique_ptr<BroadcastFollower> follower;
  std::unique_ptr<ChangeAnnouncer> announcer;
};

TEST_F(ChangeAnnouncerTest, APresetThatIsGoneIsSaid) {
  putPreset("A", {});
  ASSERT_NO_FATAL_FAILURE(open());

  swipeAndTap("A", QStringLiteral("Delete"));
  const QString before = said();
  press("Confirm");

  EXPECT_EQ(before, QString());
  EXPECT_EQ(said(), QStringLiteral("The preset “A” was deleted."));
}

// Assistive technology is told of what appears, not of what stays.
TEST_F(ChangeAnnouncerTest, WhatIsSaidAgainAppearsAgain) {
  ASSERT_NO_FATAL_FAILURE(open());
  removals.tell("/Library/Frelta/Presets/A.plist");
  ASSERT_NE(announcement(), nullptr);
  const QSignalSpy visible(announcement(), &QQuickItem::visibleChanged);

  removals.tell("/Library/Frelta/Presets/A.plist");

  EXPECT_EQ(visible.count(), 2);
  EXPECT_EQ(said(), QStringLiteral("The preset “A” was deleted."));
}

TEST_F(ChangeAnnouncerTest, OtherFilesThatGoAreNotSaid) {
  ASSERT_NO_FATAL_FAILURE(open());

  removals.tell("/var/mobile/Library/Preferences/com.tarno.freltaprefs.plist");
  removals.tell("/Library/Frelta/Presets");
  removals.tell("/Library/Frelta/Presets/folder/A.plist");

  EXPECT_EQ(announcement(), nullptr);
}

TEST_F(ChangeAnnouncerTest, WhatAnotherProgramChangedIsSaid) {
  ASSERT_NO_FATAL_FAILURE(open());

  window.putSettings({{"HideKeyCaps", 1}});
  other.post("com.tarno.frelta.refresh");

  EXPECT_TRUE(QTest::qWaitFor(
      [&] {
        window.settle();
        return said() == QStringLiteral("The settings were changed elsewhere.");
      },
      20'000));
}

TEST_F(ChangeAnnouncerTest, AnAnnouncementTakesNoRoom) {
  ASSERT_NO_FATAL_FAILURE(open());
  const QImage before = quick().grabWindow();

  removals.tell("/Library/Frelta/Presets/A.plist");
  window.settle();

  EXPECT_EQ(quick().grabWindow(), before);
}

}  // namespace
}  // namespace frelta
