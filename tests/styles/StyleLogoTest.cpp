#include <sys/stat.h>

#include "tests/styles/ArtworkTest.h"

namespace frelta {
namespace {

constexpr std::string_view kPlaceholder =
    "/Library/PreferenceBundles/freltaprefs.bundle/placeholder.png";

class StyleLogo : public ArtworkTest {
 protected:
  StyleLogo() { style.setFullPath("/S"); }

  /// The colour in the middle of the logo; nothing when there is none.
  std::optional<Pixel> logo() const {
    const auto image = style.styleLogo();
    return image ? std::optional(pixelOf(*image, pixels(40), pixels(40))) : std::nullopt;
  }

  FreltaSortedStyle style;
};

TEST_F(StyleLogo, IsTheFileOfTheScreensScaleElseThePlainOneElseThePlaceholder) {
  EXPECT_EQ(logo(), std::nullopt);
  putPicture(kPlaceholder, *picture(9, 9, kWhite));
  EXPECT_EQ(logo(), kWhite);
  putPicture("/S/Icon.png", *picture(9, 9, kRed));
  EXPECT_EQ(logo(), kRed);

  putPicture("/S/Icon@3.png", *picture(9, 9, kBlue));

  platform.system.scale = 2;
  EXPECT_EQ(logo(), kRed);
  platform.system.scale = 3;
  EXPECT_EQ(logo(), kBlue);
}

TEST_F(StyleLogo, HasNoXInTheNameOfTheScalesFile) {
  platform.system.scale = 3;
  putPicture("/S/Icon@3x.png", *picture(9, 9, kBlue));
  putPicture("/S/Icon.png", *picture(9, 9, kRed));

  EXPECT_EQ(logo(), kRed);

  EXPECT_EQ(platform.files.count(Operation::FileExists, "/S/Icon@3.png"), 1U);
}

TEST_F(StyleLogo, IsMaskedAndPaddedAndTheGroupsIconMadeAnewEachTime) {
  putPicture("/S/Icon.png", *greenDisc());

  const auto first = style.generateIcon();
  const auto second = style.generateIcon();

  ASSERT_NE(first, nullptr);
  EXPECT_NE(first, second);
  EXPECT_EQ(first->size(), (CGSize{80, 80}));
  EXPECT_THAT(first->pixels(),
              testing::ElementsAreArray(
                  FreltaStyleSelector::maskImageWithPad(*greenDisc(), true)->pixels()));
  EXPECT_EQ(platform.files.count(Operation::Read, "/S/Icon.png"), 2U);
  EXPECT_EQ(style.cachedStyleLogo(), nullptr);
}

TEST_F(StyleLogo, LogsItsFolder) {
  style.styleLogo();
  style.setFullPath(std::nullopt);
  style.styleLogo();

  EXPECT_THAT(platform.log.lines,
              testing::ElementsAre("[Frelta] self.fullPath: /S", "[Frelta] self.fullPath: (null)"));
}

TEST_F(StyleLogo, IsNoneWhenWhatHasItsNameIsNoPicture) {
  putPicture(kPlaceholder, *picture(9, 9, kWhite));
  const auto file = platform.hostPath("/S/Icon.png");
  makeFolder("/S");

  ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
  EXPECT_EQ(logo(), std::nullopt);
  std::filesystem::remove(file);
  std::filesystem::create_directory(file);
  EXPECT_EQ(logo(), std::nullopt);
  std::filesystem::remove(file);
  for (const char* bytes : {"", "no picture", "\x89PNG\r\n\x1a\n"}) {
    platform.put("/S/Icon.png", bytes);
    EXPECT_EQ(logo(), std::nullopt);
  }
  std::filesystem::remove(file);
  std::filesystem::create_symlink("missing", file);
  EXPECT_EQ(logo(), kWhite);
}

}  // namespace
}  // namespace frelta
