#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "linux/FileDescriptor.h"

namespace frelta {

/// A new file that is written out of sight and then takes its name in one step. At most one exists
/// in a folder, under a fixed hidden name, while its writer holds the folder's lock: so whoever
/// gets the lock knows that a file of that name was left by a process that died, and removes it.
class TemporaryFile {
 public:
  static constexpr const char* kName = ".frelta-writing";

  /// Makes one, empty, with the permissions that the process lets new files have of these. The
  /// folder is a descriptor opened for reading, which must outlive the file and hold no lock.
  /// Nothing when the folder takes no file or another writer keeps it locked for two seconds.
  static std::optional<TemporaryFile> createIn(const FileDescriptor& folder, mode_t permissions);
  /// Removes what a process that died left in the folder; a file being written stays.
  static void sweep(const FileDescriptor& folder);

  TemporaryFile(TemporaryFile&& other) noexcept
      : folder_(std::exchange(other.folder_, -1)), file_(std::move(other.file_)) {}
  TemporaryFile& operator=(TemporaryFile&&) = delete;
  /// Removes the file unless it has taken its name.
  ~TemporaryFile();

  /// Gives it exactly these permissions.
  bool setPermissions(mode_t permissions);
  bool append(std::string_view bytes);
  /// Brings the bytes to the disk and gives the file its name in place of what had it.
  bool replace(const std::string& name);
  /// The same, but fails when something has the name.
  bool takeFreeName(const std::string& name);

 private:
  TemporaryFile(int folder, FileDescriptor file) : folder_(folder), file_(std::move(file)) {}
  bool finish(bool renamed);

  int folder_;  // the caller's; -1 when there is nothing left to remove
  FileDescriptor file_;
};

}  // namespace frelta
