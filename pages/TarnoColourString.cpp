#include "pages/TarnoColourString.h"

#include <algorithm>
#include <cmath>

namespace frelta {

namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";

std::optional<unsigned> valueOf(char digit) {
  if (digit >= 'a' && digit <= 'f') digit = static_cast<char>(digit - 'a' + 'A');
  const std::size_t value = kDigits.find(digit);
  return value == std::string_view::npos ? std::nullopt
                                         : std::optional(static_cast<unsigned>(value));
}

}  // namespace

std::optional<UIColor::Components> colourWithString(std::string_view text) {
  if ((text.size() != 7 && text.size() != 9) || text[0] != '#') return std::nullopt;
  double parts[] = {0, 0, 0, 1};
  for (std::size_t i = 1; i < text.size(); i += 2) {
    const auto high = valueOf(text[i]);
    const auto low = valueOf(text[i + 1]);
    if (!high || !low) return std::nullopt;
    parts[i / 2] = (*high * 16 + *low) / 255.0;
  }
  return UIColor::Components{parts[0], parts[1], parts[2], parts[3]};
}

std::string stringWithColour(const UIColor::Components& colour) {
  std::string text = "#";
  for (const double part : {colour.red, colour.green, colour.blue, colour.alpha}) {
    const auto byte = static_cast<unsigned>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
    text += kDigits[byte / 16];
    text += kDigits[byte % 16];
  }
  return text;
}

}  // namespace frelta
