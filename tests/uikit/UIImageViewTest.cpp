#include "uikit/UIImageView.h"

#include "tests/uikit/KitTest.h"

namespace frelta {
namespace {

std::shared_ptr<const UIImage> image(int width, int height, double scale) {
  const auto bytes = static_cast<std::size_t>(4 * width * height);
  return std::make_shared<UIImage>(
      width, height, scale,
      std::shared_ptr<const std::uint8_t>(new std::uint8_t[bytes]{},
                                          std::default_delete<const std::uint8_t[]>()));
}

TEST(UIImageView, APictureFillsItsViewUnlessItIsToFit) {
  UIImageView view;
  view.setImage(image(40, 20, 2));

  const CGRect filled = view.imageRect({100, 100});
  view.setContentMode(UIViewContentMode::ScaleAspectFit);

  EXPECT_EQ(filled, CGRect(0, 0, 100, 100));
  EXPECT_EQ(view.imageRect({100, 100}), CGRect(0, 25, 100, 50));
  EXPECT_EQ(view.imageRect({30, 100}), CGRect(0, 42.5, 30, 15));
  EXPECT_EQ(view.sizeThatFits({}), (CGSize{20, 10}));
}

TEST(UIImageView, NoPictureAndOneWithoutContentAreDrawnNowhere) {
  UIImageView view;

  const CGRect none = view.imageRect({100, 100});
  view.setImage(std::make_shared<UIImage>());

  EXPECT_EQ(none, CGRect());
  EXPECT_EQ(view.imageRect({100, 100}), CGRect());
  EXPECT_EQ(view.sizeThatFits({}), (CGSize{0, 0}));
}

TEST(UIImageView, ChangesAreToldOnce) {
  UIImageView view;
  CountingObserver observer(view);
  const auto picture = image(1, 1, 1);

  for (int i = 0; i < 2; ++i) {
    view.setImage(picture);
    view.setContentMode(UIViewContentMode::ScaleAspectFit);
    view.setMaskLayer(CAShapeLayer{
        {0, 0, 9, 9},
        UIBezierPath::bezierPathWithRoundedRect({0, 0, 9, 9}, UIRectCornerTopLeft, {3, 3})});
  }

  EXPECT_EQ(observer.changes, 3);
  EXPECT_FALSE(view.accessibility().isElement);
}

}  // namespace
}  // namespace frelta
