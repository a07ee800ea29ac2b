#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "linux/FileDescriptor.h"

namespace frelta {

/// A new file that is written out of sight, under a hidden name that nobody else has, and then
/// takes its own name in one step. While it is written it is locked, the file itself and nothing
/// that others open: a file with such a name and no lock was left by a process that died. Nobody
/// ever waits for the lock.
class TemporaryFile {
 public:
  /// What every hidden name starts with; 16 random hexadecimal digits follow. Files whose names
  /// start so belong to this class.
  static constexpr std::string_view kPrefix = ".frelta-writing-";

  /// Makes one, empty, with the permissions that the process lets new files have of these, after
  /// a sweep() of the folder. The folder is a descriptor opened for reading, which must outlive
  /// the file. Nothing when the folder takes no file.
  static std::optional<TemporaryFile> createIn(const FileDescriptor& folder, mode_t permissions);
  /// Removes what processes that died left in the folder; files being written stay. A file system
  /// without locks keeps what was left.
  static void sweep(const FileDescriptor& folder);

  TemporaryFile(TemporaryFile&& other) noexcept
      : folder_(std::exchange(other.folder_, -1)),
        name_(std::move(other.name_)),
        file_(std::move(other.file_)) {}
  TemporaryFile& operator=(TemporaryFile&&) = delete;
  /// Removes the file unless it has taken its name.
  ~TemporaryFile();

  /// Gives it exactly these permissions.
  bool setPermissions(mode_t permissions);
  bool append(std::string_view bytes);
  /// Brings the bytes to the disk and gives the file its name in place of what had it. False when
  /// that failed, or a sweep would take the name for a dead process's.
  bool replace(const std::string& name);

 private:
  TemporaryFile(int folder, std::string name, FileDescriptor file)
      : folder_(folder), name_(std::move(name)), file_(std::move(file)) {}

  int folder_;  // the caller's; -1 when there is nothing left to remove
  std::string name_;
  FileDescriptor file_;
};

}  // namespace frelta
