#include "tests/styles/ArtworkTest.h"

namespace frelta {
namespace {

using namespace FreltaStyleSelector;

class ImageCategory : public ArtworkTest, public testing::WithParamInterface<double> {
 protected:
  ImageCategory() { platform.system.scale = GetParam(); }

  static int alphaAt(const UIImage& image, double x, double y) {
    const auto pixel = [&](double points) { return static_cast<int>(points * image.scale()); };
    return alphaOf(image, pixel(x), pixel(y));
  }
};

TEST_P(ImageCategory, AMaskedImageIsARoundedSquareOfSixtyPoints) {
  const auto masked = maskImageWithPad(*picture(30, 90, kRed), false);

  EXPECT_EQ(masked->size(), (CGSize{60, 60}));
  EXPECT_EQ(masked->scale(), GetParam());
  const double radius = 13.5;
  for (int y = 0; y < masked->pixelHeight(); ++y) {
    for (int x = 0; x < masked->pixelWidth(); ++x) {
      const double outX =
          std::max(0.0, radius - std::min(x + 0.5, pixels(60) - x - 0.5) / GetParam());
      const double outY =
          std::max(0.0, radius - std::min(y + 0.5, pixels(60) - y - 0.5) / GetParam());
      const double beyond = std::hypot(outX, outY) - radius;
      const double halfDiagonal = std::sqrt(0.5) / GetParam();
      const int alpha = alphaOf(*masked, x, y);
      ASSERT_LE(alpha, beyond > halfDiagonal ? 0 : 255) << x << ", " << y;
      ASSERT_GE(alpha, beyond < -halfDiagonal ? 255 : 0) << x << ", " << y;
    }
  }
}

TEST_P(ImageCategory, APaddedImageHasTenTransparentPointsOnEachSide) {
  const auto masked = maskImageWithPad(*blueDisc(), false);
  const auto padded = maskImageWithPad(*blueDisc(), true);

  EXPECT_EQ(padded->size(), (CGSize{80, 80}));
  for (int y = 0; y < pixels(80); ++y) {
    for (int x = 0; x < pixels(80); ++x) {
      const bool inside = x >= pixels(10) && x < pixels(70) && y >= pixels(10) && y < pixels(70);
      ASSERT_EQ(pixelOf(*padded, x, y),
                inside ? pixelOf(*masked, x - pixels(10), y - pixels(10)) : kTransparent)
          << x << ", " << y;
    }
  }
}

TEST_P(ImageCategory, PaddingDoesNotScaleALargerImageAndCutsItsEdgesOff) {
  const auto large = picture(pixels(100), pixels(90), GetParam(),
                             [&](int x, int) { return x < pixels(50) ? kRed : kBlue; });

  const auto padded = padImage(*large);

  EXPECT_EQ(padded->size(), (CGSize{80, 80}));
  EXPECT_EQ(pixelOf(*padded, 0, 0), kRed);
  EXPECT_EQ(pixelOf(*padded, pixels(40) - 1, 0), kRed);
  EXPECT_EQ(pixelOf(*padded, pixels(40), 0), kBlue);
  EXPECT_EQ(pixelOf(*padded, pixels(80) - 1, pixels(80) - 1), kBlue);
}

TEST_P(ImageCategory, ScalingStretchesWithoutKeepingTheShape) {
  const auto stretched = imageWithImage(*picture(3, 300, kRed), {50, 10});

  EXPECT_EQ(stretched->size(), (CGSize{50, 10}));
  EXPECT_EQ(pixelOf(*stretched, 0, 0), kRed);
  EXPECT_EQ(pixelOf(*stretched, pixels(50) - 1, pixels(10) - 1), kRed);
}

TEST_P(ImageCategory, AShadowFallsOnePointRightAndDownAndFollowsTheGaussian) {
  const auto square = imageWithImage(*picture(60, 60, kRed), {60, 60});

  const auto shadowed = imageWithShadow(*square);

  EXPECT_EQ(shadowed->size(), (CGSize{65, 65}));
  EXPECT_EQ(pixelOf(*shadowed, pixels(2), pixels(2)), kRed);
  EXPECT_EQ(pixelOf(*shadowed, pixels(62) - 1, pixels(62) - 1), kRed);
  const double deviation = 1.25 * GetParam();
  const auto shade = [&](double pixelsInside) {
    return 255 * 0.75 * std::erfc(-pixelsInside / (deviation * std::sqrt(2.0))) / 2;
  };
  const int middle = pixels(32);
  for (int i = 0; i < pixels(65); ++i) {
    if (i >= pixels(2) && i < pixels(62)) continue;
    const double inside = std::min(i + 0.5 - pixels(3), pixels(63) - (i + 0.5));
    EXPECT_NEAR(alphaOf(*shadowed, i, middle), shade(inside), 2) << i;
    EXPECT_NEAR(alphaOf(*shadowed, middle, i), shade(inside), 2) << i;
    EXPECT_EQ(pixelOf(*shadowed, i, middle)[0], 0) << i;
  }
}

TEST_P(ImageCategory, AStackIsAsWideAsItsItemsFan) {
  const std::vector<std::pair<std::size_t, double>> widths{{0, 35}, {1, 60}, {2, 85}, {3, 110}};

  for (const auto& [count, width] : widths) {
    const std::vector<StackItem> items(count, Image(blueDisc()));
    EXPECT_EQ(generateStackedImageWithArray(items)->size(), (CGSize{width, 60})) << count;
  }
  EXPECT_THAT(generateStackedImageWithArray({})->pixels(), testing::Each(0));
}

TEST_P(ImageCategory, EachItemOfAStackFillsItsSquareAndNothingElse) {
  for (int place = 0; place < 3; ++place) {
    std::vector<StackItem> items(3, Image());
    items[static_cast<std::size_t>(place)] = picture(60, 60, kRed);

    const auto stack = generateStackedImageWithArray(items);

    const double side = 60 - 6 * place;
    const double left = 25 * place + 8.75;
    const double top = 30 - side / 2;
    // Of 65 points the icon takes those from 2 to 62, the shadow some beyond.
    const double point = side / 65;
    const double middle = 30;
    const double centre = left + side / 2;
    EXPECT_EQ(alphaAt(*stack, left + 3 * point + 1, middle), 255) << place;
    EXPECT_EQ(alphaAt(*stack, left + 61 * point - 1, middle), 255) << place;
    EXPECT_EQ(alphaAt(*stack, centre, top + 3 * point + 1), 255) << place;
    EXPECT_EQ(alphaAt(*stack, centre, top + 61 * point - 1), 255) << place;
    double mass = 0;
    CGPoint weight;
    for (int y = 0; y < stack->pixelHeight(); ++y) {
      for (int x = 0; x < stack->pixelWidth(); ++x) {
        const bool beside = x + 1 < left * GetParam() || x > (left + side) * GetParam() ||
                            y + 1 < top * GetParam() || y > (top + side) * GetParam();
        ASSERT_LE(alphaOf(*stack, x, y), beside ? 0 : 255) << place << ": " << x << ", " << y;
        const int red = pixelOf(*stack, x, y)[0];
        mass += red;
        weight.x += red * (x + 0.5);
        weight.y += red * (y + 0.5);
      }
    }
    EXPECT_NEAR(weight.x / mass / GetParam(), left + 32 * point, 0.15) << place;
    EXPECT_NEAR(weight.y / mass / GetParam(), top + 32 * point, 0.15) << place;
    EXPECT_NEAR(mass / 255 / GetParam() / GetParam(),
                (60 * 60 - (4 - std::acos(-1.0)) * 13.5 * 13.5) * point * point, 0.01 * side * side)
        << place;
  }
}

TEST_P(ImageCategory, TheFirstItemOfAStackLiesOnTop) {
  const std::vector<StackItem> items{picture(60, 60, kRed), picture(60, 60, kBlue),
                                     picture(60, 60, kWhite)};

  const auto stack = generateStackedImageWithArray(items);

  const auto at = [&](double x) { return pixelOf(*stack, pixels(x), pixels(30)); };
  EXPECT_EQ(at(20), kRed);
  EXPECT_EQ(at(60), kRed);
  EXPECT_EQ(at(78), kBlue);
  EXPECT_EQ(at(98), kWhite);
}

TEST_P(ImageCategory, AStackTakesPathsAndPassesOverWhatItCannotLoad) {
  putPicture("/red.png", *picture(60, 60, kRed));
  platform.put("/text.png", "no picture");

  const auto one = generateStackedImageWithArray(
      std::vector<StackItem>{"/red.png", "/missing.png", "/text.png"});

  EXPECT_EQ(one->size(), (CGSize{110, 60}));
  EXPECT_EQ(pixelOf(*one, pixels(30), pixels(30)), kRed);
  EXPECT_EQ(alphaAt(*one, 75, 30), 0);
}

TEST_P(ImageCategory, APlaceHolderHasTheIconInTheMiddle) {
  const auto holder = createPlaceHolder(*picture(60, 60, kRed));

  EXPECT_EQ(holder->size(), (CGSize{110, 60}));
  EXPECT_EQ(alphaAt(*holder, 24, 30), 0);
  EXPECT_EQ(pixelOf(*holder, pixels(30), pixels(30)), kRed);
  EXPECT_EQ(pixelOf(*holder, pixels(80), pixels(30)), kRed);
  EXPECT_EQ(alphaAt(*holder, 85.5, 30), 0);
}

INSTANTIATE_TEST_SUITE_P(AtEveryScale, ImageCategory, testing::Values(1, 2, 3));

TEST(BlankTest, OnlyPicturesOtherThanOpaqueWhiteCountAsImages) {
  const auto with = [](Pixel odd) {
    return picture(5, 5, 1, [odd](int x, int y) { return x == 4 && y == 4 ? odd : kWhite; });
  };

  EXPECT_FALSE(checkIfImage(*with(kWhite)));
  EXPECT_TRUE(checkIfImage(*with({254, 255, 255, 255})));
  EXPECT_TRUE(checkIfImage(*with({255, 254, 255, 255})));
  EXPECT_TRUE(checkIfImage(*with({255, 255, 254, 255})));
  EXPECT_TRUE(checkIfImage(*with({254, 254, 254, 254})));
  EXPECT_TRUE(checkIfImage(*with(kTransparent)));
  EXPECT_FALSE(checkIfImage(UIImage()));
}

TEST(ContainsTest, FindsTextLiterallyAndNeverAnEmptyOne) {
  EXPECT_TRUE(contains("Icon@2x.png", "@"));
  EXPECT_TRUE(contains("Icon", "Icon"));
  EXPECT_FALSE(contains("Icon", "icon"));
  EXPECT_FALSE(contains("Icon", "Icons"));
  EXPECT_FALSE(contains("Icon", ""));
  EXPECT_FALSE(contains("", ""));
  EXPECT_FALSE(contains("\xC3\xA9", "e"));
}

}  // namespace
}  // namespace frelta
