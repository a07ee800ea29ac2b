#include "pages/FreltaKeyLabelLinkCell.h"

#include "tests/pages/PagesTest.h"

namespace frelta {
namespace {

class FreltaKeyLabelLinkCellTest : public PagesTest {
 protected:
  std::string detailFor(Dictionary properties) {
    const auto specifier = std::make_shared<PSSpecifier>(PSCellType::PSLinkCell, "row", properties);
    const FreltaKeyLabelLinkCell cell(UITableViewCellStyle::Value1, "id", specifier);
    return cell.detailTextLabel()->text();
  }
  const std::string night = "/Library/Frelta/Presets/Night.plist";
};

TEST_F(FreltaKeyLabelLinkCellTest, ShowsTheFilesNameWithoutFolderAndExtension) {
  platform.put(night, "x");
  putSettings({{"FreltaPresetsDarkMode", night}});

  EXPECT_EQ(detailFor({{"key", "FreltaPresetsDarkMode"}}), "Night");
}

TEST_F(FreltaKeyLabelLinkCellTest, ShowsNoneForAMissingFile) {
  putSettings({{"FreltaPresetsDarkMode", night}});

  EXPECT_EQ(detailFor({{"key", "FreltaPresetsDarkMode"}}), "None");
}

TEST_F(FreltaKeyLabelLinkCellTest, ShowsNoneForAnAbsentKeyAndForARowWithout) {
  EXPECT_EQ(detailFor({{"key", "FreltaPresetsDarkMode"}}), "None");
  EXPECT_EQ(detailFor({}), "None");
}

TEST_F(FreltaKeyLabelLinkCellTest, ShowsNoneForAValueThatIsNoPath) {
  putSettings({{"FreltaPresetsDarkMode", 7}});

  EXPECT_EQ(detailFor({{"key", "FreltaPresetsDarkMode"}}), "None");
}

TEST_F(FreltaKeyLabelLinkCellTest, NamesWhatADefaultPathLeadsTo) {
  platform.put("/Library/Frelta/Themes/Example Images.theme/Images/a", "x");

  EXPECT_EQ(detailFor({{"key", "EnabledThemePath"}}), "Example Images");
}

TEST_F(FreltaKeyLabelLinkCellTest, OnTheAdvancedPageNamesTheWidgetAsItNamesTheThemes) {
  const std::string themes = "/Library/Frelta/Themes/";
  for (const char* name : {"Example Widget.bundle", "Clock.bundle"})
    platform.put(themes + name, "x");
  const auto widget = [&](const Dictionary& settings) {
    putSettings(settings);
    const auto page = std::make_shared<freltaAdvancedprefsRootListController>();
    show(page);
    page->table().setContentOffset({0, 1e6});
    layout();
    return cell(*page, "EnabledWidgetPath")->detailTextLabel()->text();
  };

  EXPECT_EQ(widget({}), "Example Widget");
  EXPECT_EQ(widget({{"EnabledWidgetPath", themes + "Clock.bundle"}}), "Clock");
  EXPECT_EQ(widget({{"EnabledWidgetPath", ""}}), "None");
}

TEST_F(FreltaKeyLabelLinkCellTest, IsMadeAnewWhenThePageComesBackSoThatItShowsTheNewChoice) {
  describeRoot({row("PSLinkCell", "FreltaPresetsDarkMode",
                    {{"cellClass", "FreltaKeyLabelLinkCell"}, {"label", "In dark mode"}})});
  platform.put(night, "x");
  putSettings({{"SwitchPresetsWithDarkMode", 1}});
  const auto page = showRoot();
  const std::string before = cell(*page, "FreltaPresetsDarkMode")->detailTextLabel()->text();

  putSettings({{"SwitchPresetsWithDarkMode", 1}, {"FreltaPresetsDarkMode", night}});
  navigation->pushViewController(std::make_shared<UIViewController>(), false);
  navigation->popViewControllerAnimated(false);
  layout();

  EXPECT_EQ(before, "None");
  EXPECT_EQ(cell(*page, "FreltaPresetsDarkMode")->detailTextLabel()->text(), "Night");
}

}  // namespace
}  // namespace frelta
