#include "installer/StagedStyle.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

#include "device/Paths.h"
#include "linux/FolderContents.h"
#include "linux/OpenBeneath.h"

namespace frelta {

namespace {

using Reason = StyleRefusalReason;

/// Of the private folder, before random digits. Not in the styles folder, where it would count as a
/// style.
constexpr std::string_view kPrivatePrefix = ".installing-style-";
/// Of the style in it. No style can be called that, so a folder that holds nothing else was made
/// here.
constexpr const char* kStyleName = ".style";
/// How often another name is tried when somebody was faster with one.
constexpr int kAttempts = 16;
constexpr int kFolder = O_RDONLY | O_DIRECTORY;

StyleRefusal cannotWrite() {
  return {Reason::CannotWrite, std::strerror(errno)};
}

std::string privateName() {
  std::array<char, 24> digits;
  std::snprintf(digits.data(), digits.size(), "%08x%08x", ::arc4random(), ::arc4random());
  return std::string(kPrivatePrefix) + digits.data();
}

/// Nobody else can put anything into it, and nothing is in it that was not made here.
bool isOurs(const FileDescriptor& folder) {
  struct stat status;
  if (::fstat(folder.get(), &status) != 0) return false;
  if (status.st_uid != ::geteuid() || (status.st_mode & (S_IWGRP | S_IWOTH)) != 0) return false;
  const auto names = namesInFolder(folder);
  return names && std::ranges::all_of(*names, [](const auto& name) { return name == kStyleName; });
}

/// A file system without locks has no leftovers that are told apart, but takes styles.
bool lock(const FileDescriptor& folder) {
  return ::flock(folder.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

/// The name goes only if it is still that of an empty folder: somebody may have given it to
/// another.
void discard(const FileDescriptor& parent, const std::string& name, const FileDescriptor& folder) {
  removeTree(folder, kStyleName);
  ::unlinkat(parent.get(), name.c_str(), AT_REMOVEDIR);
}

/// The folder that holds what the path names, and that name.
std::pair<std::string, std::string> split(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return {".", path};
  return {path.substr(0, slash), path.substr(slash + 1)};
}

}  // namespace

std::variant<std::unique_ptr<StagedStyle>, StyleRefusal> StagedStyle::begin(
    const DeviceRoot& root) {
  sweep(root);
  int error = 0;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    std::unique_ptr<StagedStyle> staged(
        new StagedStyle(root.open(kFreltaFolder, kFolder), root.open(kThemesFolder, kFolder)));
    if (!staged->parent_ || !staged->styles_) return cannotWrite();
    if (staged->makeUnder(privateName())) return staged;
    error = errno;
  }
  errno = error;
  return cannotWrite();
}

bool StagedStyle::makeUnder(const std::string& name) {
  if (::mkdirat(parent_.get(), name.c_str(), S_IRWXU) != 0) return false;
  FileDescriptor made = openBeneath(parent_, name, kFolder);
  if (!made) return false;
  if (!isOurs(made)) {
    errno = EPERM;
    return false;
  }
  // Whoever sweeps may have the lock already, or have removed it: then nothing can be made in it.
  if (!lock(made)) return false;
  private_ = std::move(made);
  name_ = name;
  if (::mkdirat(private_.get(), kStyleName, 0755) != 0) return false;
  folder_ = openBeneath(private_, kStyleName, kFolder);
  return static_cast<bool>(folder_);
}

void StagedStyle::sweep(const DeviceRoot& root) {
  const FileDescriptor parent = root.open(kFreltaFolder, kFolder);
  if (!parent) return;
  for (const auto& name : namesInFolder(parent).value_or(std::vector<std::string>())) {
    if (!name.starts_with(kPrivatePrefix)) continue;
    const FileDescriptor left = openBeneath(parent, name, kFolder);
    if (left && isOurs(left) && ::flock(left.get(), LOCK_EX | LOCK_NB) == 0)
      discard(parent, name, left);
  }
}

StagedStyle::~StagedStyle() {
  if (private_) discard(parent_, name_, private_);
}

bool StagedStyle::makeFolder(const std::string& path) {
  const auto [holder, name] = split(path);
  const FileDescriptor folder = openBeneath(folder_, holder, O_PATH | O_DIRECTORY);
  return folder && ::mkdirat(folder.get(), name.c_str(), 0755) == 0;
}

FileDescriptor StagedStyle::makeFile(const std::string& path) {
  return openBeneath(folder_, path, O_WRONLY | O_CREAT | O_EXCL, 0644);
}

bool StagedStyle::write(const FileDescriptor& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(file.get(), bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

bool StagedStyle::flush() {
  return ::syncfs(folder_.get()) == 0;
}

std::optional<StyleRefusal> StagedStyle::takePlace(const std::string& name, bool replace) {
  const auto rename = [&](unsigned flags) {
    return ::renameat2(private_.get(), kStyleName, styles_.get(), name.c_str(), flags) == 0;
  };
  // A swap leaves the old style where this one was, to be removed like any leftover.
  if (!rename(RENAME_NOREPLACE) && !(errno == EEXIST && replace && rename(RENAME_EXCHANGE))) {
    if (errno == EEXIST) return StyleRefusal{Reason::AlreadyInstalled, name};
    return cannotWrite();
  }
  ::fsync(styles_.get());
  return std::nullopt;
}

}  // namespace frelta
