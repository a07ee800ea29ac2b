#pragma once

#include <string_view>

namespace frelta {

/// The system log.
class Log {
 public:
  virtual ~Log() = default;
  /// Writes one line. Line breaks and control characters in it are made harmless by the log, NUL
  /// bytes included. Never fails visibly.
  virtual void log(std::string_view line) = 0;
};

/// Writes "[Frelta] " and the text to the installed Platform's log.
void freltaLog(std::string_view text);

}  // namespace frelta
