#include "pages/TarnoColourPickerCell.h"

#include "pages/TarnoColourPickerView.h"
#include "tests/pages/PagesTest.h"
#include "uikit/UIAlertController.h"
#include "uikit/UIAlertControllerView.h"
#include "uikit/UIWindow.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TarnoColourPickerCellTest : public PagesTest {
 protected:
  TarnoColourPickerCellTest() {
    describeRoot({row("PSLinkCell", "CustomTextColour", {{"cellClass", "TarnoColourPickerCell"}})});
  }
  void open() {
    page = showRoot();
    window.setFrame({0, 0, 320, 600});
    window.setRootViewController(navigation);
  }
  TarnoColourPickerCell& colourCell() {
    return *cell<TarnoColourPickerCell>(*page, "CustomTextColour");
  }
  UIImageView* swatch() { return dynamic_cast<UIImageView*>(colourCell().accessoryView()); }

  TarnoColourPickerView& openPicker() {
    tap(*page, "CustomTextColour");
    window.layoutIfNeeded();
    const auto& view = static_cast<UIAlertControllerView&>(alert().view());
    for (const auto& subview : view.card()->subviews()) {
      if (auto* found = dynamic_cast<TarnoColourPickerView*>(subview.get())) return *found;
    }
    throw std::runtime_error("no picker");
  }
  UIAlertController& alert() {
    return dynamic_cast<UIAlertController&>(*window.presentedViewControllers().back());
  }
  void press(const std::string& title) {
    for (const auto& action : alert().actions()) {
      if (action->title() == title) return alert().userDidPressAction(*action);
    }
    FAIL() << title;
  }
  std::size_t writes() const { return platform.files.count(Operation::Write, kSettingsPath); }

  std::shared_ptr<freltaprefsRootListController> page;
  UIWindow window;
};

TEST_F(TarnoColourPickerCellTest, ShowsTheStoredColourAsASwatchWithItsText) {
  putSettings({{"CustomTextColour", "#ff0000"}});

  open();

  EXPECT_EQ(colourCell().detailTextLabel()->text(), "#FF0000FF");
  ASSERT_TRUE(swatch());
  const UIImage& image = *swatch()->image();
  const auto middle =
      image.pixels().subspan(static_cast<std::size_t>(image.pixelHeight() / 2 * image.pixelWidth() +
                                                      image.pixelWidth() / 2) *
                                 4,
                             4);
  EXPECT_THAT(middle, ElementsAre(255, 0, 0, 255));
  EXPECT_EQ(image.pixels()[3], 0);
}

TEST_F(TarnoColourPickerCellTest, ShowsThatNothingIsSetForWhateverIsNoColour) {
  for (const PropertyListValue& stored :
       {PropertyListValue("red"), PropertyListValue(""), PropertyListValue("#12345"),
        PropertyListValue(7), PropertyListValue(Array{"#FF0000"})}) {
    putSettings({{"CustomTextColour", stored}});

    open();

    EXPECT_EQ(colourCell().detailTextLabel()->text(), "Not set");
    EXPECT_FALSE(swatch());
    EXPECT_FALSE(colourCell().colour());
  }
}

TEST_F(TarnoColourPickerCellTest, StoresAPickOnceAsAStringAndTellsOfItOnce) {
  putSettings({{"CustomTextColour", "#FF0000"}, {"HideKeyCaps", 1}});
  open();
  TarnoColourPickerView& picker = openPicker();

  for (int hue = 0; hue <= 120; ++hue) picker.hueSlider()->dragToValue(hue);
  picker.opacitySlider()->dragToValue(20);
  const std::size_t writesWhileDragging = writes();
  press("Done");
  layout();

  EXPECT_EQ(writesWhileDragging, 0u);
  EXPECT_EQ(writes(), 1u);
  EXPECT_EQ(settingsFile(), (Dictionary{{"CustomTextColour", "#00FF0033"}, {"HideKeyCaps", 1}}));
  EXPECT_THAT(platform.notifications.posted, ElementsAre("com.tarno.frelta.refresh"));
  EXPECT_EQ(colourCell().detailTextLabel()->text(), "#00FF0033");
  EXPECT_THAT(window.presentedViewControllers(), IsEmpty());
}

TEST_F(TarnoColourPickerCellTest, LeavesEverythingAsItWasWhenThePickIsCancelledOrChangesNothing) {
  putSettings({{"CustomTextColour", "#ff0000"}});
  open();

  openPicker().hueSlider()->dragToValue(90);
  press("Cancel");
  openPicker();
  press("Done");

  EXPECT_EQ(writes(), 0u);
  EXPECT_THAT(platform.notifications.posted, IsEmpty());
  EXPECT_EQ(settingsFile(), (Dictionary{{"CustomTextColour", "#ff0000"}}));
}

TEST_F(TarnoColourPickerCellTest, StartsFromAColourWhereNoneIsStoredAndStoresItWhenDone) {
  open();

  openPicker();
  press("Done");

  EXPECT_EQ(settingsFile(), (Dictionary{{"CustomTextColour", "#007AFFFF"}}));
}

TEST_F(TarnoColourPickerCellTest, IsARowToPressThatTellsItsValue) {
  putSettings({{"CustomTextColour", "#FF0000"}});
  open();

  EXPECT_EQ(colourCell().accessibility().role, UIAccessibility::Role::Button);
  EXPECT_EQ(colourCell().accessibility().label, "CustomTextColour");
  EXPECT_EQ(colourCell().accessibility().value, "#FF0000FF");
}

TEST_F(TarnoColourPickerCellTest, TakesAPickAlsoWhenThePageHasMadeItsRowsAnewMeanwhile) {
  open();
  TarnoColourPickerView& picker = openPicker();

  page->reloadSpecifiers();
  layout();
  picker.hexField()->userDidEdit("#123456");
  press("Done");

  EXPECT_EQ(settingsFile(), (Dictionary{{"CustomTextColour", "#123456FF"}}));
}

class TarnoColourPickerViewTest : public PagesTest {};

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

}  // namespace
}  // namespace frelta
