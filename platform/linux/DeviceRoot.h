#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "linux/FileDescriptor.h"

namespace frelta {

/// Who follows a path to its file.
enum class PathLookup {
  /// The kernel in one step; by hand where it cannot or may not.
  Kernel,
  /// By hand, one component after the other.
  ByHand
};

/// Opens device paths under a folder of the host. Neither ".." nor a link leads out of the folder,
/// not even when somebody moves folders meanwhile.
class DeviceRoot {
 public:
  /// A path's last component, and the folder that holds it.
  struct Entry {
    FileDescriptor folder;
    std::string name;
  };

  /// The folder is made, with those above it, when it is missing: with permissions for this user
  /// only.
  DeviceRoot(const std::string& folder, PathLookup lookup);

  /// Opens what is at the absolute path, links followed. Flags as open(2) takes them, without those
  /// that create. No descriptor when the path is unfit or cannot be opened.
  FileDescriptor open(std::string_view path, int flags) const;

  /// Opens the folder with the flags, links on the way followed; the last component is not looked
  /// at. Nothing when the folder cannot be opened or the path ends in no name ("/", "/a/..").
  std::optional<Entry> entry(std::string_view path, int flags) const;

 private:
  FileDescriptor walk(std::string_view path, int flags) const;

  FileDescriptor root_;
  PathLookup lookup_;
};

}  // namespace frelta
