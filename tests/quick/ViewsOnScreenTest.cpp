#include <QFont>
#include <QQuickTextDocument>
#include <QTextDocument>

#include "tests/quick/WindowTest.h"
#include "uikit/UIAlertController.h"
#include "uikit/UIButton.h"
#include "uikit/UILabel.h"
#include "uikit/UINavigationController.h"
#include "uikit/UISegmentedControl.h"
#include "uikit/UISlider.h"
#include "uikit/UITextField.h"

namespace frelta {
namespace {

class ViewsOnScreenTest : public WindowTest {
 protected:
  template <typename View>
  View* add(UIView& parent, std::unique_ptr<View> view, CGRect frame) {
    view->setFrame(frame);
    View* raw = parent.addSubview(std::move(view));
    settle();
    return raw;
  }
};

TEST_F(ViewsOnScreenTest, AViewStandsWhereItsFrameSays) {
  UIView& root = showPlain();
  UIView* outer = add(root, std::make_unique<UIView>(), {10, 20, 200, 100});

  UIView* inner = add(*outer, std::make_unique<UIView>(), {5, 6, 50, 40});

  EXPECT_EQ(placeOf(root), QRectF(0, 0, 400, 600));
  EXPECT_EQ(placeOf(*outer), QRectF(10, 20, 200, 100));
  EXPECT_EQ(placeOf(*inner), QRectF(15, 26, 50, 40));
}

TEST_F(ViewsOnScreenTest, AViewIsPaintedInItsColour) {
  UIView& root = showPlain();
  UIView* view = add(root, std::make_unique<UIView>(), {10, 20, 200, 100});

  view->setBackgroundColor(UIColor::colorWithRed(1, 0, 0, 1));
  settle();
  const QImage picture = window->grabWindow();

  EXPECT_EQ(picture.pixelColor(12, 22), QColor(Qt::red));
  EXPECT_EQ(picture.pixelColor(8, 22), QColor(Qt::white));
}

TEST_F(ViewsOnScreenTest, ChangesAreCarriedOver) {
  UIView& root = showPlain();
  UIView* view = add(root, std::make_unique<UIView>(), {10, 20, 200, 100});

  view->setFrame({1, 2, 3, 4});
  view->setAlpha(0.5);
  view->setHidden(true);
  view->setClipsToBounds(true);
  view->setCornerRadius(7);
  settle();

  EXPECT_EQ(placeOf(*view), QRectF(1, 2, 3, 4));
  EXPECT_EQ(item(*view)->opacity(), 0.5);
  EXPECT_FALSE(item(*view)->isVisible());
  EXPECT_TRUE(item(*view)->clip());
  EXPECT_EQ(item(*view)->property("radius").toDouble(), 7);
}

TEST_F(ViewsOnScreenTest, ARemovedViewLeavesTheScreenAndMayComeBack) {
  UIView& root = showPlain();
  UIView* view = add(root, std::make_unique<UIView>(), {10, 20, 200, 100});
  QQuickItem* shown = item(*view);

  std::unique_ptr<UIView> owner = view->removeFromSuperview();
  settle();
  const bool wasShown = item(*view) != nullptr;
  root.addSubview(std::move(owner));
  settle();

  EXPECT_FALSE(wasShown);
  EXPECT_EQ(item(*view), shown);
}

TEST_F(ViewsOnScreenTest, ADestroyedViewTakesItsItemAlong) {
  UIView& root = showPlain();
  UIView* view = add(root, std::make_unique<UIView>(), {10, 20, 200, 100});
  const QPointer<QQuickItem> shown = item(*view);

  view->removeFromSuperview().reset();
  settle();

  EXPECT_TRUE(shown.isNull());
}

TEST_F(ViewsOnScreenTest, ItemsStandInTheOrderOfTheSubviews) {
  UIView& root = showPlain();
  UIView* first = add(root, std::make_unique<UIView>(), {0, 0, 10, 10});
  UIView* third = add(root, std::make_unique<UIView>(), {0, 0, 10, 10});

  auto view = std::make_unique<UIView>();
  UIView* second = view.get();
  root.insertSubview(std::move(view), 1);
  settle();

  EXPECT_EQ(item(root)->childItems(),
            (QList<QQuickItem*>{item(*first), item(*second), item(*third)}));
}

TEST_F(ViewsOnScreenTest, ALabelShowsItsText) {
  UIView& root = showPlain();
  UILabel* label = add(root, std::make_unique<UILabel>(), {10, 20, 200, 40});

  label->setText("<b>Ä</b> & more");
  label->setFont(UIFont::boldSystemFontOfSize(20));
  label->setTextColor(UIColor::colorWithRed(0, 0, 1, 1));
  label->setTextAlignment(NSTextAlignment::Center);
  settle();
  QQuickItem* text = item(*label);

  EXPECT_EQ(text->property("text").toString(), QStringLiteral("<b>Ä</b> & more"));
  EXPECT_EQ(text->property("textFormat").toInt(), Qt::PlainText);
  EXPECT_EQ(text->property("color").value<QColor>(), QColor(Qt::blue));
  EXPECT_EQ(text->property("font").value<QFont>().pixelSize(), 20);
  EXPECT_EQ(text->property("font").value<QFont>().weight(), QFont::Bold);
  EXPECT_EQ(text->property("horizontalAlignment").toInt(), Qt::AlignHCenter);
  EXPECT_EQ(placeOf(*label), QRectF(10, 20, 200, 40));
}

TEST_F(ViewsOnScreenTest, ALabelOfOneLineElidesAndOneOfManyWraps) {
  UIView& root = showPlain();
  UILabel* label = add(root, std::make_unique<UILabel>(), {10, 20, 60, 200});
  label->setText("several words that do not fit");
  settle();
  const int lines = item(*label)->property("lineCount").toInt();
  const bool elided = item(*label)->property("truncated").toBool();

  label->setNumberOfLines(0);
  settle();

  EXPECT_EQ(lines, 1);
  EXPECT_TRUE(elided);
  EXPECT_GT(item(*label)->property("lineCount").toInt(), 2);
  EXPECT_FALSE(item(*label)->property("truncated").toBool());
}

TEST_F(ViewsOnScreenTest, ALabelThatAdjustsGetsSmallerBeforeItElides) {
  UIView& root = showPlain();
  UILabel* label = add(root, std::make_unique<UILabel>(), {10, 20, 100, 40});
  label->setText("slightly too long");

  label->setAdjustsFontSizeToFitWidth(true);
  label->setMinimumScaleFactor(0.5);
  settle();
  window->grabWindow();  // the text is laid out anew before it is painted

  EXPECT_LE(item(*label)->property("contentWidth").toDouble(), 100);
  EXPECT_GT(item(*label)->property("contentWidth").toDouble(), 60);
  EXPECT_FALSE(item(*label)->property("truncated").toBool());
}

TEST_F(ViewsOnScreenTest, ALabelStaysReadableAndElidesInTheMiddle) {
  UIView& root = showPlain();
  UILabel* label = add(root, std::make_unique<UILabel>(), {10, 100, 100, 40});
  label->setText("A name that is told apart from others by how it begins and by where it ends");
  label->setFont(UIFont::systemFontOfSize(24));

  label->setAdjustsFontSizeToFitWidth(true);
  label->setMinimumScaleFactor(0.2);
  settle();
  window->grabWindow();  // the text is laid out anew before it is painted

  EXPECT_EQ(item(*label)->property("minimumPixelSize").toInt(), 9);
  EXPECT_EQ(item(*label)->property("elide").toInt(), Qt::ElideMiddle);
  EXPECT_TRUE(item(*label)->property("truncated").toBool());
  EXPECT_GT(item(*label)->property("contentHeight").toDouble(), 9);
}

TEST_F(ViewsOnScreenTest, ALabelThatIsSmallAnywayKeepsItsSize) {
  UIView& root = showPlain();
  UILabel* label = add(root, std::make_unique<UILabel>(), {10, 100, 100, 40});
  label->setFont(UIFont::systemFontOfSize(8));

  label->setAdjustsFontSizeToFitWidth(true);
  label->setMinimumScaleFactor(0.2);
  settle();

  EXPECT_EQ(item(*label)->property("minimumPixelSize").toInt(), 8);
}

TEST_F(ViewsOnScreenTest, ControlsShowTheirState) {
  UIView& root = showPlain();
  auto* button = add(root, std::make_unique<UIButton>(), {0, 0, 100, 44});
  auto* toggle = add(root, std::make_unique<UISwitch>(), {0, 50, 51, 31});
  auto* slider = add(root, std::make_unique<UISlider>(), {0, 100, 200, 34});
  auto* field = add(root, std::make_unique<UITextField>(), {0, 150, 200, 30});

  button->setTitle("Press");
  toggle->setOn(true);
  slider->setRange(10, 20);
  slider->setValue(15);
  field->setText("typed");
  field->setEnabled(false);
  settle();

  EXPECT_EQ(item(*button)->property("text").toString(), QStringLiteral("Press"));
  EXPECT_TRUE(item(*toggle)->property("checked").toBool());
  EXPECT_EQ(item(*slider)->property("value").toDouble(), 15);
  EXPECT_EQ(item(*slider)->property("position").toDouble(), 0.5);
  EXPECT_EQ(item(*field)->property("text").toString(), QStringLiteral("typed"));
  EXPECT_FALSE(item(*field)->isEnabled());
}

TEST_F(ViewsOnScreenTest, SegmentsShareTheWidth) {
  UIView& root = showPlain();
  auto* control = add(
      root, std::make_unique<UISegmentedControl>(std::vector<std::string>{"One", "Two", "Three"}),
      {10, 20, 304, 32});

  control->setSelectedSegmentIndex(1);
  settle();
  std::vector<QQuickItem*> segments;
  for (QQuickItem* child : item(*control)->childItems()) {
    if (child->property("modelData").isValid()) segments.push_back(child);
  }

  ASSERT_EQ(segments.size(), 3u);
  EXPECT_EQ(segments[1]->x(), 102);
  EXPECT_EQ(segments[1]->width(), 100);
  EXPECT_EQ(segments[1]->property("modelData").toString(), QStringLiteral("Two"));
  EXPECT_TRUE(segments[1]->property("current").toBool());
  EXPECT_FALSE(segments[0]->property("current").toBool());
}

TEST_F(ViewsOnScreenTest, RowsStandAsTheTableLaysThemOut) {
  auto screen = std::make_shared<TableScreen>(
      std::vector<TableRows::Section>{{"Header", 2, "Footer"}, {"", 1, ""}});

  show(screen);

  for (const IndexPath path : {IndexPath{0, 0}, {0, 1}, {1, 0}}) {
    const CGRect rect = screen->table().rectForRowAtIndexPath(path);
    EXPECT_EQ(placeOf(*screen->table().cellForRowAtIndexPath(path)),
              QRectF(rect.minX(), rect.minY(), rect.size.width, rect.size.height));
  }
}

TEST_F(ViewsOnScreenTest, ATableIsPaintedInItsColourOverTheWholeWidth) {
  auto screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 1, ""}});
  screen->table().setBackgroundColor(UIColor::colorWithRed(0, 1, 0, 1));

  show(screen, 1000);
  const QImage picture = window->grabWindow();

  EXPECT_EQ(picture.pixelColor(2, 300), QColor(Qt::green));
  EXPECT_EQ(picture.pixelColor(997, 300), QColor(Qt::green));
}

TEST_F(ViewsOnScreenTest, AViewThatChangedWhileItsScreenWasCoveredIsReadWhenItComesBack) {
  auto navigation = std::make_shared<UINavigationController>();
  auto first = std::make_shared<PlainScreen>();
  navigation->pushViewController(first, false);
  show(navigation);
  auto* label = add(first->view(), std::make_unique<UILabel>(), {0, 0, 200, 40});
  navigation->pushViewController(std::make_shared<PlainScreen>(), false);
  settle();

  label->setText("Changed");
  settle();
  navigation->popViewControllerAnimated(false);
  settle();

  const auto* node = dynamic_cast<const ViewNode*>(label->observer());
  ASSERT_NE(node, nullptr);
  EXPECT_FALSE(node->property("accessibleIgnored").toBool());
}

TEST_F(ViewsOnScreenTest, NoTextOfAnAlertTurnsTheDirectionOfTheRest) {
  auto screen = std::make_shared<PlainScreen>();
  show(screen);
  const std::string name = "a\u202Eb";
  auto alert = UIAlertController::alertControllerWithTitle(name, name);
  alert->addAction(UIAlertAction::actionWithTitle(name, UIAlertActionStyle::Default));

  screen->presentViewController(alert, false);
  settle();

  QStringList texts;
  const std::function<void(const QQuickItem&)> collect = [&](const QQuickItem& item) {
    for (const char* property : {"text", "title"}) texts += item.property(property).toString();
    if (const auto* document = item.property("textDocument").value<QQuickTextDocument*>())
      texts += document->textDocument()->toPlainText();
    if (QAccessibleInterface* element =
            QAccessible::queryAccessibleInterface(const_cast<QQuickItem*>(&item)))
      texts += element->text(QAccessible::Name);
    for (const QQuickItem* child : item.childItems()) collect(*child);
  };
  collect(*window->contentItem());
  EXPECT_EQ(texts.filter(QChar(0x202E)), QStringList());
  EXPECT_GE(texts.filter(QStringLiteral("a\uFFFDb")).size(), 3);
}

TEST_F(ViewsOnScreenTest, AScreenPushedReplacesTheOneBelowAndComesBack) {
  auto navigation = std::make_shared<UINavigationController>();
  auto first = std::make_shared<PlainScreen>();
  auto second = std::make_shared<PlainScreen>();
  first->setTitle("First");
  navigation->pushViewController(first, false);
  show(navigation);

  navigation->pushViewController(second, true);
  settle();
  const QRectF pushed = placeOf(second->view());
  const bool isFirstShown = item(first->view()) != nullptr;
  click(*navigation->navigationBar().backButton());

  EXPECT_EQ(pushed, QRectF(0, 44, 400, 556));
  EXPECT_FALSE(isFirstShown);
  EXPECT_EQ(placeOf(first->view()), QRectF(0, 44, 400, 556));
  EXPECT_EQ(item(second->view()), nullptr);
}

TEST_F(ViewsOnScreenTest, TheAppearanceColoursWhatIsShownAlready) {
  UIView& root = showPlain();
  UILabel* label = add(root, std::make_unique<UILabel>(), {10, 20, 200, 40});
  auto* field = add(root, std::make_unique<UITextField>(), {0, 150, 200, 30});
  const QColor light = item(*label)->property("color").value<QColor>();

  window->mirror().setStyle(UserInterfaceStyle::Dark);
  settle();

  EXPECT_EQ(light, QColor(Qt::black));
  EXPECT_EQ(item(*label)->property("color").value<QColor>(), QColor(Qt::white));
  EXPECT_EQ(item(*field)->property("color").value<QColor>(), QColor(Qt::white));
  EXPECT_EQ(item(root)->property("color").value<QColor>(), QColor(Qt::black));
}

}  // namespace
}  // namespace frelta
