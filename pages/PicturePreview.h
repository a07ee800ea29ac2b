#pragma once

#include <memory>
#include <string_view>

#include "graphics/UIImage.h"

namespace frelta {

/// The picture in the file, at most 320 pixels wide and high, which is more than a row shows of it.
/// Null when it cannot be read. A photo takes a quarter of a second to decode: the preview that was
/// made last is kept until a file holds other bytes.
std::shared_ptr<const UIImage> previewOfPictureAtPath(std::string_view path);

/// Keeps the picture's preview for a file of these bytes, which then needs no decoding.
void keepPreview(std::string_view bytes, const UIImage& picture);

}  // namespace frelta
