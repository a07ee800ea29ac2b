#include "linux/LogLine.h"

#include <array>
#include <cstdio>

#include "foundation/UTF8.h"

namespace frelta {

namespace {

constexpr std::string_view kEllipsis = "…";
constexpr char32_t kLineSeparator = 0x2028;
constexpr char32_t kParagraphSeparator = 0x2029;

std::string escaped(const char* format, unsigned value) {
  std::array<char, 8> buffer;
  std::snprintf(buffer.data(), buffer.size(), format, value);
  return buffer.data();
}

/// Marks, embeddings, overrides and isolates: what makes text read in another order than it is in.
bool isDirectional(char32_t value) {
  return value == 0x061c || value == 0x200e || value == 0x200f ||
         (value >= 0x202a && value <= 0x202e) || (value >= 0x2066 && value <= 0x2069);
}

bool isControl(char32_t value) {
  return value < 0x20 || (value >= 0x7f && value < 0xa0) || value == kLineSeparator ||
         value == kParagraphSeparator || isDirectional(value);
}

/// The printable form of what takes those bytes in the text.
std::string printable(std::string_view bytes, const std::optional<Scalar>& scalar) {
  if (!scalar) return escaped("\\x%02x", static_cast<unsigned char>(bytes.front()));
  if (!isControl(scalar->value)) return std::string(bytes);
  if (scalar->value == '\n') return "\\n";
  if (scalar->value == '\r') return "\\r";
  if (scalar->value == '\t') return "\\t";
  return escaped(scalar->value < 0x80 ? "\\x%02x" : "\\u%04x", scalar->value);
}

}  // namespace

std::string harmlessLine(std::string_view text, std::size_t maximumBytes) {
  std::string line;
  std::size_t roomForEllipsis = 0;  // where the line still has room for one
  for (std::size_t position = 0; position < text.size();) {
    const auto scalar = scalarAt(text, position);
    const std::size_t length = scalar ? scalar->length : 1;
    const std::string next = printable(text.substr(position, length), scalar);
    if (line.size() + next.size() > maximumBytes)
      return line.substr(0, roomForEllipsis).append(kEllipsis);
    line += next;
    if (line.size() + kEllipsis.size() <= maximumBytes) roomForEllipsis = line.size();
    position += length;
  }
  return line;
}

}  // namespace frelta
