#include "installer/StagedStyle.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "linux/FolderContents.h"

namespace frelta {

namespace {

using Reason = StyleRefusalReason;

constexpr std::string_view kStylesFolder = "/Library/Frelta/Themes";
constexpr std::string_view kParentFolder = "/Library/Frelta";
/// Not in the styles folder, where it would count as a style.
const std::string kStagingName = ".installing-style";

StyleRefusal cannotWrite() {
  return {Reason::CannotWrite, std::strerror(errno)};
}

bool lock(const FileDescriptor& folder) {
  return ::flock(folder.get(), LOCK_EX | LOCK_NB) == 0;
}

}  // namespace

std::variant<std::unique_ptr<StagedStyle>, StyleRefusal> StagedStyle::begin(
    const DeviceRoot& root) {
  constexpr int kFolder = O_RDONLY | O_DIRECTORY;
  std::unique_ptr<StagedStyle> staged(
      new StagedStyle(root.open(kParentFolder, kFolder), root.open(kStylesFolder, kFolder)));
  if (!staged->parent_ || !staged->styles_) return cannotWrite();
  if (!lock(staged->styles_)) return StyleRefusal{Reason::Busy, {}};
  removeTree(staged->parent_, kStagingName);
  if (::mkdirat(staged->parent_.get(), kStagingName.c_str(), 0755) != 0) return cannotWrite();
  staged->folder_ = FileDescriptor(
      ::openat(staged->parent_.get(), kStagingName.c_str(), kFolder | O_NOFOLLOW | O_CLOEXEC));
  if (!staged->folder_) return cannotWrite();
  return staged;
}

void StagedStyle::sweep(const DeviceRoot& root) {
  const FileDescriptor parent = root.open(kParentFolder, O_RDONLY | O_DIRECTORY);
  const FileDescriptor styles = root.open(kStylesFolder, O_RDONLY | O_DIRECTORY);
  if (parent && styles && lock(styles)) removeTree(parent, kStagingName);
}

StagedStyle::~StagedStyle() {
  // Without the folder this one never had the lock, and the leftovers are another's.
  if (folder_) removeTree(parent_, kStagingName);
}

bool StagedStyle::makeFolder(const std::string& path) {
  return ::mkdirat(folder_.get(), path.c_str(), 0755) == 0;
}

FileDescriptor StagedStyle::makeFile(const std::string& path) {
  return FileDescriptor(::openat(folder_.get(), path.c_str(),
                                 O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0644));
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

std::optional<StyleRefusal> StagedStyle::takePlace(const std::string& name, bool replace) {
  if (::syncfs(folder_.get()) != 0) return cannotWrite();
  const auto rename = [&](unsigned flags) {
    return ::renameat2(parent_.get(), kStagingName.c_str(), styles_.get(), name.c_str(), flags) ==
           0;
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
