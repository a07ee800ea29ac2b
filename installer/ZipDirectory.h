#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "installer/StyleRefusal.h"
#include "installer/StyleSource.h"

namespace frelta {

/// An archive's list of its entries as it is in the file, counted and bounded before anything takes
/// the time to read it.
struct ZipDirectory {
  /// Of the list's first byte in the file.
  std::uint64_t offset = 0;
  /// Headers one after the other, each whole.
  std::string list;
  std::size_t entries = 0;
};

/// Finds it in the opened file. A refusal when there is none, when more than one could be meant,
/// when what the file says of it is not what is there, or when it is beyond the limits. Time and
/// memory are bounded by the limits, whatever the file says.
std::variant<ZipDirectory, StyleRefusal> findZipDirectory(int descriptor,
                                                          const StyleLimits& limits);

}  // namespace frelta
