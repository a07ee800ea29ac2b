#include <sys/stat.h>

#include <algorithm>
#include <map>

#include "tests/styles/StylesTest.h"

namespace frelta {
namespace {

class StyleScan : public StylesTest {
 protected:
  void put(std::string_view name, std::initializer_list<const char*> folders) const {
    makeFolder(inThemes(name));
    for (const char* folder : folders) makeFolder(inThemes(name) + "/" + folder);
  }
  /// A selector of the kind that has scanned.
  std::shared_ptr<TestSelector> scanned(std::int32_t kind) const {
    auto selector = initSelector<TestSelector>(kind);
    selector->loadStyles();
    return selector;
  }
  /// Full path and state of each style of the kind.
  std::map<std::string, std::int32_t> styles(std::int32_t kind) const {
    std::map<std::string, std::int32_t> states;
    for (const auto& entry : scanned(kind)->sortedStyles()) {
      const auto style = std::dynamic_pointer_cast<FreltaSortedStyle>(entry);
      EXPECT_EQ(style->styleMode(), kind);
      states.emplace(style->fullPath().value(), style->enabledState());
    }
    return states;
  }
  std::vector<std::string> names(std::int32_t kind) const {
    std::vector<std::string> names;
    for (const auto& [path, state] : styles(kind))
      names.push_back(path.substr(kThemesFolder.size()));
    return names;
  }
};

TEST_F(StyleScan, TellsKindsByWhatAFolderHoldsAndByTheNameOfABundle) {
  put("A.theme", {"Images"});
  put("B.theme", {"HTML"});
  put("C.theme", {"HTML", "Images"});
  put("D.theme", {"images", "html", "IconBundles"});
  put("E.bundle", {"Images", "HTML"});
  put("F.BUNDLE", {});
  put("G.bUnDlE.theme", {"Images"});
  put("H", {"Images"});
  platform.put(inThemes("I.bundle"), "a plain file");
  platform.put(inThemes("J.theme"), "a plain file");
  platform.put(inThemes("K.theme/Images"), "a plain file");
  platform.put(inThemes("L.theme/HTML"), "a plain file");

  EXPECT_THAT(names(FreltaStyleModeImages),
              testing::ElementsAre("A.theme", "C.theme", "G.bUnDlE.theme", "H", "K.theme"));
  EXPECT_THAT(names(FreltaStyleModeHTML), testing::ElementsAre("B.theme", "L.theme"));
  EXPECT_THAT(names(FreltaStyleModeWidget),
              testing::ElementsAre("E.bundle", "F.BUNDLE", "I.bundle"));
  EXPECT_THAT(names(3), testing::IsEmpty());
}

TEST_F(StyleScan, DoesNotSkipHiddenEntries) {
  put(".hidden.theme", {"Images"});
  put(".bundle", {});

  const auto themes = scanned(FreltaStyleModeImages)->sortedStyles();
  const auto widgets = scanned(FreltaStyleModeWidget)->sortedStyles();

  ASSERT_EQ(themes.size(), 1U);
  EXPECT_EQ(themes[0]->title(), ".hidden");
  ASSERT_EQ(widgets.size(), 1U);
  EXPECT_EQ(widgets[0]->title(), ".bundle");
}

TEST_F(StyleScan, FillsAnEntryWithNamesPathKindAndStateAndNothingElse) {
  put("My Theme.v2.theme", {"Images"});

  const auto selector = scanned(FreltaStyleModeImages);

  ASSERT_EQ(selector->sortedStyles().size(), 1U);
  const auto style = std::dynamic_pointer_cast<FreltaSortedStyle>(selector->sortedStyles()[0]);
  ASSERT_NE(style, nullptr);
  EXPECT_EQ(style->title(), "My Theme.v2");
  EXPECT_EQ(style->displayName(), style->title());
  EXPECT_EQ(style->fullPath(), "/Library/Frelta/Themes/My Theme.v2.theme");
  EXPECT_EQ(style->styleMode(), FreltaStyleModeImages);
  EXPECT_EQ(style->enabledState(), FreltaEnabledStateNone);
  EXPECT_EQ(style->subtitle(), std::nullopt);
  EXPECT_EQ(style->items(), nullptr);
  EXPECT_EQ(style->iconsStyle(), nullptr);
  EXPECT_FALSE(style->isExpanded());
}

TEST_F(StyleScan, KeepsTheOrderInWhichTheFolderIsListed) {
  for (char letter = 'z'; letter >= 'a'; --letter) put(std::string(1, letter), {"HTML"});
  const auto listed =
      Platform::current().fileManager->contentsOfDirectoryAtPath(kThemesFolder).value();

  const auto selector = scanned(FreltaStyleModeHTML);

  std::vector<std::string> titles;
  for (const auto& entry : selector->sortedStyles()) titles.push_back(entry->title().value());
  EXPECT_THAT(titles, testing::ElementsAreArray(listed));
}

TEST_F(StyleScan, SharesItsEntriesBetweenTheListsAndEmptiesTheEnabledSection) {
  put("A.theme", {"Images"});
  put("B.theme", {"Images"});
  const auto selector = scanned(FreltaStyleModeImages);
  const auto before = selector->sortedStyles();
  selector->setEnabledStyles({before[0]});
  selector->setSortedStyles({before[1]});

  selector->loadStyles();

  EXPECT_EQ(selector->originalStylesList().size(), 2U);
  EXPECT_EQ(selector->styleList(), selector->originalStylesList());
  EXPECT_EQ(selector->sortedStyles(), selector->originalStylesList());
  EXPECT_THAT(selector->enabledStyles(), testing::IsEmpty());
  EXPECT_EQ(std::ranges::find(selector->sortedStyles(), before[0]), selector->sortedStyles().end());
}

TEST_F(StyleScan, MakesTheStylesFolderWhereThereIsNone) {
  EXPECT_THAT(names(FreltaStyleModeImages), testing::IsEmpty());

  EXPECT_TRUE(std::filesystem::is_directory(platform.hostPath(kThemesFolder)));
}

TEST_F(StyleScan, FindsNothingInAStylesFolderThatIsAFileOrCannotBeListed) {
  platform.put("/Library/Frelta/Themes", "a plain file");
  EXPECT_THAT(names(FreltaStyleModeImages), testing::IsEmpty());
  EXPECT_EQ(platform.get("/Library/Frelta/Themes"), "a plain file");

  std::filesystem::remove(platform.hostPath("/Library/Frelta/Themes"));
  put("A.theme", {"Images"});
  platform.files.fail(Operation::Contents);
  EXPECT_THAT(names(FreltaStyleModeImages), testing::IsEmpty());

  platform.files.succeed(Operation::Contents);
  EXPECT_THAT(names(FreltaStyleModeImages), testing::ElementsAre("A.theme"));
}

TEST_F(StyleScan, FollowsLinksAndPassesOverDanglingAndCircularOnes) {
  put("A.theme", {"Images"});
  makeFolder("/elsewhere/HTML");
  const auto link = [&](const char* target, std::string_view name) {
    std::filesystem::create_symlink(target, platform.hostPath(inThemes(name)));
  };
  link("A.theme", "B.theme");
  link("/elsewhere", "C.theme");
  link("missing", "D.theme");
  link("E.theme", "E.theme");
  link("missing", "F.bundle");
  makeFolder(inThemes("G.theme"));
  link("Images", "G.theme/Images");

  EXPECT_THAT(names(FreltaStyleModeImages), testing::ElementsAre("A.theme", "B.theme"));
  EXPECT_THAT(names(FreltaStyleModeHTML), testing::ElementsAre("C.theme"));
  EXPECT_THAT(names(FreltaStyleModeWidget), testing::ElementsAre("F.bundle"));
}

TEST_F(StyleScan, TakesNamesThatAreNoUTF8AndCannotStoreThem) {
  const std::string name = "\xFF\xC3.theme";
  put(name, {"Images"});
  putSettings({{"EnabledThemePath", "/before"}});
  const auto selector = scanned(FreltaStyleModeImages);

  ASSERT_EQ(selector->sortedStyles().size(), 1U);
  selector->setStyleGroup(selector->sortedStyles()[0], true);

  EXPECT_EQ(selector->sortedStyles()[0]->title(), "\xFF\xC3");
  EXPECT_EQ(selector->sortedStyles()[0]->enabledState(), FreltaEnabledStateAll);
  EXPECT_EQ(settings(), (Dictionary{{"EnabledThemePath", "/before"}}));
}

TEST_F(StyleScan, ReadsTheSettingsFileOnceWhateverTheCount) {
  putSettings({{"EnabledThemePath", inThemes("7.theme")}});

  for (const int count : {0, 1, 300}) {
    for (int i = 0; i < count; ++i) put(std::to_string(i) + ".theme", {"Images"});
    platform.files.resetCalls();
    const auto states = styles(FreltaStyleModeImages);
    EXPECT_EQ(states.size(), static_cast<std::size_t>(count));
    EXPECT_EQ(platform.files.count(Operation::Read), 1U) << count;
    EXPECT_EQ(platform.files.count(Operation::Write), 0U) << count;
  }
  EXPECT_EQ(styles(FreltaStyleModeImages).at(inThemes("7.theme")), FreltaEnabledStateAll);
}

TEST_F(StyleScan, TakesAHundredThousandEntries) {
  makeFolder(kThemesFolder);
  const auto folder = platform.hostPath(kThemesFolder);
  for (int i = 0; i < 100'000; ++i)
    std::filesystem::create_symlink("missing", folder / (std::to_string(i) + ".bundle"));

  const auto selector = scanned(FreltaStyleModeWidget);

  EXPECT_EQ(selector->sortedStyles().size(), 100'000U);
}

TEST_F(StyleScan, OnAFreshDeviceShowsTheExampleHTMLThemeAndWidgetEnabledButNoImagesTheme) {
  put("Example Images.theme", {"Images"});
  put("Example HTML.theme", {"HTML"});
  put("Example Widget.bundle", {});
  put("Other HTML.theme", {"HTML"});
  put("Other Widget.bundle", {});

  EXPECT_THAT(styles(FreltaStyleModeImages),
              testing::ElementsAre(testing::Pair(inThemes("Example Images.theme"), 0)));
  EXPECT_THAT(styles(FreltaStyleModeHTML),
              testing::ElementsAre(testing::Pair(inThemes("Example HTML.theme"), 2),
                                   testing::Pair(inThemes("Other HTML.theme"), 0)));
  EXPECT_THAT(styles(FreltaStyleModeWidget),
              testing::ElementsAre(testing::Pair(inThemes("Example Widget.bundle"), 2),
                                   testing::Pair(inThemes("Other Widget.bundle"), 0)));
}

TEST_F(StyleScan, AKindThatIsSwitchedOffHasNoEnabledStyleNotEvenTheExample) {
  put("Example Images.theme", {"Images"});
  put("Example HTML.theme", {"HTML"});
  put("Example Widget.bundle", {});

  for (std::int32_t kind = 0; kind < 3; ++kind) {
    const auto selector = scanned(kind);
    selector->setStyleGroup(selector->sortedStyles().at(0), false);
    EXPECT_THAT(styles(kind), testing::Each(testing::Pair(testing::_, 0))) << kind;
  }
  EXPECT_EQ(settings(), (Dictionary{{"EnabledThemePath", ""},
                                    {"EnabledHTMLThemesPath", ""},
                                    {"EnabledWidgetPath", ""}}));
}

}  // namespace
}  // namespace frelta
