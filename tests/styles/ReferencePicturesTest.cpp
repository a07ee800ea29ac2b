#include <fstream>
#include <iterator>

#include "tests/styles/ArtworkTest.h"

namespace frelta {
namespace {

using namespace FreltaStyleSelector;

/// How far a component may be from the reference, of 255.
constexpr int kTolerance = 3;

/// Compares with the pictures beside this file, which a person has looked at. What was drawn is
/// left in the build folder, to be looked at and to take the reference's place.
class ReferencePictures : public ArtworkTest, public testing::WithParamInterface<double> {
 protected:
  ReferencePictures() { platform.system.scale = GetParam(); }

  void expectAsReferred(const std::string& name, const Image& drawn) const {
    ASSERT_NE(drawn, nullptr) << name;
    const std::string file = name + "-" + std::to_string(pixels(1)) + ".png";
    std::filesystem::create_directories(FRELTA_DRAWN_PICTURES);
    std::ofstream(FRELTA_DRAWN_PICTURES "/" + file, std::ios::binary)
        << UIImagePNGRepresentation(*drawn).value();
    std::ifstream stored(FRELTA_PICTURES "/" + file, std::ios::binary);
    const auto reference =
        images.imageWithData(std::string(std::istreambuf_iterator<char>(stored), {}));
    ASSERT_NE(reference, nullptr) << file;
    ASSERT_EQ(drawn->pixelWidth(), reference->pixelWidth()) << file;
    ASSERT_EQ(drawn->pixelHeight(), reference->pixelHeight()) << file;
    int farthest = 0;
    for (std::size_t i = 0; i < drawn->pixels().size(); ++i)
      farthest = std::max(farthest, std::abs(drawn->pixels()[i] - reference->pixels()[i]));
    EXPECT_LE(farthest, kTolerance) << file;
  }
};

TEST_P(ReferencePictures, MaskedAndPadded) {
  expectAsReferred("mask", maskImageWithPad(*blueDisc(), false));
  expectAsReferred("padded", maskImageWithPad(*blueDisc(), true));
}

TEST_P(ReferencePictures, WithAShadow) {
  expectAsReferred("shadow", imageWithShadow(*maskImageWithPad(*redDisc(), false)));
}

TEST_P(ReferencePictures, StackedAndPlaceHolder) {
  expectAsReferred("stack", generateStackedImageWithArray(
                                std::vector<StackItem>{blueDisc(), redDisc(), greenDisc()}));
  expectAsReferred("place-holder", createPlaceHolder(*greenDisc()));
}

TEST_P(ReferencePictures, TheLogo) {
  putPicture(inThemes("A.theme/Icon.png"), *greenDisc());
  FreltaSortedStyle style;
  style.setFullPath(inThemes("A.theme"));

  expectAsReferred("logo", style.styleLogo());
}

INSTANTIATE_TEST_SUITE_P(AtEveryScale, ReferencePictures, testing::Values(1, 2, 3));

}  // namespace
}  // namespace frelta
