#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "graphics/UIImage.h"

namespace frelta {

/// Reads the picture in the file beside the main thread and hands over its preview, at most 320
/// pixels wide and high, which is more than a row shows of it; null when it cannot be read. Nothing
/// is handed over once `wanted` has expired. A photo takes a quarter of a second to decode: the
/// preview that was made last is kept until a file holds other bytes.
void loadPreviewOfPictureAtPath(std::string path, std::weak_ptr<const void> wanted,
                                std::function<void(std::shared_ptr<const UIImage>)> done);

/// What the file's preview was when one was last made, if it was made of that file: shown while the
/// file is read anew. Null for none.
std::shared_ptr<const UIImage> lastPreviewOfPictureAtPath(std::string_view path);

/// Keeps the picture's preview for the file, which is to have these bytes and then needs no
/// decoding.
void keepPreview(std::string path, std::string_view bytes, const UIImage& picture);

}  // namespace frelta
