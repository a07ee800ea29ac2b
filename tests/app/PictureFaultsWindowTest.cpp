#include <filesystem>

#include "graphics/UIImage.h"
#include "tests/app/OpenWindow.h"
#include "tests/support/FullDisk.h"
#include "tests/support/MountNamespace.h"
#include "tests/support/Pictures.h"

namespace frelta {
namespace {

using testing::ElementsAre;

/// The device root looks mounts up where it was opened, so this comes before it.
struct OwnMounts {
  bool entered = enterOwnMountNamespace();
};

/// A picture is picked over an older one, and cannot be stored.
class PictureFaultsWindow : private OwnMounts, public testing::Test {
 protected:
  PictureFaultsWindow() {
    std::filesystem::create_directories(host());
    window.putSettings({{"BackgroundMode", 2}});
  }
  std::string host() { return window.platform.hostPath(kUserImagesFolder); }
  /// Mounts over the folder. False where the system does not allow that.
  bool mountFolder(const char* type, unsigned long flags, const char* options) {
    return entered && ::mount(host().c_str(), host().c_str(), type, flags, options) == 0;
  }
  void putOldPicture() {
    window.platform.put(kBackgroundImagePath,
                        QtImageServices().pngRepresentation(*picture(9, 9, kRed)).value());
    before = window.platform.get(kBackgroundImagePath);
  }
  void openPicker() {
    ASSERT_NO_FATAL_FAILURE(window.open());
    ASSERT_TRUE(window.driver->tapRow("FreltaImageCell"));
    ASSERT_TRUE(window.pictures.isAsking());
  }
  /// One whose file needs about a megabyte.
  void pick() {
    std::uint32_t noise = 1;
    const auto next = [&] {
      return static_cast<int>((noise = noise * 1664525 + 1013904223) >> 24);
    };
    window.pictures.finish({picture(600, 600, 1,
                                    [&](int, int) {
                                      return Pixel{next(), next(), next(), 255};
                                    }),
                            {}});
    window.settle();
  }
  void expectOldPictureAndOneBroadcast() {
    EXPECT_EQ(window.platform.get(kBackgroundImagePath), before);
    const std::filesystem::directory_iterator files(host());
    EXPECT_EQ(std::distance(begin(files), end(files)), 1);
    EXPECT_THAT(window.platform.notifications.posted, ElementsAre("com.tarno.frelta.refresh"));
    EXPECT_TRUE(window.application->window()->uiWindow().presentedViewControllers().empty());
  }
  Dictionary settingsThatNameThePicture() const {
    return {{"BackgroundMode", 2}, {"backgroundImage", std::string(kBackgroundImagePath)}};
  }
  const UIImage* shown() {
    return window.driver->findRow("FreltaImageCell")->imageView()->image().get();
  }

  OpenWindow window;
  std::string before;
};

TEST_F(PictureFaultsWindow, OnAFullDiskTheOldPictureAndTheSettingsStay) {
  putOldPicture();
  ASSERT_NO_FATAL_FAILURE(openPicker());

  {
    const FullDisk disk;
    pick();
  }

  expectOldPictureAndOneBroadcast();
  EXPECT_EQ(window.settings(), (Dictionary{{"BackgroundMode", 2}}));
  EXPECT_EQ(shown(), nullptr);
}

TEST_F(PictureFaultsWindow, WithoutRoomForThePictureTheOldOneStaysAndIsNamed) {
  if (!mountFolder("tmpfs", 0, "size=64k")) GTEST_SKIP() << "NOT TESTED: no mounts here";
  putOldPicture();
  ASSERT_NO_FATAL_FAILURE(openPicker());

  pick();

  expectOldPictureAndOneBroadcast();
  EXPECT_EQ(window.settings(), settingsThatNameThePicture());
  ASSERT_TRUE(shown());
  EXPECT_EQ(shown()->size(), (CGSize{9, 9}));
}

TEST_F(PictureFaultsWindow, InAReadOnlyFolderTheOldOneStaysAndIsNamed) {
  putOldPicture();
  if (!mountFolder(nullptr, MS_BIND, nullptr) ||
      !mountFolder(nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr))
    GTEST_SKIP() << "NOT TESTED: no mounts here";
  ASSERT_NO_FATAL_FAILURE(openPicker());

  pick();

  expectOldPictureAndOneBroadcast();
  EXPECT_EQ(window.settings(), settingsThatNameThePicture());
  ASSERT_TRUE(shown());
  EXPECT_EQ(shown()->size(), (CGSize{9, 9}));
}

}  // namespace
}  // namespace frelta
