#include "pages/TarnoColourPickerView.h"

#include <tuple>

#include "tests/pages/PagesTest.h"
#include "tests/support/Pictures.h"

namespace frelta {
namespace {

using testing::ElementsAre;

using Components = UIColor::Components;

Components shown(const UIColor& color) {
  return color.componentsForStyle(UserInterfaceStyle::Light);
}

class TarnoColourPickerViewTest : public PagesTest {
 protected:
  static std::vector<Components> track(const UISlider* slider) {
    std::vector<Components> colours;
    for (const UIColor& color : slider->trackColors()) colours.push_back(shown(color));
    return colours;
  }
  static const UILabel* labelOf(const TarnoColourPickerView& view, std::string_view text) {
    for (const auto& subview : view.subviews()) {
      const auto* label = dynamic_cast<const UILabel*>(subview.get());
      if (label && label->text() == text) return label;
    }
    return nullptr;
  }
  static const UIImageView& swatchOf(const TarnoColourPickerView& view) {
    return dynamic_cast<const UIImageView&>(*view.subviews().front());
  }
};

TEST_F(TarnoColourPickerViewTest, StartsFromTheColour) {
  const TarnoColourPickerView view({0, 1, 0, 0.8});

  EXPECT_EQ(view.hueSlider()->value(), 120);
  EXPECT_EQ(view.saturationSlider()->value(), 100);
  EXPECT_EQ(view.brightnessSlider()->value(), 100);
  EXPECT_EQ(view.opacitySlider()->value(), 80);
  EXPECT_EQ(view.hexField()->text(), "#00FF00CC");
}

TEST_F(TarnoColourPickerViewTest, KeepsTheHueThroughGreyAndBlack) {
  TarnoColourPickerView view({0, 0, 1, 1});

  view.saturationSlider()->dragToValue(0);
  view.brightnessSlider()->dragToValue(0);
  view.brightnessSlider()->dragToValue(100);
  view.saturationSlider()->dragToValue(100);

  EXPECT_EQ(view.hexField()->text(), "#0000FFFF");
}

TEST_F(TarnoColourPickerViewTest, FollowsATypedColourAndLeavesTheTypingAlone) {
  TarnoColourPickerView view({0, 0, 1, 1});

  for (const char* text : {"", "#", "#ff", "ff8000", " #FF8000 80"}) {
    view.hexField()->userDidEdit(text);
    EXPECT_EQ(view.hexField()->text(), text);
  }

  EXPECT_EQ(view.colour(), (UIColor::Components{1, 128 / 255.0, 0, 128 / 255.0}));
  EXPECT_NEAR(view.hueSlider()->value(), 30.1, 0.1);
}

TEST_F(TarnoColourPickerViewTest, PutsBackTheColourWhenWhatWasTypedIsNone) {
  TarnoColourPickerView view({0, 0, 1, 1});
  view.hexField()->becomeFirstResponder();

  view.hexField()->userDidEdit("#zzz");
  view.hexField()->resignFirstResponder();

  EXPECT_EQ(view.hexField()->text(), "#0000FFFF");
}

TEST_F(TarnoColourPickerViewTest, PressesItselfTogetherInASmallWindow) {
  TarnoColourPickerView view({0, 0, 1, 1});

  const double comfortable = view.sizeThatFits({238, 1000}).height;
  const double small = view.sizeThatFits({238, 10}).height;
  view.setFrame({0, 0, 238, small});
  view.layoutIfNeeded();

  EXPECT_EQ(comfortable, 44 + 4 * 36 + 2 * 8 + 30);
  EXPECT_EQ(small, 20 + 4 * 28 + 2 * 8 + 30);
  EXPECT_EQ(view.hexField()->superview()->frame().maxY(), small);
  EXPECT_EQ(view.hueSlider()->frame(), CGRect(84, 28, 154, 28));
}

TEST_F(TarnoColourPickerViewTest, FollowsEachSliderBetweenItsEnds) {
  TarnoColourPickerView view({1, 0, 0, 1});
  const auto textAfter = [&](UISlider* slider, double value) {
    slider->dragToValue(value);
    return view.hexField()->text();
  };

  EXPECT_EQ(textAfter(view.saturationSlider(), 50), "#FF8080FF");
  EXPECT_EQ(textAfter(view.brightnessSlider(), 40), "#663333FF");
  EXPECT_EQ(textAfter(view.opacitySlider(), 20), "#66333333");
  EXPECT_EQ(textAfter(view.hueSlider(), 240), "#33336633");
  EXPECT_EQ(view.saturationSlider()->value(), 50);
  EXPECT_EQ(view.brightnessSlider()->value(), 40);
}

TEST_F(TarnoColourPickerViewTest, TellsWholeNumbersWithTheirUnitsAsTheyChange) {
  TarnoColourPickerView view({14 / 255.0, 129 / 255.0, 1, 0.5});

  const std::string before = view.hueSlider()->accessibility().value;
  view.hueSlider()->dragToValue(99.6);

  EXPECT_EQ(before, "211°");
  EXPECT_EQ(view.hueSlider()->accessibility().value, "100°");
  EXPECT_EQ(view.opacitySlider()->accessibility().value, "50 %");
}

TEST_F(TarnoColourPickerViewTest, NamesItsSlidersAndItsFieldAndLetsKeysMoveThemByOne) {
  const TarnoColourPickerView view({0, 0, 0, 1});
  const std::vector<std::tuple<UISlider*, const char*, double, const char*>> sliders{
      {view.hueSlider(), "Hue", 360, "0°"},
      {view.saturationSlider(), "Saturation", 100, "0 %"},
      {view.brightnessSlider(), "Brightness", 100, "0 %"},
      {view.opacitySlider(), "Opacity", 100, "100 %"}};

  for (const auto& [slider, name, maximum, value] : sliders) {
    EXPECT_EQ(slider->accessibility(),
              (UIAccessibility{.isElement = true, .label = name, .value = value}));
    EXPECT_EQ(slider->minimumValue(), 0) << name;
    EXPECT_EQ(slider->maximumValue(), maximum) << name;
    EXPECT_EQ(slider->keyStep(), 1) << name;
  }
  EXPECT_EQ(view.hexField()->accessibility().label, "Hex");
  EXPECT_TRUE(view.hexField()->accessibility().isElement);
  EXPECT_EQ(view.hexField()->font(), UIFont::systemFontOfSize(15));
  for (const char* text : {"Hue", "Saturation", "Brightness", "Opacity", "Hex"}) {
    const UILabel* label = labelOf(view, text);
    ASSERT_TRUE(label) << text;
    EXPECT_EQ(label->font(), UIFont::systemFontOfSize(15));
    EXPECT_TRUE(label->adjustsFontSizeToFitWidth());
    EXPECT_EQ(label->minimumScaleFactor(), 0.8);
  }
}

TEST_F(TarnoColourPickerViewTest, ColoursEachTrackWithWhatItsSliderLeadsTo) {
  const Components red{1, 0, 0, 1};
  TarnoColourPickerView view(red);

  view.saturationSlider()->dragToValue(50);
  view.brightnessSlider()->dragToValue(80);
  view.opacitySlider()->dragToValue(30);

  EXPECT_THAT(
      track(view.hueSlider()),
      ElementsAre(red, Components{1, 1, 0, 1}, Components{0, 1, 0, 1}, Components{0, 1, 1, 1},
                  Components{0, 0, 1, 1}, Components{1, 0, 1, 1}, red));
  EXPECT_THAT(track(view.saturationSlider()),
              ElementsAre(Components{0.8, 0.8, 0.8, 1}, Components{0.8, 0, 0, 1}));
  EXPECT_THAT(track(view.brightnessSlider()),
              ElementsAre(Components{0, 0, 0, 1}, Components{1, 0.5, 0.5, 1}));
  EXPECT_THAT(track(view.opacitySlider()),
              ElementsAre(Components{0.8, 0.4, 0.4, 0}, Components{0.8, 0.4, 0.4, 1}));
}

TEST_F(TarnoColourPickerViewTest, ShowsASwatchAsLargeAsItsPlaceThatFollowsSlidersAndTyping) {
  TarnoColourPickerView view({1, 0, 0, 1});
  const bool hadASwatchWithoutRoom = swatchOf(view).image() != nullptr;
  const auto middle = [&] {
    const UIImage& image = *swatchOf(view).image();
    return pixelOf(image, image.pixelWidth() / 2, image.pixelHeight() / 2);
  };

  view.setFrame({0, 0, 238, 234});
  view.layoutIfNeeded();
  const CGSize size = swatchOf(view).image()->size();
  const Pixel first = middle();
  view.hueSlider()->dragToValue(240);
  const Pixel dragged = middle();
  view.hexField()->userDidEdit("#FFFFFF");

  EXPECT_FALSE(hadASwatchWithoutRoom);
  EXPECT_EQ(size, (CGSize{238, 44}));
  EXPECT_EQ(first, kRed);
  EXPECT_EQ(dragged, kBlue);
  EXPECT_EQ(middle(), kWhite);
}

TEST_F(TarnoColourPickerViewTest, KeepsTheHueOfATypedGreyAndTheSaturationOfTypedBlack) {
  TarnoColourPickerView view({0, 0, 1, 1});

  view.hexField()->userDidEdit("#000000");
  const double saturationOfBlack = view.saturationSlider()->value();
  view.hexField()->userDidEdit("#808080");

  EXPECT_EQ(saturationOfBlack, 100);
  EXPECT_EQ(view.saturationSlider()->value(), 0);
  EXPECT_EQ(view.hueSlider()->value(), 240);
}

TEST_F(TarnoColourPickerViewTest, HasItsNamesInOneColumnAndItsControlsInTheOther) {
  TarnoColourPickerView view({0, 0, 1, 1});

  view.setFrame({0, 0, 238, 234});
  view.layoutIfNeeded();

  EXPECT_EQ(swatchOf(view).frame(), CGRect(0, 0, 238, 44));
  EXPECT_EQ(labelOf(view, "Hue")->frame(), CGRect(0, 52, 76, 36));
  EXPECT_EQ(view.hueSlider()->frame(), CGRect(84, 52, 154, 36));
  EXPECT_EQ(view.saturationSlider()->frame(), CGRect(84, 88, 154, 36));
  EXPECT_EQ(labelOf(view, "Opacity")->frame(), CGRect(0, 160, 76, 36));
  EXPECT_EQ(view.opacitySlider()->frame(), CGRect(84, 160, 154, 36));
  EXPECT_EQ(labelOf(view, "Hex")->frame(), CGRect(0, 204, 76, 30));
  // The order in which it is read aloud.
  EXPECT_EQ(view.subviews().rbegin()[1].get(), labelOf(view, "Hex"));
  EXPECT_EQ(view.subviews().rbegin()[0].get(), view.hexField()->superview());
  const UIView& field = *view.hexField()->superview();
  EXPECT_EQ(field.frame(), CGRect(84, 204, 154, 30));
  EXPECT_EQ(view.hexField()->frame(), CGRect(8, 0, 138, 30));
  EXPECT_EQ(field.cornerRadius(), 8);
  EXPECT_EQ(field.backgroundColor(),
            UIColor::colorWithLightAndDark({1, 1, 1, 1}, {0.11, 0.11, 0.12, 1}));
}

TEST_F(TarnoColourPickerViewTest, GivesUpItsSlidersHeightBeforeItsSwatchs) {
  TarnoColourPickerView view({0, 0, 1, 1});
  // The heights of the swatch and of each slider.
  const auto heightsIn = [&](double height) {
    view.setFrame({0, 0, 238, height});
    view.layoutIfNeeded();
    return std::pair(swatchOf(view).frame().size.height, view.hueSlider()->frame().size.height);
  };

  EXPECT_EQ(heightsIn(300), std::pair(110.0, 36.0));
  EXPECT_EQ(heightsIn(218), std::pair(44.0, 32.0));
  EXPECT_EQ(heightsIn(188), std::pair(30.0, 28.0));
  EXPECT_EQ(heightsIn(10), std::pair(0.0, 28.0));
  EXPECT_EQ(view.sizeThatFits({238, 218}), (CGSize{238, 218}));
}

TEST_F(TarnoColourPickerViewTest, HasNoControlsNarrowerThanNothing) {
  TarnoColourPickerView view({0, 0, 1, 1});
  // The widths of a slider, of the field's ground and of the field.
  const auto widthsIn = [&](double width) {
    view.setFrame({0, 0, width, 234});
    view.layoutIfNeeded();
    return std::vector{view.hueSlider()->frame().size.width,
                       view.hexField()->superview()->frame().size.width,
                       view.hexField()->frame().size.width};
  };

  EXPECT_THAT(widthsIn(94), ElementsAre(10, 10, 0));
  EXPECT_THAT(widthsIn(60), ElementsAre(0, 0, 0));
}

}  // namespace
}  // namespace frelta
