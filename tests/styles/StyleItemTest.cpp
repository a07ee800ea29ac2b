#include <set>

#include "tests/styles/ArtworkTest.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kIcons = "/S/IconBundles/";

class StyleItem : public ArtworkTest {
 protected:
  StyleItem() { item.setPath("/S"); }

  static std::string icon(const std::string& name) { return std::string(kIcons) + name + ".png"; }
  /// That many icon files of one letter each; imagesForStyle() is then in the letters' order.
  void putIcons(std::size_t count, const UIImage& image) {
    for (std::size_t i = 0; i < count; ++i) putPicture(icon(letter(i)), image);
    item.setCachedStyleImages(std::nullopt);
    ASSERT_EQ(item.imagesForStyle().size(), count);
    for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(item.imagesForStyle()[i], icon(letter(i)));
    platform.files.resetCalls();
  }
  static std::string letter(std::size_t i) { return {static_cast<char>('a' + i)}; }
  /// Indexes of the icons read so far, in order.
  std::vector<int> reads() const {
    std::vector<int> indexes;
    for (const auto& call : platform.files.calls())
      if (call.operation == Operation::Read) indexes.push_back(call.path[kIcons.size()] - 'a');
    return indexes;
  }
  std::set<std::string> images() {
    const auto paths = item.imagesForStyle();
    return {paths.begin(), paths.end()};
  }

  FreltaStyleItem item;
};

TEST_F(StyleItem, ListsTheLargestVariantOfEachIcon) {
  platform.put(icon("Foo"), std::string(10, 'x'));
  platform.put(icon("Foo@2x"), std::string(30, 'x'));
  platform.put(icon("Bar"), std::string(40, 'x'));
  platform.put(icon("Bar@2x"), std::string(30, 'x'));
  platform.put(icon("Baz@3x"), "");
  platform.put(std::string(kIcons) + "Other.PNG", "x");
  platform.put(std::string(kIcons) + "Other.jpg", "x");
  platform.put(std::string(kIcons) + "Foopng", std::string(50, 'x'));

  EXPECT_THAT(images(), ElementsAre(icon("Bar"), icon("Baz@3x"), icon("Foo@2x")));
}

TEST_F(StyleItem, OfTwoEquallyLargeVariantsKeepsTheOneListedFirst) {
  platform.put(icon("App"), std::string(10'000, 'x'));
  platform.put(icon("App@2x"), std::string(30'000, 'x'));
  platform.put(icon("App-large"), std::string(30'000, 'x'));
  const auto listed =
      Platform::current().fileManager->contentsOfDirectoryAtPath("/S/IconBundles").value();
  const auto first =
      *std::ranges::find_if(listed, [](const auto& name) { return name != "App.png"; });

  EXPECT_THAT(images(), ElementsAre(std::string(kIcons) + first));
}

TEST_F(StyleItem, LooksForTheMarksInTheWholePath) {
  FreltaStyleItem at;
  at.setPath("/S@home");
  platform.put("/S@home/IconBundles/Foo.png", "x");
  platform.put("/S@home/IconBundles/Foo@2x.png", "xx");
  platform.put("/S@home/IconBundles/Foo-large.png", "xxx");
  FreltaStyleItem large;
  large.setPath("/S-large");
  platform.put("/S-large/IconBundles/Foo.png", "x");
  platform.put("/S-large/IconBundles/Foo-large.png", "xx");
  platform.put("/S-large/IconBundles/Foo@2x-large.png", "x");

  // The bases are "Foo.png", "Foo" and "Foo-large.png", then "Foo.png" and "Foo" twice.
  EXPECT_EQ(at.imagesForStyle().size(), 3U);
  EXPECT_THAT(large.imagesForStyle(),
              testing::UnorderedElementsAre("/S-large/IconBundles/Foo.png",
                                            "/S-large/IconBundles/Foo-large.png"));
}

TEST_F(StyleItem, CutsABaseNameAtItsFirstMarkAndOtherwiseAtItsExtension) {
  platform.put(icon("Foo@home@2x"), "xx");
  platform.put(icon("Foo@work@2x"), "x");
  platform.put(icon("Bar-large-large"), "xx");
  platform.put(icon("Bar-large"), "x");
  platform.put(icon("Bar"), "");
  platform.put(icon("Baz.v1"), "x");
  platform.put(icon("Baz.v2"), "x");
  platform.put(icon("Qux-large@2x"), "x");
  platform.put(icon("Qux-large"), "x");

  EXPECT_THAT(images(), testing::UnorderedElementsAre(icon("Foo@home@2x"), icon("Bar-large-large"),
                                                      icon("Baz.v1"), icon("Baz.v2"),
                                                      icon("Qux-large@2x"), icon("Qux-large")));
}

TEST_F(StyleItem, TakesImagesThatWereSetFromOutsideAsTheyAre) {
  platform.put(icon("Foo"), "x");

  item.setCachedStyleImages({{"/elsewhere.png"}});
  EXPECT_THAT(item.imagesForStyle(), ElementsAre("/elsewhere.png"));
  item.setCachedStyleImages(std::vector<std::string>());
  EXPECT_THAT(item.imagesForStyle(), IsEmpty());

  EXPECT_EQ(platform.files.count(Operation::Contents), 0U);
}

TEST_F(StyleItem, AnUnreadableSizeCountsAsNothing) {
  platform.put(icon("Foo"), "x");
  platform.put(icon("Foo@2x"), "xx");
  platform.put(icon("Foo@3x"), "xxx");
  platform.files.fail(Operation::Size);
  const auto listed =
      Platform::current().fileManager->contentsOfDirectoryAtPath("/S/IconBundles").value();

  EXPECT_THAT(images(), ElementsAre(std::string(kIcons) + listed.at(0)));
}

TEST_F(StyleItem, AVariantWithoutAReadableSizeGivesWayToOneOfASingleByte) {
  std::set<std::string> readable;
  for (std::size_t i = 0; i < 12; ++i) {
    readable.insert(icon(letter(i)));
    platform.put(icon(letter(i)), "x");
    std::filesystem::create_symlink("missing", platform.hostPath(icon(letter(i) + "@2x")));
  }

  EXPECT_EQ(images(), readable);
}

TEST_F(StyleItem, ListsItsFolderOnceAndAnEmptyOneAgain) {
  EXPECT_THAT(images(), IsEmpty());
  EXPECT_EQ(item.cachedStyleImages(), std::nullopt);
  makeFolder("/S/IconBundles");
  EXPECT_THAT(images(), IsEmpty());
  EXPECT_EQ(platform.files.count(Operation::Contents), 2U);
  platform.put(icon("Foo"), "x");
  EXPECT_THAT(images(), ElementsAre(icon("Foo")));
  platform.put(icon("Bar"), "x");

  EXPECT_THAT(images(), ElementsAre(icon("Foo")));
  EXPECT_EQ(platform.files.count(Operation::Contents), 3U);
  EXPECT_THAT(item.cachedStyleImages(), testing::Optional(ElementsAre(icon("Foo"))));
}

TEST_F(StyleItem, WithoutAPathHasNoIcons) {
  FreltaStyleItem bare;

  EXPECT_THAT(bare.imagesForStyle(), IsEmpty());
  EXPECT_EQ(bare.generateIcon(), nullptr);
  EXPECT_EQ(platform.files.count(Operation::Contents), 0U);
}

TEST_F(StyleItem, OneIconIsItsOwnPictureMaskedAndPadded) {
  putIcons(1, *redDisc());

  const auto picture = item.generateIcon();

  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->size(), (CGSize{80, 80}));
  EXPECT_THAT(
      picture->pixels(),
      testing::ElementsAreArray(FreltaStyleSelector::maskImageWithPad(*redDisc(), true)->pixels()));
  EXPECT_EQ(platform.random.drawn, 0U);
}

TEST_F(StyleItem, OfTwoIconsTheFirstIsAlwaysTaken) {
  putIcons(2, *redDisc());

  for (std::uint32_t number : {0U, 1U, 2U, 3U, 0xFFFFFFFFU}) {
    FreltaStyleItem fresh;
    fresh.setPath("/S");
    platform.random.script = {number};
    platform.files.resetCalls();
    EXPECT_NE(fresh.generateIcon(), nullptr);
    EXPECT_THAT(reads(), ElementsAre(0)) << number;
  }
  EXPECT_EQ(platform.random.drawn, 5U);
}

TEST_F(StyleItem, NoneOrThreeIconsMakeNoPicture) {
  EXPECT_EQ(item.generateIcon(), nullptr);
  putIcons(3, *redDisc());

  EXPECT_EQ(item.generateIcon(), nullptr);

  EXPECT_THAT(reads(), IsEmpty());
  EXPECT_EQ(platform.random.drawn, 0U);
}

TEST_F(StyleItem, OfFourIconsAndMoreEachRoundTakesTheOneThatTheAndNames) {
  const std::vector<std::pair<std::size_t, std::vector<int>>> cases{
      {4, {0, 1, 2, 3, 0, 1, 2, 3}}, {5, {0, 0, 0, 0, 4, 4, 4, 4}}, {6, {0, 1, 0, 1, 4, 5, 4, 5}}};
  for (const auto& [count, indexes] : cases) {
    putIcons(count, *redDisc());
    for (std::uint32_t number = 0; number < 8; ++number) {
      FreltaStyleItem fresh;
      fresh.setPath("/S");
      platform.random.script = {number, 0xFFFFFFF8U | number, 8 + number};
      platform.random.drawn = 0;
      platform.files.resetCalls();

      const auto picture = fresh.generateIcon();

      const int index = indexes[number];
      ASSERT_NE(picture, nullptr);
      EXPECT_EQ(picture->size(), (CGSize{110, 60}));
      EXPECT_EQ(platform.random.drawn, 3U);
      // One read a round to see whether it is blank, then one each for the stack, last place first.
      EXPECT_THAT(reads(), ElementsAre(index, index, index, index, index, index))
          << count << " icons, " << number;
    }
  }
}

TEST_F(StyleItem, AStackHoldsThePicksInOrder) {
  putIcons(4, *redDisc());
  platform.random.script = {2, 1, 3};

  const auto stack = item.generateIcon();

  ASSERT_NE(stack, nullptr);
  EXPECT_THAT(reads(), ElementsAre(2, 1, 3, 3, 1, 2));
}

TEST_F(StyleItem, BlankAndUnreadableIconsAreNeverPickedAndARoundEndsAfterSixOfThem) {
  putIcons(4, *picture(8, 8, kWhite));
  putPicture(icon("d"), *redDisc());
  platform.put(icon("c"), "no picture");
  platform.random.script = {0, 1, 2, 0, 1, 3,  // the sixth attempt succeeds
                            0, 1, 2, 0, 1, 2,  // none does
                            3};

  const auto stack = item.generateIcon();

  ASSERT_NE(stack, nullptr);
  EXPECT_EQ(stack->size(), (CGSize{85, 60}));
  EXPECT_EQ(platform.random.drawn, 13U);
  EXPECT_THAT(reads(), ElementsAre(0, 1, 2, 0, 1, 3, 0, 1, 2, 0, 1, 2, 3, 3, 3));
}

TEST_F(StyleItem, NothingButBlankIconsMakeAnEmptyStackAfterEighteenAttempts) {
  putIcons(5, *picture(8, 8, kWhite));

  const auto stack = item.generateIcon();

  ASSERT_NE(stack, nullptr);
  EXPECT_EQ(stack->size(), (CGSize{35, 60}));
  EXPECT_THAT(stack->pixels(), testing::Each(0));
  EXPECT_EQ(platform.random.drawn, 18U);
}

TEST_F(StyleItem, APictureIsRememberedAndNoneIsTriedAgain) {
  platform.put(icon("a"), "no picture");
  EXPECT_EQ(item.generateIcon(), nullptr);
  EXPECT_EQ(item.generateIcon(), nullptr);
  EXPECT_EQ(platform.files.count(Operation::Read), 2U);
  putPicture(icon("a"), *redDisc());

  const auto picture = item.generateIcon();

  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(item.generateIcon(), picture);
  EXPECT_EQ(platform.files.count(Operation::Read), 3U);
}

TEST_F(StyleItem, AnExceptionIsLoggedAndMakesNoPicture) {
  putIcons(1, *redDisc());
  platform.files.beforeCall = [](const FailingFiles::Call&) {
    throw std::runtime_error("disk on fire");
  };

  EXPECT_EQ(item.generateIcon(), nullptr);

  EXPECT_THAT(platform.log.lines, ElementsAre("disk on fire"));
  platform.files.beforeCall = nullptr;
  EXPECT_NE(item.generateIcon(), nullptr);
}

}  // namespace
}  // namespace frelta
