#pragma once

#include <optional>
#include <string_view>

#include "painting/PictureGate.h"

namespace frelta {

// The gates of the formats, for gatedPicture() alone: the bytes start with the format's signature.

inline constexpr std::string_view kPNGSignature = "\x89PNG\r\n\x1a\n";

std::optional<GatedPicture> gatedPNG(std::string_view bytes);
std::optional<GatedPicture> gatedJPEG(std::string_view bytes);
std::optional<GatedPicture> gatedGIF(std::string_view bytes);

/// The orientation in Exif data, which start with a TIFF header; 1 where they tell none.
int exifOrientation(std::string_view exif);

}  // namespace frelta
