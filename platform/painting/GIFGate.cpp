#include <array>

#include "painting/ByteReading.h"
#include "painting/PictureGates.h"

namespace frelta {

namespace {

constexpr std::size_t kScreenSize = 13;  // with the signature
constexpr std::size_t kFrameSize = 10;   // with its mark
constexpr std::uint8_t kExtension = 0x21;
constexpr std::uint8_t kFrame = 0x2C;
constexpr std::uint8_t kControl = 0xF9;
constexpr std::size_t kControlSize = 8;  // with mark, name and end
constexpr std::uint64_t kMaximumFramePixels = kMaximumDecodedBytes / 4;

std::size_t sizeOfColours(std::uint8_t flags) {
  return flags & 0x80 ? std::size_t{3} << ((flags & 7) + 1) : 0;
}

/// Counts the pixels that compressed bytes become, without their colours.
class PixelCount {
 public:
  /// Colours of that many bits.
  explicit PixelCount(unsigned bits) : colourBits_(bits), clear_(1U << bits) {
    lengths_.fill(1);
    clear();
  }

  /// False once nothing more may follow: the end, or damage.
  bool take(std::string_view bytes) {
    for (const char byte : bytes) {
      pool_ |= std::uint32_t{static_cast<std::uint8_t>(byte)} << poolBits_;
      poolBits_ += 8;
      while (poolBits_ >= bits_) {
        const std::uint32_t code = pool_ & ((1U << bits_) - 1);
        pool_ >>= bits_;
        poolBits_ -= bits_;
        if (!takeCode(code)) return false;
      }
    }
    return true;
  }
  std::uint64_t pixels() const { return pixels_; }

 private:
  static constexpr unsigned kCodes = 4096;
  static constexpr unsigned kMaximumBits = 12;

  void clear() {
    next_ = clear_ + 2;
    bits_ = colourBits_ + 1;
    previous_ = kCodes;
  }

  bool takeCode(std::uint32_t code) {
    if (code == clear_) {
      clear();
      return true;
    }
    if (code == clear_ + 1) return false;
    if (previous_ == kCodes) {
      if (code > clear_) return false;
    } else {
      if (code > next_ || code >= kCodes) return false;
      if (next_ < kCodes) {
        lengths_[next_++] = static_cast<std::uint16_t>(lengths_[previous_] + 1);
        if (next_ == 1U << bits_ && bits_ < kMaximumBits) ++bits_;
      }
    }
    pixels_ += lengths_[code];
    previous_ = code;
    return true;
  }

  unsigned colourBits_;
  std::uint32_t clear_;
  unsigned bits_ = 0;
  std::uint32_t next_ = 0;      // the code that comes to be next
  std::uint32_t previous_ = 0;  // kCodes for none
  std::uint32_t pool_ = 0;
  unsigned poolBits_ = 0;
  std::uint64_t pixels_ = 0;
  std::array<std::uint16_t, kCodes> lengths_;
};

class GIFGate {
 public:
  explicit GIFGate(std::string_view bytes) : bytes_(bytes) {}

  std::optional<GatedPicture> pass() {
    const std::uint64_t width = littleEndianAt(bytes_, 6, 2);
    const std::uint64_t height = littleEndianAt(bytes_, 8, 2);
    if (width * height == 0 || width * height > kMaximumFramePixels) return std::nullopt;
    at_ = kScreenSize + sizeOfColours(byteAt(bytes_, 10));
    if (at_ > bytes_.size()) return std::nullopt;
    result_ = bytes_.substr(0, at_);
    while (byteAt(bytes_, at_) == kExtension) takeExtension();
    if (byteAt(bytes_, at_) != kFrame || !takeFrame()) return std::nullopt;
    return GatedPicture{GatedPicture::Format::GIF,
                        static_cast<int>(width),
                        static_cast<int>(height),
                        std::move(result_),
                        1,
                        {}};
  }

 private:
  void takeExtension() {
    if (byteAt(bytes_, at_ + 1) == kControl && byteAt(bytes_, at_ + 2) == 4 &&
        byteAt(bytes_, at_ + 7) == 0)
      control_ = bytes_.substr(at_, kControlSize);
    at_ += 2;
    while (const std::uint8_t size = byteAt(bytes_, at_)) at_ += 1U + size;
    ++at_;
  }

  bool takeFrame() {
    const std::uint64_t width = littleEndianAt(bytes_, at_ + 5, 2);
    const std::uint64_t height = littleEndianAt(bytes_, at_ + 7, 2);
    const std::size_t colours = sizeOfColours(byteAt(bytes_, at_ + 9));
    const std::size_t start = at_ + kFrameSize + colours;
    const unsigned bits = byteAt(bytes_, start);
    const std::uint64_t wanted = width * height;
    if (wanted == 0 || wanted > kMaximumFramePixels || bits < 2 || bits > 8) return false;
    if (control_.size() == kControlSize) result_ += control_;
    result_ += bytes_.substr(at_, start + 1 - at_);
    at_ = start + 1;
    PixelCount count(bits);
    bool goesOn = true;
    while (goesOn && count.pixels() < wanted) {
      const std::string_view block =
          at_ < bytes_.size() ? bytes_.substr(at_ + 1, byteAt(bytes_, at_)) : std::string_view();
      if (block.empty()) return false;
      result_ += static_cast<char>(block.size());
      result_ += block;
      at_ += 1 + block.size();
      goesOn = count.take(block);
    }
    result_ += '\0';
    result_ += ';';
    return count.pixels() >= wanted;
  }

  std::string_view bytes_;
  std::size_t at_ = 0;
  std::string_view control_;  // says what of the next frame is transparent
  std::string result_;
};

}  // namespace

std::optional<GatedPicture> gatedGIF(std::string_view bytes) {
  return GIFGate(bytes).pass();
}

}  // namespace frelta
