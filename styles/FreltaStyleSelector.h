#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "graphics/UIImage.h"

/// The selector's category on images and strings. Sizes are points; pictures are made at the scale,
/// which is the main screen's. Given one, they touch nothing of the main thread's.
namespace frelta::FreltaStyleSelector {

using Image = std::shared_ptr<const UIImage>;
/// A picture or the path of its file.
using StackItem = std::variant<Image, std::string>;

/// Of the main screen, pixels in a point. Main thread only.
double screenScale();

/// The image with a drop shadow; 5 points larger each way.
Image imageWithShadow(const UIImage& image, double scale = screenScale());
/// The image stretched to 60 × 60 with rounded corners; with pad in the middle of 80 × 80.
Image maskImageWithPad(const UIImage& image, bool pad, double scale = screenScale());
/// The image stretched to the size.
Image imageWithImage(const UIImage& image, CGSize scaledToSize, double scale = screenScale());
/// The image, unscaled, in the middle of 80 × 80.
Image padImage(const UIImage& image, double scale = screenScale());
/// The items as a fan, 60 high, the first one foremost. What cannot be loaded leaves its place
/// empty.
Image generateStackedImageWithArray(std::span<const StackItem> items, double scale = screenScale());
/// The image, masked and with its shadow, in the middle of 110 × 60.
Image createPlaceHolder(const UIImage& image);
/// Whether any pixel is other than opaque white.
bool checkIfImage(const UIImage& image);

/// Whether the text occurs in the receiver, byte for byte; an empty text never does.
bool contains(std::string_view receiver, std::string_view text);

}  // namespace frelta::FreltaStyleSelector
