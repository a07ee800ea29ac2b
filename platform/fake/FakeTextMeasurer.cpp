#include "fake/FakeTextMeasurer.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace frelta {

namespace {

std::size_t characters(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }));
}

/// The length of each line, at most that many characters, blanks at its end left out.
std::vector<std::size_t> lineLengths(std::string_view text, std::size_t longest) {
  std::vector<std::size_t> lines{0};
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(" \n"), text.size());
    std::size_t word = characters(text.substr(0, end));
    std::size_t& line = lines.back();
    if (const std::size_t joined = line + (line > 0) + word; joined <= longest) {
      line = joined;
    } else {
      if (line > 0) lines.push_back(0);
      for (; word > longest; word -= longest) {
        lines.back() = longest;
        lines.push_back(0);
      }
      lines.back() = word;
    }
    if (end < text.size() && text[end] == '\n') lines.push_back(0);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace

CGSize FakeTextMeasurer::sizeOfText(std::string_view text, const UIFont& font, double maximumWidth,
                                    int maximumLines) const {
  const double characterWidth = font.pointSize * 0.5;
  const std::size_t longest =
      maximumWidth > 0 ? static_cast<std::size_t>(std::max(1.0, maximumWidth / characterWidth))
                       : text.size() + 1;
  std::vector<std::size_t> lines = lineLengths(text, longest);
  if (maximumLines > 0 && lines.size() > static_cast<std::size_t>(maximumLines)) {
    lines.resize(static_cast<std::size_t>(maximumLines));
  }
  const auto widest = static_cast<double>(*std::ranges::max_element(lines));
  return {std::ceil(widest * characterWidth),
          std::ceil(static_cast<double>(lines.size()) * font.pointSize * 1.2)};
}

}  // namespace frelta
