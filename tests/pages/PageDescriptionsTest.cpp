#include <set>

#include "preferences/PSPageDescription.h"
#include "preferences/PSSegmentTableCell.h"
#include "tests/pages/PagesTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The bundle's own property lists.
class PageDescriptionsTest : public PagesTest {
 protected:
  PSPageDescription description(const std::string& name) const {
    const auto value =
        Platform::current().propertyLists->propertyListWithData(resourceNamed(name + ".plist"));
    return pageDescriptionWithValue(value.value(), bundle.registry);
  }
  std::vector<PSSpecifier> items() const {
    std::vector<PSSpecifier> all = description("Root").items;
    for (PSSpecifier& item : description("Advanced").items) all.push_back(std::move(item));
    return all;
  }
  std::set<std::string> keysOfKind(std::set<PSCellType> kinds) const {
    std::set<std::string> keys;
    for (const PSSpecifier& item : items()) {
      const std::string* key = item.stringForKey("key");
      if (key && kinds.contains(item.cellType())) keys.insert(*key);
    }
    return keys;
  }
};

TEST_F(PageDescriptionsTest, AskForNothingUnknown) {
  for (const char* name : {"Root", "Advanced"}) {
    const PSPageDescription page = description(name);

    EXPECT_THAT(page.problems, IsEmpty()) << name;
    EXPECT_TRUE(page.title) << name;
    for (const PSSpecifier& item : page.items) {
      EXPECT_NE(item.cellType(), PSCellType::Plain) << item.identifier();
    }
  }
}

TEST_F(PageDescriptionsTest, GiveEverySettingARowOfAFittingKind) {
  using enum PSCellType;
  const auto switches = keysOfKind({PSSwitchCell});
  const auto choices = keysOfKind({PSSegmentCell, PSLinkListCell});
  const auto texts = keysOfKind({PSTitleValueCell, PSLinkCell});

  for (const SettingKey& key : settingKeys()) {
    const auto& rows = key.kind == SettingKind::Switch    ? switches
                       : key.kind == SettingKind::Integer ? choices
                                                          : texts;
    EXPECT_TRUE(rows.contains(std::string(key.name))) << key.name;
  }
}

TEST_F(PageDescriptionsTest, HoldEveryRowThatIsOnlyARow) {
  std::set<std::string> keys;
  for (const PSSpecifier& item : description("Root").items) {
    if (const std::string* key = item.stringForKey("key")) keys.insert(*key);
  }

  for (const char* key :
       {"FreltaImageCell", "FreltaThemesCell", "FreltaHTMLCell", "FreltaWidgetCell",
        "FreltaPresetsInfo", "Respring", "RespringLabel", "FreltaBannerCell", "FreltaFooterCell",
        "Twitter", "Support", "Settings", "FreltaPresetsLightMode", "FreltaPresetsDarkMode"}) {
    EXPECT_TRUE(keys.contains(key)) << key;
  }
}

TEST_F(PageDescriptionsTest, NameEveryRowAndUseNoKeyTwiceOnAPage) {
  for (const char* name : {"Root", "Advanced"}) {
    std::set<std::string> seen;
    for (const PSSpecifier& item : description(name).items) {
      if (item.isGroup()) continue;
      const std::string* key = item.stringForKey("key");
      ASSERT_TRUE(key) << name << " " << item.identifier();
      EXPECT_TRUE(seen.insert(*key).second) << name << " " << *key;
      EXPECT_TRUE(!item.name().empty() || item.cellType() == PSCellType::PSSegmentCell) << *key;
    }
  }
}

TEST_F(PageDescriptionsTest, OfferTheBackgroundModesInOrder) {
  const auto page = showRoot();
  const auto* segment = cell<PSSegmentTableCell>(*page, "BackgroundMode");
  ASSERT_TRUE(segment);

  const PropertyListValue* values = segment->specifier()->propertyForKey("validValues");

  EXPECT_EQ(*values, PropertyListValue(Array{0, 1, 2, 3, 4}));
  EXPECT_THAT(segment->control()->titles(),
              ElementsAre("Colour", "HTML", "Photo", "Images", "Widget"));
  EXPECT_EQ(segment->control()->accessibility().label, "Background");
  EXPECT_LE(segment->control()->sizeThatFits({}).width, segment->control()->frame().size.width);
}

TEST_F(PageDescriptionsTest, OnlyRowsThatDoSomethingCanBePressed) {
  putSettings({{"BackgroundMode", 2}, {"SwitchPresetsWithDarkMode", 1}});
  const auto page = showRoot();

  std::vector<std::string> pressable;
  for (const auto& specifier : page->specifiers()) {
    const auto* shown = cell(*page, specifier->identifier());
    if (shown && shown->selectionStyle() != UITableViewCellSelectionStyle::None) {
      pressable.push_back(specifier->identifier());
    }
  }

  EXPECT_THAT(pressable,
              ElementsAre("Settings", "FreltaImageCell", "backgroundImageContentModeInt",
                          "CustomBackgroundColour", "CustomTextColour", "CustomKeyCapColour",
                          "CurrentPreset", "FreltaPresetsLightMode", "FreltaPresetsDarkMode",
                          "Respring", "Twitter", "Support"));
}

TEST_F(PageDescriptionsTest, TheAdvancedPageIsNotEmptyWhileTheMasterSwitchIsOff) {
  putSettings({{"Enabled", 0}});
  auto page = std::make_shared<freltaAdvancedprefsRootListController>();

  show(page);

  EXPECT_THAT(identifiers(*page),
              ElementsAre("Enabled", "RespringGroup", "RespringLabel", "Respring"));
}

TEST_F(PageDescriptionsTest, KeepTheGroupsOfTheRowsThatAreAlwaysThere) {
  putSettings({{"Enabled", 0}});

  const auto page = showRoot();

  EXPECT_THAT(shownRows(*page),
              ElementsAre(ElementsAre("FreltaBannerCell"), ElementsAre("Enabled", "Settings"),
                          ElementsAre("RespringLabel", "Respring"),
                          ElementsAre("Twitter", "Support"), ElementsAre("FreltaFooterCell")));
}

TEST_F(PageDescriptionsTest, LeadToTheSelectorFromTheRowOfEachKind) {
  std::map<std::string, std::string> actions;
  for (const PSSpecifier& item : description("Root").items) {
    if (item.action()) actions[*item.stringForKey("key")] = *item.action();
  }

  EXPECT_EQ(actions["FreltaThemesCell"], "selectTheme");
  EXPECT_EQ(actions["FreltaHTMLCell"], "selectHTML");
  EXPECT_EQ(actions["FreltaWidgetCell"], "selectWidget");
}

TEST_F(PageDescriptionsTest, TheBundleNamesTheRootPage) {
  const auto value =
      Platform::current().propertyLists->propertyListWithData(resourceNamed("Info.plist"));

  const auto info = bundleInfoWithValue(value.value());

  ASSERT_TRUE(info);
  EXPECT_EQ(info->principalClass, "freltaprefsRootListController");
  EXPECT_EQ(info->executable, "freltaprefs");
  EXPECT_TRUE(bundle.registry.controller(info->principalClass));
}

}  // namespace
}  // namespace frelta
