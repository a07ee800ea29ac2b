#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "app/BundledFiles.h"
#include "app/DeviceFolders.h"
#include "fake/FakePlatform.h"
#include "painting/QtImageServices.h"

namespace frelta {
namespace {

using Operation = FailingFiles::Operation;

class BundledFiles : public testing::Test {
 protected:
  std::set<std::string> themes() const {
    std::set<std::string> names;
    for (const auto& entry :
         std::filesystem::directory_iterator(platform.hostPath("/Library/Frelta/Themes")))
      names.insert(entry.path().filename());
    return names;
  }
  static void install() { installBundledFiles(QStringLiteral(FRELTA_BUNDLE)); }

  FakePlatform platform;
};

TEST_F(BundledFiles, GiveAnEmptyDeviceTheExampleStylesAndTheBundlesPictures) {
  install();

  EXPECT_THAT(themes(), testing::ElementsAre("Example HTML.theme", "Example Images.theme",
                                             "Example Widget.bundle"));
  const QtImageServices images;
  for (const char* picture : {"/Library/PreferenceBundles/freltaprefs.bundle/placeholder.png",
                              "/Library/PreferenceBundles/freltaprefs.bundle/iconlarge.png",
                              "/Library/Frelta/Themes/Example Images.theme/Icon.png",
                              "/Library/Frelta/Themes/Example Images.theme/Icon@2.png",
                              "/Library/Frelta/Themes/Example HTML.theme/Icon@3.png",
                              "/Library/Frelta/Themes/Example Widget.bundle/Icon@3.png",
                              "/Library/Frelta/Themes/Example Images.theme/Images/Background.png"})
    EXPECT_NE(images.imageWithData(platform.get(picture)), nullptr) << picture;
  EXPECT_NE(platform.get("/Library/Frelta/Themes/Example HTML.theme/HTML/index.html"), "");
}

TEST_F(BundledFiles, ChangeNothingThatIsThere) {
  platform.put("/Library/PreferenceBundles/freltaprefs.bundle/placeholder.png", "mine");
  platform.put("/Library/Frelta/Themes/My.theme/Images/Key.png", "mine");

  install();
  install();

  EXPECT_EQ(platform.get("/Library/PreferenceBundles/freltaprefs.bundle/placeholder.png"), "mine");
  EXPECT_THAT(themes(), testing::ElementsAre("My.theme"));
  EXPECT_EQ(platform.files.count(Operation::Write), 1U);
}

TEST_F(BundledFiles, DoNotComeBackOnceTheirStylesWereRemoved) {
  createDeviceFolders();

  install();

  EXPECT_THAT(themes(), testing::IsEmpty());
}

TEST_F(BundledFiles, ThatCannotBeWrittenAreLogged) {
  platform.files.fail(Operation::Write);

  install();

  EXPECT_THAT(platform.log.lines,
              testing::Contains("[Frelta] installBundledFiles cannot make "
                                "/Library/PreferenceBundles/freltaprefs.bundle/placeholder.png"));
}

}  // namespace
}  // namespace frelta
