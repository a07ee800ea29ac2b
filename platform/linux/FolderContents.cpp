#include "linux/FolderContents.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <string_view>

namespace frelta {

namespace {

constexpr int kReadFolder = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

struct Identity {
  dev_t device = 0;
  ino_t inode = 0;
  bool operator==(const Identity&) const = default;
};

Identity identityOf(const FileDescriptor& folder) {
  struct stat status {};
  ::fstat(folder.get(), &status);
  return {status.st_dev, status.st_ino};
}

/// A folder being emptied, and the folders in it that are still to be removed.
struct Level {
  std::string name;
  Identity identity;
  std::vector<std::string> folders;
};

/// Removes all but the folders from it; those come back as the level's.
Level enter(const FileDescriptor& folder, std::string name) {
  Level level{std::move(name), identityOf(folder), {}};
  for (auto& item : namesInFolder(folder).value_or(std::vector<std::string>()))
    if (::unlinkat(folder.get(), item.c_str(), 0) != 0 && errno == EISDIR)
      level.folders.push_back(std::move(item));
  return level;
}

bool removeEmptyFolder(const FileDescriptor& parent, const std::string& name) {
  return ::unlinkat(parent.get(), name.c_str(), AT_REMOVEDIR) == 0;
}

}  // namespace

std::optional<std::vector<std::string>> namesInFolder(const FileDescriptor& folder) {
  // An open of its own, so that the caller's reading position stays where it is.
  FileDescriptor copy(::openat(folder.get(), ".", kReadFolder));
  if (!copy) return std::nullopt;
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(::fdopendir(copy.get()), ::closedir);
  if (!stream) return std::nullopt;
  copy.release();

  std::vector<std::string> names;
  for (;;) {
    errno = 0;
    const dirent* entry = ::readdir(stream.get());
    if (!entry) break;
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  if (errno != 0) return std::nullopt;
  return names;
}

bool removeTree(const FileDescriptor& folder, const std::string& name) {
  if (::unlinkat(folder.get(), name.c_str(), 0) == 0) return true;
  if (errno != EISDIR) return false;
  if (removeEmptyFolder(folder, name)) return true;

  FileDescriptor current(::openat(folder.get(), name.c_str(), kReadFolder));
  if (!current) return false;
  std::vector<Level> levels{enter(current, name)};
  while (levels.size() > 1 || !levels.back().folders.empty()) {
    Level& level = levels.back();
    if (level.folders.empty()) {
      FileDescriptor parent(::openat(current.get(), "..", kReadFolder));
      // Somebody moved the folder away: what lies above it now is none of ours.
      if (!parent || identityOf(parent) != levels[levels.size() - 2].identity) return false;
      current = std::move(parent);
      removeEmptyFolder(current, level.name);
      levels.pop_back();
      continue;
    }
    std::string next = std::move(level.folders.back());
    level.folders.pop_back();
    if (removeEmptyFolder(current, next)) continue;
    FileDescriptor child(::openat(current.get(), next.c_str(), kReadFolder));
    if (!child) continue;
    current = std::move(child);
    levels.push_back(enter(current, std::move(next)));
  }
  return removeEmptyFolder(folder, name);
}

}  // namespace frelta
