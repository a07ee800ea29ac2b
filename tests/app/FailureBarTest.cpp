#include "app/FailureBar.h"

#include <cerrno>

#include "app/ShownPage.h"
#include "fake/FailingFiles.h"
#include "preferences/PSListController.h"
#include "reporting/ReportingAddressOpener.h"
#include "reporting/ReportingFileManager.h"
#include "reporting/ReportingProcessLauncher.h"
#include "tests/app/OpenWindow.h"
#include "tests/support/FullDisk.h"

namespace frelta {
namespace {

/// The application as its users have it: with services that report.
class FailureBarTest : public testing::Test {
 protected:
  void open() {
    window.services.fileManager = &files;
    window.services.processes = &processes;
    window.services.failures = &reports;
    ASSERT_NO_FATAL_FAILURE(window.open());
    bar = std::make_unique<FailureBar>(reports, *window.notes,
                                       *window.application->navigationController());
    window.settle();
  }
  bool isOn(const std::string& row) {
    UITableViewCell* cell = window.driver->findRow(row);
    const UISwitch* control = cell ? findView<UISwitch>(*cell) : nullptr;
    return control && control->isOn();
  }

  FailureReports reports;
  OpenWindow window;
  ReportingFileManager files{window.platform.files, reports};
  ReportingProcessLauncher processes{window.platform.processes, reports};
  std::unique_ptr<FailureBar> bar;
};

TEST_F(FailureBarTest, SaysNothingWhereEverythingSucceeds) {
  ASSERT_NO_FATAL_FAILURE(open());

  window.clickSwitch("HideKeyCaps");

  EXPECT_EQ(window.note(), nullptr);
}

TEST_F(FailureBarTest, SaysWhyASwitchWasNotStoredAndShowsWhatIs) {
  window.putSettings({{"Enabled", 1}, {"HideKeyCaps", 0}});
  ASSERT_NO_FATAL_FAILURE(open());
  {
    const FullDisk full;
    window.clickSwitch("HideKeyCaps");
  }

  EXPECT_EQ(window.noteText(), QStringLiteral("Not saved: the file is too large."));
  EXPECT_FALSE(isOn("HideKeyCaps"));
  EXPECT_EQ(window.settings()["HideKeyCaps"], PropertyListValue(0));
}

TEST_F(FailureBarTest, KeepsThePlaceInThePageAndTheFocus) {
  window.putSettings({{"Enabled", 1}, {"HideKeyCaps", 0}});
  ASSERT_NO_FATAL_FAILURE(open());
  window.clickSwitch("HideKeyCaps");
  auto& page = dynamic_cast<PSListController&>(
      *window.application->navigationController()->topViewController());
  const CGPoint before = page.table().contentOffset();
  const QQuickItem* focused = window.application->window()->activeFocusItem();
  {
    const FullDisk full;
    window.clickSwitch("HideKeyCaps");
  }

  EXPECT_TRUE(isOn("HideKeyCaps"));
  EXPECT_EQ(page.table().contentOffset(), before);
  EXPECT_EQ(window.application->window()->activeFocusItem(), focused);
}

TEST_F(FailureBarTest, SaysOneCauseOnceAndTakesEachChangeBack) {
  window.putSettings({{"Enabled", 1}, {"HideKeyCaps", 0}});
  ASSERT_NO_FATAL_FAILURE(open());
  window.platform.files.fail(FailingFiles::Operation::Write);

  window.clickSwitch("HideKeyCaps");
  const QQuickItem* first = window.note();
  window.clickSwitch("HideKeyCaps");

  ASSERT_NE(first, nullptr);
  EXPECT_FALSE(isOn("HideKeyCaps"));
  EXPECT_EQ(window.note(), first);
  EXPECT_EQ(window.noteText(), QStringLiteral("Not saved."));
}

TEST_F(FailureBarTest, SaysThatASwitchIsStillNotStoredWhenItIsPressedAgainLater) {
  ASSERT_NO_FATAL_FAILURE(open());
  window.platform.files.fail(FailingFiles::Operation::Write);
  window.clickSwitch("HideKeyCaps");
  ASSERT_NE(window.note(), nullptr);
  const QPointF middle = window.note()->mapToScene({20, 20});
  QTest::mouseClick(window.application->window(), Qt::LeftButton, {}, middle.toPoint());
  window.settle();
  const bool wentAtATap = !window.note();

  window.clickSwitch("HideKeyCaps");

  EXPECT_TRUE(wentAtATap);
  EXPECT_EQ(window.noteText(), QStringLiteral("Not saved."));
}

TEST_F(FailureBarTest, SaysOnceThatTheSettingsAreDamaged) {
  window.platform.put(kSettingsPath, "<plist>cut off, as it was by the bar's test");
  ASSERT_NO_FATAL_FAILURE(open());
  const QString said = window.noteText();
  const QPointF middle = window.note()->mapToScene({20, 20});
  QTest::mouseClick(window.application->window(), Qt::LeftButton, {}, middle.toPoint());
  window.settle();

  window.platform.put(kSettingsPath, "<plist>cut off elsewhere, as it was by the bar's test");
  showWhatIsStored(*window.application->navigationController());
  window.settle();

  EXPECT_EQ(said, QStringLiteral("The settings file is damaged and cannot be read. "
                                 "It is kept when you change a setting."));
  EXPECT_EQ(window.note(), nullptr);
}

TEST_F(FailureBarTest, SaysThatADamagedPresetCannotBeRead) {
  window.platform.put("/Library/Frelta/Presets/Night.plist", "<plist>half of a night");
  window.putSettings({{"CurrentPreset", "/Library/Frelta/Presets/Night.plist"}});

  ASSERT_NO_FATAL_FAILURE(open());

  EXPECT_EQ(window.noteText(), QStringLiteral("“Night” cannot be read: the file is damaged."));
}

TEST_F(FailureBarTest, SaysWhatCannotBeStarted) {
  window.platform.processes.isMissing = true;
  ASSERT_NO_FATAL_FAILURE(open());

  Platform::current().processes->spawn("/usr/bin/killall", {"killall"});
  window.settle();

  EXPECT_EQ(window.noteText(), QStringLiteral("“killall” cannot be started: it is missing."));
}

TEST_F(FailureBarTest, StandsAboveTheNoteOfAnInstallation) {
  ASSERT_NO_FATAL_FAILURE(open());
  WindowNote other(*window.notes);
  other.show(QStringLiteral("Drop to install the style"));

  reports.failed({Failure::Operation::Write, std::string(kSettingsPath), ENOSPC});
  window.settle();

  const auto notes = window.note()->parentItem()->childItems();
  ASSERT_EQ(notes.size(), 2);
  EXPECT_GE(notes[1]->y(), notes[0]->y() + notes[0]->height());
  const double foot = window.note()->mapToScene({0, window.note()->height()}).y();
  EXPECT_LE(foot, window.application->window()->height());
}

}  // namespace
}  // namespace frelta
