#include <QAccessible>

#include "preferences/PSListController.h"
#include "preferences/PSTableCell.h"
#include "tests/app/OpenWindow.h"
#include "uikit/UISegmentedControl.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Operation = FailingFiles::Operation;

class RootPageWindow : public testing::Test {
 protected:
  PSListController& page() {
    return dynamic_cast<PSListController&>(
        *window.application->navigationController()->topViewController());
  }

  // Identifiers of the rows that the page on top shows, in order.
  std::vector<std::string> rows() {
    std::vector<std::string> identifiers;
    for (const auto& specifier : page().specifiers()) {
      if (!specifier->isGroup()) identifiers.push_back(specifier->identifier());
    }
    return identifiers;
  }

  /// The view whose item has the keyboard; null when none has.
  UIView* focusedView() {
    const QQuickItem* focused = window.application->window()->activeFocusItem();
    for (; focused; focused = focused->parentItem()) {
      if (const auto* node = focused->property("node").value<ViewNode*>()) return node->view();
    }
    return nullptr;
  }
  static bool isOn(const PSTableCell& cell) { return cell.accessibility().on; }

  OpenWindow window;
};

TEST_F(RootPageWindow, FirstStartOnAnEmptyRootMakesTheDevicesFolders) {
  ASSERT_NO_FATAL_FAILURE(window.open());

  for (const char* folder : {"/var/mobile/Library/Preferences", "/Library/Frelta/Presets",
                             "/Library/Frelta/Themes", "/Library/Frelta/UserImages"}) {
    EXPECT_TRUE(window.platform.files.directoryExistsAtPath(folder)) << folder;
  }
  EXPECT_FALSE(window.platform.files.fileExistsAtPath(kSettingsPath));
}

TEST_F(RootPageWindow, APageOfRowsReadsTheSettingsFileOnce) {
  window.putSettings({{"HideKeyCaps", 1}});

  ASSERT_NO_FATAL_FAILURE(window.open());

  EXPECT_GT(rows().size(), 20u);
  EXPECT_EQ(window.platform.files.count(Operation::Read, kSettingsPath), 1u);
}

TEST_F(RootPageWindow, ATapReadsTheFileToRewriteItAndAReloadOnceMoreForAllRows) {
  window.putSettings({{"HideKeyCaps", 1}});
  ASSERT_NO_FATAL_FAILURE(window.open());
  window.platform.files.resetCalls();

  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("HideKeyCaps"));
  const std::size_t readByTheTap = window.platform.files.count(Operation::Read, kSettingsPath);
  page().reloadSpecifiers();
  window.settle();

  EXPECT_EQ(readByTheTap, 1u);
  EXPECT_EQ(window.platform.files.count(Operation::Read, kSettingsPath), 2u);
  EXPECT_EQ(window.platform.files.count(Operation::Write, kSettingsPath), 1u);
}

TEST_F(RootPageWindow, TheMasterSwitchLeavesTheRowsThatAreAlwaysThere) {
  ASSERT_NO_FATAL_FAILURE(window.open());

  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("Enabled"));

  EXPECT_THAT(rows(), testing::UnorderedElementsAre("FreltaBannerCell", "Enabled", "Settings",
                                                    "RespringLabel", "Respring", "Twitter",
                                                    "Support", "FreltaFooterCell"));
  EXPECT_THAT(window.platform.notifications.posted, ElementsAre("com.tarno.frelta.refresh"));
  ASSERT_NO_FATAL_FAILURE(window.clickSwitch("Enabled"));
  EXPECT_TRUE(window.driver->hasRow("HideKeyCaps"));
}

TEST_F(RootPageWindow, RespringStartsKillallOnceAndOnlyInTheFake) {
  ASSERT_NO_FATAL_FAILURE(window.open());

  EXPECT_TRUE(window.driver->tapRow("Respring"));

  ASSERT_EQ(window.platform.processes.spawned.size(), 1u);
  EXPECT_EQ(window.platform.processes.spawned[0].path, "/usr/bin/killall");
  EXPECT_THAT(window.platform.processes.spawned[0].argumentVector,
              ElementsAre("killall", "-9", "backboardd"));
}

TEST_F(RootPageWindow, RowsThatOnlyTellSomethingDoNothingWhenTapped) {
  window.putSettings({{"SwitchPresetsWithDarkMode", 1}});
  ASSERT_NO_FATAL_FAILURE(window.open());

  for (const char* row :
       {"FreltaBannerCell", "FreltaPresetsInfo", "RespringLabel", "FreltaFooterCell"}) {
    EXPECT_TRUE(window.driver->tapRow(row)) << row;
  }

  EXPECT_EQ(window.application->navigationController()->viewControllers().size(), 1u);
  EXPECT_THAT(window.platform.notifications.posted, IsEmpty());
  EXPECT_EQ(window.platform.files.count(Operation::Write, kSettingsPath), 0u);
}

TEST_F(RootPageWindow, TheAdvancedPageOpensFromItsRowAndTheWayBackLeadsBack) {
  ASSERT_NO_FATAL_FAILURE(window.open());

  EXPECT_TRUE(window.driver->tapRow("Settings"));
  EXPECT_EQ(window.application->navigationController()->viewControllers().size(), 2u);
  EXPECT_TRUE(window.driver->hasRow("HideEmojiSlider"));
  QTest::keyClick(window.application->window(), Qt::Key_Escape);
  window.settle();

  EXPECT_EQ(window.application->navigationController()->viewControllers().size(), 1u);
  EXPECT_TRUE(window.driver->hasRow("HideKeyCaps"));
}

TEST_F(RootPageWindow, TheKeyboardAloneReachesEverySwitchAndTurnsItOver) {
  ASSERT_NO_FATAL_FAILURE(window.open());
  QuickWindow* quick = window.application->window();
  std::vector<std::string> switches;
  for (const auto& specifier : page().specifiers()) {
    if (specifier->cellType() == PSCellType::PSSwitchCell)
      switches.push_back(specifier->identifier());
  }

  std::vector<std::string> turned;
  for (int press = 0; press < 80 && turned.size() < switches.size(); ++press) {
    QTest::keyClick(quick, Qt::Key_Tab);
    const auto* cell = dynamic_cast<PSTableCell*>(focusedView());
    if (!cell || cell->specifier()->cellType() != PSCellType::PSSwitchCell) continue;
    const std::string key = cell->specifier()->identifier();
    const int before = isOn(*cell) ? 1 : 0;
    QTest::keyClick(quick, Qt::Key_Space);
    window.settle();
    EXPECT_EQ(window.settings()[key], PropertyListValue(1 - before)) << key;
    // Back again, or the master switch would take the other rows away.
    QTest::keyClick(quick, Qt::Key_Return);
    window.settle();
    EXPECT_EQ(window.settings()[key], PropertyListValue(before)) << key;
    turned.push_back(key);
  }

  EXPECT_EQ(turned, switches);
}

TEST_F(RootPageWindow, FocusStaysOnTheRowThatChangesWhichRowsThereAre) {
  ASSERT_NO_FATAL_FAILURE(window.open());
  QuickWindow* quick = window.application->window();
  UITableViewCell* cell = window.driver->findRow("SwitchPresetsWithDarkMode");
  ASSERT_NE(cell, nullptr);
  quick->itemFor(*cell)->forceActiveFocus(Qt::TabFocusReason);

  QTest::keyClick(quick, Qt::Key_Space);
  window.settle();

  ASSERT_TRUE(window.driver->hasRow("FreltaPresetsDarkMode"));
  UITableViewCell* after = window.driver->findRow("SwitchPresetsWithDarkMode");
  ASSERT_NE(after, nullptr);
  EXPECT_EQ(quick->activeFocusItem(), quick->itemFor(*after));
}

}  // namespace
}  // namespace frelta
