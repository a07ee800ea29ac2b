#include "reporting/ReportingFileManager.h"

#include <cerrno>

namespace frelta {

namespace {

/// After an operation before which errno was 0.
bool wasMissing() {
  return errno == ENOENT || errno == ENOTDIR;
}

}  // namespace

bool ReportingFileManager::told(bool succeeded, Failure::Operation operation,
                                std::string_view path) const {
  const int error = errno;
  if (!succeeded) listener_.failed({operation, std::string(path), error});
  return succeeded;
}

bool ReportingFileManager::fileExistsAtPath(std::string_view path) const {
  return next_.fileExistsAtPath(path);
}

bool ReportingFileManager::directoryExistsAtPath(std::string_view path) const {
  return next_.directoryExistsAtPath(path);
}

std::optional<std::vector<std::string>> ReportingFileManager::contentsOfDirectoryAtPath(
    std::string_view path) const {
  return next_.contentsOfDirectoryAtPath(path);
}

std::optional<std::uint64_t> ReportingFileManager::fileSizeAtPath(std::string_view path) const {
  return next_.fileSizeAtPath(path);
}

std::optional<FileStamp> ReportingFileManager::fileStampAtPath(std::string_view path) const {
  return next_.fileStampAtPath(path);
}

std::optional<std::string> ReportingFileManager::contentsAtPath(std::string_view path,
                                                                std::uint64_t maximumBytes) const {
  errno = 0;
  auto bytes = next_.contentsAtPath(path, maximumBytes);
  // A picture that cannot be read shows a placeholder in its place.
  if (!bytes && path.ends_with(".plist") && !wasMissing())
    told(false, Failure::Operation::Read, path);
  return bytes;
}

bool ReportingFileManager::createDirectoryAtPath(std::string_view path) {
  errno = 0;
  return told(next_.createDirectoryAtPath(path), Failure::Operation::CreateFolder, path);
}

bool ReportingFileManager::removeItemAtPath(std::string_view path) {
  errno = 0;
  const bool removed = next_.removeItemAtPath(path);
  if (removed && removed_) removed_(path);
  return removed || wasMissing() ? removed : told(false, Failure::Operation::Remove, path);
}

bool ReportingFileManager::copyItemAtPath(std::string_view from, std::string_view to) {
  errno = 0;
  return told(next_.copyItemAtPath(from, to), Failure::Operation::Write, to);
}

bool ReportingFileManager::writeAtomically(std::string_view path, std::string_view bytes) {
  errno = 0;
  return told(next_.writeAtomically(path, bytes), Failure::Operation::Write, path);
}

}  // namespace frelta
