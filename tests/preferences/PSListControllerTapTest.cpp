#include "preferences/PSListItemsController.h"
#include "tests/preferences/ListPageTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// A page that is no list page but wants to know where it came from.
class DetailPage : public UIViewController, public PSController {
 public:
  void setRootController(std::weak_ptr<UIViewController> controller) override { root = controller; }
  void setParentController(std::weak_ptr<UIViewController> controller) override {
    parent = controller;
  }
  void setSpecifier(std::shared_ptr<PSSpecifier> value) override { specifier = std::move(value); }
  void setBundle(const PSBundle* value) override { bundle = value; }
  void viewWillAppear(bool animated) override { cameAnimated.push_back(animated); }

  std::weak_ptr<UIViewController> root;
  std::weak_ptr<UIViewController> parent;
  std::shared_ptr<PSSpecifier> specifier;
  const PSBundle* bundle = nullptr;
  std::vector<bool> cameAnimated;
};

class PSListControllerTapTest : public ListPageTest {
 protected:
  Dictionary sizes() {
    return row("PSLinkListCell", "Size",
               {{"validValues", Array{0, 1, 2}},
                {"validTitles", Array{"Small", "Medium", "Large"}},
                {"default", 1}});
  }
  UIViewController* top() { return navigation->topViewController(); }
};

TEST_F(PSListControllerTapTest, AButtonRunsItsActionOnTheRowsPage) {
  std::vector<std::pair<UIViewController*, std::string>> pressed;
  bundle.registry.registerAction("press", [&](UIViewController& target, PSSpecifier& specifier) {
    pressed.emplace_back(&target, specifier.identifier());
  });
  const auto page = showTestPage({row("PSButtonCell", "A", {{"action", "press"}})});

  tap(*page, "A");

  EXPECT_THAT(pressed, ElementsAre(Pair(page.get(), "A")));
  EXPECT_EQ(page->table().indexPathForSelectedRow(), std::nullopt);
}

TEST_F(PSListControllerTapTest, ALinkPushesItsPageWithTitleAndOrigin) {
  bundle.registry.registerController("Detail", [] { return std::make_shared<DetailPage>(); });
  const auto page = showTestPage({row("PSLinkCell", "A", {{"detail", "Detail"}})});

  tap(*page, "A");

  auto* pushed = dynamic_cast<DetailPage*>(top());
  ASSERT_TRUE(pushed);
  EXPECT_EQ(navigation->viewControllers().size(), 2u);
  EXPECT_EQ(pushed->title(), "A");
  EXPECT_EQ(pushed->root.lock(), page);
  EXPECT_EQ(pushed->parent.lock(), page);
  EXPECT_EQ(pushed->specifier, page->specifierForID("A"));
  EXPECT_EQ(pushed->bundle, &bundle);
  EXPECT_THAT(pushed->cameAnimated, ElementsAre(true));
  EXPECT_EQ(page->table().indexPathForSelectedRow(), std::nullopt);
}

TEST_F(PSListControllerTapTest, TheRootPageStaysTheSameDownTheStack) {
  bundle.registry.registerController("Test", [] { return std::make_shared<TestPage>(); });
  bundle.registry.registerController("Detail", [] { return std::make_shared<DetailPage>(); });
  const auto page = showTestPage({row("PSLinkCell", "again", {{"detail", "Test"}}),
                                  row("PSLinkCell", "last", {{"detail", "Detail"}})});

  tap(*page, "again");
  layout();
  auto* second = dynamic_cast<TestPage*>(top());
  ASSERT_TRUE(second);
  tap(*second, "last");

  auto* pushed = dynamic_cast<DetailPage*>(top());
  ASSERT_TRUE(pushed);
  EXPECT_EQ(pushed->root.lock(), page);
  EXPECT_EQ(pushed->parent.lock().get(), second);
}

TEST_F(PSListControllerTapTest, RowsThatLeadNowhereDoNothing) {
  const auto page = showTestPage({row("PSLinkCell", "unknown", {{"detail", "NoPage"}}),
                                  row("PSLinkCell", "nothing"), row("PSSwitchCell", "switch"),
                                  row("PSStaticTextCell", "text"), row("PSButtonCell", "button")});

  for (const char* identifier : {"unknown", "nothing", "switch", "text", "button"}) {
    tap(*page, identifier);
  }

  EXPECT_EQ(navigation->viewControllers().size(), 1u);
  EXPECT_THAT(page->writes, IsEmpty());
  EXPECT_EQ(page->table().indexPathForSelectedRow(), std::nullopt);
}

TEST_F(PSListControllerTapTest, ACellMayPutItsOwnActionInPlaceOfTheRows) {
  int own = 0;
  int described = 0;
  bundle.registry.registerAction("press", [&](UIViewController&, PSSpecifier&) { ++described; });
  const auto page = showTestPage({row("PSButtonCell", "A", {{"action", "press"}})});

  page->specifierForID("A")->setButtonAction([&] { ++own; });
  tap(*page, "A");

  EXPECT_EQ(own, 1);
  EXPECT_EQ(described, 0);
}

TEST_F(PSListControllerTapTest, ACellsOwnActionComesBeforeItsRowsAndMakesItPressable) {
  static int own;
  class ActingCell : public PSTableCell {
   public:
    using PSTableCell::PSTableCell;
    PSSpecifier::Action cellAction() override {
      return [] { ++own; };
    }
  };
  own = 0;
  int described = 0;
  bundle.registry.registerAction("press", [&](UIViewController&, PSSpecifier&) { ++described; });
  bundle.registry.registerCell("ActingCell", [](UITableViewCellStyle style, std::string identifier,
                                                std::shared_ptr<PSSpecifier> specifier) {
    return std::make_unique<ActingCell>(style, std::move(identifier), std::move(specifier));
  });
  const auto page =
      showTestPage({row("PSButtonCell", "A", {{"action", "press"}, {"cellClass", "ActingCell"}}),
                    row("PSLinkCell", "B", {{"cellClass", "ActingCell"}})});

  tap(*page, "A");
  tap(*page, "B");

  EXPECT_EQ(own, 2);
  EXPECT_EQ(described, 0);
  EXPECT_EQ(cell(*page, "B")->selectionStyle(), UITableViewCellSelectionStyle::Default);
  EXPECT_EQ(cell(*page, "B")->accessoryType(), UITableViewCellAccessoryType::DisclosureIndicator);
}

TEST_F(PSListControllerTapTest, ALinkOnAPageOutsideAnyStackOrToAPageThatIsNotMadeDoesNothing) {
  bundle.registry.registerController("Detail", [] { return std::make_shared<DetailPage>(); });
  bundle.registry.registerController("None",
                                     []() -> std::shared_ptr<UIViewController> { return nullptr; });
  const Array rows{row("PSLinkCell", "A", {{"detail", "Detail"}}),
                   row("PSLinkCell", "none", {{"detail", "None"}})};
  describe(rows);
  const auto loose = std::make_shared<TestPage>();
  loose->setBundle(&bundle);
  loose->table().setFrame({0, 0, 320, 400});
  loose->table().layoutIfNeeded();
  const auto page = showTestPage(rows);

  tap(*loose, "A");
  tap(*page, "none");

  EXPECT_EQ(top(), page.get());
}

TEST_F(PSListControllerTapTest, AListOfValuesWithoutARowOfItsOwnIsEmpty) {
  const auto items = std::make_shared<PSListItemsController>();

  show(items);

  EXPECT_THAT(items->specifiers(), IsEmpty());
}

TEST_F(PSListControllerTapTest, AnActionMayReloadThePageThatItIsOn) {
  bundle.registry.registerAction("reload", [&](UIViewController& target, PSSpecifier& specifier) {
    auto& page = dynamic_cast<TestPage&>(target);
    page.hidden = {"A"};
    page.reloadSpecifiers();
    layout();
    page.values["seen"] = specifier.identifier();
  });
  const auto page =
      showTestPage({row("PSButtonCell", "A", {{"action", "reload"}}), row("PSSwitchCell", "B")});

  tap(*page, "A");

  EXPECT_EQ(page->values.at("seen"), PropertyListValue("A"));
  EXPECT_THAT(shownRows(*page), ElementsAre(ElementsAre("B")));
}

TEST_F(PSListControllerTapTest, ALinkListShowsItsValueAndOffersTheOthers) {
  const auto page = showTestPage({sizes()});
  const std::string shown = cell(*page, "Size")->detailTextLabel()->text();

  tap(*page, "Size");
  layout();

  auto* items = dynamic_cast<PSListItemsController*>(top());
  ASSERT_TRUE(items);
  EXPECT_EQ(shown, "Medium");
  EXPECT_EQ(items->title(), "Size");
  ASSERT_THAT(shownRows(*items), ElementsAre(ElementsAre("ITEM-0", "ITEM-1", "ITEM-2")));
  EXPECT_EQ(cell(*items, "ITEM-2")->textLabel()->text(), "Large");
  EXPECT_FALSE(cell(*items, "ITEM-0")->accessibility().on);
  EXPECT_TRUE(cell(*items, "ITEM-1")->accessibility().on);
}

TEST_F(PSListControllerTapTest, AChoiceIsStoredAndCheckedAndThePageStays) {
  const auto page = showTestPage({sizes()});
  tap(*page, "Size");
  layout();
  auto* items = dynamic_cast<PSListItemsController*>(top());
  ASSERT_TRUE(items);

  tap(*items, "ITEM-2");
  layout();

  EXPECT_EQ(top(), items);
  EXPECT_THAT(page->writes, ElementsAre(Pair("Size", PropertyListValue(2))));
  EXPECT_EQ(cell(*items, "ITEM-1")->accessoryType(), UITableViewCellAccessoryType::None);
  EXPECT_EQ(cell(*items, "ITEM-2")->accessoryType(), UITableViewCellAccessoryType::Checkmark);
}

TEST_F(PSListControllerTapTest, AChoiceShowsOnThePageBelow) {
  const auto page = showTestPage({sizes()});
  tap(*page, "Size");
  layout();

  tap(*dynamic_cast<PSListController*>(top()), "ITEM-2");
  navigation->popViewControllerAnimated(false);
  layout();

  EXPECT_EQ(cell(*page, "Size")->detailTextLabel()->text(), "Large");
}

TEST_F(PSListControllerTapTest, AChoiceShowsOnThePageBelowEvenIfItReloadsItsRows) {
  const auto page = showTestPage({sizes()});
  page->onWrite = [&](PSSpecifier&) { page->reloadSpecifiers(); };
  tap(*page, "Size");
  layout();

  tap(*dynamic_cast<PSListController*>(top()), "ITEM-0");
  navigation->popViewControllerAnimated(false);
  layout();

  EXPECT_EQ(cell(*page, "Size")->detailTextLabel()->text(), "Small");
}

TEST_F(PSListControllerTapTest, AChoiceWithoutThePageBelowIsHarmless) {
  auto page = std::make_shared<TestPage>();
  auto row = std::make_shared<PSSpecifier>(
      PSCellType::PSLinkListCell, "Size",
      Dictionary{{"validValues", Array{0}}, {"validTitles", Array{"Small"}}});
  row->setTarget(page.get());
  auto items = std::make_shared<PSListItemsController>();
  items->setParentController(page);
  items->setSpecifier(row);
  page.reset();

  show(items);
  tap(*items, "ITEM-0");
  layout();

  EXPECT_EQ(cell(*items, "ITEM-0")->accessoryType(), UITableViewCellAccessoryType::Checkmark);
}

}  // namespace
}  // namespace frelta
