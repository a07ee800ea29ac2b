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
  EXPECT_EQ(image.size(), (CGSize{44, 26}));
  EXPECT_EQ(swatch()->frame().size, (CGSize{44, 26}));
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

TEST_F(TarnoColourPickerCellTest, ShowsThePickInTheRowThatIsThereWhenTheDialogueIsDone) {
  open();
  openPicker().hueSlider()->dragToValue(90);
  const TarnoColourPickerCell* asked = &colourCell();
  page->reloadSpecifiers();
  layout();
  layout();
  ASSERT_NE(&colourCell(), asked);

  press("Done");
  layout();

  EXPECT_EQ(writes(), 1u);
  EXPECT_EQ(PropertyListValue(colourCell().detailTextLabel()->text()),
            settingsFile().at("CustomTextColour"));
  EXPECT_TRUE(swatch());
}

TEST_F(TarnoColourPickerCellTest, KeepsItsCellWhenThePickIsShown) {
  open();
  openPicker();
  const std::weak_ptr<const void> asked = colourCell().lifetime();

  press("Done");
  layout();
  layout();

  EXPECT_FALSE(asked.expired());
}

TEST_F(TarnoColourPickerCellTest, ShowsThePickAlsoWhenTheRowsAreLoadedAnewInTheSameTurn) {
  open();
  openPicker().hueSlider()->dragToValue(90);
  page->reloadSpecifiers();

  press("Done");
  layout();

  EXPECT_EQ(PropertyListValue(colourCell().detailTextLabel()->text()),
            settingsFile().at("CustomTextColour"));
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

  const UIColor::Components first = openPicker().colour();
  press("Done");

  EXPECT_EQ(settingsFile(), (Dictionary{{"CustomTextColour", "#007AFFFF"}}));
  EXPECT_NEAR(first.red, 0, 1e-12);
  EXPECT_NEAR(first.green, 122 / 255.0, 1e-12);
  EXPECT_EQ(first.blue, 1);
  EXPECT_EQ(first.alpha, 1);
}

TEST_F(TarnoColourPickerCellTest, ARowWithoutAKeyOrAPageHasNoColourAndOneWithoutAPageOpensNothing) {
  describeRoot({Dictionary{
      {"cell", "PSLinkCell"}, {"id", "keyless"}, {"cellClass", "TarnoColourPickerCell"}}});
  open();
  const auto row = std::make_shared<PSSpecifier>(PSCellType::PSLinkCell, "row",
                                                 Dictionary{{"key", "CustomTextColour"}});
  TarnoColourPickerCell stray(UITableViewCellStyle::Value1, "", row);

  stray.openColourPicker();

  EXPECT_EQ(stray.colour(), std::nullopt);
  EXPECT_EQ(cell<TarnoColourPickerCell>(*page, "keyless")->colour(), std::nullopt);
  EXPECT_THAT(window.presentedViewControllers(), IsEmpty());
}

TEST_F(TarnoColourPickerCellTest, TheDialogueComesWholeAndWithAnimationAndOffersCancelFirst) {
  class NotingPage : public freltaprefsRootListController {
   public:
    void presentViewController(std::shared_ptr<UIViewController> controller,
                               bool animated) override {
      presentedAnimated.push_back(animated);
      const auto& dialogue = dynamic_cast<UIAlertController&>(*controller);
      for (const auto& action : dialogue.actions()) offered.push_back(action->title());
      freltaprefsRootListController::presentViewController(std::move(controller), animated);
    }
    std::vector<bool> presentedAnimated;
    std::vector<std::string> offered;
  };
  const auto noting = std::make_shared<NotingPage>();
  page = noting;
  show(page);
  window.setRootViewController(navigation);

  tap(*page, "CustomTextColour");

  EXPECT_THAT(noting->presentedAnimated, ElementsAre(true));
  EXPECT_THAT(noting->offered, ElementsAre("Cancel", "Done"));
  EXPECT_EQ(alert().actions().size(), 2u);
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

}  // namespace
}  // namespace frelta
