#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <stdexcept>
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
  /// All files around the examples, below the folder that holds the styles folder.
  std::set<std::string> files() const {
    std::set<std::string> paths;
    const auto root = platform.hostPath("/Library/Frelta");
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
      if (entry.is_regular_file()) paths.insert(entry.path().lexically_relative(root));
    return paths;
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

TEST_F(BundledFiles, AreCompletedByTheNextStartWhereverOneWasCutShort) {
  install();
  const std::set<std::string> all = files();
  ASSERT_THAT(all, testing::SizeIs(14));

  // Before the first example, after some, before the last one, and when all are there.
  for (const int cut : {3, 10, 16, 17}) {
    std::filesystem::remove_all(platform.hostPath("/Library"));
    int changes = 0;
    platform.files.beforeCall = [&](const FailingFiles::Call& call) {
      const bool change = call.operation == Operation::Write || call.operation == Operation::Remove;
      if (change && changes++ == cut) throw std::runtime_error("killed");
    };
    EXPECT_THROW(install(), std::runtime_error);
    platform.files.beforeCall = nullptr;

    install();

    EXPECT_EQ(files(), all) << "cut before change " << cut;
  }
}

TEST_F(BundledFiles, ThatADiskHadNoRoomForComeWithTheNextStart) {
  platform.files.beforeCall = [this](const FailingFiles::Call& call) {
    if (call.path.ends_with("Icon.png")) platform.files.fail(Operation::Write);
  };
  install();
  platform.files.beforeCall = nullptr;
  platform.files.succeed(Operation::Write);
  createDeviceFolders();

  install();

  EXPECT_THAT(files(), testing::SizeIs(14));
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
