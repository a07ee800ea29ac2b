#include "linux/BinaryPropertyListWriter.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

#include "foundation/PropertyListSerialization.h"
#include "foundation/UTF8.h"
#include "linux/BinaryPropertyListReader.h"
#include "linux/PropertyListScalars.h"

namespace frelta {
namespace {

/// The bytes that a number takes, one of those that every reader knows: 1, 2, 4 or 8.
unsigned sizeOf(std::uint64_t number) {
  return number < 1u << 8 ? 1 : number < 1u << 16 ? 2 : number <= ~std::uint32_t{0} ? 4 : 8;
}

/// Nothing when the text is not UTF-8.
std::optional<std::u16string> utf16FromUTF8(std::string_view text) {
  std::u16string units;
  units.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::optional<Scalar> scalar = scalarAt(text, position);
    if (!scalar) return std::nullopt;
    position += scalar->length;
    if (scalar->value < 0x10000) {
      units += static_cast<char16_t>(scalar->value);
    } else {
      units += static_cast<char16_t>(0xD800 + ((scalar->value - 0x10000) >> 10));
      units += static_cast<char16_t>(0xDC00 + (scalar->value & 0x3FF));
    }
  }
  return units;
}

/// Lists the document's objects, each container's contents side by side, then writes them one after
/// the other; one call operator a type, false when the form cannot hold the value.
class Writer {
 public:
  bool write(const PropertyListValue& value) {
    if (!list(value)) return false;
    referenceSize_ = sizeOf(objects_.size() - 1);
    std::vector<std::uint64_t> offsets;
    offsets.reserve(objects_.size());
    for (const Object& object : objects_) {
      offsets.push_back(out_.size());
      contents_ = object.contents;
      if (!(object.key ? (*this)(*object.key) : std::visit(*this, object.value->storage())))
        return false;
    }
    const std::uint64_t table = out_.size();
    const unsigned offsetSize = sizeOf(table);
    for (const std::uint64_t offset : offsets) append(offset, offsetSize);
    out_.append(6, '\0');
    append(offsetSize, 1);
    append(referenceSize_, 1);
    append(objects_.size(), 8);
    append(0, 8);
    append(table, 8);
    return true;
  }
  std::string take() { return std::move(out_); }

  bool operator()(Null) { return false; }
  bool operator()(bool value) { return mark(value ? 0x09 : 0x08); }
  bool operator()(std::int64_t number) {
    integer(static_cast<std::uint64_t>(number));
    return true;
  }
  bool operator()(std::uint64_t number) {
    // Of eight bytes the first bit is a sign; this number has sixteen.
    mark(0x14);
    append(0, 8);
    append(number, 8);
    return true;
  }
  bool operator()(double number) {
    mark(0x23);
    append(std::bit_cast<std::uint64_t>(number), 8);
    return true;
  }
  bool operator()(Date date) {
    if (!isInRange(date)) return false;
    mark(0x33);
    append(std::bit_cast<std::uint64_t>(date.secondsSinceReferenceDate), 8);
    return true;
  }
  bool operator()(const Data& data) {
    mark(0x40, data.bytes.size());
    out_ += data.bytes;
    return true;
  }
  bool operator()(const std::string& text) {
    if (std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
      mark(0x50, text.size());
      out_ += text;
      return true;
    }
    const std::optional<std::u16string> units = utf16FromUTF8(text);
    if (!units) return false;
    mark(0x60, units->size());
    for (const char16_t unit : *units) append(unit, 2);
    return true;
  }
  bool operator()(const Array& array) {
    mark(0xA0, array.size());
    references(array.size());
    return true;
  }
  bool operator()(const Dictionary& dictionary) {
    mark(0xD0, dictionary.size());
    references(2 * dictionary.size());
    return true;
  }

 private:
  /// A value, or a dictionary's key.
  struct Object {
    const PropertyListValue* value = nullptr;
    const std::string* key = nullptr;
    int depth = 0;
    std::size_t contents = 0;  // the first object in a container
  };

  bool list(const PropertyListValue& top) {
    objects_.push_back({.value = &top});
    std::size_t values = 1;
    for (std::size_t i = 0; i < objects_.size(); ++i) {
      if (objects_[i].key) continue;
      const PropertyListValue& value = *objects_[i].value;
      const Array* array = value.array();
      const Dictionary* dictionary = value.dictionary();
      if (!array && !dictionary) continue;
      const int depth = objects_[i].depth + 1;
      values += array ? array->size() : dictionary->size();
      if (depth > PropertyListSerialization::kMaximumDepth ||
          values > PropertyListSerialization::kMaximumNodes)
        return false;
      objects_[i].contents = objects_.size();
      if (array)
        for (const auto& element : *array) objects_.push_back({.value = &element, .depth = depth});
      if (dictionary) {
        for (const auto& entry : *dictionary) objects_.push_back({.key = &entry.first});
        for (const auto& entry : *dictionary)
          objects_.push_back({.value = &entry.second, .depth = depth});
      }
    }
    return true;
  }

  void append(std::uint64_t number, unsigned size) {
    for (unsigned shift = size * 8; shift > 0; shift -= 8)
      out_ += static_cast<char>(number >> (shift - 8));
  }

  bool mark(unsigned marker) {
    out_ += static_cast<char>(marker);
    return true;
  }

  /// A marker with the count in it, or after it where it is too large for that.
  void mark(unsigned marker, std::size_t count) {
    mark(marker | static_cast<unsigned>(std::min<std::size_t>(count, 0xF)));
    if (count >= 0xF) integer(count);
  }

  void integer(std::uint64_t number) {
    const unsigned size = sizeOf(number);
    mark(0x10 | static_cast<unsigned>(std::countr_zero(size)));
    append(number, size);
  }

  void references(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) append(contents_ + i, referenceSize_);
  }

  std::string out_{kBinaryPropertyListSignature};
  std::vector<Object> objects_;
  unsigned referenceSize_ = 0;
  std::size_t contents_ = 0;  // of the container being written
};

}  // namespace

std::optional<std::string> writeBinaryPropertyList(const PropertyListValue& value) {
  Writer writer;
  if (!writer.write(value)) return std::nullopt;
  return writer.take();
}

}  // namespace frelta
