#include "preferences/PSEditableTableCell.h"
#include "preferences/PSSwitchTableCell.h"
#include "tests/preferences/ListPageTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// Reads its value when it is made and counts its kind.
class CountedCell : public PSTableCell {
 public:
  CountedCell(std::string reuseIdentifier, std::shared_ptr<PSSpecifier> specifier)
      : PSTableCell(UITableViewCellStyle::Value1, std::move(reuseIdentifier),
                    std::move(specifier)) {
    ++made;
    ++alive;
    const auto value = readValue();
    detailTextLabel()->setText(value && value->string() ? *value->string() : "");
  }
  ~CountedCell() override { --alive; }
  using PSTableCell::writeValue;

  static inline int made = 0;
  static inline int alive = 0;
};

class PSListControllerCellsTest : public ListPageTest {
 protected:
  PSListControllerCellsTest() {
    CountedCell::made = 0;
    CountedCell::alive = 0;
    bundle.registry.registerCell(
        "CountedCell", [](UITableViewCellStyle, std::string, std::shared_ptr<PSSpecifier> row) {
          return std::make_unique<CountedCell>("Cell", std::move(row));
        });
  }
  static Dictionary counted(const std::string& key) {
    return row("PSStaticTextCell", key, {{"cellClass", "CountedCell"}});
  }
};

TEST_F(PSListControllerCellsTest, EachRowIsReadOncePerLoad) {
  const auto page = showTestPage(
      {row("PSSwitchCell", "A"), row("PSTitleValueCell", "B"), row("PSStaticTextCell", "C")});
  const std::vector<std::string> first = std::exchange(page->reads, {});

  navigation->view().setFrame({0, 0, 640, 4000});
  layout();
  const std::vector<std::string> afterResize = std::exchange(page->reads, {});
  page->reloadSpecifiers();
  layout();

  EXPECT_THAT(first, ElementsAre("A", "B"));
  EXPECT_THAT(afterResize, IsEmpty());
  EXPECT_THAT(page->reads, ElementsAre("A", "B"));
}

TEST_F(PSListControllerCellsTest, ScrollingAwayAndBackReadsNothing) {
  Array rows;
  for (int i = 0; i < 100; ++i) rows.push_back(row("PSSwitchCell", "R" + std::to_string(i)));
  navigation->view().setFrame({0, 0, 320, 400});
  const auto page = showTestPage(std::move(rows));
  page->reads.clear();

  page->table().userDidScroll({0, 3000});
  layout();
  page->table().userDidScroll({0, 0});
  layout();

  EXPECT_THAT(page->reads, IsEmpty());
  EXPECT_EQ(cell(*page, "R0")->textLabel()->text(), "R0");
  EXPECT_LT(page->table().indexPathsForVisibleRows().size(), 30u);
}

TEST_F(PSListControllerCellsTest, ARowKeepsItsCellWhenThePageIsReloaded) {
  const auto page = showTestPage({row("PSSwitchCell", "A"), row("PSSwitchCell", "B")});
  const auto* before = cell(*page, "B");
  page->hidden = {"A"};
  page->values["B"] = 1;

  page->reloadSpecifiers();
  layout();

  EXPECT_EQ(cell(*page, "B"), before);
  EXPECT_EQ(cell(*page, "B")->specifier(), page->specifierForID("B"));
  EXPECT_TRUE(cell<PSSwitchTableCell>(*page, "B")->control()->isOn());
}

TEST_F(PSListControllerCellsTest, ARowThatWasHiddenComesBackUpToDate) {
  const auto page = showTestPage({row("PSSwitchCell", "A"), row("PSSwitchCell", "B")});
  page->hidden = {"A"};
  page->reloadSpecifiers();
  layout();
  page->hidden = {};
  page->values["A"] = 1;

  page->reloadSpecifiers();
  layout();

  EXPECT_TRUE(cell<PSSwitchTableCell>(*page, "A")->control()->isOn());
}

TEST_F(PSListControllerCellsTest, RowsWithTheSameKeyHaveACellEach) {
  const auto page = showTestPage({row("PSSwitchCell", "A"), row("PSSwitchCell", "A")});

  page->reloadSpecifiers();
  layout();

  const auto* first = page->table().cellForRowAtIndexPath({0, 0});
  const auto* second = page->table().cellForRowAtIndexPath({0, 1});
  EXPECT_NE(first, second);
  EXPECT_THAT(shownRows(*page), ElementsAre(ElementsAre("A", "A")));
}

TEST_F(PSListControllerCellsTest, ARegisteredCellIsMadeAnewAtEveryLoadAndTheOldOneGoes) {
  const auto page = showTestPage({counted("A"), counted("B")});
  const int madeFirst = CountedCell::made;
  page->values["A"] = "new";

  page->reloadSpecifiers();
  layout();
  layout();

  EXPECT_EQ(madeFirst, 2);
  EXPECT_EQ(CountedCell::made, 4);
  EXPECT_EQ(CountedCell::alive, 2);
  EXPECT_EQ(cell(*page, "A")->detailTextLabel()->text(), "new");
  EXPECT_EQ(cell(*page, "B")->detailTextLabel()->text(), "");
}

TEST_F(PSListControllerCellsTest, ARowOfAGivenHeightGetsItsCellOnlyWhenItComesNearTheScreen) {
  Array rows;
  for (int i = 0; i < 100; ++i) rows.push_back(row("PSSwitchCell", "R" + std::to_string(i)));
  Dictionary last = counted("last");
  last.insert_or_assign("height", 60);
  rows.push_back(last);
  navigation->view().setFrame({0, 0, 320, 400});
  const auto page = showTestPage(std::move(rows));
  const int madeFarAway = CountedCell::made;

  page->table().userDidScroll({0, 1e9});
  layout();

  EXPECT_EQ(madeFarAway, 0);
  EXPECT_EQ(CountedCell::made, 1);
  EXPECT_EQ(cell(*page, "last")->frame().size.height, 60);
}

TEST_F(PSListControllerCellsTest, ReloadingOneRowReadsThatRowAlone) {
  const auto page =
      showTestPage({row("PSSwitchCell", "A"), row("PSSwitchCell", "B"), counted("C")});
  page->reads.clear();
  page->values["A"] = 1;

  page->reloadSpecifierID("A");
  layout();

  EXPECT_THAT(page->reads, ElementsAre("A"));
  EXPECT_TRUE(cell<PSSwitchTableCell>(*page, "A")->control()->isOn());
  EXPECT_EQ(CountedCell::made, 1);
}

TEST_F(PSListControllerCellsTest, ReloadingOneRegisteredCellMakesItAnew) {
  const auto page = showTestPage({counted("A"), counted("B")});
  page->values["A"] = "new";

  page->reloadSpecifierID("A");
  layout();

  EXPECT_EQ(CountedCell::made, 3);
  EXPECT_EQ(cell(*page, "A")->detailTextLabel()->text(), "new");
}

TEST_F(PSListControllerCellsTest, ReloadingAnUnknownRowDoesNothing) {
  const auto page = showTestPage({row("PSSwitchCell", "A")});
  page->reads.clear();

  page->reloadSpecifierID("User-Agent");
  layout();

  EXPECT_THAT(page->reads, IsEmpty());
}

TEST_F(PSListControllerCellsTest, ReloadingARowOfAnotherPageOrAFormerOneDoesNothing) {
  class CountedPage : public TestPage {
   public:
    int numberOfSectionsInTableView(UITableView& table) override {
      ++tableLoads;
      return TestPage::numberOfSectionsInTableView(table);
    }
    int tableLoads = 0;
  };
  describe({row("PSSwitchCell", "A")});
  const auto page = std::make_shared<CountedPage>();
  show(page);
  const auto former = page->specifierForID("A");
  page->reloadSpecifiers();
  layout();
  page->reads.clear();
  page->tableLoads = 0;

  page->reloadSpecifier(*former);
  page->reloadSpecifier(PSSpecifier(PSCellType::PSSwitchCell, "A"));
  layout();

  EXPECT_THAT(page->reads, IsEmpty());
  EXPECT_EQ(page->tableLoads, 0);
}

TEST_F(PSListControllerCellsTest, AReadMayReloadAnotherRowWithoutEnd) {
  describe({row("PSTitleValueCell", "agent"), row("PSTitleValueCell", "device")});
  auto page = std::make_shared<TestPage>();
  page->onRead = [&](PSSpecifier& specifier) {
    if (specifier.identifier() != "device") return;
    page->values["agent"] = "changed";
    page->reloadSpecifierID("agent");
  };

  show(page);
  layout();
  layout();

  EXPECT_THAT(page->reads, ElementsAre("agent", "device", "agent"));
  EXPECT_EQ(cell(*page, "agent")->detailTextLabel()->text(), "changed");
  page->onRead = nullptr;
}

TEST_F(PSListControllerCellsTest, ASwitchOutlivesTheReloadThatItCauses) {
  const auto page = showTestPage({row("PSSwitchCell", "A"), row("PSSwitchCell", "B")});
  page->onWrite = [&](PSSpecifier&) {
    page->hidden = {"A"};
    page->reloadSpecifiers();
    layout();
  };

  cell<PSSwitchTableCell>(*page, "A")->control()->toggle();

  ASSERT_EQ(page->writes.size(), 1u);
  EXPECT_EQ(page->writes[0].first, "A");
  EXPECT_THAT(shownRows(*page), ElementsAre(ElementsAre("B")));
}

TEST_F(PSListControllerCellsTest, ARegisteredCellOutlivesTheReloadThatItCauses) {
  const auto page = showTestPage({counted("A")});
  int aliveDuringWrite = 0;
  page->onWrite = [&](PSSpecifier&) {
    page->reloadSpecifiers();
    navigation->view().layoutIfNeeded();
    aliveDuringWrite = CountedCell::alive;
  };

  cell<CountedCell>(*page, "A")->writeValue("x");
  layout();

  EXPECT_EQ(aliveDuringWrite, 2);
  EXPECT_EQ(CountedCell::alive, 1);
  EXPECT_EQ(cell(*page, "A")->detailTextLabel()->text(), "x");
}

TEST_F(PSListControllerCellsTest, EveryCellCarriesItsRowsIdentifier) {
  const auto page = showTestPage({row("PSSwitchCell", "A"), row("PSEditTextCell", "B"),
                                  counted("C"), row("PSSegmentCell", "D")});

  EXPECT_THAT(shownRows(*page), ElementsAre(ElementsAre("A", "B", "C", "D")));
}

TEST_F(PSListControllerCellsTest, TextBeingTypedIsStoredWhenAReloadEndsTheEditing) {
  const auto page = showTestPage({row("PSSwitchCell", "A"), row("PSEditTextCell", "B")});
  UITextField* field = cell<PSEditableTableCell>(*page, "B")->textField();
  field->becomeFirstResponder();
  field->userDidEdit("typed");

  page->reloadSpecifiers();
  layout();

  EXPECT_THAT(page->writes, ElementsAre(testing::Pair("B", PropertyListValue("typed"))));
  EXPECT_EQ(cell<PSEditableTableCell>(*page, "B")->textField()->text(), "typed");
}

}  // namespace
}  // namespace frelta
