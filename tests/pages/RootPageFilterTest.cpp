#include "pages/RootPageFilter.h"

#include <set>

#include "tests/pages/PagesTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAreArray;

const std::vector<std::string> kAlwaysVisible{"FreltaBannerCell", "Enabled",         "Settings",
                                              "RespringLabel",    "Respring",        "Twitter",
                                              "Support",          "FreltaFooterCell"};
const std::vector<std::string> kSometimesHidden{"backgroundImageContentModeInt",
                                                "FreltaImageCell",
                                                "FreltaThemesCell",
                                                "FreltaHTMLCell",
                                                "FreltaWidgetCell",
                                                "FreltaPresetsLightMode",
                                                "FreltaPresetsDarkMode",
                                                "FreltaPresetsInfo"};

struct FilterCase {
  int mode;
  bool switchesPresets;
  std::vector<std::string> shown;  // of those that are sometimes hidden
};

class RootPageFilterTest : public PagesTest, public testing::WithParamInterface<FilterCase> {
 protected:
  static std::vector<std::string> ofSometimesHidden(PSListController& page) {
    std::vector<std::string> shown;
    for (const std::string& key : kSometimesHidden) {
      if (page.specifierForID(key)) shown.push_back(key);
    }
    return shown;
  }
};

TEST_P(RootPageFilterTest, ModeAndPresetSwitchDecideWhichRowsShow) {
  putSettings({{"BackgroundMode", GetParam().mode},
               {"SwitchPresetsWithDarkMode", GetParam().switchesPresets ? 1 : 0}});

  const auto page = showRoot();

  EXPECT_THAT(ofSometimesHidden(*page), UnorderedElementsAreArray(GetParam().shown));
  for (const std::string_view key :
       {"CustomTextColour", "CustomBackgroundColour", "CustomKeyCapColour", "BackgroundMode"}) {
    EXPECT_TRUE(page->specifierForID(key)) << key;
  }
  for (const std::string& key : kAlwaysVisible) EXPECT_TRUE(page->specifierForID(key)) << key;
}

TEST_P(RootPageFilterTest, MasterSwitchOffLeavesOnlyTheRowsThatAlwaysShow) {
  putSettings({{"Enabled", 0},
               {"BackgroundMode", GetParam().mode},
               {"SwitchPresetsWithDarkMode", GetParam().switchesPresets ? 1 : 0}});

  const auto page = showRoot();

  EXPECT_EQ(rowIdentifiers(*page), kAlwaysVisible);
  for (const auto& specifier : page->specifiers()) {
    const std::string* key = specifier->stringForKey("key");
    ASSERT_TRUE(key) << specifier->identifier();
    EXPECT_THAT(kAlwaysVisible, testing::Contains(*key));
  }
}

const std::vector<std::string> kPresetRows{"FreltaPresetsLightMode", "FreltaPresetsDarkMode",
                                           "FreltaPresetsInfo"};

std::vector<FilterCase> filterCases() {
  const std::vector<std::pair<int, std::vector<std::string>>> modes{
      {-1, {}},
      {0, {}},
      {1, {"FreltaHTMLCell"}},
      {2, {"FreltaImageCell", "backgroundImageContentModeInt"}},
      {3, {"FreltaThemesCell"}},
      {4, {"FreltaWidgetCell"}},
      {7, {"FreltaWidgetCell"}}};
  std::vector<FilterCase> cases;
  for (const auto& [mode, shown] : modes) {
    cases.push_back({mode, false, shown});
    cases.push_back({mode, true, shown});
    cases.back().shown.insert(cases.back().shown.end(), kPresetRows.begin(), kPresetRows.end());
  }
  return cases;
}

INSTANTIATE_TEST_SUITE_P(Settings, RootPageFilterTest, testing::ValuesIn(filterCases()));

TEST_F(PagesTest, RowsWithoutAKeyGoWithTheMasterSwitchAndStayWithoutIt) {
  describeRoot({group("Group"), Dictionary{{"cell", "PSStaticTextCell"}, {"id", "Enabled"}},
                row("PSSwitchCell", "Enabled")});
  const auto on = showRoot();
  const std::size_t shownWhileOn = on->specifiers().size();
  putSettings({{"Enabled", 0}});

  on->reloadSpecifiers();

  EXPECT_EQ(shownWhileOn, 3u);
  EXPECT_EQ(on->specifiers().size(), 1u);
  EXPECT_TRUE(on->specifiers()[0]->stringForKey("key"));
}

TEST_F(PagesTest, TheKeyDecidesNotTheIdentifier) {
  describeRoot({row("PSStaticTextCell", "FreltaHTMLCell", {{"id", "Enabled"}}),
                row("PSStaticTextCell", "free", {{"id", "FreltaImageCell"}})});

  const auto page = showRoot();

  EXPECT_THAT(identifiers(*page), ElementsAre("FreltaImageCell"));
}

TEST_F(PagesTest, WronglyTypedSettingsFilterAsOffAndZero) {
  putSettings({{"Enabled", Array{}},
               {"BackgroundMode", Dictionary{}},
               {"SwitchPresetsWithDarkMode", "no"}});
  const auto off = showRoot();
  const auto whileOff = rowIdentifiers(*off);
  putSettings({{"Enabled", "yes"}, {"BackgroundMode", "3"}, {"SwitchPresetsWithDarkMode", 0.5}});

  off->reloadSpecifiers();

  EXPECT_EQ(whileOff, kAlwaysVisible);
  EXPECT_TRUE(off->specifierForID("FreltaThemesCell"));
  EXPECT_TRUE(off->specifierForID("FreltaPresetsInfo"));
  EXPECT_FALSE(off->specifierForID("FreltaImageCell"));
}

TEST_F(PagesTest, TheModeIsASignedNumberOf32Bits) {
  putSettings({{"BackgroundMode", (std::int64_t{1} << 32) + 1}});
  const auto page = showRoot();
  const bool showsHTML = page->specifierForID("FreltaHTMLCell") != nullptr;
  putSettings({{"BackgroundMode", std::int64_t{1} << 31}});

  page->reloadSpecifiers();

  EXPECT_TRUE(showsHTML);
  EXPECT_FALSE(page->specifierForID("FreltaHTMLCell"));
  EXPECT_FALSE(page->specifierForID("FreltaWidgetCell"));
}

TEST_F(PagesTest, AGroupWhoseRowsAreAllHiddenShowsNoTitle) {
  describeRoot({group("Photo"), row("PSStaticTextCell", "FreltaImageCell"), group("Keys"),
                row("PSSwitchCell", "HideKeyCaps")});

  const auto page = showRoot();

  EXPECT_EQ(page->table().numberOfSections(), 1);
  EXPECT_EQ(page->titleForHeaderInSection(page->table(), 0), "Keys");
}

TEST_F(PagesTest, TheAdvancedPageIsFilteredInTheSameWay) {
  bundle.describe("Advanced", Dictionary{{"items", Array{row("PSStaticTextCell", "FreltaHTMLCell"),
                                                         row("PSStaticTextCell", "Support"),
                                                         row("PSSwitchCell", "HideKeyPlane")}}});
  auto page = std::make_shared<freltaAdvancedprefsRootListController>();
  show(page);
  const auto whileOn = identifiers(*page);
  putSettings({{"Enabled", 0}});

  page->reloadSpecifiers();

  EXPECT_THAT(whileOn, ElementsAre("Support", "HideKeyPlane"));
  EXPECT_THAT(identifiers(*page), ElementsAre("Support"));
}

}  // namespace
}  // namespace frelta
