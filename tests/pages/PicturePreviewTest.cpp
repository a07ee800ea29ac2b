#include "pages/PicturePreview.h"

#include <filesystem>

#include "tests/pages/PagesTest.h"
#include "tests/support/Pictures.h"
#include "uikit/UIWindow.h"

namespace frelta {
namespace {

class CountedImages : public QtImageServices {
 public:
  std::shared_ptr<const UIImage> imageWithData(std::string_view bytes) const override {
    ++decodings;
    return QtImageServices::imageWithData(bytes);
  }
  mutable int decodings = 0;
};

class PicturePreviewTest : public PagesTest {
 protected:
  PicturePreviewTest() { GraphicsServices::install({&images}); }

  void put(const UIImage& picture) {
    platform.put("/a.png", UIImagePNGRepresentation(picture).value());
  }

  /// Without a work queue it is there when the call returns.
  static std::shared_ptr<const UIImage> previewOf(const char* path) {
    std::shared_ptr<const UIImage> preview;
    loadPreviewOfPictureAtPath(path, {}, [&](auto made) { preview = std::move(made); });
    return preview;
  }

  CountedImages images;
};

TEST_F(PicturePreviewTest, IsNoLargerThanARowShowsAndKeepsTheShape) {
  put(*picture(1600, 800, kRed));

  const auto preview = previewOf("/a.png");

  ASSERT_TRUE(preview);
  EXPECT_EQ(preview->size(), (CGSize{320, 160}));
  EXPECT_EQ(preview->scale(), 1);
  EXPECT_EQ(pixelOf(*preview, 160, 80), kRed);
}

TEST_F(PicturePreviewTest, OfASmallPictureIsItsSizeAndOfALineIsNotNothing) {
  put(*picture(6, 4, kBlue));
  EXPECT_EQ(previewOf("/a.png")->size(), (CGSize{6, 4}));

  put(*picture(4000, 1, kBlue));
  EXPECT_EQ(previewOf("/a.png")->size(), (CGSize{320, 1}));

  put(*picture(1, 4000, kBlue));
  EXPECT_EQ(previewOf("/a.png")->size(), (CGSize{1, 320}));
}

TEST_F(PicturePreviewTest, OpensNothingButFilesAndIsNoneOfOneThatCannotBeRead) {
  std::filesystem::create_directories(platform.hostPath("/folder.png"));
  put(*picture(2, 2, kRed));

  const auto ofAFolder = previewOf("/folder.png");
  const std::size_t readsOfTheFolder = platform.files.count(Operation::Read);
  platform.files.fail(Operation::Read);

  EXPECT_EQ(ofAFolder, nullptr);
  EXPECT_EQ(readsOfTheFolder, 0u);
  EXPECT_EQ(previewOf("/a.png"), nullptr);
}

TEST_F(PicturePreviewTest, IsDecodedAgainOnlyForOtherBytes) {
  put(*picture(2, 2, kRed));

  const auto first = previewOf("/a.png");
  const auto again = previewOf("/a.png");
  const int decodingsOfTheSame = images.decodings;
  put(*picture(2, 2, kBlue));
  const auto other = previewOf("/a.png");

  EXPECT_EQ(decodingsOfTheSame, 1);
  EXPECT_EQ(again, first);
  EXPECT_EQ(images.decodings, 2);
  EXPECT_EQ(pixelOf(*other, 0, 0), kBlue);
}

TEST_F(PicturePreviewTest, OfAPickedPictureNeedsNoDecoding) {
  putSettings({{"BackgroundMode", 2}});
  const auto page = showRoot();
  UIWindow window;
  window.setRootViewController(navigation);
  tap(*page, "FreltaImageCell");

  pictures.finish({picture(900, 600, kRed), {}});
  page->reloadSpecifiers();
  layout();

  EXPECT_EQ(images.decodings, 0);
  EXPECT_EQ(cell(*page, "FreltaImageCell")->imageView()->image()->size(), (CGSize{320, 213}));
}

}  // namespace
}  // namespace frelta
