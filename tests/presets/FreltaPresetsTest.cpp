#include "presets/FreltaPresets.h"

#include "presets/FreltaPresetsDarkMode.h"
#include "presets/FreltaPresetsLightMode.h"
#include "tests/presets/PresetsTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

/// Notes how each alert is presented.
class NotingPresets : public FreltaPresets {
 public:
  void presentViewController(std::shared_ptr<UIViewController> controller, bool animated) override {
    presentedAnimated.push_back(animated);
    FreltaPresets::presentViewController(std::move(controller), animated);
  }
  std::vector<bool> presentedAnimated;
};

class FreltaPresetsScreen : public PresetsTest {
 protected:
  UIBarButtonItem* addButton() { return screen->navigationItem().rightBarButtonItem().get(); }
};

TEST_F(FreltaPresetsScreen, IsCalledPresetsInEveryVariant) {
  EXPECT_EQ(show().title(), "Presets");
  EXPECT_EQ(show<FreltaPresetsLightMode>().title(), "Presets");
  EXPECT_EQ(show<FreltaPresetsDarkMode>().title(), "Presets");
}

TEST_F(FreltaPresetsScreen, HasAnAddButtonOnlyWhereNothingIsChosen) {
  show();
  ASSERT_NE(addButton(), nullptr);
  EXPECT_EQ(addButton()->systemItem(), UIBarButtonSystemItem::Add);

  show<FreltaPresetsLightMode>();
  EXPECT_EQ(addButton(), nullptr);
  show<FreltaPresetsDarkMode>();
  EXPECT_EQ(addButton(), nullptr);
}

TEST_F(FreltaPresetsScreen, OfAnEmptyFolderIsAnEmptyTable) {
  show();

  EXPECT_EQ(screen->tableView().numberOfSections(), 1);
  EXPECT_EQ(screen->tableView().numberOfRowsInSection(0), 0);
  EXPECT_THAT(screen->tableView().subviews(), IsEmpty());
}

TEST_F(FreltaPresetsScreen, ShowsThePresetsNamesInRowsOfSixtyPoints) {
  putPreset("My preset", {});
  putPreset("a.b", {});
  show();

  for (const std::string name : {"My preset", "a.b"}) {
    const UITableViewCell* cell = screen->tableView().cellForRowAtIndexPath({0, rowOf(name)});
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->textLabel()->text(), name);
    EXPECT_EQ(cell->frame().size.height, 60);
    EXPECT_EQ(cell->reuseIdentifier(), "Cell");
    EXPECT_EQ(cell->style(), UITableViewCellStyle::Default);
  }
}

TEST_F(FreltaPresetsScreen, ListsTheFolderOnceAndNotAgainWhenItIsShownAgain) {
  putPreset("A", {});
  show();
  putPreset("B", {});

  navigation->pushViewController(std::make_shared<UIViewController>(), false);
  navigation->popViewControllerAnimated(false);
  window.layoutIfNeeded();

  EXPECT_THAT(screen->presetsArray(), ElementsAre(kPresetA));
  EXPECT_EQ(platform.files.count(Operation::Contents), 1u);
}

TEST_F(FreltaPresetsScreen, TicksTheAppliedPresetAndEachVariantItsChoice) {
  for (const char* name : {"A", "B", "C"}) putPreset(name, {});
  putSettings({{"CurrentPreset", kPresetA},
               {"FreltaPresetsLightMode", kPresetB},
               {"FreltaPresetsDarkMode", pathOf("C")}});

  show();
  EXPECT_THAT(tickedNames(), ElementsAre("A"));
  show<FreltaPresetsLightMode>();
  EXPECT_THAT(tickedNames(), ElementsAre("B"));
  show<FreltaPresetsDarkMode>();
  EXPECT_THAT(tickedNames(), ElementsAre("C"));
}

TEST_F(FreltaPresetsScreen, TicksNothingForAValueThatIsNoPath) {
  putPreset("A", {});
  putSettings({{"CurrentPreset", Array{kPresetA}}});

  show();

  EXPECT_THAT(tickedNames(), IsEmpty());
}

TEST_F(FreltaPresetsScreen, ReadsTheSettingsFileOnceForAllRows) {
  for (int i = 0; i < 10; ++i) putPreset(std::to_string(i), {});
  putSettings({{"CurrentPreset", pathOf("3")}});

  show();

  EXPECT_THAT(tickedNames(), ElementsAre("3"));
  EXPECT_EQ(readsOf(kSettingsPath), 1u);
}

TEST_F(FreltaPresetsScreen, ATapInAVariantStoresThePathTicksTheRowAndTellsOnce) {
  putPreset("A", {{"HideKeyCaps", 0}});
  putSettings({{"HideKeyCaps", 1}, {"CurrentPreset", kPresetB}});
  show<FreltaPresetsLightMode>();

  tapRow(0);

  EXPECT_EQ(settingsFile(), (Dictionary{{"HideKeyCaps", 1},
                                        {"CurrentPreset", kPresetB},
                                        {"FreltaPresetsLightMode", kPresetA}}));
  EXPECT_THAT(tickedNames(), ElementsAre("A"));
  EXPECT_THAT(platform.notifications.posted, ElementsAre(kRefresh));
  EXPECT_EQ(alert(), nullptr);
  EXPECT_FALSE(exists(kBackupPath));
  EXPECT_EQ(screen->tableView().indexPathForSelectedRow(), std::nullopt);
}

TEST_F(FreltaPresetsScreen, ATapInAVariantTellsWhenThePathIsStoredAndTheRowTicked) {
  putPreset("A", {});
  show<FreltaPresetsLightMode>();
  std::vector<std::string> ticked;
  std::optional<PropertyListValue> stored;
  platform.notifications.whenPosted = [&](std::string_view) {
    stored = pref("FreltaPresetsLightMode");
    ticked = tickedNames();
  };

  tapRow(0);

  EXPECT_EQ(stored, PropertyListValue(kPresetA));
  EXPECT_THAT(ticked, ElementsAre("A"));
}

TEST_F(FreltaPresetsScreen, ATapInTheDarkVariantStoresAPathWhoseFileIsGoneToo) {
  putPreset("A", {});
  show<FreltaPresetsDarkMode>();
  std::filesystem::remove(platform.hostPath(kPresetA));

  tapRow(0);

  EXPECT_EQ(settingsFile(), (Dictionary{{"FreltaPresetsDarkMode", kPresetA}}));
  EXPECT_THAT(platform.notifications.posted, ElementsAre(kRefresh));
}

TEST_F(FreltaPresetsScreen, ATapAsksAndConfirmingAppliesTicksAndTellsOnce) {
  putPreset("A", {});
  putSettings({{"HideKeyCaps", 0}});
  const std::string before = platform.get(kSettingsPath);
  show();

  tapRow(0);
  EXPECT_EQ(settingsFile(), (Dictionary{{"HideKeyCaps", 0}}));
  press("Confirm");

  EXPECT_EQ(settingsFile(), (Dictionary{{"CurrentPreset", kPresetA}}));
  EXPECT_EQ(platform.get(kBackupPath), before);
  EXPECT_THAT(tickedNames(), ElementsAre("A"));
  EXPECT_THAT(platform.notifications.posted, ElementsAre(kRefresh));
  EXPECT_EQ(platform.files.count(Operation::Contents), 2u);
  EXPECT_EQ(alert(), nullptr);
}

TEST_F(FreltaPresetsScreen, CancellingAppliesNothing) {
  putPreset("A", {});
  putSettings({{"HideKeyCaps", 0}});
  show();

  tapRow(0);
  press("Cancel");

  EXPECT_EQ(settingsFile(), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_EQ(writes(), 0u);
  EXPECT_THAT(platform.notifications.posted, IsEmpty());
}

TEST_F(FreltaPresetsScreen, EveryRowOfEveryVariantOffersDeleteThenShare) {
  putPreset("A", {});
  const auto showVariant = [&](int variant) {
    if (variant == 0) show();
    if (variant == 1) show<FreltaPresetsLightMode>();
    if (variant == 2) show<FreltaPresetsDarkMode>();
  };
  for (const int variant : {0, 1, 2}) {
    showVariant(variant);

    const auto actions = screen->tableView().rowActionsForRowAtIndexPath({0, 0});

    ASSERT_THAT(actions, SizeIs(2));
    EXPECT_EQ(actions[0]->title(), "Delete");
    EXPECT_EQ(actions[0]->style(), UITableViewRowActionStyle::Normal);
    EXPECT_EQ(actions[0]->backgroundColor(), UIColor::systemRedColor());
    EXPECT_EQ(actions[1]->title(), "Share");
    EXPECT_EQ(actions[1]->style(), UITableViewRowActionStyle::Normal);
    EXPECT_EQ(actions[1]->backgroundColor(), UIColor::colorWithRed(0.0, 0.48, 1.0, 1.0));
  }
}

TEST_F(FreltaPresetsScreen, DeletingAsksThenRemovesTheFileAndListsAnew) {
  putPreset("A", {});
  putPreset("B", {});
  putSettings({{"CurrentPreset", kPresetA}});
  show();

  pressRowAction(rowOf("A"), "Delete");
  EXPECT_TRUE(exists(kPresetA));
  press("Confirm");

  EXPECT_THAT(folder(), ElementsAre("B.plist"));
  EXPECT_THAT(screen->presetsArray(), ElementsAre(kPresetB));
  EXPECT_EQ(settingsFile(), (Dictionary{{"CurrentPreset", kPresetA}}));
  EXPECT_THAT(platform.notifications.posted, IsEmpty());
}

TEST_F(FreltaPresetsScreen, DeletingMeansTheRowWhereTheActionIsPressed) {
  putPreset("A", {});
  putPreset("B", {});
  show();
  const auto actions = screen->tableView().rowActionsForRowAtIndexPath({0, rowOf("A")});

  screen->tableView().userDidPressRowAction(actions[0], {0, rowOf("B")});
  press("Confirm");

  EXPECT_THAT(folder(), ElementsAre("A.plist"));
}

TEST_F(FreltaPresetsScreen, RowActionsThatOutliveItDoNothing) {
  putPreset("A", {});
  show();
  const auto actions = screen->tableView().rowActionsForRowAtIndexPath({0, 0});
  const std::weak_ptr<FreltaPresets> left = screen;
  screen.reset();
  navigation->popViewControllerAnimated(false);
  ASSERT_TRUE(left.expired());

  for (const auto& action : actions) action->perform({0, 0});
  platform.mainQueue.runPending();

  EXPECT_EQ(alert(), nullptr);
  EXPECT_THAT(folder(), ElementsAre("A.plist"));
}

TEST_F(FreltaPresetsScreen, SharingMeansTheRowWhoseActionsTheyWere) {
  putPreset("A", {});
  putPreset("B", {});
  show();
  const auto actions = screen->tableView().rowActionsForRowAtIndexPath({0, rowOf("A")});

  screen->tableView().userDidPressRowAction(actions[1], {0, rowOf("B")});
  platform.mainQueue.runPending();

  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->title(), "Share \"A\"...");
}

TEST_F(FreltaPresetsScreen, SharingShowsItsAlertOnTheNextTurnOfTheMainQueue) {
  putPreset("A", {});
  show();

  pressRowAction(0, "Share");
  EXPECT_EQ(alert(), nullptr);
  EXPECT_EQ(platform.mainQueue.pending(), 1u);
  platform.mainQueue.runPending();

  EXPECT_NE(alert(), nullptr);
}

TEST_F(FreltaPresetsScreen, SharingWhatJSONCannotHoldOrNobodyCanReadIsAnUncaughtException) {
  putPreset("Dated", {{"A", Date{0}}});
  platform.put(pathOf("Foreign"), "foreign");
  show();

  EXPECT_THROW(pressRowAction(rowOf("Dated"), "Share"), std::invalid_argument);
  EXPECT_THROW(pressRowAction(rowOf("Foreign"), "Share"), std::invalid_argument);

  EXPECT_EQ(platform.mainQueue.pending(), 0u);
  EXPECT_EQ(alert(), nullptr);
}

TEST_F(FreltaPresetsScreen, GoneBeforeTheMainQueueTurnsSharesNothing) {
  putPreset("A", {});
  show();
  pressRowAction(0, "Share");
  screen.reset();
  navigation->popViewControllerAnimated(false);

  platform.mainQueue.runPending();

  EXPECT_EQ(alert(), nullptr);
  EXPECT_THAT(platform.mainQueue.exceptions, IsEmpty());
}

TEST_F(FreltaPresetsScreen, SavingAppliesAndTicksTheNewPreset) {
  putSettings({{"HideKeyCaps", 0}});
  FreltaPresets& shown = show();

  shown.savePresetWithName("  a  ");

  EXPECT_THAT(folder(), ElementsAre("  a  .plist"));
  EXPECT_EQ(presetFile("  a  "), (Dictionary{{"HideKeyCaps", 0}}));
  EXPECT_EQ(settingsFile(), (Dictionary{{"CurrentPreset", pathOf("  a  ")}}));
  EXPECT_THAT(tickedNames(), ElementsAre("  a  "));
  EXPECT_THAT(platform.notifications.posted, ElementsAre(kRefresh));
  EXPECT_EQ(writes(), 2u);
}

TEST_F(FreltaPresetsScreen, SavingGoesThroughItsStepsInOrder) {
  putPreset("A", {{"Old", 1}});
  putSettings({{"HideKeyCaps", 0}});
  platform.put(kBackupPath, "old");
  FreltaPresets& shown = show();
  std::vector<std::pair<Operation, std::string>> steps;
  platform.files.beforeCall = [&](const FailingFiles::Call& call) {
    using enum FailingFiles::Operation;
    if (call.operation == Remove || call.operation == Copy || call.operation == Write ||
        call.operation == Contents)
      steps.emplace_back(call.operation, call.path);
  };

  shown.savePresetWithName("A");

  EXPECT_THAT(steps,
              ElementsAre(Pair(Operation::Write, kPresetA), Pair(Operation::Copy, kSettingsPath),
                          Pair(Operation::Write, kSettingsPath),
                          Pair(Operation::Contents, kPresetsFolder)));
}

TEST_F(FreltaPresetsScreen, PresentsEveryAlertAnimated) {
  putPreset("A", {});
  NotingPresets& shown = show<NotingPresets>();
  const std::vector<std::function<void()>> asking = {
      [&] { tapRow(0); },
      [&] { pressRowAction(0, "Delete"); },
      [&] { pressRowAction(0, "Share"); },
      [&] { shown.askForSharedPreset(); },
      [&] { shown.newPresetAlert(); },
      [&] { shown.importPresetAlert(); },
      [&] { shown.validatePresetName(""); },
      [&] { shown.importPresetWithBase64String("", "B"); }};

  for (const auto& ask : asking) {
    ask();
    platform.mainQueue.runPending();
    ASSERT_NE(alert(), nullptr);
    shown.dismissViewControllerAnimated(false);
    ASSERT_EQ(alert(), nullptr);
  }

  EXPECT_EQ(shown.presentedAnimated, std::vector<bool>(asking.size(), true));
}

TEST_F(FreltaPresetsScreen, TakesWhatTheFrameworkTellsEveryControllerAndDoesNothing) {
  putPreset("A", {});
  FreltaPresets& shown = show();
  platform.files.resetCalls();

  shown.setRootController(navigation);
  shown.setParentController(navigation);
  shown.setSpecifier(nullptr);

  EXPECT_EQ(platform.files.calls().size(), 0u);
  EXPECT_THAT(shown.presetsArray(), ElementsAre(kPresetA));
  EXPECT_EQ(alert(), nullptr);
}

TEST_F(FreltaPresetsScreen, SavingWithoutANameMakesOneUp) {
  platform.random.script = {0x01234567, 0x89abcdef, 0xfedcba98, 0x76543210};

  show().savePresetWithName(std::nullopt);

  EXPECT_THAT(folder(), ElementsAre("01234567-89AB-4DEF-BEDC-BA9876543210.plist"));
}

TEST_F(FreltaPresetsScreen, NamesThatDifferInCaseOrUnicodeFormAreDifferentPresets) {
  FreltaPresets& shown = show();

  for (const char* name : {"Name", "name", "\u00e9", "e\u0301"}) shown.savePresetWithName(name);

  EXPECT_THAT(screen->presetsArray(), SizeIs(4));
}

TEST_F(FreltaPresetsScreen, KnowsWhichNamesAreTaken) {
  putPreset("A", {});

  EXPECT_TRUE(FreltaPresets::presetWithNameExists("A"));
  EXPECT_FALSE(FreltaPresets::presetWithNameExists("B"));
  EXPECT_EQ(FreltaPresets::presetsFolder(), "/Library/Frelta/Presets");
}

TEST_F(FreltaPresetsScreen, IsFreedWhenItIsLeftWithAnAlertOpen) {
  putPreset("A", {});
  show();
  tapRow(0);
  const std::weak_ptr<FreltaPresets> left = screen;
  screen.reset();

  window.setRootViewController(nullptr);
  navigation.reset();

  EXPECT_TRUE(left.expired());
}

}  // namespace
}  // namespace frelta
