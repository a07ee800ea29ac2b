#include "preferences/PSListController.h"

#include "tests/preferences/ListPageTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using PSListControllerTest = ListPageTest;

TEST_F(PSListControllerTest, ShowsTheRowsInTheirGroups) {
  const auto page = showTestPage({row("PSStaticTextCell", "First"), group("Group"),
                                  row("PSSwitchCell", "A"), row("PSSwitchCell", "B")});

  EXPECT_THAT(shownRows(*page), ElementsAre(ElementsAre("First"), ElementsAre("A", "B")));
  EXPECT_EQ(page->titleForHeaderInSection(page->table(), 0), "");
  EXPECT_EQ(page->titleForHeaderInSection(page->table(), 1), "Group");
  EXPECT_EQ(page->table().style(), UITableViewStyle::InsetGrouped);
}

TEST_F(PSListControllerTest, AGroupShowsItsFooterText) {
  Dictionary described = group();
  described.insert({"footerText", "Why."});

  const auto page = showTestPage({described, row("PSSwitchCell", "A")});

  EXPECT_EQ(page->titleForFooterInSection(page->table(), 0), "Why.");
}

TEST_F(PSListControllerTest, AGroupThatLostItsRowsIsNotShownButOneDescribedWithoutRowsIs) {
  describe({group("Lost"), row("PSSwitchCell", "A"), group("Only a title"), group("Kept"),
            row("PSSwitchCell", "B")});
  auto page = std::make_shared<TestPage>();
  page->hidden = {"A"};

  show(page);

  EXPECT_THAT(shownRows(*page), ElementsAre(IsEmpty(), ElementsAre("B")));
  EXPECT_EQ(page->titleForHeaderInSection(page->table(), 0), "Only a title");
}

TEST_F(PSListControllerTest, RowsWithoutAnyGroupFormOneSection) {
  describe({group("One"), row("PSSwitchCell", "A"), group("Two"), row("PSSwitchCell", "B")});
  auto page = std::make_shared<TestPage>();
  page->hidden = {"GROUP-0", "GROUP-2"};

  show(page);

  EXPECT_THAT(shownRows(*page), ElementsAre(ElementsAre("A", "B")));
}

TEST_F(PSListControllerTest, TakesItsTitleFromTheDescription) {
  bundle.describe("Test", Dictionary{{"title", "Described"}, {"items", Array{}}});
  auto page = std::make_shared<TestPage>();
  page->setTitle("Before");

  show(page);

  EXPECT_EQ(page->title(), "Described");
}

TEST_F(PSListControllerTest, AMissingDescriptionIsAnEmptyPageAndOneLogLine) {
  auto page = std::make_shared<TestPage>();

  show(page);
  page->reloadSpecifiers();
  layout();

  EXPECT_EQ(page->table().numberOfSections(), 0);
  EXPECT_THAT(platform.log.lines,
              ElementsAre("[Frelta] loadSpecifiersFromPlistName Test: missing"));
}

TEST_F(PSListControllerTest, AMalformedDescriptionIsAnEmptyPageAndOneLogLine) {
  bundle.resources["Test.plist"] = "<plist><dict>";
  auto page = std::make_shared<TestPage>();

  show(page);

  EXPECT_EQ(page->table().numberOfSections(), 0);
  EXPECT_THAT(platform.log.lines,
              ElementsAre("[Frelta] loadSpecifiersFromPlistName Test: not a property list"));
}

TEST_F(PSListControllerTest, APageWithoutABundleIsEmpty) {
  auto page = std::make_shared<TestPage>();

  navigation->pushViewController(page, false);
  layout();

  EXPECT_EQ(page->table().numberOfSections(), 0);
  EXPECT_EQ(platform.log.lines.size(), 1u);
}

TEST_F(PSListControllerTest, ARowThatAsksForSomethingUnknownShowsAndIsLoggedOnce) {
  const auto page = showTestPage({row("PSButtonCell", "A", {{"action", "noAction"}})});
  page->reloadSpecifiers();
  layout();

  EXPECT_EQ(cell(*page, "A")->textLabel()->text(), "A");
  EXPECT_EQ(cell(*page, "A")->selectionStyle(), UITableViewCellSelectionStyle::None);
  EXPECT_THAT(
      platform.log.lines,
      ElementsAre("[Frelta] loadSpecifiersFromPlistName Test: item 0: unknown action noAction"));
}

TEST_F(PSListControllerTest, ReloadingMakesNewRowsFromADescriptionReadOnce) {
  const auto page = showTestPage({row("PSSwitchCell", "A")});
  const auto before = page->specifierForID("A");

  page->reloadSpecifiers();

  EXPECT_EQ(page->loads, 2);
  EXPECT_NE(page->specifierForID("A"), before);
  EXPECT_EQ(bundle.resourceReads, 1);
}

TEST_F(PSListControllerTest, ReloadingShowsRowsThatCameAndWent) {
  const auto page =
      showTestPage({row("PSSwitchCell", "A"), row("PSSwitchCell", "B"), row("PSSwitchCell", "C")});
  page->hidden = {"B"};

  page->reloadSpecifiers();
  layout();
  const auto without = shownRows(*page);
  page->hidden = {};
  page->reloadSpecifiers();
  layout();

  EXPECT_THAT(without, ElementsAre(ElementsAre("A", "C")));
  EXPECT_THAT(shownRows(*page), ElementsAre(ElementsAre("A", "B", "C")));
}

TEST_F(PSListControllerTest, LoadsItsRowsWithItsView) {
  describe({row("PSSwitchCell", "A")});
  const auto page = std::make_shared<TestPage>();
  page->setBundle(&bundle);

  page->view();

  EXPECT_EQ(page->loads, 1);
}

TEST_F(PSListControllerTest, MayBeReloadedBeforeItHasAView) {
  describe({row("PSSwitchCell", "A")});
  const auto page = std::make_shared<TestPage>();
  page->setBundle(&bundle);

  page->reloadSpecifiers();
  page->reloadSpecifierID("A");

  EXPECT_EQ(page->loads, 1);
  EXPECT_EQ(page->cachedCellForSpecifierID("A"), nullptr);
}

TEST_F(PSListControllerTest, HasTheCellsOfTheRowsInSightAtHand) {
  Array rows;
  for (int i = 0; i < 100; ++i) rows.push_back(row("PSSwitchCell", "R" + std::to_string(i)));
  navigation->view().setFrame({0, 0, 320, 400});
  const auto page = showTestPage(std::move(rows));

  EXPECT_EQ(page->cachedCellForSpecifierID("R1"), cell(*page, "R1"));
  EXPECT_NE(page->cachedCellForSpecifierID("R1"), nullptr);
  EXPECT_EQ(page->cachedCellForSpecifierID("R99"), nullptr);
  EXPECT_EQ(page->cachedCellForSpecifierID("unknown"), nullptr);
}

TEST_F(PSListControllerTest, RowsAreFoundByIdentifierAndPlace) {
  const auto page = showTestPage(
      {group(), row("PSSwitchCell", "A", {{"id", "first"}}), row("PSSwitchCell", "B")});

  const auto first = page->specifierForID("first");

  ASSERT_TRUE(first);
  EXPECT_EQ(page->indexOfSpecifier(*first), 1u);
  EXPECT_EQ(page->indexPathForSpecifier(*first), (IndexPath{0, 0}));
  EXPECT_EQ(page->specifierForID("A"), nullptr);
  EXPECT_EQ(page->indexOfSpecifier(PSSpecifier(PSCellType::Plain, "first")), std::nullopt);
}

TEST_F(PSListControllerTest, ReadsTheDefaultUnlessASubclassKnowsBetter) {
  PSListController page;
  PSSpecifier with(PSCellType::PSSwitchCell, "A", Dictionary{{"default", 1}});
  PSSpecifier without(PSCellType::PSSwitchCell, "B");

  EXPECT_EQ(page.readPreferenceValue(with), PropertyListValue(1));
  EXPECT_EQ(page.readPreferenceValue(without), std::nullopt);
  EXPECT_TRUE(page.specifiers().empty());
}

TEST_F(PSListControllerTest, ATapBeforeTheNextLayoutMeansTheRowThatIsSeen) {
  std::vector<std::string> pressed;
  bundle.registry.registerAction("press", [&](UIViewController&, PSSpecifier& specifier) {
    pressed.push_back(specifier.identifier());
  });
  const auto page = showTestPage({row("PSButtonCell", "A", {{"action", "press"}}),
                                  row("PSButtonCell", "B", {{"action", "press"}})});
  page->hidden = {"A"};

  page->reloadSpecifiers();
  page->table().userDidSelectRowAtIndexPath({0, 1});

  EXPECT_THAT(pressed, ElementsAre("B"));
}

}  // namespace
}  // namespace frelta
