#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace frelta {

/// What copying and pasting go through.
class UIPasteboard {
 public:
  static UIPasteboard& generalPasteboard();

  /// The text on it; nothing when it holds none.
  std::optional<std::string> string() const;
  /// Puts the text, UTF-8, on it in place of everything else.
  void setString(std::string_view text);
};

}  // namespace frelta
