#include "linux/DeviceRoot.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <filesystem>
#include <vector>

#include "linux/OpenBeneath.h"

namespace frelta {

namespace {

constexpr int kMaximumLinks = 40;
/// How often a lookup that met a folder being moved is tried again.
constexpr int kMaximumAttempts = 16;

FileDescriptor openBelow(const FileDescriptor& folder, const std::string& name, int flags) {
  return FileDescriptor(::openat(folder.get(), name.c_str(), flags | O_NOFOLLOW | O_CLOEXEC));
}

FileDescriptor openByKernel(const FileDescriptor& root, const std::string& path, int flags) {
  open_how how{};
  how.flags = static_cast<unsigned>(flags | O_CLOEXEC);
  how.resolve = RESOLVE_IN_ROOT | RESOLVE_NO_MAGICLINKS;
  FileDescriptor opened;
  for (int attempt = 0; attempt < kMaximumAttempts && !opened; ++attempt) {
    opened = FileDescriptor(
        static_cast<int>(::syscall(SYS_openat2, root.get(), path.c_str(), &how, sizeof how)));
    if (!opened && errno != EAGAIN) break;
  }
  return opened;
}

std::optional<std::string> targetOfLink(const FileDescriptor& link) {
  std::array<char, PATH_MAX> buffer;
  const ssize_t length = ::readlinkat(link.get(), "", buffer.data(), buffer.size());
  if (length <= 0) return std::nullopt;
  return std::string(buffer.data(), static_cast<std::size_t>(length));
}

/// Takes the first component off the path; empty when there is none.
std::string takeComponent(std::string& path) {
  const auto start = path.find_first_not_of('/');
  if (start == std::string::npos) return {};
  const auto end = std::min(path.find('/', start), path.size());
  std::string name = path.substr(start, end - start);
  path.erase(0, end);
  return name;
}

/// For this user only: whoever else could open the root could read what is in it and hold locks.
void makePrivateFolders(const std::filesystem::path& folder) {
  std::filesystem::path made;
  for (const auto& component : folder) {
    made /= component;
    ::mkdir(made.c_str(), S_IRWXU);
  }
}

}  // namespace

DeviceRoot::DeviceRoot(const std::string& folder, PathLookup lookup) : lookup_(lookup) {
  makePrivateFolders(folder);
  root_ = FileDescriptor(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

FileDescriptor DeviceRoot::open(std::string_view path, int flags) const {
  const bool fit = path.starts_with('/') && path.size() < PATH_MAX && path.find('\0') == path.npos;
  if (!fit || !root_) return {};
  if (lookup_ == PathLookup::Kernel) {
    FileDescriptor opened = openByKernel(root_, std::string(path), flags);
    if (opened || !kernelCannotOpenBeneath(errno)) return opened;
  }
  return walk(path, flags);
}

std::optional<DeviceRoot::Entry> DeviceRoot::entry(std::string_view path, int flags) const {
  while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
  const auto slash = path.rfind('/');
  if (slash == std::string_view::npos) return std::nullopt;
  const std::string_view name = path.substr(slash + 1);
  if (name.empty() || name == "." || name == ".." || name.find('\0') != name.npos)
    return std::nullopt;
  Entry entry{open(path.substr(0, slash + 1), flags | O_DIRECTORY), std::string(name)};
  if (!entry.folder) return std::nullopt;
  return entry;
}

FileDescriptor DeviceRoot::walk(std::string_view path, int flags) const {
  // The folders passed, so that ".." goes back by name from the root: the file system's own ".."
  // may by then point elsewhere.
  std::vector<std::string> trail;
  FileDescriptor folder;
  const auto returnAlongTrail = [&] {
    folder = openBelow(root_, ".", O_PATH | O_DIRECTORY);
    for (auto name = trail.begin(); name != trail.end() && folder; ++name)
      folder = openBelow(folder, *name, O_PATH | O_DIRECTORY);
  };

  returnAlongTrail();
  std::string rest(path);
  for (int links = 0; folder;) {
    const std::string name = takeComponent(rest);
    if (name.empty()) return openBelow(folder, ".", flags);
    if (name == ".") continue;
    if (name == "..") {
      if (!trail.empty()) trail.pop_back();
      returnAlongTrail();
      continue;
    }
    FileDescriptor item = openBelow(folder, name, O_PATH);
    struct stat status;
    if (!item || ::fstat(item.get(), &status) != 0) return {};
    if (S_ISLNK(status.st_mode)) {
      const auto target = targetOfLink(item);
      if (!target || ++links > kMaximumLinks) return {};
      if (target->starts_with('/')) {
        trail.clear();
        returnAlongTrail();
      }
      rest.insert(0, *target);
    } else if (S_ISDIR(status.st_mode)) {
      folder = std::move(item);
      trail.push_back(name);
    } else {
      return rest.empty() ? openBelow(folder, name, flags) : FileDescriptor();
    }
  }
  return {};
}

}  // namespace frelta
