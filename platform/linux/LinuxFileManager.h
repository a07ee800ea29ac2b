#pragma once

#include <string>

#include "foundation/FileManager.h"
#include "linux/DeviceRoot.h"

namespace frelta {

/// The file manager over a folder of the host, the device root, with POSIX calls.
class LinuxFileManager : public FileManager {
 public:
  /// The root is a host folder; it is made, with those above it, when it is missing.
  explicit LinuxFileManager(const std::string& root, PathLookup lookup = PathLookup::Kernel);

  bool fileExistsAtPath(std::string_view path) const override;
  bool directoryExistsAtPath(std::string_view path) const override;
  std::optional<std::vector<std::string>> contentsOfDirectoryAtPath(
      std::string_view path) const override;
  std::optional<std::uint64_t> fileSizeAtPath(std::string_view path) const override;
  std::optional<FileStamp> fileStampAtPath(std::string_view path) const override;
  std::optional<std::string> contentsAtPath(std::string_view path,
                                            std::uint64_t maximumBytes) const override;
  bool createDirectoryAtPath(std::string_view path) override;
  bool removeItemAtPath(std::string_view path) override;
  bool copyItemAtPath(std::string_view from, std::string_view to) override;
  bool writeAtomically(std::string_view path, std::string_view bytes) override;

  /// Removes what a write cut short by a crash may have left in the folder. The next write to the
  /// folder does so too; this is for a folder that may see none.
  void sweepDirectoryAtPath(std::string_view path);

 private:
  DeviceRoot root_;
};

}  // namespace frelta
