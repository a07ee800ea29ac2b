#include "linux/JSONReader.h"

#include <locale.h>
#include <stdlib.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

#include "foundation/JSONSerialization.h"
#include "foundation/UTF8.h"
#include "linux/AsciiSet.h"
#include "linux/PropertyListBuilder.h"
#include "linux/PropertyListScalars.h"

namespace frelta {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr AsciiSet kPlain = AsciiSet::printableWithout("\"\\");

/// The double nearest to the number, also to one that is too small for double, where from_chars has
/// no answer; infinity beyond the largest.
double nearestDouble(const std::string& number) {
  static const locale_t kPlainNumbers = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(number.c_str(), nullptr, kPlainNumbers);
}

/// Each operation takes what it is named after from the document, and is false when that is not
/// there. The builder's depth limit bounds the recursion.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  std::optional<PropertyListValue> document() {
    takeWord(kByteOrderMark);
    if (!takeValue()) return std::nullopt;
    skipSpace();
    return position_ == bytes_.size() ? builder_.takeValue() : std::nullopt;
  }

 private:
  bool takeValue() {
    skipSpace();
    switch (next()) {
      case '{':
        return builder_.openDictionary() && takeEntries('}', true);
      case '[':
        return builder_.openArray() && takeEntries(']', false);
      case '"':
        return takeText() && builder_.add(text_);
      case 't':
        return takeWord("true") && builder_.add(true);
      case 'f':
        return takeWord("false") && builder_.add(false);
      case 'n':
        return takeWord("null") && builder_.add(Null());
      default:
        return takeNumber();
    }
  }

  /// From the opening bracket to the closing one.
  bool takeEntries(char closing, bool keyed) {
    ++position_;
    skipSpace();
    if (take(closing)) return builder_.close();
    do {
      if (keyed && !takeKey()) return false;
      if (!takeValue()) return false;
      skipSpace();
    } while (take(','));
    return take(closing) && builder_.close();
  }

  bool takeKey() {
    skipSpace();
    if (!takeText() || !builder_.setKey(text_)) return false;
    skipSpace();
    return take(':');
  }

  /// Leaves it in text_.
  bool takeText() {
    if (!take('"')) return false;
    text_.clear();
    while (!take('"')) {
      if (const std::size_t length = kPlain.lengthAt(bytes_, position_)) {
        appendToText(length);
      } else if (take('\\')) {
        if (!takeEscape()) return false;
      } else {
        if (position_ == bytes_.size()) return false;
        const std::optional<Scalar> scalar = scalarAt(bytes_, position_);
        if (!scalar || scalar->value < ' ') return false;
        appendToText(scalar->length);
      }
    }
    return true;
  }

  void appendToText(std::size_t length) {
    text_.append(bytes_, position_, length);
    position_ += length;
  }

  /// What follows the backslash.
  bool takeEscape() {
    constexpr std::string_view kLetters = "\"\\/bfnrt";
    constexpr std::string_view kMeanings = "\"\\/\b\f\n\r\t";
    if (take('u')) return takeCodeUnits();
    const std::size_t found = kLetters.find(next());
    if (found == std::string_view::npos) return false;
    ++position_;
    text_ += kMeanings[found];
    return true;
  }

  /// One UTF-16 unit, or two that belong together.
  bool takeCodeUnits() {
    std::uint16_t unit = 0;
    if (!takeHexadecimal(unit)) return false;
    char32_t scalar = unit;
    if (unit >= 0xD800 && unit <= 0xDFFF) {
      std::uint16_t low = 0;
      if (unit > 0xDBFF || !takeWord("\\u") || !takeHexadecimal(low)) return false;
      if (low < 0xDC00 || low > 0xDFFF) return false;
      scalar = 0x10000 + ((scalar - 0xD800) << 10) + (low - 0xDC00u);
    }
    appendScalar(text_, scalar);
    return true;
  }

  bool takeHexadecimal(std::uint16_t& unit) {
    constexpr std::size_t kDigits = 4;
    const std::string_view digits = bytes_.substr(position_, kDigits);
    const char* const last = digits.data() + digits.size();
    position_ += digits.size();
    return digits.size() == kDigits && std::from_chars(digits.data(), last, unit, 16).ptr == last;
  }

  bool takeNumber() {
    const std::size_t start = position_;
    take('-');
    if (!take('0') && !takeDigits()) return false;
    bool isInteger = true;
    if (take('.')) {
      isInteger = false;
      if (!takeDigits()) return false;
    }
    if (take('e') || take('E')) {
      isInteger = false;
      if (!take('+')) take('-');
      if (!takeDigits()) return false;
    }
    const std::string_view text = bytes_.substr(start, position_ - start);
    if (isInteger) {
      if (auto integer = integerFromText(text)) return builder_.add(std::move(*integer));
    }
    const double real = nearestDouble(std::string(text));
    return std::isfinite(real) && builder_.add(real);
  }

  bool takeDigits() {
    const std::size_t start = position_;
    while (next() >= '0' && next() <= '9') ++position_;
    return position_ > start;
  }

  bool takeWord(std::string_view word) {
    if (!bytes_.substr(position_).starts_with(word)) return false;
    position_ += word.size();
    return true;
  }

  bool take(char c) {
    if (position_ == bytes_.size() || bytes_[position_] != c) return false;
    ++position_;
    return true;
  }

  void skipSpace() {
    while (next() == ' ' || next() == '\n' || next() == '\r' || next() == '\t') ++position_;
  }

  /// NUL at the end, which no document may hold.
  char next() const { return position_ < bytes_.size() ? bytes_[position_] : '\0'; }

  std::string_view bytes_;
  std::size_t position_ = 0;
  std::string text_;  // read last
  PropertyListBuilder builder_{JSONSerialization::kMaximumDepth, JSONSerialization::kMaximumNodes};
};

}  // namespace

std::optional<PropertyListValue> readJSON(std::string_view bytes) {
  return Reader(bytes).document();
}

}  // namespace frelta
