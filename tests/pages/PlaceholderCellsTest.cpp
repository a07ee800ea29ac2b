#include "pages/FreltaHTMLCell.h"
#include "pages/FreltaThemesCell.h"
#include "tests/pages/PagesTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;

std::shared_ptr<PSSpecifier> plainRow() {
  return std::make_shared<PSSpecifier>(PSCellType::PSStaticTextCell, "row");
}

TEST(FreltaHTMLCell, IsAGreenBlockOfTwoEntriesAt50Points) {
  const auto cell = FreltaHTMLCell::initWithSpecifier(plainRow());

  EXPECT_THAT(cell->htmlThemes(), ElementsAre("Egg", "egg2"));
  EXPECT_EQ(cell->preferredHeightForWidth(320), 100);
  EXPECT_EQ(cell->preferredHeightForWidth(0), 100);
  EXPECT_EQ(cell->backgroundColor(), UIColor::colorWithRed(0, 1, 0, 1));
  EXPECT_EQ(cell->reuseIdentifier(), "Cell");
  EXPECT_EQ(cell->style(), UITableViewCellStyle::Default);
}

TEST(FreltaThemesCell, IsABlueBlockOfTwoEntriesAt50Points) {
  const auto cell = FreltaThemesCell::initWithSpecifier(plainRow());

  EXPECT_THAT(cell->themes(), ElementsAre("Egg", "egg2"));
  EXPECT_EQ(cell->preferredHeightForWidth(320), 100);
  EXPECT_EQ(cell->backgroundColor(), UIColor::colorWithRed(0, 0, 1, 1));
  EXPECT_EQ(cell->reuseIdentifier(), "Cell");
}

TEST(PlaceholderCells, GrowWithTheirLists) {
  const auto html = FreltaHTMLCell::initWithSpecifier(plainRow());
  const auto themes = FreltaThemesCell::initWithSpecifier(plainRow());

  html->setHtmlThemes({});
  themes->setThemes({"a", "b", "c"});

  EXPECT_EQ(html->preferredHeightForWidth(320), 0);
  EXPECT_EQ(themes->preferredHeightForWidth(320), 150);
}

class PlaceholderRows : public PagesTest {};

TEST_F(PlaceholderRows, MayBeNamedByAPage) {
  describeRoot({row("PSLinkCell", "html", {{"cellClass", "FreltaHTMLCell"}}),
                row("PSLinkCell", "themes", {{"cellClass", "FreltaThemesCell"}})});

  const auto page = showRoot();

  ASSERT_TRUE(cell<FreltaHTMLCell>(*page, "html"));
  ASSERT_TRUE(cell<FreltaThemesCell>(*page, "themes"));
  EXPECT_EQ(cell(*page, "html")->frame().size.height, 100);
  EXPECT_EQ(cell(*page, "themes")->backgroundColor(), UIColor::colorWithRed(0, 0, 1, 1));
}

}  // namespace
}  // namespace frelta
