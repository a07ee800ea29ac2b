#include <zlib.h>

#include <algorithm>
#include <array>
#include <memory>

#include "painting/ByteReading.h"
#include "painting/PictureGates.h"

namespace frelta {

namespace {

constexpr std::size_t kChunkHeader = 8;  // length and type
constexpr std::size_t kChecksum = 4;
constexpr std::uint32_t kMaximumSide = 0x7FFFFFFF;
/// A header, a palette, transparency and what says which colours are meant.
constexpr std::size_t kMostBesidePixels = 2048;

std::uint32_t checksumOf(std::string_view type, std::string_view contents) {
  const auto add = [](uLong sum, std::string_view bytes) {
    // Without bytes it would begin anew.
    if (bytes.empty()) return sum;
    return crc32_z(sum, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size());
  };
  return static_cast<std::uint32_t>(add(add(0, type), contents));
}

void appendNumber(std::string& to, std::uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) to += static_cast<char>(number >> shift);
}

void appendChunk(std::string& to, std::string_view type, std::string_view contents) {
  appendNumber(to, static_cast<std::uint32_t>(contents.size()));
  to += type;
  to += contents;
  appendNumber(to, checksumOf(type, contents));
}

/// Inflates a zlib stream piece by piece.
class Inflation {
 public:
  explicit Inflation(std::string_view compressed) {
    stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(compressed.data()));
    stream_.avail_in = static_cast<uInt>(compressed.size());
    ready_ = inflateInit(&stream_) == Z_OK;
  }
  ~Inflation() {
    if (ready_) inflateEnd(&stream_);
  }
  Inflation(const Inflation&) = delete;
  Inflation& operator=(const Inflation&) = delete;

  /// The next bytes, at most limit; none at the stream's end or where it is damaged.
  std::string_view next(std::uint64_t limit) {
    if (!ready_ || ended_) return {};
    stream_.next_out = reinterpret_cast<Bytef*>(piece_.data());
    const auto room = static_cast<uInt>(std::min<std::uint64_t>(limit, piece_.size()));
    stream_.avail_out = room;
    const int result = inflate(&stream_, Z_NO_FLUSH);
    ended_ = result != Z_OK;
    isWhole_ = result == Z_STREAM_END;
    return {piece_.data(), room - stream_.avail_out};
  }
  /// How many compressed bytes it has taken.
  std::size_t taken() const { return stream_.total_in; }
  bool isWhole() const { return isWhole_; }

 private:
  z_stream stream_{};
  bool ready_ = false;
  bool ended_ = false;
  bool isWhole_ = false;
  std::array<char, 65536> piece_;
};

class PNGGate {
 public:
  explicit PNGGate(std::string_view bytes) : rest_(bytes.substr(kPNGSignature.size())) {}

  std::optional<GatedPicture> pass() {
    pixels_.reserve(rest_.size());
    while (takeChunk()) {
    }
    if (damaged_ || header_.empty()) return std::nullopt;
    const std::uint64_t pixelBytes = bytesOfPixels();
    if (pixelBytes == 0) return std::nullopt;
    if (!cutAfter(pixelBytes)) return std::nullopt;
    return picture();
  }

 private:
  /// False at the end of what is to be read.
  bool takeChunk() {
    if (rest_.size() < kChunkHeader) return false;
    const std::size_t length = bigEndianAt(rest_, 0, 4);
    const std::string_view type = rest_.substr(4, 4);
    rest_.remove_prefix(kChunkHeader);
    const std::string_view contents = rest_.substr(0, length);
    rest_.remove_prefix(contents.size());
    const bool isCut = rest_.size() < kChecksum;
    if (isCut) {
      // Of the pixels as many count as are there.
      if (type == "IDAT") takePixels(contents);
      return false;
    }
    const bool isIntact = bigEndianAt(rest_, 0, 4) == checksumOf(type, contents);
    rest_.remove_prefix(kChecksum);
    if (!isIntact) return makesPixels(type) ? refuse() : true;
    return type == "IDAT" ? takePixels(contents) : take(type, contents);
  }

  /// Whether a pixel may be wrong or missing when such a chunk, here, is damaged.
  bool makesPixels(std::string_view type) const {
    constexpr unsigned kPalette = 3;
    if (header_.empty() || type == "IHDR") return true;
    return type == "PLTE" ? byteAt(header_, 9) == kPalette : type == "IDAT" && !pixelsEnded_;
  }

  bool refuse() {
    damaged_ = true;
    return false;
  }

  bool take(std::string_view type, std::string_view contents) {
    if (type == "IEND") return false;
    if (header_.empty()) {
      if (type != "IHDR" || contents.size() != 13) return refuse();
      header_ = contents;
      return true;
    }
    if (!pixels_.empty()) pixelsEnded_ = true;
    if (type == "eXIf") {
      orientation_ = exifOrientation(contents);
      return true;
    }
    // What comes after the pixels cannot say how to read them.
    if (pixelsEnded_) return true;
    if (type == "PLTE" && contents.size() <= 768) keep(palette_, contents);
    if (type == "tRNS" && contents.size() <= 256) keep(transparency_, contents);
    if (type == "sRGB" && contents.size() == 1) keep(standard_, contents);
    if (type == "gAMA" && contents.size() == 4) keep(gamma_, contents);
    if (type == "cHRM" && contents.size() == 32) keep(primaries_, contents);
    if (type == "iCCP") keep(compressedProfile_, contents);
    return true;
  }

  static void keep(std::string_view& place, std::string_view contents) {
    if (place.empty()) place = contents;
  }

  bool takePixels(std::string_view contents) {
    if (header_.empty()) return refuse();
    // One chunk of them all: there may be millions without contents.
    if (!pixelsEnded_) pixels_ += contents;
    return true;
  }

  /// Of a name, a byte for the method of compression, and the profile; empty where there is none,
  /// it is damaged, or too large.
  static std::string inflatedProfile(std::string_view contents) {
    const std::size_t end = contents.find('\0');
    if (end == std::string_view::npos || end + 2 > contents.size()) return {};
    const auto inflation = std::make_unique<Inflation>(contents.substr(end + 2));
    std::string profile;
    for (;;) {
      const std::string_view piece = inflation->next(kMaximumProfileBytes + 1);
      if (piece.empty()) return profile;
      profile += piece;
      if (profile.size() > kMaximumProfileBytes) return {};
    }
  }

  std::uint32_t width() const { return bigEndianAt(header_, 0, 4); }
  std::uint32_t height() const { return bigEndianAt(header_, 4, 4); }

  /// Bytes of a pass of the picture before compression.
  static std::uint64_t bytesOfPass(std::uint64_t width, std::uint64_t height, unsigned bits) {
    return width == 0 ? 0 : height * (1 + (width * bits + 7) / 8);
  }

  /// Bytes of the picture before compression; 0 if its header makes no sense or it is too large.
  std::uint64_t bytesOfPixels() const {
    constexpr std::array<unsigned, 7> kChannels{1, 0, 3, 1, 2, 0, 4};
    const unsigned depth = byteAt(header_, 8);
    const unsigned colourType = byteAt(header_, 9);
    const unsigned channels = colourType < kChannels.size() ? kChannels[colourType] : 0;
    const bool knowsDepth = depth == 1 || depth == 2 || depth == 4 || depth == 8 || depth == 16;
    const std::uint64_t w = width();
    const std::uint64_t h = height();
    if (channels == 0 || !knowsDepth || w > kMaximumSide || h > kMaximumSide) return 0;
    if (w * h > kMaximumDecodedBytes / (depth == 16 ? 8 : 4)) return 0;
    const unsigned bits = channels * depth;
    if (byteAt(header_, 12) == 0) return bytesOfPass(w, h, bits);
    struct Pass {
      std::uint64_t left, top, across, down;
    };
    constexpr std::array<Pass, 7> kPasses{{{0, 0, 8, 8},
                                           {4, 0, 8, 8},
                                           {0, 4, 4, 8},
                                           {2, 0, 4, 4},
                                           {0, 2, 2, 4},
                                           {1, 0, 2, 2},
                                           {0, 1, 1, 2}}};
    std::uint64_t sum = 0;
    for (const auto& [left, top, across, down] : kPasses)
      sum += bytesOfPass((w + across - 1 - left) / across, (h + down - 1 - top) / down, bits);
    return sum;
  }

  /// Leaves nothing of the compressed bytes but what makes the pixels. False when they do not
  /// suffice.
  bool cutAfter(std::uint64_t pixelBytes) {
    if (pixels_.size() > kMaximumSide) return false;
    const auto inflation = std::make_unique<Inflation>(pixels_);
    for (std::uint64_t left = pixelBytes; left > 0;) {
      const std::string_view piece = inflation->next(left);
      if (piece.empty()) return false;
      left -= piece.size();
    }
    // The stream's own end, if it comes at once. libpng takes no pixels of a stream without one.
    if (inflation->next(1).empty() && inflation->isWhole())
      pixels_.resize(inflation->taken());
    else
      pixels_ = packedAgain(pixelBytes);
    return true;
  }

  std::string packedAgain(std::uint64_t pixelBytes) const {
    const auto inflation = std::make_unique<Inflation>(pixels_);
    const auto piece = std::make_unique<std::array<char, 65536>>();
    std::string packed;
    z_stream stream{};
    if (deflateInit(&stream, Z_BEST_SPEED) != Z_OK) return packed;
    while (pixelBytes > 0) {
      const std::string_view bytes = inflation->next(pixelBytes);
      pixelBytes -= bytes.size();
      stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
      stream.avail_in = static_cast<uInt>(bytes.size());
      do {
        stream.next_out = reinterpret_cast<Bytef*>(piece->data());
        stream.avail_out = static_cast<uInt>(piece->size());
        deflate(&stream, pixelBytes == 0 ? Z_FINISH : Z_NO_FLUSH);
        packed.append(piece->data(), piece->size() - stream.avail_out);
      } while (stream.avail_out == 0);
    }
    deflateEnd(&stream);
    return packed;
  }

  GatedPicture picture() {
    GatedPicture result{GatedPicture::Format::PNG,
                        static_cast<int>(width()),
                        static_cast<int>(height()),
                        std::string(kPNGSignature),
                        orientation_,
                        inflatedProfile(compressedProfile_)};
    // Grown by the piece it would take twice the room.
    result.bytes.reserve(pixels_.size() + kMostBesidePixels);
    appendChunk(result.bytes, "IHDR", header_);
    if (result.profile.empty()) {
      if (!standard_.empty()) appendChunk(result.bytes, "sRGB", standard_);
      if (!gamma_.empty()) appendChunk(result.bytes, "gAMA", gamma_);
      if (!primaries_.empty()) appendChunk(result.bytes, "cHRM", primaries_);
    }
    if (!palette_.empty()) appendChunk(result.bytes, "PLTE", palette_);
    if (!transparency_.empty()) appendChunk(result.bytes, "tRNS", transparency_);
    appendChunk(result.bytes, "IDAT", pixels_);
    appendChunk(result.bytes, "IEND", {});
    return result;
  }

  std::string_view rest_;
  bool damaged_ = false;
  bool pixelsEnded_ = false;
  std::string_view header_;
  std::string_view palette_;
  std::string_view transparency_;
  std::string_view standard_;
  std::string_view gamma_;
  std::string_view primaries_;
  std::string_view compressedProfile_;
  std::string pixels_;
  int orientation_ = 1;
};

}  // namespace

std::optional<GatedPicture> gatedPNG(std::string_view bytes) {
  return PNGGate(bytes).pass();
}

}  // namespace frelta
