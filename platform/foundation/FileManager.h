#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace frelta {

/// Another one where a file was replaced or changed, unless it was changed in place, to the same
/// length, within a tick of the file system's clock.
struct FileStamp {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t size = 0;
  /// When its bytes and when anything about it last changed, nanoseconds since 1970.
  std::int64_t modified = 0;
  std::int64_t changed = 0;

  bool operator==(const FileStamp&) const = default;
};

/// The device's file system. Paths are absolute device paths ("/Library/Frelta/Presets"), as the
/// settings file stores them; an implementation resolves them under a root folder and lets neither
/// ".." nor a symbolic link lead out of it. Links that are absolute count from the root.
/// Any path that is not absolute, holds a NUL byte or cannot be resolved reads as missing.
/// Main thread only. Nothing here throws: failure is in the result, and where the system gave a
/// reason for it, errno has it afterwards.
class FileManager {
 public:
  virtual ~FileManager() = default;

  /// Whether something exists at the path, links followed.
  virtual bool fileExistsAtPath(std::string_view path) const = 0;
  /// Whether a folder exists at the path, links followed.
  virtual bool directoryExistsAtPath(std::string_view path) const = 0;

  /// Names in the folder, without "." and "..", hidden ones included, in the order in which the
  /// system lists them. Nothing when the path cannot be listed.
  virtual std::optional<std::vector<std::string>> contentsOfDirectoryAtPath(
      std::string_view path) const = 0;

  /// Size in bytes of the regular file at the path. Nothing for anything else.
  virtual std::optional<std::uint64_t> fileSizeAtPath(std::string_view path) const = 0;

  /// What tells one state of the regular file at the path from another. Nothing for anything else.
  virtual std::optional<FileStamp> fileStampAtPath(std::string_view path) const = 0;

  /// The whole regular file. Nothing when it is missing, unreadable, not a regular file (a pipe or
  /// device is never waited on; errno is EINVAL or EISDIR) or larger than maximumBytes (EFBIG).
  virtual std::optional<std::string> contentsAtPath(std::string_view path,
                                                    std::uint64_t maximumBytes) const = 0;

  /// Makes the folder and those above it. True when a folder stands there afterwards.
  virtual bool createDirectoryAtPath(std::string_view path) = 0;

  /// Removes the file, link or folder with all it holds. False when it was missing or something of
  /// it is left.
  virtual bool removeItemAtPath(std::string_view path) = 0;

  /// Replaces the file at the second path with a copy of the regular file at the first, permissions
  /// too, as writeAtomically() would. False when it failed; what stood there is then untouched.
  virtual bool copyItemAtPath(std::string_view from, std::string_view to) = 0;

  /// Replaces the file with the bytes: at any crash or power cut a reader finds the old file or the
  /// new one whole. A link at the path itself is replaced, not followed. False when it failed; the
  /// old file is then untouched and nothing is left beside it. The folder must exist.
  virtual bool writeAtomically(std::string_view path, std::string_view bytes) = 0;
};

}  // namespace frelta
