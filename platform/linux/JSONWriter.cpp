#include "linux/JSONWriter.h"

#include <charconv>
#include <cmath>
#include <stdexcept>

#include "foundation/UTF8.h"
#include "linux/AsciiSet.h"

namespace frelta {
namespace {

/// ASCII that stands for itself.
constexpr AsciiSet kPlain = AsciiSet::printableWithout("\"\\");

/// Writes a value, one call operator a type.
class Writer {
 public:
  void write(const PropertyListValue& value) { std::visit(*this, value.storage()); }
  std::string take() {
    requireRoom();
    return std::move(out_);
  }

  void operator()(Null) { out_ += "null"; }
  void operator()(bool value) { out_ += value ? "true" : "false"; }
  void operator()(std::int64_t value) { out_ += std::to_string(value); }
  void operator()(std::uint64_t value) { out_ += std::to_string(value); }

  void operator()(double value) {
    if (!std::isfinite(value)) throw std::invalid_argument("JSON cannot hold NaN or infinity");
    char text[32];
    const auto [end, error] = std::to_chars(std::begin(text), std::end(text), value);
    const std::string_view shortest(text, static_cast<std::size_t>(end - text));
    out_ += shortest;
    // Without a fraction or an exponent it would read back as an integer.
    if (shortest.find_first_of(".e") == std::string_view::npos) out_ += ".0";
  }

  void operator()(const std::string& text) {
    out_ += '"';
    for (std::size_t position = 0; position < text.size();) {
      requireRoom();
      if (const std::size_t length = kPlain.lengthAt(text, position)) {
        out_.append(text, position, length);
        position += length;
        continue;
      }
      const std::optional<Scalar> scalar = scalarAt(text, position);
      if (!scalar) throw std::invalid_argument("JSON cannot hold text that is not UTF-8");
      escape(scalar->value, std::string_view(text).substr(position, scalar->length));
      position += scalar->length;
    }
    out_ += '"';
  }

  void operator()(Date) { throw std::invalid_argument("JSON cannot hold a date"); }
  void operator()(const Data&) { throw std::invalid_argument("JSON cannot hold data"); }

  void operator()(const Array& array) {
    if (array.empty()) {
      out_ += "[]";
      return;
    }
    open('[');
    for (const PropertyListValue& value : array) {
      nextEntry();
      write(value);
    }
    close(']');
  }

  void operator()(const Dictionary& dictionary) {
    if (dictionary.empty()) {
      out_ += "{}";
      return;
    }
    open('{');
    for (const auto& [key, value] : dictionary) {
      nextEntry();
      (*this)(key);
      out_ += " : ";
      write(value);
    }
    close('}');
  }

 private:
  void open(char bracket) {
    out_ += bracket;
    ++level_;
    first_ = true;
  }

  void close(char bracket) {
    --level_;
    first_ = false;
    newLine();
    out_ += bracket;
  }

  void requireRoom() const {
    if (out_.size() > kMaximumJSONBytes) throw std::invalid_argument("JSON would be too large");
  }

  void nextEntry() {
    requireRoom();
    if (!first_) out_ += ',';
    first_ = false;
    newLine();
  }

  void newLine() {
    out_ += '\n';
    out_.append(level_ * 2, ' ');
  }

  void escape(char32_t value, std::string_view bytes) {
    switch (value) {
      case '"':
        out_ += "\\\"";
        return;
      case '\\':
        out_ += "\\\\";
        return;
      case '\b':
        out_ += "\\b";
        return;
      case '\f':
        out_ += "\\f";
        return;
      case '\n':
        out_ += "\\n";
        return;
      case '\r':
        out_ += "\\r";
        return;
      case '\t':
        out_ += "\\t";
        return;
      default:
        if (value >= 0x20) {
          out_ += bytes;
          return;
        }
        constexpr std::string_view kDigits = "0123456789abcdef";
        out_.append("\\u00").append(1, kDigits[value >> 4]).append(1, kDigits[value & 0xF]);
    }
  }

  std::string out_;
  std::size_t level_ = 0;
  bool first_ = true;  // of the innermost container's entries
};

}  // namespace

std::string writeJSON(const PropertyListValue& value) {
  Writer writer;
  writer.write(value);
  return writer.take();
}

}  // namespace frelta
