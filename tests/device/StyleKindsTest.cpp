#include "device/StyleKinds.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "device/Paths.h"
#include "device/SettingsKeys.h"

namespace frelta {
namespace {

using testing::StartsWith;

TEST(StyleKinds, AreFoundByTheirMode) {
  EXPECT_EQ(styleKind(0).title, "Image Themes");
  EXPECT_EQ(styleKind(1).title, "HTML Themes");
  EXPECT_EQ(styleKind(2).title, "Widgets");
}

TEST(StyleKinds, ThatDoNotExistCountAsImagesThemes) {
  for (const int mode : {-1, 3, 7}) EXPECT_EQ(&styleKind(mode), &styleKind(FreltaStyleModeImages));
}

TEST(StyleKinds, AreToldByTheirNameFirstAndImagesBeforeHTML) {
  std::vector<std::string_view> marks;

  for (const StyleKind& kind : styleKinds())
    marks.push_back(kind.folder.empty() ? kind.suffix : kind.folder);

  EXPECT_THAT(marks, testing::ElementsAre(".bundle", "Images", "HTML"));
}

TEST(StyleKinds, HaveEachTheirOwnOfEverything) {
  std::set<std::string_view> keys, rows, titles, subtitles, examples;

  for (const StyleKind& kind : styleKinds()) {
    EXPECT_NE(kind.folder.empty(), kind.suffix.empty()) << kind.title;
    keys.insert(kind.enabledPathKey);
    rows.insert(kind.rowKey);
    titles.insert(kind.title);
    subtitles.insert(kind.subtitle);
    examples.insert(kind.examplePath);
  }

  for (const auto& values : {keys, rows, titles, subtitles, examples})
    EXPECT_EQ(values.size(), styleKinds().size());
}

TEST(StyleKinds, StoreTheirPathUnderAKeyOfTheTable) {
  for (const StyleKind& kind : styleKinds()) {
    const auto key = std::ranges::find(settingKeys(), kind.enabledPathKey, &SettingKey::name);

    ASSERT_NE(key, settingKeys().end()) << kind.title;
    EXPECT_EQ(key->kind, SettingKind::Path) << kind.title;
    EXPECT_EQ(key->defaultValue.value_or(kind.examplePath), PropertyListValue(kind.examplePath));
    EXPECT_THAT(kind.examplePath, StartsWith(kThemesFolder));
  }
}

TEST(StyleKinds, ShareNoBackgroundMode) {
  for (const int mode : {0, 1, 2, 3, 4, 5, INT32_MAX}) {
    const auto shown = std::ranges::count_if(styleKinds(), [&](const StyleKind& kind) {
      return mode >= kind.firstBackgroundMode && mode <= kind.lastBackgroundMode;
    });

    EXPECT_EQ(shown, mode == 0 || mode == 2 ? 0 : 1) << mode;
  }
}

TEST(StyleKinds, HaveTheExampleHTMLThemeAndWidgetActiveAtFirst) {
  EXPECT_FALSE(styleKind(FreltaStyleModeImages).exampleIsActiveAtFirst);
  EXPECT_TRUE(styleKind(FreltaStyleModeHTML).exampleIsActiveAtFirst);
  EXPECT_TRUE(styleKind(FreltaStyleModeWidget).exampleIsActiveAtFirst);
}

TEST(StyleKinds, HearTheSuffixOfANameInAnyCase) {
  const StyleKind& widget = styleKind(FreltaStyleModeWidget);

  for (const char* name : {"A.bundle", "A.BUNDLE", "/x/A.bUnDlE", ".bundle"})
    EXPECT_TRUE(isNamedAsKind(name, widget)) << name;
  for (const char* name : {"", "bundle", "A.bundle/", "A.bundles",
                           "A.bund\xC4\xBA"
                           "e"})
    EXPECT_FALSE(isNamedAsKind(name, widget)) << name;
  EXPECT_FALSE(isNamedAsKind("A.theme", styleKind(FreltaStyleModeImages)));
}

}  // namespace
}  // namespace frelta
