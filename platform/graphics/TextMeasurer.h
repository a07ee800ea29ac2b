#pragma once

#include <string_view>

#include "graphics/CGGeometry.h"
#include "graphics/UIFont.h"

namespace frelta {

/// Says how much room text takes.
class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;

  /// The size in points of the text in the font. It breaks at words to stay within maximumWidth; 0
  /// or less means no limit. Lines beyond maximumLines are not counted; 0 means no limit. Both
  /// sides are rounded up to whole points. Empty text has width 0 and the height of one line.
  virtual CGSize sizeOfText(std::string_view text, const UIFont& font, double maximumWidth,
                            int maximumLines) const = 0;
};

}  // namespace frelta
