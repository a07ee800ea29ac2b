#pragma once

#include <functional>
#include <utility>

#include "foundation/FailureListener.h"
#include "foundation/FileManager.h"

namespace frelta {

/// Passes every operation on to another file manager and tells the listener of each change that
/// failed, and of each property list that is there and cannot be read. What is missing is no
/// failure: neither reading nor removing it. What was removed is told as well.
class ReportingFileManager : public FileManager {
 public:
  using Removed = std::function<void(std::string_view path)>;

  /// Neither is owned; both outlive this. What hears of removals is called in the thread that
  /// removes, afterwards.
  ReportingFileManager(FileManager& next, FailureListener& listener, Removed removed = {})
      : next_(next), listener_(listener), removed_(std::move(removed)) {}

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
  /// A failure is told as one to write the second path.
  bool copyItemAtPath(std::string_view from, std::string_view to) override;
  bool writeAtomically(std::string_view path, std::string_view bytes) override;

 private:
  /// Tells the listener unless the operation succeeded. Returns whether it did.
  bool told(bool succeeded, Failure::Operation operation, std::string_view path) const;

  FileManager& next_;
  FailureListener& listener_;
  Removed removed_;
};

}  // namespace frelta
