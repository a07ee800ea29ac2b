#include "uikit/UITableViewLayout.h"

#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

class UITableViewLayoutTest : public KitTest {
 protected:
  static void fill(UITableViewLayout& layout, double width) {
    layout.clear(width);
    layout.beginSection("Header");
    layout.addRow(44);
    layout.addRow(60);
    layout.endSection("Footer");
    layout.beginSection("");
    layout.addRow(50);
    layout.endSection("");
    layout.finish();
  }
};

TEST_F(UITableViewLayoutTest, PlainRowsFillTheWidthFromTheTop) {
  UITableViewLayout layout(UITableViewStyle::Plain);

  layout.clear(300);
  layout.beginSection("");
  layout.addRow(44);
  layout.addRow(60);
  layout.endSection("");
  layout.finish();

  EXPECT_EQ(layout.rectForRow({0, 0}), CGRect(0, 0, 300, 44));
  EXPECT_EQ(layout.rectForRow({0, 1}), CGRect(0, 44, 300, 60));
  EXPECT_EQ(layout.contentSize(), (CGSize{300, 104}));
}

TEST_F(UITableViewLayoutTest, GroupedSectionsStandApart) {
  UITableViewLayout layout(UITableViewStyle::Grouped);

  fill(layout, 300);

  // A title of 13 points is one line of 16.
  EXPECT_EQ(layout.sections()[0].headerFrame, CGRect(16, 28, 268, 16));
  EXPECT_EQ(layout.rectForRow({0, 0}), CGRect(0, 51, 300, 44));
  EXPECT_EQ(layout.rectForRow({0, 1}), CGRect(0, 95, 300, 60));
  EXPECT_EQ(layout.sections()[0].footerFrame, CGRect(16, 162, 268, 16));
  EXPECT_EQ(layout.rectForRow({1, 0}), CGRect(0, 206, 300, 50));
  EXPECT_EQ(layout.sections()[1].headerFrame, CGRect());
  EXPECT_EQ(layout.contentSize(), (CGSize{300, 256 + 28}));
}

TEST_F(UITableViewLayoutTest, InsetGroupedRowsAreCardsWithinMargins) {
  UITableViewLayout layout(UITableViewStyle::InsetGrouped);

  fill(layout, 300);

  EXPECT_EQ(layout.rectForRow({0, 0}), CGRect(16, 51, 268, 44));
  EXPECT_EQ(layout.sections()[0].headerFrame, CGRect(32, 28, 236, 16));
}

TEST_F(UITableViewLayoutTest, TheFirstSectionWithoutATitleStartsCloserToTheTop) {
  UITableViewLayout layout(UITableViewStyle::Grouped);

  layout.clear(300);
  layout.beginSection("");
  layout.addRow(44);
  layout.endSection("");

  EXPECT_EQ(layout.rectForRow({0, 0}).minY(), 14);
}

TEST_F(UITableViewLayoutTest, ALongTitleTakesTheLinesItNeeds) {
  UITableViewLayout layout(UITableViewStyle::Grouped);

  layout.clear(100);
  layout.beginSection("eleven char twice char");
  layout.addRow(44);
  layout.endSection("");

  // 68 points hold 10 characters of 6.5.
  EXPECT_EQ(layout.sections()[0].headerFrame.size, (CGSize{68, 47}));
}

TEST_F(UITableViewLayoutTest, ARowWithANegativeHeightIsEmpty) {
  UITableViewLayout layout(UITableViewStyle::Plain);

  layout.clear(300);
  layout.beginSection("");
  layout.addRow(-5);
  layout.addRow(44);
  layout.endSection("");

  EXPECT_EQ(layout.rectForRow({0, 0}), CGRect(0, 0, 300, 0));
  EXPECT_EQ(layout.rectForRow({0, 1}).minY(), 0);
}

TEST_F(UITableViewLayoutTest, RowsThatAreNotThereHaveNoPlace) {
  UITableViewLayout layout(UITableViewStyle::Plain);
  fill(layout, 300);

  for (const IndexPath path : {IndexPath{0, 2}, {0, -1}, {2, 0}, {-1, 0}}) {
    EXPECT_FALSE(layout.contains(path));
    EXPECT_EQ(layout.rectForRow(path), CGRect());
  }
  EXPECT_TRUE(layout.contains({1, 0}));
}

TEST_F(UITableViewLayoutTest, RowsBetweenAreThoseThatShowAnyPart) {
  UITableViewLayout layout(UITableViewStyle::Plain);
  layout.clear(300);
  layout.beginSection("");
  for (int i = 0; i < 10; ++i) layout.addRow(10);
  layout.endSection("");

  EXPECT_EQ(layout.rowsBetween(0, 0, 100), (std::pair{0, 10}));
  EXPECT_EQ(layout.rowsBetween(0, 10, 20), (std::pair{1, 2})) << "edges alone show nothing";
  EXPECT_EQ(layout.rowsBetween(0, 9, 21), (std::pair{0, 3}));
  EXPECT_EQ(layout.rowsBetween(0, -50, 5), (std::pair{0, 1}));
  EXPECT_EQ(layout.rowsBetween(0, 95, 500), (std::pair{9, 10}));
  EXPECT_EQ(layout.rowsBetween(0, 200, 300), (std::pair{10, 10}));
}

TEST_F(UITableViewLayoutTest, ASectionWithoutATitleMayHaveItsOwnRoomAboveItsRows) {
  UITableViewLayout layout(UITableViewStyle::Grouped);
  layout.clear(300);
  layout.beginSection("", 42);
  layout.addRow(10);
  layout.endSection("");
  layout.beginSection("", -3);
  layout.addRow(10);
  layout.endSection("");
  layout.finish();

  EXPECT_EQ(layout.rectForRow({0, 0}), CGRect(0, 42, 300, 10));
  EXPECT_EQ(layout.rectForRow({1, 0}), CGRect(0, 52, 300, 10));
}

TEST_F(UITableViewLayoutTest, ASectionWithoutRowsHasNoneBetween) {
  UITableViewLayout layout(UITableViewStyle::Plain);
  layout.clear(300);
  layout.beginSection("");
  layout.endSection("");

  EXPECT_EQ(layout.rowsBetween(0, -10, 10), (std::pair{0, 0}));
  EXPECT_EQ(layout.sections()[0].rows(), 0);
}

}  // namespace
}  // namespace frelta
