#include "painting/PictureGate.h"

#include "painting/ByteReading.h"
#include "painting/PictureGates.h"

namespace frelta {

std::optional<GatedPicture> gatedPicture(std::string_view bytes) {
  if (bytes.starts_with(kPNGSignature)) return gatedPNG(bytes);
  if (bytes.starts_with("\xFF\xD8\xFF")) return gatedJPEG(bytes);
  if (bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a")) return gatedGIF(bytes);
  return std::nullopt;
}

int exifOrientation(std::string_view exif) {
  constexpr std::uint32_t kOrientation = 0x0112;
  constexpr std::uint32_t kShort = 3;
  constexpr std::size_t kEntrySize = 12;
  const bool big = exif.starts_with(std::string_view("MM\0*", 4));
  if (!big && !exif.starts_with(std::string_view("II*\0", 4))) return 1;
  const auto number = [&](std::size_t at, std::size_t size) {
    return big ? bigEndianAt(exif, at, size) : littleEndianAt(exif, at, size);
  };
  const std::size_t directory = number(4, 4);
  const std::size_t count = number(directory, 2);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t entry = directory + 2 + i * kEntrySize;
    if (entry + kEntrySize > exif.size()) return 1;
    if (number(entry, 2) != kOrientation) continue;
    const std::uint32_t value = number(entry + 8, 2);
    const bool isOne = number(entry + 2, 2) == kShort && value >= 1 && value <= 8;
    return isOne ? static_cast<int>(value) : 1;
  }
  return 1;
}

}  // namespace frelta
