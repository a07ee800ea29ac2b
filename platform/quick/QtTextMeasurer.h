#pragma once

#include <map>
#include <string>
#include <tuple>

#include "graphics/TextMeasurer.h"

namespace frelta {

/// Measures with the layout that also draws the text.
class QtTextMeasurer : public TextMeasurer {
 public:
  CGSize sizeOfText(std::string_view text, const UIFont& font, double maximumWidth,
                    int maximumLines) const override;

 private:
  // A row is measured for its height, again when it is laid out, and whenever it comes back.
  using Key = std::tuple<std::string, double, UIFont::Weight, double, int>;
  mutable std::map<Key, CGSize> measured_;
};

}  // namespace frelta
