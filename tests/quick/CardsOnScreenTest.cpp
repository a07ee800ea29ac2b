#include <QAccessible>

#include "tests/quick/SyntheticCards.h"
#include "tests/quick/WindowTest.h"
#include "uikit/UIBezierPath.h"
#include "uikit/UILabel.h"

namespace frelta {
namespace {

using testing::ElementsAre;

std::shared_ptr<const UIImage> plainImage(QColor color) {
  const std::shared_ptr<std::uint8_t> pixels(new std::uint8_t[400],
                                             std::default_delete<std::uint8_t[]>());
  for (int i = 0; i < 400; i += 4) {
    pixels.get()[i] = static_cast<std::uint8_t>(color.red());
    pixels.get()[i + 1] = static_cast<std::uint8_t>(color.green());
    pixels.get()[i + 2] = static_cast<std::uint8_t>(color.blue());
    pixels.get()[i + 3] = 255;
  }
  return std::make_shared<UIImage>(10, 10, 1, pixels);
}

class CardsOnScreenTest : public WindowTest {
 protected:
  QColor colorAt(double x, double y) {
    return window->grabWindow().pixelColor(static_cast<int>(x), static_cast<int>(y));
  }
  SyntheticCard& card(SyntheticCards& cards, int row) {
    return static_cast<SyntheticCard&>(*cards.table().cellForRowAtIndexPath({0, row}));
  }
  /// Role, name and description of what assistive technology finds in the window, in order.
  std::vector<std::string> elements() {
    std::vector<std::string> found;
    collect(QAccessible::queryAccessibleInterface(window.get()), found);
    return found;
  }

 private:
  static void collect(QAccessibleInterface* parent, std::vector<std::string>& found) {
    for (int i = 0; i < parent->childCount(); ++i) {
      QAccessibleInterface* child = parent->child(i);
      if (child->state().invisible) continue;
      const bool group = child->role() == QAccessible::Grouping;
      const QString name = child->text(QAccessible::Name);
      const QString description = child->text(QAccessible::Description);
      if (!name.isEmpty()) {
        found.push_back(((group ? "group " : "") + name + "|" + description).toStdString());
      }
      collect(child, found);
    }
  }
};

TEST_F(CardsOnScreenTest, AChangeReachesTheScreenWithTheFrameThatPaintsIt) {
  UIView& root = showPlain();
  auto* view = root.addSubview(std::make_unique<UIImageView>(CGRect(0, 0, 40, 20)));
  settle();
  int painted = 0;
  int shown = 0;
  QObject::connect(window.get(), &QQuickWindow::afterAnimating, [&] { ++painted; });
  QObject::connect(window.get(), &QQuickWindow::frameSwapped, [&] { ++shown; });
  window->update();
  ASSERT_TRUE(QTest::qWaitFor([&] { return shown == 1; }));
  painted = shown = 0;

  // A request that is left over from before the change.
  view->setImage(plainImage(Qt::red));
  QEvent request(QEvent::UpdateRequest);
  QCoreApplication::sendEvent(window.get(), &request);

  EXPECT_EQ(painted, 1);
  EXPECT_EQ(shown, 1);
}

TEST_F(CardsOnScreenTest, APictureIsDrawnAndSharedByAllWhoShowIt) {
  UIView& root = showPlain();
  auto* first = root.addSubview(std::make_unique<UIImageView>(CGRect(0, 0, 40, 20)));
  auto* second = root.addSubview(std::make_unique<UIImageView>(CGRect(100, 0, 40, 20)));
  second->setContentMode(UIViewContentMode::ScaleAspectFit);
  auto* third = root.addSubview(std::make_unique<UIImageView>(CGRect(200, 0, 20, 20)));

  first->setImage(plainImage(Qt::red));
  second->setImage(plainImage(Qt::blue));
  third->setImage(second->image());
  settle();

  EXPECT_EQ(colorAt(2, 10), QColor(Qt::red));
  EXPECT_EQ(colorAt(102, 10), QColor(Qt::white));
  EXPECT_EQ(colorAt(120, 10), QColor(Qt::blue));
  EXPECT_EQ(colorAt(210, 10), QColor(Qt::blue));
  ImageTextures& textures = window->mirror().textures();
  EXPECT_EQ(textures.count(), 2u);
  EXPECT_EQ(textures.textureFor(third->image(), {20, 20}, *window),
            textures.textureFor(third->image(), {20, 20}, *window));
}

TEST_F(CardsOnScreenTest, APictureGoesWithTheLastWhoShowsIt) {
  UIView& root = showPlain();
  auto* first = root.addSubview(std::make_unique<UIImageView>(CGRect(0, 0, 40, 20)));
  auto* second = root.addSubview(std::make_unique<UIImageView>(CGRect(100, 0, 40, 20)));
  auto image = plainImage(Qt::red);
  const std::weak_ptr<const UIImage> alive = image;
  first->setImage(image);
  second->setImage(std::move(image));
  settle();
  window->grabWindow();

  first->setImage(nullptr);
  second->removeFromSuperview().reset();
  settle();
  const QColor after = colorAt(2, 10);
  settle();
  window->grabWindow();

  EXPECT_EQ(after, QColor(Qt::white));
  EXPECT_EQ(window->mirror().textures().count(), 0u);
  EXPECT_TRUE(alive.expired());
}

TEST_F(CardsOnScreenTest, AMaskRoundsOnlyItsCorners) {
  UIView& root = showPlain();
  auto* view = root.addSubview(std::make_unique<UIView>(CGRect(50, 50, 100, 60)));
  view->setBackgroundColor(UIColor::colorWithRed(1, 0, 0, 1));
  view->setMaskLayer(CAShapeLayer{
      view->bounds(), UIBezierPath::bezierPathWithRoundedRect(
                          view->bounds(), UIRectCornerTopLeft | UIRectCornerTopRight, {15, 15})});
  settle();

  EXPECT_EQ(colorAt(51, 51), QColor(Qt::white));
  EXPECT_EQ(colorAt(148, 51), QColor(Qt::white));
  EXPECT_EQ(colorAt(51, 108), QColor(Qt::red));
  EXPECT_EQ(colorAt(148, 108), QColor(Qt::red));
  EXPECT_EQ(colorAt(100, 51), QColor(Qt::red));
  view->setMaskLayer(std::nullopt);
  settle();
  EXPECT_EQ(colorAt(51, 51), QColor(Qt::red));
}

TEST_F(CardsOnScreenTest, APillButtonHasItsFillAndShowsThatItIsPressed) {
  UIView& root = showPlain();
  auto* button =
      root.addSubview(std::make_unique<UIButton>(UIButtonType::System, CGRect(50, 50, 76, 31)));
  button->setBackgroundColor(UIColor::colorWithRed(1, 0, 0, 1));
  button->setCornerRadius(15.5);
  settle();

  const QColor corner = colorAt(51, 51);
  const QColor edge = colorAt(54, 65);
  QTest::mousePress(window.get(), Qt::LeftButton, {}, pointIn(*button));
  settle();
  const QColor pressed = colorAt(54, 65);
  QTest::mouseRelease(window.get(), Qt::LeftButton, {}, pointIn(*button));

  EXPECT_EQ(corner, QColor(Qt::white));
  EXPECT_EQ(edge, QColor(Qt::red));
  EXPECT_GT(pressed.green(), 80);
}

TEST_F(CardsOnScreenTest, ACardIsOneGroupWithItsButton) {
  auto cards = std::make_shared<SyntheticCards>(2, std::vector<std::string>());
  show(cards);

  EXPECT_THAT(elements(),
              ElementsAre("group Style number 0|Images Theme", "Enable Style number 0|",
                          "group Style number 1|Images Theme", "Enable Style number 1|"));
}

TEST_F(CardsOnScreenTest, TheOrderStaysTheVisualOneAfterAnyScrolling) {
  auto cards = std::make_shared<SyntheticCards>(1000, std::vector<std::string>());
  show(cards);
  for (const double y : {40000.0, 300.0, 129870.0, 40130.0, 39000.0}) {
    cards->table().userDidScroll({0, y});
    settle();
  }

  std::vector<std::string> expected;
  for (const IndexPath path : cards->table().indexPathsForVisibleRows()) {
    const std::string title = "Style number " + std::to_string(path.row);
    expected.push_back("group " + title + "|Images Theme");
    expected.push_back("Enable " + title + "|");
  }

  EXPECT_GE(expected.size(), 8u);
  EXPECT_EQ(elements(), expected);
}

TEST_F(CardsOnScreenTest, TabGoesFromEachCardToItsButton) {
  auto cards = std::make_shared<SyntheticCards>(3, std::vector<std::string>());
  show(cards);
  std::vector<const UIView*> focused;

  for (int i = 0; i < 4; ++i) {
    key(Qt::Key_Tab);
    focused.push_back(focusedView());
  }

  EXPECT_THAT(focused, ElementsAre(&card(*cards, 0), &card(*cards, 0).button(), &card(*cards, 1),
                                   &card(*cards, 1).button()));
}

TEST_F(CardsOnScreenTest, ACardsButtonIsPressedWithoutSelectingTheCard) {
  auto cards = std::make_shared<SyntheticCards>(3, std::vector<std::string>());
  show(cards);
  int presses = 0;
  card(*cards, 1).button().addTarget(
      this, "press", [&](UIControl&) { ++presses; }, UIControlEventTouchUpInside);

  click(card(*cards, 1).button());
  const auto afterButton = cards->table().indexPathForSelectedRow();
  click(card(*cards, 1), 0.4);

  EXPECT_EQ(presses, 1);
  EXPECT_EQ(afterButton, std::nullopt);
  EXPECT_EQ(cards->table().indexPathForSelectedRow(), (IndexPath{0, 1}));
}

TEST_F(CardsOnScreenTest, FlingsNeverShowACardWithAnothersTitle) {
  auto cards = std::make_shared<SyntheticCards>(10000, std::vector<std::string>());
  show(cards);
  QQuickItem* content = item(cards->table())->property("content").value<QQuickItem*>();

  for (double y = 0; y < 400000; y += 3777) {
    content->parentItem()->parentItem()->setProperty("contentY", y);
    for (const IndexPath path : cards->table().indexPathsForVisibleRows()) {
      QQuickItem* shown = item(card(*cards, path.row));
      ASSERT_EQ(shown->y(), 130 * path.row);
      ASSERT_EQ(shown->property("node").value<ViewNode*>()->property("accessibleName").toString(),
                "Style number " + QString::number(path.row));
    }
  }

  EXPECT_LE(cards->cellsMade, 12);
}

}  // namespace
}  // namespace frelta
