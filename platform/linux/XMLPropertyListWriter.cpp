#include "linux/XMLPropertyListWriter.h"

#include <algorithm>
#include <cmath>

#include "foundation/Base64.h"
#include "foundation/PropertyListSerialization.h"
#include "foundation/UTF8.h"
#include "linux/AsciiSet.h"
#include "linux/PropertyListScalars.h"

namespace frelta {
namespace {

constexpr std::string_view kHeader =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";
constexpr std::string_view kFooter = "</plist>\n";
constexpr std::size_t kBase64LineLength = 76;

/// ASCII that stands for itself.
constexpr AsciiSet kPlain = AsciiSet::printableWithout("&<>");

/// Writes a value, one call operator a type; each is false when the form cannot hold the value.
class Writer {
 public:
  bool write(const PropertyListValue& value) {
    if (nodesLeft_ == 0) return false;
    --nodesLeft_;
    return std::visit(*this, value.storage());
  }
  std::string take() { return std::move(out_); }

  bool operator()(Null) { return false; }
  bool operator()(bool value) { return line(value ? "<true/>" : "<false/>"); }
  bool operator()(std::int64_t value) {
    return element("<integer>", std::to_string(value), "</integer>\n");
  }
  bool operator()(std::uint64_t value) {
    return element("<integer>", std::to_string(value), "</integer>\n");
  }
  bool operator()(double value) { return element("<real>", textFromReal(value), "</real>\n"); }
  bool operator()(const std::string& text) { return textElement("<string>", text, "</string>\n"); }
  bool operator()(Date date) {
    const bool isWhole =
        std::trunc(date.secondsSinceReferenceDate) == date.secondsSinceReferenceDate;
    return isInRange(date) && isWhole && element("<date>", textFromDate(date), "</date>\n");
  }
  bool operator()(const Data& data) {
    if (!hasRoomFor(data.bytes.size() / 3 * 4)) return false;
    line("<data>");
    const std::string text = base64EncodedString(data.bytes);
    for (std::size_t i = 0; i < text.size(); i += kBase64LineLength)
      line(std::string_view(text).substr(i, kBase64LineLength));
    return line("</data>");
  }
  bool operator()(const Array& array) {
    if (array.empty()) return depth_ < kMaximumDepth && line("<array/>");
    return open("<array>") &&
           std::all_of(array.begin(), array.end(),
                       [this](const PropertyListValue& value) { return write(value); }) &&
           close("</array>");
  }
  bool operator()(const Dictionary& dictionary) {
    if (dictionary.empty()) return depth_ < kMaximumDepth && line("<dict/>");
    return open("<dict>") &&
           std::all_of(dictionary.begin(), dictionary.end(),
                       [this](const auto& entry) {
                         return textElement("<key>", entry.first, "</key>\n") &&
                                write(entry.second);
                       }) &&
           close("</dict>");
  }

 private:
  static constexpr std::size_t kMaximumDepth = PropertyListSerialization::kMaximumDepth;

  /// Ends what would be refused anyhow before it takes the memory; not exact.
  bool hasRoomFor(std::size_t bytes) const {
    return out_.size() + bytes <= PropertyListSerialization::kMaximumBytes;
  }

  bool open(std::string_view tag) {
    if (depth_ == kMaximumDepth) return false;
    line(tag);
    ++depth_;
    return true;
  }

  bool close(std::string_view tag) {
    --depth_;
    return line(tag);
  }

  bool line(std::string_view content) {
    out_.append(depth_, '\t').append(content) += '\n';
    return true;
  }

  bool element(std::string_view start, std::string_view content, std::string_view end) {
    out_.append(depth_, '\t').append(start).append(content).append(end);
    return true;
  }

  bool textElement(std::string_view start, std::string_view text, std::string_view end) {
    out_.append(depth_, '\t').append(start);
    if (!escape(text)) return false;
    out_ += end;
    return true;
  }

  bool escape(std::string_view text) {
    for (std::size_t position = 0; position < text.size();) {
      if (const std::size_t length = kPlain.lengthAt(text, position)) {
        if (!hasRoomFor(length)) return false;
        out_.append(text.substr(position, length));
        position += length;
        continue;
      }
      const std::optional<Scalar> scalar = scalarAt(text, position);
      if (!scalar || !isXMLCharacter(scalar->value)) return false;
      switch (scalar->value) {
        case '&':
          out_ += "&amp;";
          break;
        case '<':
          out_ += "&lt;";
          break;
        case '>':
          out_ += "&gt;";
          break;
        case '\r':  // a reader turns a bare one into a line feed
          out_ += "&#13;";
          break;
        default:
          out_ += text.substr(position, scalar->length);
      }
      position += scalar->length;
    }
    return true;
  }

  static bool isXMLCharacter(char32_t c) {
    if (c < 0x20) return c == '\t' || c == '\n' || c == '\r';
    return c != 0xFFFE && c != 0xFFFF;
  }

  std::string out_{kHeader};
  std::size_t depth_ = 0;
  std::size_t nodesLeft_ = PropertyListSerialization::kMaximumNodes;
};

}  // namespace

std::optional<std::string> writeXMLPropertyList(const PropertyListValue& value) {
  Writer writer;
  if (!writer.write(value)) return std::nullopt;
  return writer.take().append(kFooter);
}

}  // namespace frelta
