#include "pages/TarnoColourSwatch.h"

#include "tests/pages/PagesTest.h"
#include "tests/support/Pictures.h"

namespace frelta {
namespace {

class TarnoColourSwatchTest : public PagesTest, public testing::WithParamInterface<double> {
 protected:
  TarnoColourSwatchTest() { platform.system.scale = GetParam(); }
  static int pixels(double points) { return static_cast<int>(points * GetParam()); }
};

TEST_P(TarnoColourSwatchTest, IsChequeredInSquaresOfSixPointsWhereItsColourLetsThrough) {
  const auto swatch = swatchOfColour({1, 0, 0, 0.5}, {44, 26});

  EXPECT_EQ(swatch->size(), (CGSize{44, 26}));
  EXPECT_EQ(swatch->scale(), GetParam());
  ASSERT_EQ(swatch->pixelWidth(), pixels(44));
  ASSERT_EQ(swatch->pixelHeight(), pixels(26));
  for (int y = pixels(7); y < pixels(19); ++y) {
    for (int x = pixels(2); x < pixels(42); ++x) {
      const bool light = (x / pixels(6) + y / pixels(6)) % 2 == 0;
      ASSERT_EQ(pixelOf(*swatch, x, y),
                light ? (Pixel{255, 128, 128, 255}) : (Pixel{230, 102, 102, 255}))
          << x << ", " << y;
    }
  }
}

TEST_P(TarnoColourSwatchTest, OfAnOpaqueColourHasNoChequer) {
  const auto swatch = swatchOfColour({0, 0, 1, 1}, {44, 26});

  for (int x = pixels(2); x < pixels(42); ++x) EXPECT_EQ(pixelOf(*swatch, x, pixels(13)), kBlue);
}

TEST_P(TarnoColourSwatchTest, HasAnOutlineOfOnePointOnEachSide) {
  const auto swatch = swatchOfColour({1, 0, 0, 1}, {44, 26});
  const int right = pixels(44) - 1;
  const int bottom = pixels(26) - 1;
  // 0.5 at an opacity of 0.6 on white.
  const auto isOutline = [](const Pixel& pixel) {
    return pixel[0] == pixel[1] && pixel[1] == pixel[2] && std::abs(pixel[0] - 178) <= 1 &&
           pixel[3] == 255;
  };

  for (int i = 0; i < pixels(2); ++i) {
    for (const Pixel& pixel :
         {pixelOf(*swatch, i, pixels(13)), pixelOf(*swatch, right - i, pixels(13)),
          pixelOf(*swatch, pixels(22), i), pixelOf(*swatch, pixels(22), bottom - i)}) {
      if (i < pixels(1)) {
        EXPECT_TRUE(isOutline(pixel)) << i;
      } else {
        EXPECT_EQ(pixel, kRed) << i;
      }
    }
  }
}

TEST_P(TarnoColourSwatchTest, HasCornersOfSevenPointsAndWithinTheOutlineOfSix) {
  const auto swatch = swatchOfColour({1, 0, 0, 1}, {44, 26});

  // On the diagonal a corner begins its radius × (1 - 1 / sqrt 2) from the edge: 2.05 points, and
  // within the outline 1 + 1.76 points.
  EXPECT_EQ(alphaOf(*swatch, pixels(2) - 1, pixels(2) - 1), 0);
  EXPECT_GT(alphaOf(*swatch, pixels(2), pixels(2)), 180);
  EXPECT_EQ(alphaOf(*swatch, pixels(2) + 1, pixels(2) + 1), 255);
  EXPECT_EQ(pixelOf(*swatch, pixels(3), pixels(3)), kRed);
}

INSTANTIATE_TEST_SUITE_P(AtEveryScale, TarnoColourSwatchTest, testing::Values(1, 2, 3));

}  // namespace
}  // namespace frelta
