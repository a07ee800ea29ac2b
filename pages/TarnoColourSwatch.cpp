#include "pages/TarnoColourSwatch.h"

#include <cmath>
#include <cstdint>
#include <vector>

#include "foundation/Platform.h"
#include "graphics/GraphicsServices.h"

namespace frelta {

namespace {

constexpr double kCornerRadius = 7;
constexpr double kOutlineWidth = 1;
constexpr double kSquare = 6;  // of the chequered ground
constexpr double kLight = 1;
constexpr double kDark = 0.8;
// Shows on white and on black.
constexpr UIColor::Components kOutline{0.5, 0.5, 0.5, 0.6};

using Pixels = std::vector<std::uint8_t>;

void appendPixel(Pixels& pixels, const UIColor::Components& colour, double ground) {
  for (const double channel : {colour.red, colour.green, colour.blue}) {
    const double mixed = channel * colour.alpha + ground * (1 - colour.alpha);
    pixels.push_back(static_cast<std::uint8_t>(std::lround(mixed * 255)));
  }
  pixels.push_back(255);
}

std::shared_ptr<const UIImage> imageOf(int width, int height, double scale, Pixels pixels) {
  const auto owner = std::make_shared<const Pixels>(std::move(pixels));
  return std::make_shared<const UIImage>(width, height, scale,
                                         std::shared_ptr<const std::uint8_t>(owner, owner->data()));
}

}  // namespace

std::shared_ptr<const UIImage> swatchOfColour(const UIColor::Components& colour, CGSize size) {
  const double scale = Platform::current().system->screenScale();
  const int width = static_cast<int>(size.width * scale);
  const int height = static_cast<int>(size.height * scale);
  const int square = static_cast<int>(kSquare * scale);
  Pixels ground;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x)
      appendPixel(ground, colour, (x / square + y / square) % 2 == 0 ? kLight : kDark);
  }
  Pixels outline;
  appendPixel(outline, kOutline, kLight);

  const CGRect box(0, 0, size.width, size.height);
  const auto context = GraphicsServices::current().images->beginImageContext(size, scale);
  context->clipToRoundedRect(box, kCornerRadius);
  context->drawImage(*imageOf(1, 1, scale, std::move(outline)), box);
  context->clipToRoundedRect({kOutlineWidth, kOutlineWidth, size.width - 2 * kOutlineWidth,
                              size.height - 2 * kOutlineWidth},
                             kCornerRadius - kOutlineWidth);
  context->drawImage(*imageOf(width, height, scale, std::move(ground)), box);
  return context->image();
}

}  // namespace frelta
