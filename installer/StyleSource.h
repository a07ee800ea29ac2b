#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "installer/StyleRefusal.h"

namespace frelta {

/// What a source may hold at most. Far beyond any style, and little enough for any device.
struct StyleLimits {
  /// Of files and folders, those included that are only part of other paths.
  std::size_t entries = 10'000;
  std::uint64_t bytes = std::uint64_t{512} << 20;
  std::size_t depth = 16;
  /// Of an archive's list of its entries.
  std::uint64_t listBytes = std::uint64_t{4} << 20;
};

/// One entry as its source tells of it, not checked yet.
struct StyleEntry {
  enum class Kind { File, Folder, Link, Device };

  /// Relative to the source, components parted by "/", as it was found: it may be anything.
  std::string path;
  Kind kind = Kind::File;
  /// Bytes that a file is said to have.
  std::uint64_t size = 0;
};

/// A folder or an archive that may hold a style. Used from one thread at a time.
class StyleSource {
 public:
  virtual ~StyleSource() = default;

  /// Name of a style that is the source itself: the folder's name, or the archive's without ".zip".
  virtual const std::string& name() const = 0;
  virtual const std::vector<StyleEntry>& entries() const = 0;

  /// Hands the bytes of that entry, a file, to take in pieces, never more of them than the entry's
  /// size; stops early, as a success, when take returns false. A refusal when the file cannot be
  /// read to its end or is of another size than the entry says.
  virtual std::optional<StyleRefusal> read(std::size_t entry,
                                           const std::function<bool(std::string_view)>& take) = 0;
};

}  // namespace frelta
