#pragma once

#include "graphics/TextMeasurer.h"

namespace frelta {

/// Every character, a Unicode scalar value, is half as wide as the font is large, and a line is 1.2
/// times as high. Words longer than a line break where it ends.
class FakeTextMeasurer : public TextMeasurer {
 public:
  CGSize sizeOfText(std::string_view text, const UIFont& font, double maximumWidth,
                    int maximumLines) const override;
};

}  // namespace frelta
