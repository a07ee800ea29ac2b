#pragma once

#include <QImage>
#include <memory>

#include "graphics/UIImage.h"

namespace frelta {

/// How Qt calls the pixels of a UIImage.
inline constexpr QImage::Format kPixelFormat = QImage::Format_RGBA8888_Premultiplied;

/// The image's pixels, not copied: good as long as the image.
QImage pixelsOf(const UIImage& image);

/// The image that shares the pixels; one without content for a null QImage.
std::shared_ptr<const UIImage> imageWithPixels(QImage pixels, double scale);

}  // namespace frelta
