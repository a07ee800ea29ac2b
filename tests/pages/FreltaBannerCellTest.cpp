#include "pages/FreltaBannerCell.h"

#include "tests/pages/PagesTest.h"

namespace frelta {
namespace {

class FreltaBannerCellTest : public PagesTest {
 protected:
  std::unique_ptr<FreltaBannerCell> makeBanner() {
    return FreltaBannerCell::initWithSpecifier(
        std::make_shared<PSSpecifier>(PSCellType::PSStaticTextCell, "FreltaBannerCell"));
  }
  /// A white square.
  std::shared_ptr<const UIImage> square(int side) {
    const std::size_t size = std::size_t{4} * static_cast<std::size_t>(side * side);
    const auto pixels = std::make_shared<std::vector<std::uint8_t>>(size, 255);
    return std::make_shared<UIImage>(side, side, 1,
                                     std::shared_ptr<const std::uint8_t>(pixels, pixels->data()));
  }
  static int alphaAt(const UIImage& image, int x, int y) {
    return image.pixels()[static_cast<std::size_t>(y * image.pixelWidth() + x) * 4 + 3];
  }
  void putIcon() {
    platform.put("/Library/PreferenceBundles/freltaprefs.bundle/iconlarge.png",
                 UIImagePNGRepresentation(*square(80)).value());
  }
};

TEST_F(FreltaBannerCellTest, AsksForARowOf150PointsWhateverTheWidth) {
  const auto banner = makeBanner();

  for (const double width : {0.0, 1.0, 320.0, 100'000.0}) {
    EXPECT_EQ(banner->preferredHeightForWidth(width), 150) << width;
  }
}

TEST_F(FreltaBannerCellTest, FillsItsSuperviewsWidthFromTheOriginAt195PointsWhateverIsAsked) {
  UIView superview({10, 20, 320, 700});
  FreltaBannerCell* banner = superview.addSubview(makeBanner());

  for (const CGRect& frame : {CGRect(16, 14, 288, 150), CGRect(), CGRect(-5, -5, 1, 1)}) {
    banner->setFrame(frame);

    EXPECT_EQ(banner->frame(), CGRect(0, 0, 320, 195));
    EXPECT_EQ(banner->bounds(), CGRect(0, 0, 320, 195));
  }
}

TEST_F(FreltaBannerCellTest, FollowsItsSuperviewsWidth) {
  UIView superview({0, 0, 320, 700});
  FreltaBannerCell* banner = superview.addSubview(makeBanner());

  superview.setFrame({0, 0, 500, 700});
  banner->setFrame({});

  EXPECT_EQ(banner->frame(), CGRect(0, 0, 500, 195));
  EXPECT_EQ(banner->mainTitleLabel()->frame().size.width, 500);
  EXPECT_EQ(banner->bannerView()->frame(), CGRect(0, 15, 500, 100));
}

TEST_F(FreltaBannerCellTest, HasTheBaseFrameWithoutASuperview) {
  UIView superview({0, 0, 320, 700});
  auto banner = makeBanner();
  const CGRect atFirst = banner->frame();
  FreltaBannerCell* shown = superview.addSubview(std::move(banner));

  const auto owner = shown->removeFromSuperview();

  EXPECT_EQ(atFirst, CGRect(0, 0, 0, 0));
  EXPECT_EQ(owner->frame(), CGRect(0, 0, 0, 195));
}

TEST_F(FreltaBannerCellTest, IsLaidOutBeforeAndAfterItTakesItsFrameInANewSuperview) {
  class NotingView : public UIView {
   public:
    NotingView() { setAutoresizingMask(UIViewAutoresizingFlexibleWidth); }
    void layoutSubviews() override { widths.push_back(frame().size.width); }
    std::vector<double> widths;
  };
  UIView superview({0, 0, 320, 700});
  auto banner = makeBanner();
  const auto* noting = banner->addSubview(std::make_unique<NotingView>());

  const FreltaBannerCell* shown = superview.addSubview(std::move(banner));

  EXPECT_EQ(noting->widths, (std::vector<double>{0, 320}));
  EXPECT_EQ(shown->contentView()->frame(), CGRect(0, 0, 320, 195));
}

TEST_F(FreltaBannerCellTest, StacksIconTitleAndDevelopersLine) {
  UIView superview({0, 0, 320, 700});
  FreltaBannerCell* banner = superview.addSubview(makeBanner());
  const double titleHeight =
      measurer.sizeOfText("Frelta", UIFont::systemFontOfSize(35), 0, 1).height;
  const double lineHeight =
      measurer.sizeOfText("by the Tarno team", UIFont::systemFontOfSize(16), 0, 1).height;

  EXPECT_EQ(banner->bannerView()->frame(), CGRect(0, 15, 320, 100));
  EXPECT_EQ(banner->bannerView()->contentMode(), UIViewContentMode::ScaleAspectFit);
  EXPECT_EQ(banner->mainTitleLabel()->frame(), CGRect(0, 120, 320, titleHeight));
  EXPECT_EQ(banner->subTitleLabel()->frame(), CGRect(0, 120 + titleHeight + 5, 320, lineHeight));
  EXPECT_EQ(banner->mainTitleLabel()->text(), "Frelta");
  EXPECT_EQ(banner->mainTitleLabel()->font(), UIFont::systemFontOfSize(35));
  EXPECT_EQ(banner->subTitleLabel()->font(), UIFont::systemFontOfSize(16));
  EXPECT_EQ(banner->subTitleLabel()->textColor(), UIColor::grayColor());
  for (const UILabel* label : {banner->mainTitleLabel(), banner->subTitleLabel()}) {
    EXPECT_EQ(label->numberOfLines(), 1);
    EXPECT_EQ(label->textAlignment(), NSTextAlignment::Center);
    EXPECT_EQ(label->backgroundColor(), UIColor::clearColor());
    EXPECT_EQ(label->autoresizingMask(), UIViewAutoresizingFlexibleWidth);
  }
  EXPECT_EQ(banner->bannerView()->autoresizingMask(), UIViewAutoresizingFlexibleWidth);
  EXPECT_EQ(banner->backgroundColor(), UIColor::clearColor());
  EXPECT_EQ(banner->reuseIdentifier(), "Cell");
  const auto views = banner->subviews().last(3);
  EXPECT_EQ(views[0].get(), banner->mainTitleLabel());
  EXPECT_EQ(views[1].get(), banner->subTitleLabel());
  EXPECT_EQ(views[2].get(), banner->bannerView());
}

TEST_F(FreltaBannerCellTest, RoundsTheIconByAShareOfItsWidthAndKeepsTheOriginal) {
  putIcon();

  const auto banner = makeBanner();

  ASSERT_TRUE(banner->unmaskedImage());
  EXPECT_EQ(alphaAt(*banner->unmaskedImage(), 0, 0), 255);
  const UIImage& shown = *banner->bannerView()->image();
  EXPECT_EQ(shown.size(), (CGSize{80, 80}));
  EXPECT_EQ(shown.scale(), 2);
  EXPECT_EQ(alphaAt(shown, 0, 0), 0);
  EXPECT_EQ(alphaAt(shown, 36, 0), 255);
  // On the diagonal a corner of 36 pixels begins 36 × (1 - 1 / sqrt 2) = 10.5 pixels from the edge.
  EXPECT_EQ(alphaAt(shown, 9, 9), 0);
  EXPECT_EQ(alphaAt(shown, 12, 12), 255);
}

TEST_F(FreltaBannerCellTest, IsWithoutAPictureWhereThereIsNoIcon) {
  const auto banner = makeBanner();

  EXPECT_EQ(banner->unmaskedImage(), nullptr);
  EXPECT_EQ(banner->bannerView()->image(), nullptr);
}

TEST_F(FreltaBannerCellTest, RoundingByNothingGivesTheSameImage) {
  const auto image = square(4);

  EXPECT_EQ(FreltaBannerCell::roundedRectImageFromImage(image, 0), image);
  EXPECT_EQ(FreltaBannerCell::roundedRectImageFromImage(nullptr, 0), nullptr);
  EXPECT_EQ(FreltaBannerCell::roundedRectImageFromImage(nullptr, 9), nullptr);
}

TEST_F(FreltaBannerCellTest, IsReadAloudAsAHeadingWithItsMakers) {
  EXPECT_EQ(makeBanner()->accessibility(), (UIAccessibility{.isElement = true,
                                                            .role = UIAccessibility::Role::Heading,
                                                            .label = "Frelta",
                                                            .value = "by the Tarno team"}));
}

TEST_F(FreltaBannerCellTest, LeavesTheNextRowWhereItsOwnRowEndsAndLiesBehindIt) {
  putIcon();
  const auto page = showRoot();

  auto* banner = cell<FreltaBannerCell>(*page, "FreltaBannerCell");
  ASSERT_TRUE(banner);
  const IndexPath path = page->indexPathForSpecifier(*banner->specifier()).value();

  EXPECT_EQ(page->table().rectForRowAtIndexPath(path).size.height, 150);
  EXPECT_EQ(banner->frame(), CGRect(0, 0, 320, 195));
  EXPECT_EQ(banner->superview()->subviews().front().get(), banner);
  EXPECT_EQ(banner->selectionStyle(), UITableViewCellSelectionStyle::None);
  EXPECT_GE(cell(*page, "Enabled")->frame().minY(), 195);
}

TEST_F(FreltaBannerCellTest, LoadsTheIconBesideTheMainThreadAndShowsTheLastOneMeanwhile) {
  putIcon();
  const auto before = makeBanner();
  platform.useWorkQueue();
  platform.files.resetCalls();

  const auto banner = makeBanner();
  const auto meanwhile = banner->bannerView()->image();
  const std::size_t readsAtOnce = platform.files.count(Operation::Read);
  const bool ran = platform.workQueue.runNext();

  EXPECT_EQ(meanwhile, before->bannerView()->image());
  EXPECT_EQ(readsAtOnce, 0U);
  EXPECT_TRUE(ran);
  EXPECT_EQ(platform.files.count(Operation::Read), 1U);
  EXPECT_NE(banner->bannerView()->image(), meanwhile);
  EXPECT_EQ(banner->bannerView()->image()->size(), (CGSize{80, 80}));
}

TEST_F(FreltaBannerCellTest, NobodyWantsTheIconOfABannerThatIsGone) {
  platform.useWorkQueue();

  makeBanner().reset();

  EXPECT_EQ(platform.workQueue.waiting(), 0U);
}

}  // namespace
}  // namespace frelta
