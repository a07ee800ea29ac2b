#include "linux/BinaryPropertyListReader.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>
#include <utility>

#include "foundation/PropertyListSerialization.h"
#include "foundation/UTF8.h"
#include "linux/PropertyListScalars.h"

namespace frelta {
namespace {

constexpr std::size_t kTrailerSize = 32;
/// A reference of one byte becomes a whole value; but what is shared within what is shared may
/// become no more than a few megabytes, however small the file.
constexpr std::size_t kMemoryOfAByte = 64;
constexpr std::size_t kSharedMemory = std::size_t{4} << 20;
static_assert(kMemoryOfAByte >= sizeof(PropertyListValue));

/// The most significant byte first; at most 8 bytes.
std::uint64_t unsignedFrom(std::string_view bytes) {
  std::uint64_t number = 0;
  for (const char byte : bytes) number = number << 8 | static_cast<unsigned char>(byte);
  return number;
}

std::optional<std::string> utf8FromUTF16(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    char32_t value = static_cast<char32_t>(unsignedFrom(bytes.substr(i, 2)));
    if (value >= 0xD800 && value <= 0xDFFF) {
      i += 2;
      const auto low =
          static_cast<char32_t>(i < bytes.size() ? unsignedFrom(bytes.substr(i, 2)) : 0);
      if (value > 0xDBFF || low < 0xDC00 || low > 0xDFFF) return std::nullopt;
      value = 0x10000 + ((value - 0xD800) << 10) + (low - 0xDC00);
    }
    appendScalar(text, value);
  }
  return text;
}

bool isASCII(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

/// Takes bytes off the front; nothing when there are too few.
class Cursor {
 public:
  explicit Cursor(std::string_view bytes) : rest_(bytes) {}

  std::optional<std::string_view> take(std::uint64_t count) {
    if (count > rest_.size()) return std::nullopt;
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return taken;
  }

  std::optional<std::uint64_t> takeUnsigned(std::uint64_t size) {
    const std::optional<std::string_view> bytes = take(size);
    if (!bytes) return std::nullopt;
    return unsignedFrom(*bytes);
  }

 private:
  std::string_view rest_;
};

class Reader {
 public:
  explicit Reader(std::string_view bytes)
      : bytes_(bytes), memoryLeft_(kSharedMemory + kMemoryOfAByte * bytes.size()) {}

  std::optional<PropertyListValue> read() {
    if (!readTrailer()) return std::nullopt;
    return object(topObject_, 0);
  }

 private:
  using Value = std::optional<PropertyListValue>;

  bool readTrailer() {
    const std::size_t smallest = kBinaryPropertyListSignature.size() + kTrailerSize;
    if (bytes_.size() < smallest || !bytes_.starts_with(kBinaryPropertyListSignature)) return false;
    const std::size_t end = bytes_.size() - kTrailerSize;
    const std::string_view trailer = bytes_.substr(end);
    offsetSize_ = unsignedFrom(trailer.substr(6, 1));
    referenceSize_ = unsignedFrom(trailer.substr(7, 1));
    objectCount_ = unsignedFrom(trailer.substr(8, 8));
    topObject_ = unsignedFrom(trailer.substr(16, 8));
    const std::uint64_t table = unsignedFrom(trailer.substr(24, 8));
    if (offsetSize_ < 1 || offsetSize_ > 8 || referenceSize_ < 1 || referenceSize_ > 8)
      return false;
    if (table < kBinaryPropertyListSignature.size() || table > end) return false;
    objects_ = bytes_.substr(0, table);
    offsets_ = bytes_.substr(table, end - table);
    // Dividing, because the product may not fit.
    return offsets_.size() % offsetSize_ == 0 && offsets_.size() / offsetSize_ == objectCount_;
  }

  /// The bytes from the object's marker on.
  std::optional<Cursor> objectBytes(std::uint64_t reference) const {
    if (reference >= objectCount_) return std::nullopt;
    const std::uint64_t offset =
        unsignedFrom(offsets_.substr(reference * offsetSize_, offsetSize_));
    if (offset < kBinaryPropertyListSignature.size() || offset >= objects_.size())
      return std::nullopt;
    return Cursor(objects_.substr(offset));
  }

  /// A cycle of references ends at the depth limit.
  Value object(std::uint64_t reference, int depth) {
    std::optional<Cursor> cursor = objectBytes(reference);
    if (!cursor || !spend(nodesLeft_, 1) || !spend(memoryLeft_, sizeof(PropertyListValue)))
      return std::nullopt;
    const auto marker = static_cast<unsigned>(*cursor->takeUnsigned(1));
    const unsigned size = marker & 0xF;
    switch (marker >> 4) {
      case 0x0:
        return singleton(marker);
      case 0x1:
        return integer(*cursor, size);
      case 0x2:
        return real(*cursor, size);
      case 0x3:
        return date(*cursor, size);
      case 0x4:
        return data(*cursor, size);
      case 0x5:
      case 0x6:
        return string(marker, *cursor);
      case 0x8:
        return uid(*cursor, size);
      case 0xA:
        return array(*cursor, size, depth);
      case 0xD:
        return dictionary(*cursor, size, depth);
      default:
        return std::nullopt;
    }
  }

  static Value singleton(unsigned marker) {
    if (marker == 0x08) return PropertyListValue(false);
    if (marker == 0x09) return PropertyListValue(true);
    return std::nullopt;
  }

  static Value integer(Cursor& cursor, unsigned power) {
    // Up to 4 bytes are unsigned; 8 bytes are signed; 16 hold what lies above that.
    if (power > 4) return std::nullopt;
    const std::uint64_t high = power == 4 ? cursor.takeUnsigned(8).value_or(1) : 0;
    const std::optional<std::uint64_t> low = cursor.takeUnsigned(power == 4 ? 8 : 1u << power);
    if (!low) return std::nullopt;
    const auto number = static_cast<std::int64_t>(*low);
    if (power == 3) return PropertyListValue(number);
    if (high == 0) return PropertyListValue(*low);
    if (high == ~std::uint64_t{0} && number < 0) return PropertyListValue(number);
    return std::nullopt;
  }

  static std::optional<double> floatingPoint(Cursor& cursor, unsigned power) {
    if (power != 2 && power != 3) return std::nullopt;
    const std::optional<std::uint64_t> bits = cursor.takeUnsigned(1u << power);
    if (!bits) return std::nullopt;
    if (power == 2) return std::bit_cast<float>(static_cast<std::uint32_t>(*bits));
    return std::bit_cast<double>(*bits);
  }

  static Value real(Cursor& cursor, unsigned power) {
    const std::optional<double> number = floatingPoint(cursor, power);
    if (!number) return std::nullopt;
    return PropertyListValue(*number);
  }

  static Value date(Cursor& cursor, unsigned power) {
    const std::optional<double> number = power == 3 ? floatingPoint(cursor, power) : std::nullopt;
    if (!number || !isInRange(Date{*number})) return std::nullopt;
    return PropertyListValue(Date{*number});
  }

  static Value uid(Cursor& cursor, unsigned sizeLessOne) {
    const std::optional<std::uint64_t> number =
        sizeLessOne < 8 ? cursor.takeUnsigned(sizeLessOne + 1) : std::nullopt;
    if (!number) return std::nullopt;
    return PropertyListValue(Dictionary{{"CF$UID", *number}});
  }

  /// The count in the marker, or in the integer object that follows it.
  static std::optional<std::uint64_t> count(Cursor& cursor, unsigned size) {
    if (size != 0xF) return size;
    const std::optional<std::uint64_t> marker = cursor.takeUnsigned(1);
    if (!marker || *marker < 0x10 || *marker > 0x13) return std::nullopt;
    return cursor.takeUnsigned(1u << (*marker & 0xF));
  }

  std::optional<std::string_view> contents(Cursor& cursor, unsigned size, unsigned width) {
    const std::optional<std::uint64_t> units = count(cursor, size);
    if (!units || *units > bytes_.size()) return std::nullopt;
    const std::optional<std::string_view> bytes = cursor.take(*units * width);
    if (!bytes || !spend(bytesLeft_, bytes->size()) || !spend(memoryLeft_, bytes->size()))
      return std::nullopt;
    return bytes;
  }

  Value data(Cursor& cursor, unsigned size) {
    const std::optional<std::string_view> bytes = contents(cursor, size, 1);
    if (!bytes) return std::nullopt;
    return PropertyListValue(Data{std::string(*bytes)});
  }

  std::optional<std::string> string(unsigned marker, Cursor& cursor) {
    const bool wide = marker >> 4 == 0x6;
    const std::optional<std::string_view> bytes = contents(cursor, marker & 0xF, wide ? 2 : 1);
    if (!bytes) return std::nullopt;
    if (wide) return utf8FromUTF16(*bytes);
    if (!isASCII(*bytes)) return std::nullopt;
    return std::string(*bytes);
  }

  std::optional<std::string> key(std::uint64_t reference) {
    std::optional<Cursor> cursor = objectBytes(reference);
    if (!cursor) return std::nullopt;
    const auto marker = static_cast<unsigned>(*cursor->takeUnsigned(1));
    if (marker >> 4 != 0x5 && marker >> 4 != 0x6) return std::nullopt;
    return string(marker, *cursor);
  }

  /// The references of a container's contents, a number of lists of the same length.
  std::optional<Cursor> references(Cursor& cursor, unsigned size, unsigned lists, int depth,
                                   std::uint64_t& length) {
    const std::optional<std::uint64_t> counted = count(cursor, size);
    if (!counted || depth == PropertyListSerialization::kMaximumDepth) return std::nullopt;
    if (*counted > nodesLeft_) return std::nullopt;
    const std::optional<std::string_view> bytes = cursor.take(*counted * lists * referenceSize_);
    if (!bytes) return std::nullopt;
    length = *counted;
    return Cursor(*bytes);
  }

  Value array(Cursor& cursor, unsigned size, int depth) {
    std::uint64_t length = 0;
    std::optional<Cursor> elements = references(cursor, size, 1, depth, length);
    if (!elements) return std::nullopt;
    Array result;
    for (std::uint64_t i = 0; i < length; ++i) {
      Value element = object(*elements->takeUnsigned(referenceSize_), depth + 1);
      if (!element) return std::nullopt;
      result.push_back(std::move(*element));
    }
    return PropertyListValue(std::move(result));
  }

  Value dictionary(Cursor& cursor, unsigned size, int depth) {
    std::uint64_t length = 0;
    std::optional<Cursor> keys = references(cursor, size, 2, depth, length);
    if (!keys) return std::nullopt;
    Cursor values = *keys;
    values.take(length * referenceSize_);
    Dictionary result;
    for (std::uint64_t i = 0; i < length; ++i) {
      std::optional<std::string> name = key(*keys->takeUnsigned(referenceSize_));
      if (!name) return std::nullopt;
      Value value = object(*values.takeUnsigned(referenceSize_), depth + 1);
      if (!value) return std::nullopt;
      result.insert_or_assign(std::move(*name), std::move(*value));
    }
    return PropertyListValue(std::move(result));
  }

  static bool spend(std::size_t& left, std::size_t amount) {
    if (amount > left) return false;
    left -= amount;
    return true;
  }

  std::string_view bytes_;
  std::string_view objects_;  // signature and objects
  std::string_view offsets_;  // where each object starts
  std::size_t offsetSize_ = 0;
  std::size_t referenceSize_ = 0;
  std::uint64_t objectCount_ = 0;
  std::uint64_t topObject_ = 0;
  std::size_t nodesLeft_ = PropertyListSerialization::kMaximumNodes;
  std::size_t bytesLeft_ = PropertyListSerialization::kMaximumBytes;
  std::size_t memoryLeft_;  // of what the document becomes
};

}  // namespace

std::optional<PropertyListValue> readBinaryPropertyList(std::string_view bytes) {
  if (bytes.size() > PropertyListSerialization::kMaximumBytes) return std::nullopt;
  return Reader(bytes).read();
}

}  // namespace frelta
