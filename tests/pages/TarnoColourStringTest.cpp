#include "pages/TarnoColourString.h"

#include <gtest/gtest.h>

namespace frelta {
namespace {

using Components = UIColor::Components;

TEST(TarnoColourString, HoldsRedGreenBlueAndOpacity) {
  EXPECT_EQ(colourWithString("#FF0080CC"), (Components{1, 0, 128 / 255.0, 0.8}));
  EXPECT_EQ(stringWithColour({1, 0, 128 / 255.0, 0.8}), "#FF0080CC");
}

TEST(TarnoColourString, MayLeaveTheOpacityOut) {
  EXPECT_EQ(colourWithString("#102030"), colourWithString("#102030FF"));
}

TEST(TarnoColourString, IsReadInEitherCaseAndWrittenInUpper) {
  EXPECT_EQ(colourWithString("#abcdefab"), colourWithString("#ABCDEFAB"));
  EXPECT_EQ(stringWithColour(*colourWithString("#abcDEF")), "#ABCDEFFF");
}

TEST(TarnoColourString, OfEveryByteComesBackTheSame) {
  for (int byte = 0; byte < 256; ++byte) {
    const double part = byte / 255.0;

    const std::string text = stringWithColour({part, 1 - part, part, part});

    EXPECT_EQ(stringWithColour(*colourWithString(text)), text);
    EXPECT_EQ(colourWithString(text)->red, part);
  }
}

TEST(TarnoColourString, OfComponentsOutOfRangeIsThatOfTheNearest) {
  EXPECT_EQ(stringWithColour({-0.5, 1.5, 2, -1}), "#00FFFF00");
}

TEST(TarnoColourString, OfAnyOtherFormIsNoColour) {
  for (const std::string_view text : {"",
                                      "#",
                                      "red",
                                      "FF0080",
                                      "FF0080CC",
                                      "#FFF",
                                      "#FFFF",
                                      "#FF00800",
                                      "#FF008",
                                      "#FF0080CCD",
                                      "#FF0080CC0",
                                      "#GG0080",
                                      "#FF00 0",
                                      " #FF0080",
                                      "#FF0080 ",
                                      "#FF0080\n",
                                      "#-10080",
                                      "#+10080",
                                      "#0x0080",
                                      "##F0080",
                                      "#FF008g",
                                      "#FF0080C/",
                                      "rgb(1,2,3)",
                                      "#ＦＦ0080",
                                      "#FF0080CC:0.50",
                                      "#FF0080:0.50"})
    EXPECT_EQ(colourWithString(text), std::nullopt) << text;
  EXPECT_EQ(colourWithString(std::string_view("#FF00\0\0", 7)), std::nullopt);
  EXPECT_EQ(colourWithString(std::string(1 << 20, '#')), std::nullopt);
}

}  // namespace
}  // namespace frelta
