#include <algorithm>
#include <map>
#include <vector>

#include "painting/ByteReading.h"
#include "painting/PictureGates.h"

namespace frelta {

namespace {

// Markers, the second byte of two.
constexpr std::uint8_t kFrame = 0xC0;
constexpr std::uint8_t kExtendedFrame = 0xC1;
constexpr std::uint8_t kProgressiveFrame = 0xC2;
constexpr std::uint8_t kHuffmanTables = 0xC4;
constexpr std::uint8_t kArithmeticConditioning = 0xCC;
constexpr std::uint8_t kLastFrame = 0xCF;
constexpr std::uint8_t kFirstRestart = 0xD0;
constexpr std::uint8_t kStart = 0xD8;
constexpr std::uint8_t kEnd = 0xD9;
constexpr std::uint8_t kScan = 0xDA;
constexpr std::uint8_t kQuantisation = 0xDB;
constexpr std::uint8_t kRestartInterval = 0xDD;
constexpr std::uint8_t kNumberOfLines = 0xDC;
constexpr std::uint8_t kHierarchy = 0xDE;
constexpr std::uint8_t kExpansion = 0xDF;
constexpr std::uint8_t kJFIF = 0xE0;
constexpr std::uint8_t kExif = 0xE1;
constexpr std::uint8_t kICC = 0xE2;
constexpr std::uint8_t kAdobe = 0xEE;

constexpr std::string_view kJFIFName("JFIF\0", 5);
constexpr std::string_view kExifName("Exif\0\0", 6);
constexpr std::string_view kICCName("ICC_PROFILE\0", 12);
constexpr std::string_view kAdobeName("Adobe");

constexpr std::uint64_t kBlockSide = 8;
constexpr std::uint64_t kBytesOfBlock = 128;

class JPEGGate {
 public:
  explicit JPEGGate(std::string_view bytes) : bytes_(bytes), at_(2) {
    result_.format = GatedPicture::Format::JPEG;
    result_.bytes.reserve(bytes.size() + 2);
    result_.bytes = "\xFF\xD8";
  }

  std::optional<GatedPicture> pass() {
    while (const std::optional<std::uint8_t> marker = nextMarker()) {
      if (*marker == kEnd) break;
      const std::size_t length = bigEndianAt(bytes_, at_, 2);
      if (length < 2 || at_ + length > bytes_.size()) break;
      const std::string_view contents = bytes_.substr(at_ + 2, length - 2);
      at_ += length;
      if (!take(*marker, contents)) return std::nullopt;
    }
    if (!isWhole()) return std::nullopt;
    result_.bytes += "\xFF\xD9";
    result_.profile = profile();
    return std::move(result_);
  }

 private:
  struct Component {
    std::uint64_t blocks = 0;
    bool seen = false;
  };

  /// The next marker that has contents, or the end's. What lies between segments is passed over.
  std::optional<std::uint8_t> nextMarker() {
    for (;;) {
      at_ = bytes_.find('\xFF', at_);
      if (at_ == std::string_view::npos) return std::nullopt;
      while (at_ < bytes_.size() && byteAt(bytes_, at_) == 0xFF) ++at_;
      if (at_ == bytes_.size()) return std::nullopt;
      const std::uint8_t marker = byteAt(bytes_, at_++);
      const bool hasContents = marker >= kFrame && !(marker >= kFirstRestart && marker <= kStart);
      if (hasContents) return marker;
    }
  }

  void keep(std::uint8_t marker, std::string_view contents) {
    result_.bytes += '\xFF';
    result_.bytes += static_cast<char>(marker);
    result_.bytes += static_cast<char>((contents.size() + 2) >> 8);
    result_.bytes += static_cast<char>(contents.size() + 2);
    result_.bytes += contents;
  }

  bool take(std::uint8_t marker, std::string_view contents) {
    switch (marker) {
      case kFrame:
      case kExtendedFrame:
      case kProgressiveFrame:
        return takeFrame(marker, contents);
      case kScan:
        return takeScan(contents);
      case kHuffmanTables:
      case kQuantisation:
      case kRestartInterval:
        keep(marker, contents);
        return true;
      case kArithmeticConditioning:
        return true;
      case kNumberOfLines:
      case kHierarchy:
      case kExpansion:
        return false;
      case kJFIF:
        keepFirst(hasJFIF_, marker, contents, kJFIFName);
        return true;
      case kAdobe:
        keepFirst(hasAdobe_, marker, contents, kAdobeName);
        return true;
      case kExif:
        if (contents.starts_with(kExifName) && result_.orientation == 1)
          result_.orientation = exifOrientation(contents.substr(kExifName.size()));
        return true;
      case kICC:
        takeProfile(contents);
        return true;
      default:
        // Frames without loss, of arithmetic coding, or of differences.
        return marker > kLastFrame;
    }
  }

  void keepFirst(bool& has, std::uint8_t marker, std::string_view contents, std::string_view name) {
    if (has || !contents.starts_with(name)) return;
    has = true;
    keep(marker, contents);
  }

  bool takeFrame(std::uint8_t marker, std::string_view contents) {
    const std::uint64_t height = bigEndianAt(contents, 1, 2);
    const std::uint64_t width = bigEndianAt(contents, 3, 2);
    const std::size_t count = byteAt(contents, 5);
    const bool isKnown = byteAt(contents, 0) == 8 && (count == 1 || count == 3 || count == 4) &&
                         contents.size() == 6 + 3 * count;
    if (!isKnown || !components_.empty() || width * height == 0) return false;
    if (width * height > kMaximumJPEGPixels) return false;
    std::uint64_t across = 1;
    std::uint64_t down = 1;
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint8_t sampling = byteAt(contents, 7 + 3 * i);
      if (sampling >> 4 < 1 || sampling >> 4 > 4 || (sampling & 15) < 1 || (sampling & 15) > 4)
        return false;
      across = std::max<std::uint64_t>(across, sampling >> 4);
      down = std::max<std::uint64_t>(down, sampling & 15);
    }
    const auto blocks = [](std::uint64_t side, std::uint64_t part, std::uint64_t whole) {
      // Whole units of all components, as a decoder keeps them.
      const std::uint64_t units = (side + whole * kBlockSide - 1) / (whole * kBlockSide);
      return units * part;
    };
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint8_t sampling = byteAt(contents, 7 + 3 * i);
      const bool isNew = components_
                             .insert({byteAt(contents, 6 + 3 * i),
                                      {blocks(width, sampling >> 4, across) *
                                       blocks(height, sampling & 15, down)}})
                             .second;
      if (!isNew) return false;
    }
    result_.width = static_cast<int>(width);
    result_.height = static_cast<int>(height);
    isProgressive_ = marker == kProgressiveFrame;
    keep(marker, contents);
    return true;
  }

  bool takeScan(std::string_view contents) {
    const std::size_t count = byteAt(contents, 0);
    if (count < 1 || count > components_.size() || contents.size() != 4 + 2 * count) return false;
    for (std::size_t i = 0; i < count; ++i) {
      const auto component = components_.find(byteAt(contents, 1 + 2 * i));
      if (component == components_.end()) return false;
      component->second.seen = true;
      visits_ += component->second.blocks;
    }
    if (++scans_ > kMaximumScans || visits_ > kMaximumBlockVisits) return false;
    // A decoder keeps the coefficients of all scans until the last.
    if ((isProgressive_ || count < components_.size()) &&
        bytesOfCoefficients() > kMaximumCoefficientBytes)
      return false;
    keep(kScan, contents);
    const std::size_t end = endOfScan();
    result_.bytes += bytes_.substr(at_, end - at_);
    at_ = end;
    return true;
  }

  std::uint64_t bytesOfCoefficients() const {
    std::uint64_t sum = 0;
    for (const auto& [name, component] : components_) sum += component.blocks * kBytesOfBlock;
    return sum;
  }

  /// Where the next marker is that does not belong to the coded pixels.
  std::size_t endOfScan() const {
    std::size_t at = at_;
    for (;;) {
      at = bytes_.find('\xFF', at);
      if (at == std::string_view::npos || at + 1 == bytes_.size()) return bytes_.size();
      const std::uint8_t next = byteAt(bytes_, at + 1);
      const bool belongs = next == 0 || (next >= kFirstRestart && next < kStart);
      if (!belongs && next != 0xFF) return at;
      at += belongs ? 2 : 1;
    }
  }

  /// Its number and how many there are, then the part.
  void takeProfile(std::string_view contents) {
    constexpr std::size_t kNumbers = 2;
    if (!contents.starts_with(kICCName) || contents.size() < kICCName.size() + kNumbers) return;
    profileParts_.insert(
        {byteAt(contents, kICCName.size()), contents.substr(kICCName.size() + kNumbers)});
    countOfProfileParts_ = byteAt(contents, kICCName.size() + 1);
  }

  /// Empty unless all parts are there.
  std::string profile() const {
    std::string whole;
    std::uint8_t expected = 1;
    for (const auto& [number, part] : profileParts_) {
      if (number != expected++) return {};
      whole += part;
    }
    const bool fits =
        profileParts_.size() == countOfProfileParts_ && whole.size() <= kMaximumProfileBytes;
    return fits ? whole : std::string();
  }

  bool isWhole() const {
    return scans_ > 0 && std::ranges::all_of(components_, [](const auto& component) {
             return component.second.seen;
           });
  }

  std::string_view bytes_;
  std::size_t at_;
  GatedPicture result_{};
  std::map<std::uint8_t, Component> components_;
  bool isProgressive_ = false;
  bool hasJFIF_ = false;
  bool hasAdobe_ = false;
  int scans_ = 0;
  std::uint64_t visits_ = 0;
  std::map<std::uint8_t, std::string_view> profileParts_;
  std::size_t countOfProfileParts_ = 0;
};

}  // namespace

std::optional<GatedPicture> gatedJPEG(std::string_view bytes) {
  return JPEGGate(bytes).pass();
}

}  // namespace frelta
