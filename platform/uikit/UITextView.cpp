#include "uikit/UITextView.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "uikit/UIKitServices.h"

namespace frelta {

namespace {

// No line holds more: what is further on in a long text cannot matter to how much of it is seen.
constexpr std::size_t kMostBytesOfALine = 256;
// Assistive technology is told the start; the text itself can be read on in the view.
constexpr std::size_t kMostBytesReadAloud = 1000;

std::string_view startOf(std::string_view text, std::size_t bytes) {
  if (bytes >= text.size()) return text;
  // Not within a character.
  while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0) == 0x80) --bytes;
  return text.substr(0, bytes);
}

}  // namespace

void UITextView::setText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  didChange();
}

void UITextView::setFont(const UIFont& font) {
  if (font == font_) return;
  font_ = font;
  didChange();
}

void UITextView::setTextAlignment(NSTextAlignment alignment) {
  if (alignment == textAlignment_) return;
  textAlignment_ = alignment;
  didChange();
}

CGSize UITextView::sizeThatFits(CGSize size) const {
  const TextMeasurer& measurer = *UIKitServices::current().text;
  if (size.height <= 0)
    return {size.width, measurer.sizeOfText(text_, font_, size.width, 0).height};
  const double line = measurer.sizeOfText("", font_, 0, 1).height;
  const int lines = static_cast<int>(size.height / std::max(1.0, line)) + 1;
  const std::string_view seen = startOf(text_, static_cast<std::size_t>(lines) * kMostBytesOfALine);
  const double height = measurer.sizeOfText(seen, font_, size.width, lines).height;
  return {size.width, std::min(height, size.height)};
}

UIAccessibility UITextView::accessibility() const {
  UIAccessibility accessibility = UIView::accessibility();
  accessibility.isElement = true;
  accessibility.role = UIAccessibility::Role::StaticText;
  if (accessibility.label.empty()) accessibility.label = startOf(text_, kMostBytesReadAloud);
  return accessibility;
}

}  // namespace frelta
