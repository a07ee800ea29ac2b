#pragma once

#include "uikit/UIKitServices.h"

namespace frelta {

/// Holds the text in memory, nothing to begin with.
class FakePasteboard : public PasteboardService {
 public:
  std::optional<std::string> string() const override { return text; }
  void setString(std::string_view newText) override { text = newText; }
  std::optional<std::string> text;
};

}  // namespace frelta
