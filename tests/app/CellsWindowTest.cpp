#include <QAccessible>

#include "graphics/UIImage.h"
#include "tests/app/OpenWindow.h"
#include "tests/app/PicturesOnDemand.h"
#include "uikit/UIAlertController.h"
#include "uikit/UIImagePickerController.h"
#include "uikit/UISlider.h"

namespace frelta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Operation = FailingFiles::Operation;

class CellsWindow : public testing::Test {
 protected:
  explicit CellsWindow(UserInterfaceStyle style = UserInterfaceStyle::Light) : window(style) {}

  QuickWindow& quick() { return *window.application->window(); }
  void key(Qt::Key key) {
    QTest::keyClick(&quick(), key);
    window.settle();
  }
  void keys(const char* text) {
    for (; *text; ++text) QTest::keyClick(&quick(), *text);
    window.settle();
  }
  QPoint pointIn(const UIView& view, double xShare) {
    const QQuickItem* item = quick().itemFor(view);
    return item->mapToScene({item->width() * xShare, item->height() / 2}).toPoint();
  }
  std::size_t presented() { return quick().uiWindow().presentedViewControllers().size(); }
  template <typename View>
  View* inAlert() {
    return findView<View>(window.driver->alert()->view());
  }
  static std::shared_ptr<const UIImage> picture() {
    const auto pixels = std::make_shared<std::vector<std::uint8_t>>(40 * 30 * 4, 255);
    return std::make_shared<UIImage>(40, 30, 1,
                                     std::shared_ptr<const std::uint8_t>(pixels, pixels->data()));
  }
  const std::vector<std::string>& posted() { return window.platform.notifications.posted; }
  std::size_t writes() { return window.platform.files.count(Operation::Write, kSettingsPath); }

  OpenWindow window;
};

class PickingAPicture : public CellsWindow {
 protected:
  void tapRow() {
    window.putSettings({{"BackgroundMode", 2}, {"HideKeyCaps", 0}});
    ASSERT_NO_FATAL_FAILURE(window.open());
    window.platform.files.resetCalls();
    ASSERT_TRUE(window.driver->tapRow("FreltaImageCell"));
    ASSERT_EQ(presented(), 1u);
    ASSERT_TRUE(window.pictures.isAsking());
  }
};

TEST_F(PickingAPicture, LeavesTheFileTheKeyAndOneBroadcast) {
  ASSERT_NO_FATAL_FAILURE(tapRow());

  window.pictures.choose();
  window.settle();
  window.pictures.finish({picture(), {}});
  window.settle();

  EXPECT_EQ(window.settings(),
            (Dictionary{{"BackgroundMode", 2},
                        {"HideKeyCaps", 0},
                        {"backgroundImage", "/Library/Frelta/UserImages/background.png"}}));
  const auto stored = UIImage::imageWithContentsOfFile(kBackgroundImagePath);
  ASSERT_TRUE(stored);
  EXPECT_EQ(stored->size(), (CGSize{40, 30}));
  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
  EXPECT_EQ(window.platform.files.count(Operation::Write), 2u);
  EXPECT_EQ(presented(), 0u);
  EXPECT_EQ(window.driver->findRow("FreltaImageCell")->imageView()->image()->size(),
            (CGSize{40, 30}));
}

TEST_F(PickingAPicture, IsInUseOnThePageThatOpensNext) {
  ASSERT_NO_FATAL_FAILURE(tapRow());

  window.pictures.finish({picture(), {}});
  window.settle();
  ASSERT_TRUE(window.driver->tapRow("Settings"));
  window.settle();

  EXPECT_EQ(window.driver->findRow("backgroundImage")->detailTextLabel()->text(), "background");
}

TEST_F(PickingAPicture, OutlivesThePageThatLoadsItsRowsAnewAndReachesItsNewRow) {
  ASSERT_NO_FATAL_FAILURE(tapRow());
  window.application->navigationController()->topViewController()->viewWillAppear(false);
  window.settle();

  window.pictures.finish({picture(), {}});
  window.settle();

  EXPECT_EQ(window.settings().at("backgroundImage"), PropertyListValue(kBackgroundImagePath));
  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
  EXPECT_EQ(presented(), 0u);
  const auto image = window.driver->findRow("FreltaImageCell")->imageView()->image();
  ASSERT_TRUE(image);
  EXPECT_EQ(image->size(), (CGSize{40, 30}));
}

TEST_F(PickingAPicture, CancelledByTheEscapeKeyWritesNothingAndTellsOnce) {
  ASSERT_NO_FATAL_FAILURE(tapRow());

  key(Qt::Key_Escape);

  EXPECT_EQ(presented(), 0u);
  EXPECT_EQ(window.pictures.cancellations, 1);
  EXPECT_EQ(window.platform.files.count(Operation::Write), 0u);
  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
}

TEST_F(PickingAPicture, LeavesAnAlertThatCameMeanwhileToBeAnsweredAndThenThePage) {
  ASSERT_NO_FATAL_FAILURE(tapRow());
  const auto question = UIAlertController::alertControllerWithTitle("Question", "");
  question->addAction(UIAlertAction::actionWithTitle("Cancel", UIAlertActionStyle::Cancel));
  quick().uiWindow().presentedViewControllers().back()->presentViewController(question, false);
  window.settle();

  window.pictures.finish({picture(), {}});
  window.settle();
  const UIAlertController* during = window.driver->alert();
  key(Qt::Key_Escape);
  const bool tapped = window.driver->tapSwitch("HideKeyCaps");
  window.settle();

  EXPECT_EQ(during, question.get());
  EXPECT_EQ(presented(), 0u);
  EXPECT_TRUE(tapped);
  EXPECT_EQ(window.settings().at("HideKeyCaps"), PropertyListValue(1));
}

TEST_F(PickingAPicture, KeepsThePageBelowFromBeingUsed) {
  ASSERT_NO_FATAL_FAILURE(tapRow());
  UITableViewCell* enabled = window.driver->findRow("Enabled");

  QTest::mouseClick(&quick(), Qt::LeftButton, {}, pointIn(*enabled, 0.9));
  keys(" \t ");
  window.settle();

  EXPECT_EQ(writes(), 0u);
  EXPECT_EQ(presented(), 1u);
}

TEST_F(PickingAPicture, ShowsThatAPictureIsBeingRead) {
  ASSERT_NO_FATAL_FAILURE(tapRow());
  auto& picker = *quick().uiWindow().presentedViewControllers()[0];
  const QQuickItem* item = quick().itemFor(picker.view());
  ASSERT_NE(item, nullptr);
  const QImage before = quick().grabWindow();

  window.pictures.choose();
  window.settle();

  QAccessibleInterface* sign = QAccessible::queryAccessibleInterface(const_cast<QQuickItem*>(item));
  EXPECT_EQ(sign->role(), QAccessible::Dialog);
  EXPECT_EQ(sign->text(QAccessible::Name), QStringLiteral("Opening the picture…"));
  EXPECT_NE(quick().grabWindow(), before);
}

TEST_F(PickingAPicture, SaysWhyAFileCannotBeTakenAndThenCloses) {
  ASSERT_NO_FATAL_FAILURE(tapRow());

  window.pictures.finish({nullptr, "It is no picture."});
  window.settle();
  ASSERT_TRUE(window.driver->alert());
  const std::string message = window.driver->alert()->message();
  const auto postedBefore = posted();
  key(Qt::Key_Return);

  EXPECT_EQ(message, "It is no picture.");
  EXPECT_THAT(postedBefore, IsEmpty());
  EXPECT_EQ(presented(), 0u);
  EXPECT_EQ(window.platform.files.count(Operation::Write), 0u);
  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
}

class PickingAColour : public CellsWindow {
 protected:
  using CellsWindow::CellsWindow;

  void tapRow() {
    window.putSettings({{"CustomTextColour", "#FF0000"}});
    ASSERT_NO_FATAL_FAILURE(window.open());
    window.platform.files.resetCalls();
    ASSERT_TRUE(window.driver->tapRow("CustomTextColour"));
    ASSERT_TRUE(window.driver->alert());
    ASSERT_EQ(window.driver->alert()->title(), "Text");
  }
  /// All four, from the top.
  std::vector<UISlider*> sliders() {
    std::vector<UISlider*> found;
    for (const auto& view : inAlert<UISlider>()->superview()->subviews()) {
      if (auto* slider = dynamic_cast<UISlider*>(view.get())) found.push_back(slider);
    }
    return found;
  }
  void drag(const UISlider& slider, double from, double to) {
    const QPoint start = pointIn(slider, from);
    const QPoint end = pointIn(slider, to);
    QTest::mousePress(&quick(), Qt::LeftButton, {}, start);
    for (int step = 1; step <= 20; ++step) {
      QTest::mouseMove(&quick(), start + (end - start) * step / 20);
      window.settle();
    }
    QTest::mouseRelease(&quick(), Qt::LeftButton, {}, end);
    window.settle();
  }
};

TEST_F(PickingAColour, ByADragIsOneWriteAndOneBroadcastWhenItIsDone) {
  ASSERT_NO_FATAL_FAILURE(tapRow());

  drag(*sliders()[3], 0.9, 0.5);
  const std::size_t writesOfTheDrag = writes();
  const auto postedByTheDrag = posted();
  ASSERT_TRUE(window.driver->tapAlertButton("Done"));

  EXPECT_EQ(writesOfTheDrag, 0u);
  EXPECT_THAT(postedByTheDrag, IsEmpty());
  EXPECT_EQ(writes(), 1u);
  EXPECT_THAT(posted(), ElementsAre("com.tarno.frelta.refresh"));
  const std::string stored = *window.settings().at("CustomTextColour").string();
  EXPECT_THAT(stored, testing::MatchesRegex("#FF0000[78][0-9A-F]"));
  EXPECT_EQ(window.driver->findRow("CustomTextColour")->detailTextLabel()->text(), stored);
  EXPECT_EQ(window.settings().size(), 1u);
}

TEST_F(PickingAColour, WorksByKeysAlone) {
  ASSERT_NO_FATAL_FAILURE(tapRow());
  const std::vector<UISlider*> all = sliders();

  quick().itemFor(*all[0])->forceActiveFocus(Qt::TabFocusReason);
  for (int press = 0; press < 120; ++press) QTest::keyClick(&quick(), Qt::Key_Right);
  key(Qt::Key_Tab);
  EXPECT_EQ(quick().activeFocusItem(), quick().itemFor(*all[1]));
  key(Qt::Key_Return);

  EXPECT_EQ(window.settings().at("CustomTextColour"), PropertyListValue("#00FF00FF"));
  EXPECT_EQ(writes(), 1u);
  EXPECT_EQ(presented(), 0u);
}

TEST_F(PickingAColour, NeedsNoMouseFromTheRowAndBackToIt) {
  window.putSettings({{"CustomTextColour", "#FF0000"}});
  ASSERT_NO_FATAL_FAILURE(window.open());
  const auto* row = window.driver->findRow("CustomTextColour");
  ASSERT_NE(row, nullptr);
  quick().itemFor(*row)->forceActiveFocus(Qt::TabFocusReason);
  key(Qt::Key_Return);
  ASSERT_TRUE(window.driver->alert());

  std::vector<const QQuickItem*> order;
  for (UISlider* slider : sliders()) order.push_back(quick().itemFor(*slider));
  order.push_back(quick().itemFor(*inAlert<UITextField>()));
  // From "Done", which Return presses at once, round to the first slider.
  for (const QQuickItem* next : order) {
    key(Qt::Key_Tab);
    EXPECT_EQ(quick().activeFocusItem(), next);
  }
  QTest::keyClick(&quick(), Qt::Key_A, Qt::ControlModifier);
  keys("#0000ff");
  key(Qt::Key_Tab);
  key(Qt::Key_Tab);
  key(Qt::Key_Space);

  EXPECT_EQ(presented(), 0u);
  EXPECT_EQ(window.settings().at("CustomTextColour"), PropertyListValue("#0000FFFF"));
  EXPECT_EQ(quick().activeFocusItem(),
            quick().itemFor(*window.driver->findRow("CustomTextColour")));
}

TEST_F(PickingAColour, LeavesAloneWhatWasSetWhenTheTypedStringIsNoColour) {
  ASSERT_NO_FATAL_FAILURE(tapRow());
  ASSERT_TRUE(window.driver->tapView(*inAlert<UITextField>()));
  QTest::keyClick(&quick(), Qt::Key_A, Qt::ControlModifier);

  keys("#12zz");
  key(Qt::Key_Return);

  EXPECT_EQ(presented(), 0u);
  EXPECT_EQ(writes(), 0u);
  EXPECT_EQ(window.settings().at("CustomTextColour"), PropertyListValue("#FF0000"));
}

TEST_F(PickingAColour, TakesATypedString) {
  ASSERT_NO_FATAL_FAILURE(tapRow());
  auto* field = inAlert<UITextField>();
  ASSERT_TRUE(window.driver->tapView(*field));
  QTest::keyClick(&quick(), Qt::Key_A, Qt::ControlModifier);

  keys("12ab34");
  key(Qt::Key_Return);

  EXPECT_EQ(window.settings().at("CustomTextColour"), PropertyListValue("#12AB34FF"));
  EXPECT_EQ(writes(), 1u);
}

TEST_F(PickingAColour, CancelledLeavesEverythingAndTheKeyboardInTheRow) {
  ASSERT_NO_FATAL_FAILURE(tapRow());
  drag(*sliders()[0], 0.1, 0.6);

  key(Qt::Key_Escape);

  EXPECT_EQ(presented(), 0u);
  EXPECT_EQ(writes(), 0u);
  EXPECT_THAT(posted(), IsEmpty());
  EXPECT_EQ(quick().activeFocusItem(),
            quick().itemFor(*window.driver->findRow("CustomTextColour")));
}

TEST_F(PickingAColour, NamesItsSlidersToAssistiveTechnologyAndLetsItMoveThem) {
  ASSERT_NO_FATAL_FAILURE(tapRow());
  const std::vector<UISlider*> all = sliders();
  ASSERT_EQ(all.size(), 4u);

  QStringList names;
  for (UISlider* slider : all) {
    QAccessibleInterface* element = QAccessible::queryAccessibleInterface(quick().itemFor(*slider));
    EXPECT_EQ(element->role(), QAccessible::Slider);
    names.append(element->text(QAccessible::Name));
  }
  QAccessibleInterface* opacity = QAccessible::queryAccessibleInterface(quick().itemFor(*all[3]));
  opacity->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
  window.settle();

  EXPECT_EQ(names, QStringList({QStringLiteral("Hue"), QStringLiteral("Saturation"),
                                QStringLiteral("Brightness"), QStringLiteral("Opacity")}));
  EXPECT_EQ(all[3]->value(), 99);
}

using Look = std::tuple<QSize, UserInterfaceStyle>;

class ColourDialogue : public PickingAColour, public testing::WithParamInterface<Look> {
 protected:
  ColourDialogue() : PickingAColour(std::get<UserInterfaceStyle>(GetParam())) {}

  const QSize size = std::get<QSize>(GetParam());
};

TEST_P(ColourDialogue, FitsItsWindow) {
  window.putSettings({{"CustomTextColour", "#2E6FDBCC"}});
  ASSERT_NO_FATAL_FAILURE(window.open(QStringLiteral(FRELTA_BUNDLE), size));

  ASSERT_TRUE(window.driver->tapRow("CustomTextColour"));

  const UIView& card =
      *findView<UISlider>(window.driver->alert()->view())->superview()->superview();
  EXPECT_GE(card.frame().minY(), 0);
  EXPECT_LE(card.frame().maxY(), size.height());
  const bool isDark = std::get<UserInterfaceStyle>(GetParam()) == UserInterfaceStyle::Dark;
  keepPicture(*window.driver,
              "colourWidth" + std::to_string(size.width()) + (isDark ? "Dark" : "Light"));
}

INSTANTIATE_TEST_SUITE_P(Windows, ColourDialogue,
                         testing::Combine(testing::Values(QSize(390, 844), QSize(320, 568),
                                                          QSize(280, 320), QSize(1000, 700)),
                                          testing::Values(UserInterfaceStyle::Light,
                                                          UserInterfaceStyle::Dark)));

}  // namespace
}  // namespace frelta
