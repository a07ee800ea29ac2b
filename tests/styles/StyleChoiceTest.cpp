#include "tests/styles/StylesTest.h"

namespace frelta {
namespace {

class StyleChoice : public StylesTest {
 protected:
  static std::shared_ptr<FreltaSortedStyle> style(const std::string& path) {
    auto entry = std::make_shared<FreltaSortedStyle>();
    entry->setFullPath(path);
    return entry;
  }
  std::shared_ptr<TestSelector> selectorOf(std::int32_t kind) {
    auto selector = initSelector<TestSelector>(kind);
    selector->setStyleTable(&table);
    return selector;
  }

  RecordingTable table;
};

TEST_F(StyleChoice, EnablingAStyleSwitchesTheOtherOffInOneStep) {
  const auto a = style("/A");
  const auto b = style("/B");
  const auto c = style("/C");
  const auto selector = selectorOf(FreltaStyleModeImages);
  selector->setSortedStyles({a, b, c});
  putSettings({{"Foreign", Array{1, Date{2}, Data{"x"}}}, {"HideKeyCaps", 0}});
  selector->setStyleGroup(a, true);
  platform.notifications.posted.clear();
  platform.files.resetCalls();
  table.did.clear();

  selector->setStyleGroup(b, true);

  EXPECT_EQ(a->enabledState(), FreltaEnabledStateNone);
  EXPECT_EQ(b->enabledState(), FreltaEnabledStateAll);
  EXPECT_EQ(c->enabledState(), FreltaEnabledStateNone);
  EXPECT_EQ(settings(), (Dictionary{{"EnabledThemePath", "/B"},
                                    {"Foreign", Array{1, Date{2}, Data{"x"}}},
                                    {"HideKeyCaps", 0}}));
  EXPECT_EQ(platform.files.count(Operation::Write), 1U);
  EXPECT_EQ(platform.files.count(Operation::Read), 1U);
  EXPECT_THAT(platform.notifications.posted, testing::ElementsAre("com.tarno.frelta.refresh"));
  EXPECT_THAT(table.did, testing::ElementsAre("reload"));
  EXPECT_THAT(selector->sortedStyles(), testing::ElementsAre(a, b, c));
  EXPECT_THAT(selector->enabledStyles(), testing::IsEmpty());
}

TEST_F(StyleChoice, SwitchingAStyleOffKeepsTheKeyWithAnEmptyPath) {
  const auto a = style("/A");
  const auto selector = selectorOf(FreltaStyleModeHTML);
  selector->setSortedStyles({a});
  selector->setStyleGroup(a, true);

  selector->setStyleGroup(a, false);

  EXPECT_EQ(a->enabledState(), FreltaEnabledStateNone);
  EXPECT_EQ(settings(), (Dictionary{{"EnabledHTMLThemesPath", ""}}));
  EXPECT_EQ(platform.notifications.posted.size(), 2U);
}

TEST_F(StyleChoice, WritesBeforeTheTableReloadsAndTellsTheOthersLast) {
  class OrderTable : public RecordingTable {
   public:
    explicit OrderTable(FakePlatform& fake) : platform(fake) {}
    void reloadData() override {
      writesAtReload = platform.files.count(Operation::Write);
      postsAtReload = platform.notifications.posted.size();
    }
    FakePlatform& platform;
    std::size_t writesAtReload = 0;
    std::size_t postsAtReload = 9;
  } ordered(platform);
  const auto a = style("/A");
  const auto selector = selectorOf(FreltaStyleModeImages);
  selector->setStyleTable(&ordered);

  selector->setStyleGroup(a, true);

  EXPECT_EQ(ordered.writesAtReload, 1U);
  EXPECT_EQ(ordered.postsAtReload, 0U);
  EXPECT_EQ(platform.notifications.posted.size(), 1U);
}

TEST_F(StyleChoice, EachKindHasAKeyOfItsOwnAndOtherNumbersTheImagesKey) {
  const std::vector<std::pair<std::int32_t, const char*>> keys{{0, "EnabledThemePath"},
                                                               {1, "EnabledHTMLThemesPath"},
                                                               {2, "EnabledWidgetPath"},
                                                               {3, "EnabledThemePath"},
                                                               {-1, "EnabledThemePath"}};

  for (const auto& [kind, key] : keys) {
    putSettings({});
    selectorOf(kind)->updatePreferencesFileWithPath("/P");
    EXPECT_EQ(settings(), (Dictionary{{key, "/P"}})) << kind;
    EXPECT_TRUE(selectorOf(kind)->isPathEnabled("/P")) << kind;
    EXPECT_FALSE(selectorOf(kind)->isPathEnabled("/p")) << kind;
  }
}

TEST_F(StyleChoice, PlainGroupsTakeTheirStateFromTheirItemsAgainAndStoreNoPath) {
  const auto group = std::make_shared<FreltaSortedItem>();
  group->setItems(std::make_shared<std::vector<std::shared_ptr<FreltaStyleItem>>>(
      2, std::make_shared<FreltaStyleItem>()));
  const auto empty = std::make_shared<FreltaSortedItem>();
  const auto elsewhere = style("/E");
  elsewhere->setEnabledState(FreltaEnabledStateAll);
  const auto selector = selectorOf(FreltaStyleModeImages);
  selector->setSortedStyles({group, empty});
  selector->setEnabledStyles({elsewhere});
  putSettings({{"EnabledThemePath", "/before"}});

  selector->setStyleGroup(group, true);

  EXPECT_EQ(group->enabledState(), FreltaEnabledStateNone);
  EXPECT_EQ(empty->enabledState(), FreltaEnabledStateAll);
  EXPECT_EQ(elsewhere->enabledState(), FreltaEnabledStateAll);
  EXPECT_EQ(settings(), (Dictionary{{"EnabledThemePath", "/before"}}));
  EXPECT_EQ(platform.log.lines.size(), 1U);
  EXPECT_EQ(platform.notifications.posted.size(), 1U);
}

TEST_F(StyleChoice, AGroupThatIsOnlyInTheEnabledSectionTakesItsStateFromItsItemsToo) {
  const auto group = std::make_shared<FreltaSortedItem>();
  group->setItems(std::make_shared<std::vector<std::shared_ptr<FreltaStyleItem>>>(
      1, std::make_shared<FreltaStyleItem>()));
  group->setEnabledState(FreltaEnabledStateAll);
  const auto selector = selectorOf(FreltaStyleModeImages);
  selector->setEnabledStyles({group});

  selector->setStyleGroup(group, false);

  EXPECT_EQ(group->enabledState(), FreltaEnabledStateNone);
}

TEST_F(StyleChoice, NoGroupAtAllSwitchesTheKindOff) {
  const auto a = style("/A");
  const auto selector = selectorOf(FreltaStyleModeImages);
  selector->setSortedStyles({a});
  selector->setStyleGroup(a, true);

  selector->setStyleGroup(nullptr, false);

  EXPECT_EQ(a->enabledState(), FreltaEnabledStateNone);
  EXPECT_EQ(settings(), (Dictionary{{"EnabledThemePath", ""}}));
}

TEST_F(StyleChoice, NoPathIsLoggedAndLeavesTheFileAsItIs) {
  putSettings({{"EnabledThemePath", "/A"}});
  const std::string before = platform.get(kSettingsPath);

  selectorOf(FreltaStyleModeImages)->updatePreferencesFileWithPath(std::nullopt);

  EXPECT_EQ(platform.get(kSettingsPath), before);
  EXPECT_EQ(platform.files.count(Operation::Write), 0U);
  EXPECT_THAT(platform.log.lines,
              testing::ElementsAre(testing::StartsWith("[Frelta] Exception: ")));
}

TEST_F(StyleChoice, AFileThatCannotBeReadIsLeftAsItIsSilently) {
  platform.put(kSettingsPath, "no property list");
  const auto a = style("/A");
  const auto selector = selectorOf(FreltaStyleModeImages);
  selector->setSortedStyles({a});

  selector->setStyleGroup(a, true);
  selector->updatePreferencesFileWithPath(std::nullopt);

  EXPECT_EQ(platform.get(kSettingsPath), "no property list");
  EXPECT_EQ(platform.files.count(Operation::Write), 0U);
  EXPECT_THAT(platform.log.lines, testing::IsEmpty());
  EXPECT_EQ(a->enabledState(), FreltaEnabledStateAll);
  EXPECT_EQ(platform.notifications.posted.size(), 1U);
  EXPECT_EQ(selector->preferencesDictionary(), std::nullopt);
}

TEST_F(StyleChoice, AFileThatMayNotBeReadIsLeftAsItIsSilently) {
  putSettings({{"EnabledHTMLThemesPath", "/before"}});
  const std::string before = platform.get(kSettingsPath);
  platform.files.fail(Operation::Read);
  const auto selector = selectorOf(FreltaStyleModeHTML);

  EXPECT_TRUE(selector->isPathEnabled(inThemes("Example HTML.theme")));
  selector->setStyleGroup(style("/A"), true);

  EXPECT_EQ(platform.get(kSettingsPath), before);
  EXPECT_EQ(platform.files.count(Operation::Write), 0U);
  EXPECT_THAT(platform.log.lines, testing::IsEmpty());
}

TEST_F(StyleChoice, AFileThatIsTakenForMissingKeepsWhatItHolds) {
  putSettings({{"Enabled", 1}});
  platform.files.fail(Operation::FileExists);

  selectorOf(FreltaStyleModeImages)->updatePreferencesFileWithPath("/A");

  EXPECT_EQ(settings(), (Dictionary{{"Enabled", 1}, {"EnabledThemePath", "/A"}}));
}

TEST_F(StyleChoice, AWriteThatFailsKeepsTheNewStateInMemory) {
  putSettings({{"EnabledThemePath", "/before"}});
  platform.files.fail(Operation::Write);
  const auto a = style("/A");
  const auto selector = selectorOf(FreltaStyleModeImages);
  selector->setSortedStyles({a});

  selector->setStyleGroup(a, true);

  EXPECT_EQ(a->enabledState(), FreltaEnabledStateAll);
  EXPECT_EQ(settings(), (Dictionary{{"EnabledThemePath", "/before"}}));
  EXPECT_THAT(platform.log.lines, testing::IsEmpty());
  EXPECT_EQ(platform.notifications.posted.size(), 1U);
}

TEST_F(StyleChoice, AnExceptionWhileStoringIsLoggedAndGoesNoFurther) {
  platform.files.beforeCall = [](const FailingFiles::Call& call) {
    if (call.operation == Operation::Write) throw std::runtime_error("disk on fire");
  };

  selectorOf(FreltaStyleModeImages)->updatePreferencesFileWithPath("/A");

  EXPECT_THAT(platform.log.lines, testing::ElementsAre("[Frelta] Exception: disk on fire"));
}

TEST_F(StyleChoice, TheSettingsFileIsFoundMissingEmptyOrReadable) {
  const auto selector = selectorOf(FreltaStyleModeImages);
  EXPECT_EQ(selector->preferencesFilePath(),
            "/var/mobile/Library/Preferences/com.tarno.freltaprefs.plist");
  EXPECT_EQ(selector->preferencesDictionary(), Dictionary());

  putSettings({{"a", 1}});

  EXPECT_EQ(selector->preferencesDictionary(), (Dictionary{{"a", 1}}));
}

TEST_F(StyleChoice, APathIsEnabledByItsKeyAndWhereThatIsAbsentByTheExamples) {
  const std::string theme = inThemes("Example Images.theme");
  const std::string html = inThemes("Example HTML.theme");
  const std::string widget = inThemes("Example Widget.bundle");
  const auto enabled = [&](std::int32_t kind, const std::string& path) {
    return selectorOf(kind)->isPathEnabled(path);
  };

  EXPECT_FALSE(enabled(0, theme));
  EXPECT_TRUE(enabled(1, html));
  EXPECT_FALSE(enabled(1, widget));
  EXPECT_TRUE(enabled(2, widget));
  EXPECT_FALSE(enabled(2, html));
  EXPECT_FALSE(enabled(7, html));

  putSettings(
      {{"EnabledThemePath", theme}, {"EnabledHTMLThemesPath", 5}, {"EnabledWidgetPath", ""}});
  EXPECT_TRUE(enabled(0, theme));
  EXPECT_FALSE(enabled(1, html));
  EXPECT_FALSE(enabled(2, widget));

  platform.put(kSettingsPath, "no property list");
  EXPECT_TRUE(enabled(1, html));
  EXPECT_FALSE(enabled(0, theme));
}

TEST_F(StyleChoice, AskingWhetherAPathIsEnabledReadsTheFileOnce) {
  putSettings({{"EnabledThemePath", "/A"}});
  const auto selector = selectorOf(FreltaStyleModeImages);

  EXPECT_TRUE(selector->isPathEnabled("/A"));

  EXPECT_EQ(platform.files.count(Operation::Read), 1U);
}

TEST_F(StyleChoice, APathsRankIsItsPlaceAmongTheActiveMenuItems) {
  const auto selector = selectorOf(FreltaStyleModeImages);
  bool found = false;
  EXPECT_EQ(selector->rankForItemAtPath("/C", found), -1);
  EXPECT_FALSE(found);

  putSettings({{"ActiveMenuItems", Array{"/A", 3, "/C", "/C"}}});

  EXPECT_EQ(selector->rankForItemAtPath("/C", found), 2);
  EXPECT_TRUE(found);
  EXPECT_EQ(selector->rankForItemAtPath("/A", found), 0);
  EXPECT_TRUE(found);
  EXPECT_EQ(selector->rankForItemAtPath("/D", found), -1);
  EXPECT_TRUE(found);
}

TEST_F(StyleChoice, TheFoundFlagStaysAsItWasWithoutTheKeyOrAMatch) {
  const auto selector = selectorOf(FreltaStyleModeImages);
  bool withoutTheKey = true;
  bool withoutAMatch = true;

  selector->rankForItemAtPath("/C", withoutTheKey);
  putSettings({{"ActiveMenuItems", Array{"/A"}}});
  selector->rankForItemAtPath("/C", withoutAMatch);

  EXPECT_TRUE(withoutTheKey);
  EXPECT_TRUE(withoutAMatch);
}

TEST_F(StyleChoice, APathsRankIsThatOfTheWholePathAndNotOfItsBeginning) {
  putSettings({{"ActiveMenuItems", Array{"", "/C", "/C/D/E", "/c/d", "/C/D"}}});
  bool found = false;

  const std::int32_t rank = selectorOf(FreltaStyleModeImages)->rankForItemAtPath("/C/D", found);

  EXPECT_EQ(rank, 4);
}

TEST_F(StyleChoice, ActiveMenuItemsOfAnotherTypeHoldNoPath) {
  const auto selector = selectorOf(FreltaStyleModeImages);

  for (const PropertyListValue& value :
       {PropertyListValue("/A"), PropertyListValue(1), PropertyListValue(Dictionary{{"/A", "/A"}}),
        PropertyListValue(Data{"/A"}), PropertyListValue(Array{Array{"/A"}, Data{"/A"}, true})}) {
    putSettings({{"ActiveMenuItems", value}});
    bool found = false;
    EXPECT_EQ(selector->rankForItemAtPath("/A", found), -1);
    EXPECT_FALSE(found);
  }
}

TEST_F(StyleChoice, DisablingAllResetsTheListsAndNothingElse) {
  makeFolder(inThemes("A.theme/Images"));
  makeFolder(inThemes("B.theme/Images"));
  const auto selector = selectorOf(FreltaStyleModeImages);
  selector->loadStyles();
  const auto scanned = selector->sortedStyles();
  scanned[0]->setEnabledState(FreltaEnabledStateAll);
  selector->setSortedStyles({scanned[1]});
  selector->setEnabledStyles({scanned[0]});
  platform.files.resetCalls();

  selector->disableAll();

  EXPECT_EQ(selector->sortedStyles(), scanned);
  EXPECT_EQ(selector->styleList(), scanned);
  EXPECT_THAT(selector->enabledStyles(), testing::IsEmpty());
  EXPECT_EQ(scanned[0]->enabledState(), FreltaEnabledStateAll);
  EXPECT_THAT(platform.files.calls(), testing::IsEmpty());
  EXPECT_THAT(platform.notifications.posted, testing::IsEmpty());
  EXPECT_THAT(table.did, testing::IsEmpty());
}

TEST_F(StyleChoice, RespringStartsTheKillerOfTheBackBoard) {
  selectorOf(FreltaStyleModeImages)->respring();

  ASSERT_EQ(platform.processes.spawned.size(), 1U);
  EXPECT_THAT(platform.processes.spawned[0].argumentVector,
              testing::ElementsAre("killall", "-9", "backboardd"));
}

TEST_F(StyleChoice, TheSelectorInitialisedLastIsTheCurrentOneAndIsKept) {
  std::weak_ptr<FreltaStyleLibrary> first = initSelector<TestSelector>(FreltaStyleModeHTML);
  ASSERT_FALSE(first.expired());
  EXPECT_EQ(currentSelector()->isExtras(), FreltaStyleModeHTML);

  const auto second = initSelector<TestSelector>(FreltaStyleModeWidget);

  EXPECT_TRUE(first.expired());
  EXPECT_EQ(currentSelector(), second);
  EXPECT_EQ(second->isExtras(), FreltaStyleModeWidget);
  EXPECT_FALSE(second->isGrouped());
  EXPECT_FALSE(second->isAnimating());
  EXPECT_FALSE(second->isExtensions());
  EXPECT_THAT(second->originalStylesList(), testing::IsEmpty());
}

}  // namespace
}  // namespace frelta
