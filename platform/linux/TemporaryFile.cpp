#include "linux/TemporaryFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <thread>

namespace frelta {

namespace {

constexpr std::chrono::milliseconds kLockPatience{2000};
constexpr std::chrono::milliseconds kLockPause{1};

enum class Lock { Held, Busy };

Lock tryLock(const FileDescriptor& folder) {
  int result;
  do result = ::flock(folder.get(), LOCK_EX | LOCK_NB);
  while (result != 0 && errno == EINTR);
  // A file system without locks must still be written to.
  return result != 0 && errno == EWOULDBLOCK ? Lock::Busy : Lock::Held;
}

/// The lock goes when the descriptor is closed, with the process at the latest.
bool lockPatiently(const FileDescriptor& folder) {
  const auto deadline = std::chrono::steady_clock::now() + kLockPatience;
  while (tryLock(folder) == Lock::Busy) {
    if (std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(kLockPause);
  }
  return true;
}

bool flushToDisk(int descriptor) {
  int result;
  do result = ::fsync(descriptor);
  while (result != 0 && errno == EINTR);
  return result == 0;
}

}  // namespace

std::optional<TemporaryFile> TemporaryFile::createIn(const FileDescriptor& folder,
                                                     mode_t permissions) {
  if (!lockPatiently(folder)) return std::nullopt;
  const auto create = [&] {
    const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    return FileDescriptor(::openat(folder.get(), kName, flags, permissions));
  };
  FileDescriptor file = create();
  if (!file && errno == EEXIST && ::unlinkat(folder.get(), kName, 0) == 0) file = create();
  if (!file) return std::nullopt;
  return TemporaryFile(folder.get(), std::move(file));
}

void TemporaryFile::sweep(const FileDescriptor& folder) {
  if (tryLock(folder) == Lock::Held) ::unlinkat(folder.get(), kName, 0);
}

TemporaryFile::~TemporaryFile() {
  if (folder_ >= 0) ::unlinkat(folder_, kName, 0);
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
  return name != kName && flushToDisk(file_.get()) &&
         finish(::renameat(folder_, kName, folder_, name.c_str()) == 0);
}

bool TemporaryFile::takeFreeName(const std::string& name) {
  if (name == kName || !flushToDisk(file_.get())) return false;
  int result = ::renameat2(folder_, kName, folder_, name.c_str(), RENAME_NOREPLACE);
  if (result != 0 && (errno == EINVAL || errno == ENOSYS)) {
    // This file system cannot check and rename in one step.
    struct stat status;
    const bool isFree =
        ::fstatat(folder_, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT;
    if (isFree) result = ::renameat(folder_, kName, folder_, name.c_str());
  }
  return finish(result == 0);
}

bool TemporaryFile::finish(bool renamed) {
  if (!renamed) return false;
  // The file has its name: not even a folder that fails to flush makes the old one come back.
  flushToDisk(std::exchange(folder_, -1));
  return true;
}

}  // namespace frelta
