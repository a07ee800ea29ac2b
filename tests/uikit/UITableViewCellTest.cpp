#include "uikit/UITableViewCell.h"

#include "tests/uikit/KitTest.h"
#include "uikit/UISwitch.h"

namespace frelta {
namespace {

/// Texts of 17 points: 8.5 a character, 21 a line.
class UITableViewCellTest : public KitTest {
 protected:
  static std::unique_ptr<UITableViewCell> cellOf(UITableViewCellStyle style, std::string text,
                                                 std::string detail) {
    auto cell = std::make_unique<UITableViewCell>(style, "row");
    cell->textLabel()->setText(std::move(text));
    cell->detailTextLabel()->setText(std::move(detail));
    cell->setFrame({0, 0, 300, 44});
    cell->layoutIfNeeded();
    return cell;
  }
};

TEST_F(UITableViewCellTest, TheTextStandsInTheMiddleOfTheRow) {
  const auto cell = cellOf(UITableViewCellStyle::Default, "text", "");

  EXPECT_EQ(cell->textLabel()->frame(), CGRect(16, 11.5, 268, 21));
  EXPECT_EQ(cell->sizeThatFits({300, 0}), (CGSize{300, 43}));
}

TEST_F(UITableViewCellTest, AValueStandsAtTheTrailingEdge) {
  const auto cell = cellOf(UITableViewCellStyle::Value1, "text", "detail");

  EXPECT_EQ(cell->textLabel()->frame(), CGRect(16, 11.5, 34, 21));
  EXPECT_EQ(cell->detailTextLabel()->frame(), CGRect(284 - 51, 11.5, 51, 21));
}

TEST_F(UITableViewCellTest, ALongValueGivesWayToItsTitle) {
  const auto cell =
      cellOf(UITableViewCellStyle::Value1, std::string(15, 'a'), std::string(40, 'b'));

  const CGRect text = cell->textLabel()->frame();
  const CGRect detail = cell->detailTextLabel()->frame();

  EXPECT_EQ(text.size.width, 128);
  EXPECT_EQ(detail.minX(), text.maxX() + 8);
  EXPECT_EQ(detail.maxX(), 284);
}

TEST_F(UITableViewCellTest, ALongTitleLeavesTheValueItsShare) {
  const auto cell =
      cellOf(UITableViewCellStyle::Value1, std::string(60, 'a'), std::string(60, 'b'));

  // 260 points without the gap, two fifths of them the value's.
  EXPECT_EQ(cell->textLabel()->frame().size.width, 156);
  EXPECT_EQ(cell->detailTextLabel()->frame().size.width, 104);
}

TEST_F(UITableViewCellTest, ASubtitleStandsBelow) {
  const auto cell = cellOf(UITableViewCellStyle::Subtitle, "text", "detail");

  // 21 + 2 + 16 points in 44.
  EXPECT_EQ(cell->textLabel()->frame(), CGRect(16, 2.5, 268, 21));
  EXPECT_EQ(cell->detailTextLabel()->frame(), CGRect(16, 25.5, 268, 16));
  EXPECT_EQ(cell->sizeThatFits({300, 0}).height, 21 + 2 + 16 + 22);
}

TEST_F(UITableViewCellTest, AnAccessoryTakesItsRoomFromTheTexts) {
  const auto cell = cellOf(UITableViewCellStyle::Value1, "text", "detail");
  const auto detailEnd = [&cell] {
    cell->layoutIfNeeded();
    return cell->detailTextLabel()->frame().maxX();
  };

  cell->setAccessoryType(UITableViewCellAccessoryType::DisclosureIndicator);
  const double besideChevron = detailEnd();
  cell->setAccessoryType(UITableViewCellAccessoryType::Checkmark);
  const double besideCheckmark = detailEnd();
  cell->setAccessoryView(std::make_unique<UISwitch>());
  const double besideSwitch = detailEnd();

  EXPECT_EQ(besideChevron, 284 - 8 - 8);
  EXPECT_EQ(besideCheckmark, 284 - 16 - 8);
  EXPECT_EQ(besideSwitch, 284 - 51 - 8);
  EXPECT_EQ(cell->accessoryView()->frame(), CGRect(284 - 51, 6, 51, 31));
}

TEST_F(UITableViewCellTest, ANewAccessoryViewTakesThePlaceOfTheOld) {
  UITableViewCell cell(UITableViewCellStyle::Default, "row");
  cell.setAccessoryView(std::make_unique<UISwitch>());
  const std::size_t one = cell.subviews().size();

  cell.setAccessoryView(std::make_unique<UISwitch>());
  const std::size_t other = cell.subviews().size();
  cell.setAccessoryView(nullptr);

  EXPECT_EQ(other, one);
  EXPECT_EQ(cell.subviews().size(), one - 1);
  EXPECT_EQ(cell.accessoryView(), nullptr);
}

TEST_F(UITableViewCellTest, EachPropertyTellsOncePerChange) {
  UITableViewCell cell(UITableViewCellStyle::Default, "row");
  CountingObserver observer(cell);
  const auto setAll = [&cell] {
    cell.setAccessoryType(UITableViewCellAccessoryType::Checkmark);
    cell.setSelectionStyle(UITableViewCellSelectionStyle::None);
    cell.setSelected(true);
    cell.setGroupPosition(UITableViewCellGroupPosition::First);
  };

  setAll();
  setAll();

  EXPECT_EQ(observer.changes, 4);
}

TEST_F(UITableViewCellTest, IsOneElementWithTheTextsOfItsLabels) {
  using Role = UIAccessibility::Role;
  const auto cell = cellOf(UITableViewCellStyle::Value1, "text", "detail");
  const UIAccessibility tappable = cell->accessibility();

  cell->setSelectionStyle(UITableViewCellSelectionStyle::None);
  const UIAccessibility fixed = cell->accessibility();
  cell->setAccessoryType(UITableViewCellAccessoryType::Checkmark);

  EXPECT_EQ(tappable, (UIAccessibility{true, Role::Button, "text", "detail"}));
  EXPECT_EQ(fixed.role, Role::StaticText);
  EXPECT_FALSE(fixed.on);
  EXPECT_TRUE(cell->accessibility().on);
}

}  // namespace
}  // namespace frelta
