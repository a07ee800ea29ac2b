#include "tests/quick/WindowTest.h"

namespace frelta {
namespace {

/// Pixels of an inset grouped list: cards from x = 16 to 384, the first row from y = 14 to 58.
class PictureTest : public WindowTest {
 protected:
  static inline const QColor kPage{242, 242, 247};
  static inline const QColor kCard{255, 255, 255};
  static inline const QColor kPressed{209, 209, 214};

  void SetUp() override {
    screen = std::make_shared<TableScreen>(std::vector<TableRows::Section>{{"", 3, ""}});
    show(screen);
  }
  QImage picture() {
    settle();
    return window->grabWindow().convertToFormat(QImage::Format_RGB32);
  }

  std::shared_ptr<TableScreen> screen;
};

TEST_F(PictureTest, OnlyTheCornersOfTheCardAreRound) {
  const QImage image = picture();

  for (const QPoint corner : {QPoint(16, 14), {383, 14}, {16, 145}, {383, 145}}) {
    EXPECT_EQ(image.pixelColor(corner), kPage) << corner.x() << " " << corner.y();
  }
  for (const QPoint inside : {QPoint(16, 58), {383, 58}, {16, 101}, {16, 102}, {383, 90}}) {
    EXPECT_EQ(image.pixelColor(inside), kCard) << inside.x() << " " << inside.y();
  }
  for (const QPoint outside : {QPoint(15, 80), {384, 80}, {200, 13}, {200, 146}}) {
    EXPECT_EQ(image.pixelColor(outside), kPage) << outside.x() << " " << outside.y();
  }
}

TEST_F(PictureTest, RowsArePartedByOneLineOfPixelsBesideTheMargin) {
  const QImage image = picture();

  for (const int y : {57, 101}) {
    EXPECT_NE(image.pixelColor(200, y), kCard) << y;
    EXPECT_EQ(image.pixelColor(200, y - 1), kCard) << y;
    EXPECT_EQ(image.pixelColor(200, y + 1), kCard) << y;
    EXPECT_EQ(image.pixelColor(31, y), kCard) << y;
    EXPECT_NE(image.pixelColor(32, y), kCard) << y;
    EXPECT_NE(image.pixelColor(383, y), kCard) << y;
  }
  EXPECT_EQ(image.pixelColor(200, 145), kCard) << "none below the last row";
}

TEST_F(PictureTest, AChosenRowIsColouredToItsRoundCorners) {
  screen->table().selectRowAtIndexPath(IndexPath{0, 2});

  const QImage image = picture();

  EXPECT_EQ(image.pixelColor(200, 144), kPressed);
  EXPECT_EQ(image.pixelColor(17, 110), kPressed);
  EXPECT_EQ(image.pixelColor(16, 145), kPage);
  EXPECT_EQ(image.pixelColor(200, 100), kCard);
}

TEST_F(PictureTest, APressedRowIsColouredWhileItIsPressed) {
  const QPoint row = pointIn(*screen->table().cellForRowAtIndexPath({0, 1}));

  QTest::mousePress(window.get(), Qt::LeftButton, Qt::NoModifier, row);
  const QColor pressed = picture().pixelColor(300, 80);
  QTest::mouseRelease(window.get(), Qt::LeftButton, Qt::NoModifier, row);
  screen->table().deselectRowAtIndexPath({0, 1});
  QTest::mouseMove(window.get(), {2, 500});

  EXPECT_EQ(pressed, kPressed);
  EXPECT_EQ(picture().pixelColor(300, 80), kCard);
}

}  // namespace
}  // namespace frelta
