#include <cstddef>
#include <cstdint>

#include "Require.h"
#include "painting/JPEGReading.h"
#include "painting/PictureGate.h"

namespace {

/// So that an input takes no longer than others.
constexpr int kMostPixelsToDecode = 1 << 16;

}  // namespace

/// What passes the gate is within its limits, passes it once more as it is, and is safe to decode.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace frelta;
  using Format = GatedPicture::Format;
  const auto picture = gatedPicture({reinterpret_cast<const char*>(bytes), size});
  if (!picture) return 0;
  require(picture->width > 0 && picture->height > 0);
  const std::uint64_t pixels = std::uint64_t{1} * picture->width * picture->height;
  require(pixels <=
          (picture->format == Format::JPEG ? kMaximumJPEGPixels : kMaximumDecodedBytes / 4));
  require(picture->profile.size() <= kMaximumProfileBytes);
  require(picture->orientation >= 1 && picture->orientation <= 8);

  const auto again = gatedPicture(picture->bytes);
  require(again && again->format == picture->format && again->bytes == picture->bytes);
  require(again->width == picture->width && again->height == picture->height);

  if (picture->format != Format::JPEG || pixels > kMostPixelsToDecode) return 0;
  const auto decoded = readJPEG(picture->bytes, 64);
  if (!decoded) return 0;
  require(decoded->width > 0 && decoded->width <= picture->width);
  require(decoded->height > 0 && decoded->height <= picture->height);
  // Every byte is there.
  const std::size_t decodedBytes = std::size_t{4} * decoded->width * decoded->height;
  unsigned sum = 0;
  for (std::size_t i = 0; i < decodedBytes; ++i) sum += decoded->bytes[i];
  require(sum <= 255 * decodedBytes);
  return 0;
}
