#include "pages/FreltaFooterCell.h"

#include "tests/pages/PagesTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FreltaFooterCellTest : public PagesTest {
 protected:
  std::unique_ptr<FreltaFooterCell> makeFooter() {
    return FreltaFooterCell::initWithSpecifier(
        std::make_shared<PSSpecifier>(PSCellType::PSStaticTextCell, "FreltaFooterCell"));
  }
  std::string noticeFor(const std::string& output) {
    platform.processes.standardOutput = output;
    return makeFooter()->mainTitleLabel()->text();
  }
};

TEST_F(FreltaFooterCellTest, NamesMakerYearProductAndTheInstalledVersion) {
  EXPECT_EQ(noticeFor("Version: 1.2-3\n"), "© 2026 Tarno. Frelta package: 1.2-3");
  ASSERT_EQ(platform.processes.runs.size(), 1u);
  EXPECT_THAT(platform.processes.runs[0].arguments, ElementsAre("-s", "com.tarno.frelta"));
}

TEST_F(FreltaFooterCellTest, ShowsANilVersionAsThePlatformWritesIt) {
  EXPECT_EQ(noticeFor(""), "© 2026 Tarno. Frelta package: (null)");
  EXPECT_EQ(noticeFor("Version: 1\xFF\n"), "© 2026 Tarno. Frelta package: (null)");
}

TEST_F(FreltaFooterCellTest, IsARowOf25PointsWithALabelOf15AtItsTop) {
  const auto page = showRoot();
  page->table().setContentOffset({0, 1e6});
  layout();

  auto* footer = cell<FreltaFooterCell>(*page, "FreltaFooterCell");

  ASSERT_TRUE(footer);
  EXPECT_EQ(footer->preferredHeightForWidth(320), 25);
  EXPECT_EQ(footer->preferredHeightForWidth(0), 25);
  EXPECT_EQ(footer->frame().size, (CGSize{288, 25}));
  EXPECT_EQ(footer->mainTitleLabel()->frame(), CGRect(0, 0, 288, 15));
  EXPECT_EQ(footer->mainTitleLabel()->font(), UIFont::systemFontOfSize(12));
  EXPECT_EQ(footer->mainTitleLabel()->textColor(), UIColor::grayColor());
  EXPECT_EQ(footer->mainTitleLabel()->textAlignment(), NSTextAlignment::Center);
  EXPECT_EQ(footer->mainTitleLabel()->numberOfLines(), 1);
  EXPECT_EQ(footer->mainTitleLabel()->backgroundColor(), UIColor::clearColor());
  EXPECT_EQ(footer->mainTitleLabel()->autoresizingMask(), UIViewAutoresizingFlexibleWidth);
  EXPECT_EQ(footer->backgroundColor(), UIColor::clearColor());
  EXPECT_EQ(footer->selectionStyle(), UITableViewCellSelectionStyle::None);
  EXPECT_EQ(footer->reuseIdentifier(), "Cell");
  EXPECT_EQ(footer->autoresizingMask(), UIViewAutoresizingFlexibleWidth);
}

TEST_F(FreltaFooterCellTest, AsksOnlyWhenItsRowComesNearTheScreen) {
  navigation->view().setFrame({0, 0, 320, 300});

  const auto page = showRoot();
  const std::size_t before = platform.processes.runs.size();
  page->table().userDidScroll({0, 1e6});
  layout();

  EXPECT_EQ(before, 0u);
  EXPECT_EQ(platform.processes.runs.size(), 1u);
}

TEST_F(FreltaFooterCellTest, PassesOnThatTheToolCannotBeStarted) {
  platform.processes.failsToLaunch = true;

  EXPECT_THROW(makeFooter(), LaunchFailure);
}

TEST_F(FreltaFooterCellTest, ThatCannotBeMadeCostsThePageNothingButTheVersion) {
  platform.processes.failsToLaunch = true;

  const auto page = showRoot();

  EXPECT_TRUE(cell(*page, "Enabled"));
  const auto* footer = cell(*page, "FreltaFooterCell");
  ASSERT_TRUE(footer);
  EXPECT_EQ(footer->textLabel()->text(), "© 2026 Tarno. Frelta");
  EXPECT_THAT(platform.log.lines, ElementsAre("[Frelta] Uncaught exception from FreltaFooterCell: "
                                              "/usr/bin/dpkg-query: scripted failure"));
}

TEST_F(FreltaFooterCellTest, IsReadAloudAsItStands) {
  const auto footer = makeFooter();

  footer->refreshCellContents();

  EXPECT_EQ(footer->accessibility().label, footer->mainTitleLabel()->text());
  EXPECT_EQ(footer->accessibility().role, UIAccessibility::Role::StaticText);
  EXPECT_TRUE(footer->accessibility().isElement);
  EXPECT_THAT(footer->textLabel()->text(), IsEmpty());
}

}  // namespace
}  // namespace frelta
