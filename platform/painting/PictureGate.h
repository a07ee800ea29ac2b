#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace frelta {

/// What of a stranger's picture file may come before a decoder.
struct GatedPicture {
  enum class Format { PNG, JPEG, GIF };

  Format format;
  int width;
  int height;
  /// A file of the format with nothing but what makes its first picture.
  std::string bytes;
  /// How the picture is to be turned, 1 to 8 as Exif counts; 1 is upright.
  int orientation = 1;
  /// The ICC profile of its colours, not compressed; empty without one.
  std::string profile;
};

/// Pixels of a JPEG file, which is decoded row by row and shrunk meanwhile.
inline constexpr std::uint64_t kMaximumJPEGPixels = std::uint64_t{256} << 20;
/// Bytes of the pixels of a PNG or GIF file, 4 each, or 8 of 16 bits a component: a decoder makes
/// them all at once.
inline constexpr std::uint64_t kMaximumDecodedBytes = std::uint64_t{128} << 20;
/// Bytes of the coefficients of a JPEG file of several scans, which a decoder keeps until the last.
inline constexpr std::uint64_t kMaximumCoefficientBytes = std::uint64_t{192} << 20;
/// Scans of a JPEG file; encoders make about ten.
inline constexpr int kMaximumScans = 100;
/// Blocks of 8 × 8 that all scans of a JPEG file visit together: what a decoder's time grows with.
inline constexpr std::uint64_t kMaximumBlockVisits = std::uint64_t{16} << 20;
/// Bytes of a colour profile; photos have 0.5 to 4 KiB, printers' profiles 600.
inline constexpr std::size_t kMaximumProfileBytes = std::size_t{1} << 20;

/// Looks at the bytes before any decoder does. Nothing unless they are a PNG, JPEG or GIF file
/// within the limits above. Of a PNG or GIF file every pixel must be there, and nothing after the
/// last one is handed on; whether a JPEG file is whole only its decoder can tell. Needs memory for
/// a copy of the bytes; safe on hostile input.
std::optional<GatedPicture> gatedPicture(std::string_view bytes);

}  // namespace frelta
