#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "painting/QtImageServices.h"
#include "tests/support/Pictures.h"

namespace frelta {
namespace {

class ImageContext : public testing::TestWithParam<double> {
 protected:
  double scale() const { return GetParam(); }
  int pixels(double points) const { return static_cast<int>(std::lround(points * scale())); }

  std::unique_ptr<UIGraphicsImageContext> canvas(double width, double height) const {
    return images.beginImageContext({width, height}, scale());
  }

  QtImageServices images;
};

TEST_P(ImageContext, StartsTransparentAtItsScale) {
  const auto context = canvas(20, 10);

  const auto image = context->image();

  EXPECT_EQ(image->size(), (CGSize{20, 10}));
  EXPECT_EQ(image->scale(), scale());
  EXPECT_EQ(image->pixelWidth(), pixels(20));
  EXPECT_EQ(image->pixelHeight(), pixels(10));
  EXPECT_THAT(image->pixels(), testing::Each(0));
}

TEST_P(ImageContext, RoundsASideThatIsNotWholeUp) {
  const auto image = canvas(20.1, 9.4)->image();

  EXPECT_EQ(image->pixelWidth(), static_cast<int>(std::ceil(20.1 * scale())));
  EXPECT_EQ(image->pixelHeight(), static_cast<int>(std::ceil(9.4 * scale())));
}

TEST_P(ImageContext, DrawsAnImageOfItsOwnScalePixelForPixel) {
  const auto source = picture(pixels(3), pixels(2), scale(), [](int x, int y) {
    return Pixel{10 * x, 20 * y, 30, 200};
  });
  const auto context = canvas(5, 5);

  context->drawImage(*source, {1, 2, 3, 2});

  const auto image = context->image();
  for (int y = 0; y < pixels(5); ++y) {
    for (int x = 0; x < pixels(5); ++x) {
      const bool inside = x >= pixels(1) && x < pixels(4) && y >= pixels(2) && y < pixels(4);
      EXPECT_EQ(pixelOf(*image, x, y),
                inside ? pixelOf(*source, x - pixels(1), y - pixels(2)) : kTransparent)
          << x << ", " << y;
    }
  }
}

TEST_P(ImageContext, ShrinksAPictureByAveragingIt) {
  // Where a pixel's middle comes to lie, the few pixels around it are all white or all black.
  const auto chessboard = picture(960, 960, 1, [](int x, int y) {
    return ((x + 2) / 4 + (y + 2) / 4) % 2 == 0 ? kWhite : kBlack;
  });
  const auto context = canvas(20, 20);

  context->drawImage(*chessboard, {0, 0, 20, 20});

  const auto image = context->image();
  for (int i = 0; i < pixels(20); ++i) {
    EXPECT_NEAR(pixelOf(*image, i, i)[0], 127, 2) << i;
    EXPECT_EQ(alphaOf(*image, i, i), 255) << i;
  }
}

TEST_P(ImageContext, StretchesToTheRectangleAndNotBeyondIt) {
  const auto red = picture(7, 3, kRed);
  const auto context = canvas(40, 40);

  context->drawImage(*red, {10, 5, 20, 30});

  const auto image = context->image();
  for (int y = 0; y < pixels(40); ++y) {
    for (int x = 0; x < pixels(40); ++x) {
      const bool inside = x >= pixels(10) && x < pixels(30) && y >= pixels(5) && y < pixels(35);
      ASSERT_EQ(pixelOf(*image, x, y), inside ? kRed : kTransparent) << x << ", " << y;
    }
  }
}

TEST_P(ImageContext, PlacesAPictureBetweenPixelsToAFractionOfAPixel) {
  const auto blob = picture(300, 300, 1, [](int x, int y) {
    const double distance = std::hypot(x + 0.5 - 150, y + 0.5 - 150) / 50;
    return Pixel{0, 0, 0, static_cast<int>(255 * std::exp(-distance * distance / 2))};
  });
  const auto source = canvas(30, 30);
  const auto context = canvas(30, 30);

  source->drawImage(*blob, {0, 0, 30, 30});
  context->drawImage(*source->image(), {3.75, 2.3, 21, 24});

  const auto image = context->image();
  double mass = 0;
  CGPoint centre;
  for (int y = 0; y < pixels(30); ++y) {
    for (int x = 0; x < pixels(30); ++x) {
      mass += alphaOf(*image, x, y);
      centre.x += alphaOf(*image, x, y) * (x + 0.5);
      centre.y += alphaOf(*image, x, y) * (y + 0.5);
    }
  }
  EXPECT_NEAR(centre.x / mass, (3.75 + 10.5) * scale(), 0.1);
  EXPECT_NEAR(centre.y / mass, (2.3 + 12) * scale(), 0.1);
}

TEST_P(ImageContext, ClipsToARoundedRectangleWithASmoothEdge) {
  const double radius = 13.5;
  const auto context = canvas(60, 60);

  context->clipToRoundedRect({0, 0, 60, 60}, radius);
  context->drawImage(*picture(60, 60, kBlack), {0, 0, 60, 60});

  const auto image = context->image();
  int partial = 0;
  for (int y = 0; y < pixels(radius); ++y) {
    for (int x = 0; x < pixels(radius); ++x) {
      const double distance =
          std::hypot((x + 0.5) / scale() - radius, (y + 0.5) / scale() - radius);
      const double halfDiagonal = std::sqrt(0.5) / scale();
      const int alpha = alphaOf(*image, x, y);
      const bool outside = distance > radius + halfDiagonal;
      const bool inside = distance < radius - halfDiagonal;
      EXPECT_GE(alpha, inside ? 255 : 0) << x << ", " << y;
      EXPECT_LE(alpha, outside ? 0 : 255) << x << ", " << y;
      if (alpha > 0 && alpha < 255) ++partial;
    }
  }
  EXPECT_GT(partial, pixels(radius) / 2);
  EXPECT_EQ(alphaOf(*image, 0, pixels(30)), 255);
  EXPECT_EQ(alphaOf(*image, pixels(60) - 1, pixels(30)), 255);
}

TEST_P(ImageContext, ThrowsAShadowWhoseEdgeIsAGaussian) {
  const double deviation = 2.5 / 2 * scale();
  const auto context = canvas(60, 60);

  context->setShadow({1, 1}, 2.5, {0, 0, 0, 0.75});
  context->drawImage(*picture(60, 60, kRed), {0, 0, 30, 60});

  const auto image = context->image();
  const int edge = pixels(31);
  for (int x = pixels(30); x < pixels(60); ++x) {
    const double behindEdge = edge - (x + 0.5);
    const double coverage = std::erfc(-behindEdge / (deviation * std::sqrt(2.0))) / 2;
    EXPECT_NEAR(alphaOf(*image, x, pixels(30)), 255 * 0.75 * coverage, 2) << x;
    EXPECT_EQ(pixelOf(*image, x, pixels(30))[0], 0) << x;
  }
  EXPECT_EQ(pixelOf(*image, pixels(15), pixels(30)), kRed);
}

TEST_P(ImageContext, AShadowIsOfTheGivenColourAndGoesWhereTheOffsetSays) {
  const auto context = canvas(60, 60);

  context->setShadow({-20, 10}, 0, {0, 0, 1, 1});
  context->drawImage(*picture(4, 4, kRed), {40, 20, 10, 10});

  const auto image = context->image();
  EXPECT_EQ(pixelOf(*image, pixels(45), pixels(25)), kRed);
  EXPECT_EQ(pixelOf(*image, pixels(25), pixels(35)), kBlue);
  EXPECT_EQ(pixelOf(*image, pixels(20), pixels(30)), kBlue);
  EXPECT_EQ(pixelOf(*image, pixels(30) - 1, pixels(40) - 1), kBlue);
  EXPECT_EQ(pixelOf(*image, pixels(30), pixels(40)), kTransparent);
}

TEST_P(ImageContext, WhatLiesOutsideTheCanvasThrowsItsShadowOntoIt) {
  const auto context = canvas(10, 10);

  context->setShadow({4, 0}, 0, {0, 0, 0, 1});
  context->drawImage(*picture(4, 4, kRed), {-4, 0, 4, 10});

  const auto image = context->image();
  EXPECT_EQ(pixelOf(*image, pixels(2), pixels(5)), kBlack);
  EXPECT_EQ(pixelOf(*image, pixels(5), pixels(5)), kTransparent);
}

TEST_P(ImageContext, DrawsNothingForAnImageWithoutContentOrARectangleWithoutArea) {
  const auto context = canvas(10, 10);
  context->setShadow({1, 1}, 2.5, {0, 0, 0, 0.75});

  context->drawImage(UIImage(), {0, 0, 10, 10});
  context->drawImage(*picture(4, 4, kRed), {5, 5, 0, 5});
  context->drawImage(*picture(4, 4, kRed), {5, 5, 5, -5});

  EXPECT_THAT(context->image()->pixels(), testing::Each(0));
}

TEST_P(ImageContext, ACanvasWithoutAreaOrBeyondTheLimitHasNoContent) {
  const double side = std::sqrt(double{ImageServices::kMaximumPixels}) / scale() + 1;

  for (const CGSize size : {CGSize{0, 10}, CGSize{10, -1}, CGSize{side, side}, CGSize{1e300, 1}}) {
    const auto context = images.beginImageContext(size, scale());
    context->clipToRoundedRect({0, 0, 10, 10}, 2);
    context->drawImage(*picture(4, 4, kRed), {0, 0, 10, 10});
    EXPECT_EQ(context->image()->size(), CGSize{}) << size.width << " by " << size.height;
  }
}

INSTANTIATE_TEST_SUITE_P(AtEveryScale, ImageContext, testing::Values(1, 2, 3));

}  // namespace
}  // namespace frelta
