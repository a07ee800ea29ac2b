#include "installer/FolderStyleSource.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>

#include "linux/FolderContents.h"
#include "linux/OpenBeneath.h"

namespace frelta {

namespace {

using Reason = StyleRefusalReason;

constexpr int kFolder = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
// A pipe put in a file's place is not waited on.
constexpr int kFile = O_RDONLY | O_NONBLOCK | O_NOCTTY;

StyleEntry::Kind kindOf(mode_t mode) {
  if (S_ISREG(mode)) return StyleEntry::Kind::File;
  if (S_ISDIR(mode)) return StyleEntry::Kind::Folder;
  return S_ISLNK(mode) ? StyleEntry::Kind::Link : StyleEntry::Kind::Device;
}

}  // namespace

std::variant<std::unique_ptr<StyleSource>, StyleRefusal> FolderStyleSource::open(
    FileDescriptor folder, std::string name, const StyleLimits& limits) {
  std::unique_ptr<FolderStyleSource> source(
      new FolderStyleSource(std::move(folder), std::move(name)));
  if (auto refusal = source->list(source->folder_, {}, 1, limits)) return *refusal;
  return std::unique_ptr<StyleSource>(std::move(source));
}

// The depth is bounded, so the calls and the open folders are too.
std::optional<StyleRefusal> FolderStyleSource::list(  // NOLINT(misc-no-recursion)
    const FileDescriptor& folder, const std::string& prefix, std::size_t depth,
    const StyleLimits& limits) {
  const auto names = namesInFolder(folder);
  if (!names) return StyleRefusal{Reason::Missing, prefix};
  for (const std::string& name : *names) {
    struct stat status;
    if (::fstatat(folder.get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
      return StyleRefusal{Reason::Damaged, prefix + name};
    if (entries_.size() == limits.entries) return StyleRefusal{Reason::TooManyEntries, {}};
    const StyleEntry::Kind kind = kindOf(status.st_mode);
    entries_.push_back({prefix + name, kind, static_cast<std::uint64_t>(status.st_size)});
    if (kind != StyleEntry::Kind::Folder) continue;
    if (depth == limits.depth) return StyleRefusal{Reason::TooDeep, prefix + name};
    const FileDescriptor child(::openat(folder.get(), name.c_str(), kFolder));
    if (!child) return StyleRefusal{Reason::Missing, prefix + name};
    if (auto refusal = list(child, prefix + name + '/', depth + 1, limits)) return refusal;
  }
  return std::nullopt;
}

std::optional<StyleRefusal> FolderStyleSource::read(
    std::size_t entry, const std::function<bool(std::string_view)>& take) {
  const std::string& path = entries_[entry].path;
  const FileDescriptor file = openBeneath(folder_, path, kFile);
  if (!file) return StyleRefusal{Reason::Missing, path};
  const StyleRefusal changed{Reason::Damaged, path};
  struct stat status;
  if (::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return changed;
  std::array<char, std::size_t{64} << 10> buffer;
  for (std::uint64_t left = entries_[entry].size;;) {
    const ssize_t count = ::read(file.get(), buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 || static_cast<std::uint64_t>(count) > left) return changed;
    if (count == 0) return left == 0 ? std::nullopt : std::optional(changed);
    left -= static_cast<std::uint64_t>(count);
    if (!take({buffer.data(), static_cast<std::size_t>(count)})) return std::nullopt;
  }
}

}  // namespace frelta
