#include "pages/TarnoHueColour.h"

#include <gtest/gtest.h>

namespace frelta {
namespace {

TEST(TarnoHueColour, OfEveryColourOfTheCubeComesBack) {
  for (int red = 0; red < 256; red += 15) {
    for (int green = 0; green < 256; green += 15) {
      for (int blue = 0; blue < 256; blue += 15) {
        const UIColor::Components colour{red / 255.0, green / 255.0, blue / 255.0, 0.5};

        const TarnoHueColour hue = hueColourWithComponents(colour);
        const UIColor::Components back = componentsWithHueColour(hue);

        ASSERT_NEAR(back.red, colour.red, 1e-12);
        ASSERT_NEAR(back.green, colour.green, 1e-12);
        ASSERT_NEAR(back.blue, colour.blue, 1e-12);
        ASSERT_EQ(back.alpha, 0.5);
        ASSERT_TRUE(hue.hue >= 0 && hue.hue < 1) << hue.hue;
      }
    }
  }
}

TEST(TarnoHueColour, OfAGreyOrBlackKeepsWhatItCannotTell) {
  const TarnoHueColour previous{0.25, 0.75, 0.5, 1};

  EXPECT_EQ(hueColourWithComponents({0.5, 0.5, 0.5, 0.2}, previous),
            (TarnoHueColour{0.25, 0, 0.5, 0.2}));
  EXPECT_EQ(hueColourWithComponents({0, 0, 0, 1}, previous), (TarnoHueColour{0.25, 0.75, 0, 1}));
}

}  // namespace
}  // namespace frelta
