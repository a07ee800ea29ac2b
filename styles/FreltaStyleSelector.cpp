#include "styles/FreltaStyleSelector.h"

#include <algorithm>

#include "foundation/Platform.h"
#include "graphics/GraphicsServices.h"

namespace frelta::FreltaStyleSelector {

namespace {

constexpr double kIconSide = 60;
constexpr double kPaddedSide = 80;
constexpr double kCornerFraction = 0.225;
constexpr double kShadowRoom = 5;
constexpr double kOverlap = 35;
constexpr double kStackMargin = 8.75;

std::unique_ptr<UIGraphicsImageContext> beginImageContext(CGSize size, double scale) {
  return GraphicsServices::current().images->beginImageContext(size, scale);
}

Image maskedWithShadow(const UIImage& image, double scale) {
  return imageWithShadow(*maskImageWithPad(image, false, scale), scale);
}

Image imageOf(const StackItem& item) {
  const auto* path = std::get_if<std::string>(&item);
  return path ? UIImage::imageWithContentsOfFile(*path) : std::get<Image>(item);
}

}  // namespace

double screenScale() {
  return Platform::current().system->screenScale();
}

Image imageWithShadow(const UIImage& image, double scale) {
  const CGSize size = image.size();
  const auto context =
      beginImageContext({size.width + kShadowRoom, size.height + kShadowRoom}, scale);
  context->setShadow({1, 1}, 2.5, {0, 0, 0, 0.75});
  context->drawImage(image, {{2, 2}, size});
  return context->image();
}

Image maskImageWithPad(const UIImage& image, bool pad, double scale) {
  const Image scaled = imageWithImage(image, {kIconSide, kIconSide}, scale);
  const CGRect bounds({0, 0}, scaled->size());
  const auto context = beginImageContext(bounds.size, scale);
  context->clipToRoundedRect(bounds, bounds.size.width * kCornerFraction);
  context->drawImage(*scaled, bounds);
  const Image masked = context->image();
  return pad ? padImage(*masked, scale) : masked;
}

Image imageWithImage(const UIImage& image, CGSize scaledToSize, double scale) {
  const auto context = beginImageContext(scaledToSize, scale);
  context->drawImage(image, {{0, 0}, scaledToSize});
  return context->image();
}

Image padImage(const UIImage& image, double scale) {
  const CGSize size = image.size();
  const auto context = beginImageContext({kPaddedSide, kPaddedSide}, scale);
  context->drawImage(image,
                     {{(kPaddedSide - size.width) / 2, (kPaddedSide - size.height) / 2}, size});
  return context->image();
}

Image generateStackedImageWithArray(std::span<const StackItem> items, double scale) {
  const auto count = static_cast<double>(items.size());
  const auto context =
      beginImageContext({kIconSide * count - (count - 1) * kOverlap, kIconSide}, scale);
  for (std::size_t i = items.size(); i-- > 0;) {
    const Image image = imageOf(items[i]);
    if (!image) continue;
    const auto place = static_cast<double>(i);
    const auto factor = static_cast<float>(1 - 0.1 * place);
    const double side = factor * kIconSide;
    const double x = kIconSide * place - kOverlap * place + kStackMargin;
    context->drawImage(*maskedWithShadow(*image, scale), {x, kIconSide / 2 - side / 2, side, side});
  }
  return context->image();
}

Image createPlaceHolder(const UIImage& image) {
  const double scale = screenScale();
  const auto context = beginImageContext({110, kIconSide}, scale);
  context->drawImage(*maskedWithShadow(image, scale), {25, 0, kIconSide, kIconSide});
  return context->image();
}

bool checkIfImage(const UIImage& image) {
  return std::ranges::any_of(image.pixels(),
                             [](std::uint8_t component) { return component < 255; });
}

bool contains(std::string_view receiver, std::string_view text) {
  return !text.empty() && receiver.find(text) != std::string_view::npos;
}

}  // namespace frelta::FreltaStyleSelector
