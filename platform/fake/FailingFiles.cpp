#include "fake/FailingFiles.h"

#include <algorithm>

namespace frelta {

bool FailingFiles::admit(Operation operation, std::string_view path) const {
  const Call call{operation, std::string(path)};
  calls_.push_back(call);
  if (failing_.contains(operation)) return false;
  if (changesLeft_ && isChange(operation)) {
    if (*changesLeft_ == 0) return false;
    --*changesLeft_;
  }
  if (beforeCall) beforeCall(call);
  return true;
}

bool FailingFiles::fileExistsAtPath(std::string_view path) const {
  return admit(Operation::FileExists, path) && next_.fileExistsAtPath(path);
}

bool FailingFiles::directoryExistsAtPath(std::string_view path) const {
  return admit(Operation::DirectoryExists, path) && next_.directoryExistsAtPath(path);
}

std::optional<std::vector<std::string>> FailingFiles::contentsOfDirectoryAtPath(
    std::string_view path) const {
  if (!admit(Operation::Contents, path)) return std::nullopt;
  return next_.contentsOfDirectoryAtPath(path);
}

std::optional<std::uint64_t> FailingFiles::fileSizeAtPath(std::string_view path) const {
  if (!admit(Operation::Size, path)) return std::nullopt;
  return next_.fileSizeAtPath(path);
}

std::optional<FileStamp> FailingFiles::fileStampAtPath(std::string_view path) const {
  return next_.fileStampAtPath(path);
}

std::optional<std::string> FailingFiles::contentsAtPath(std::string_view path,
                                                        std::uint64_t maximumBytes) const {
  if (!admit(Operation::Read, path)) return std::nullopt;
  return next_.contentsAtPath(path, maximumBytes);
}

bool FailingFiles::createDirectoryAtPath(std::string_view path) {
  return admit(Operation::CreateDirectory, path) && next_.createDirectoryAtPath(path);
}

bool FailingFiles::removeItemAtPath(std::string_view path) {
  return admit(Operation::Remove, path) && next_.removeItemAtPath(path);
}

bool FailingFiles::copyItemAtPath(std::string_view from, std::string_view to) {
  return admit(Operation::Copy, from) && next_.copyItemAtPath(from, to);
}

bool FailingFiles::writeAtomically(std::string_view path, std::string_view bytes) {
  return admit(Operation::Write, path) && next_.writeAtomically(path, bytes);
}

std::size_t FailingFiles::count(Operation operation) const {
  return static_cast<std::size_t>(std::ranges::count(calls_, operation, &Call::operation));
}

std::size_t FailingFiles::count(Operation operation, std::string_view path) const {
  return static_cast<std::size_t>(std::ranges::count_if(
      calls_, [&](const Call& call) { return call.operation == operation && call.path == path; }));
}

}  // namespace frelta
