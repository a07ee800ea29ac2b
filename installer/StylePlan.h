#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "installer/StyleRefusal.h"
#include "installer/StyleSource.h"

namespace frelta {

/// What an installation will make: decided from the entries alone, before anything is written.
struct StylePlan {
  struct File {
    std::size_t entry;
    /// Relative to the style's folder.
    std::string path;
  };

  /// The style's folder in the styles folder.
  std::string name;
  /// Relative to the style's folder, each after the one that holds it.
  std::vector<std::string> folders;
  std::vector<File> files;
  /// Of all files together.
  std::uint64_t bytes = 0;
};

/// Checks every entry and finds the style: the source itself, or the one folder in it. What
/// desktops leave in archives ("__MACOSX", ".DS_Store") is passed over.
std::variant<StylePlan, StyleRefusal> planForStyle(const StyleSource& source,
                                                   const StyleLimits& limits);

}  // namespace frelta
