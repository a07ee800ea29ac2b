#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "foundation/FileManager.h"

namespace frelta {

/// Passes every operation on to another file manager, counts it, and makes it fail on demand.
class FailingFiles : public FileManager {
 public:
  /// Those that change files come last.
  enum class Operation {
    FileExists,
    DirectoryExists,
    Contents,
    Size,
    Read,
    CreateDirectory,
    Remove,
    Copy,
    Write
  };
  struct Call {
    Operation operation;
    std::string path;
  };

  /// The other file manager must outlive this one.
  explicit FailingFiles(FileManager& next) : next_(next) {}

  bool fileExistsAtPath(std::string_view path) const override;
  bool directoryExistsAtPath(std::string_view path) const override;
  std::optional<std::vector<std::string>> contentsOfDirectoryAtPath(
      std::string_view path) const override;
  std::optional<std::uint64_t> fileSizeAtPath(std::string_view path) const override;
  /// Neither counted nor made to fail.
  std::optional<FileStamp> fileStampAtPath(std::string_view path) const override;
  std::optional<std::string> contentsAtPath(std::string_view path,
                                            std::uint64_t maximumBytes) const override;
  bool createDirectoryAtPath(std::string_view path) override;
  bool removeItemAtPath(std::string_view path) override;
  bool copyItemAtPath(std::string_view from, std::string_view to) override;
  bool writeAtomically(std::string_view path, std::string_view bytes) override;

  /// From now on the operation fails without reaching the other file manager.
  void fail(Operation operation) { failing_.insert(operation); }
  void succeed(Operation operation) { failing_.erase(operation); }
  /// From now on only that many operations that change files get through; all that follow fail.
  void allowChanges(std::size_t count) { changesLeft_ = count; }
  /// Runs just before each operation is passed on; lets a test change the files in between.
  std::function<void(const Call&)> beforeCall;

  /// Calls so far, failed ones included, in order. A copy is recorded under its source.
  const std::vector<Call>& calls() const { return calls_; }
  /// How often the operation was called, for one path or for any.
  std::size_t count(Operation operation) const;
  std::size_t count(Operation operation, std::string_view path) const;
  void resetCalls() { calls_.clear(); }
  static bool isChange(Operation operation) { return operation >= Operation::CreateDirectory; }

 private:
  bool admit(Operation operation, std::string_view path) const;

  FileManager& next_;
  std::set<Operation> failing_;
  mutable std::optional<std::size_t> changesLeft_;  // none: as many as wanted
  mutable std::vector<Call> calls_;
};

}  // namespace frelta
