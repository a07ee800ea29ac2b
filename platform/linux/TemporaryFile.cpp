#include "linux/TemporaryFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <vector>

#include "linux/FolderContents.h"

namespace frelta {

namespace {

/// A name may be taken and a sweep may come between; neither happens twice by chance.
constexpr int kAttempts = 16;

enum class Lock { Held, Busy, Unsupported };

/// The lock goes when the descriptor is closed, with the process at the latest.
Lock tryLock(const FileDescriptor& file) {
  if (::flock(file.get(), LOCK_EX | LOCK_NB) == 0) return Lock::Held;
  return errno == EWOULDBLOCK ? Lock::Busy : Lock::Unsupported;
}

bool flushToDisk(int descriptor) {
  int result;
  do result = ::fsync(descriptor);
  while (result != 0 && errno == EINTR);
  return result == 0;
}

std::optional<std::string> freshName() {
  std::uint64_t number = 0;
  if (::getrandom(&number, sizeof number, 0) != sizeof number) return std::nullopt;
  char digits[17];
  std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(number));
  return std::string(TemporaryFile::kPrefix) + digits;
}

bool isRegularFile(const FileDescriptor& file) {
  struct stat status;
  return ::fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode);
}

bool hasName(const FileDescriptor& file) {
  struct stat status;
  return ::fstat(file.get(), &status) == 0 && status.st_nlink > 0;
}

}  // namespace

std::optional<TemporaryFile> TemporaryFile::createIn(const FileDescriptor& folder,
                                                     mode_t permissions) {
  sweep(folder);
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    std::optional<std::string> name = freshName();
    if (!name) return std::nullopt;
    const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    FileDescriptor file(::openat(folder.get(), name->c_str(), flags, permissions));
    if (!file && errno != EEXIST) return std::nullopt;
    if (!file) continue;
    TemporaryFile made(folder.get(), *std::move(name), std::move(file));
    // Before the lock was held, another process's sweep may have taken the file for a dead one's.
    if (tryLock(made.file_) != Lock::Busy && hasName(made.file_)) return made;
  }
  return std::nullopt;
}

void TemporaryFile::sweep(const FileDescriptor& folder) {
  for (const std::string& name : namesInFolder(folder).value_or(std::vector<std::string>())) {
    if (!name.starts_with(kPrefix)) continue;
    const int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW | O_CLOEXEC;
    const FileDescriptor file(::openat(folder.get(), name.c_str(), flags));
    if (file && isRegularFile(file) && tryLock(file) == Lock::Held)
      ::unlinkat(folder.get(), name.c_str(), 0);
  }
}

TemporaryFile::~TemporaryFile() {
  if (folder_ >= 0) ::unlinkat(folder_, name_.c_str(), 0);
}

bool TemporaryFile::setPermissions(mode_t permissions) {
  return ::fchmod(file_.get(), permissions) == 0;
}

bool TemporaryFile::append(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file_.get(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool TemporaryFile::replace(const std::string& name) {
  if (name.starts_with(kPrefix) || !flushToDisk(file_.get()) ||
      ::renameat(folder_, name_.c_str(), folder_, name.c_str()) != 0)
    return false;
  // The file has its name: not even a folder that fails to flush makes the old one come back.
  flushToDisk(std::exchange(folder_, -1));
  return true;
}

}  // namespace frelta
