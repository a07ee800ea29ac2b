#include "linux/LinuxFileManager.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <new>
#include <stdexcept>

#include "linux/FolderContents.h"
#include "linux/TemporaryFile.h"

namespace frelta {

namespace {

constexpr mode_t kNewFile = 0644;
constexpr mode_t kNewFolder = 0755;
constexpr mode_t kPermissions = 0777;
/// What one read asks for beyond the size the file had.
constexpr std::size_t kChunk = std::size_t{64} << 10;

struct OpenFile {
  FileDescriptor descriptor;
  std::uint64_t size = 0;
  mode_t permissions = 0;
};

std::int64_t nanoseconds(const timespec& time) {
  return std::int64_t{1'000'000'000} * time.tv_sec + time.tv_nsec;
}

/// Nothing for what is not a regular file; never waits for a pipe's other end.
std::optional<OpenFile> openRegularFile(const DeviceRoot& root, std::string_view path, int flags) {
  FileDescriptor file = root.open(path, flags);
  struct stat status;
  if (!file || ::fstat(file.get(), &status) != 0) return std::nullopt;
  if (!S_ISREG(status.st_mode)) {
    errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    return std::nullopt;
  }
  return OpenFile{std::move(file), static_cast<std::uint64_t>(status.st_size),
                  status.st_mode & kPermissions};
}

std::optional<OpenFile> openForReading(const DeviceRoot& root, std::string_view path) {
  return openRegularFile(root, path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
}

/// Bytes read, 0 at the end, negative when it failed.
ssize_t readSome(const FileDescriptor& file, char* buffer, std::size_t size) {
  ssize_t result;
  do result = ::read(file.get(), buffer, size);
  while (result < 0 && errno == EINTR);
  return result;
}

std::optional<std::string> readWhole(const OpenFile& file, std::uint64_t maximumBytes) {
  std::string bytes;
  std::size_t used = 0;
  bytes.resize(file.size + 1);
  for (;;) {
    if (used == bytes.size()) bytes.resize(used + kChunk);
    const ssize_t count = readSome(file.descriptor, bytes.data() + used, bytes.size() - used);
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    used += static_cast<std::size_t>(count);
    // The file may be growing while it is read.
    if (used > maximumBytes) {
      errno = EFBIG;
      return std::nullopt;
    }
  }
  bytes.resize(used);
  return bytes;
}

/// As many bytes as the file had when it was opened: one that keeps growing ends too.
bool copyBytes(const OpenFile& from, TemporaryFile& to) {
  std::array<char, kChunk> buffer;
  for (std::uint64_t left = from.size; left > 0;) {
    const ssize_t count = readSome(from.descriptor, buffer.data(),
                                   static_cast<std::size_t>(std::min<std::uint64_t>(left, kChunk)));
    if (count < 0) return false;
    if (count == 0) return true;
    if (!to.append({buffer.data(), static_cast<std::size_t>(count)})) return false;
    left -= static_cast<std::uint64_t>(count);
  }
  return true;
}

std::optional<mode_t> permissionsOf(const DeviceRoot::Entry& entry) {
  struct stat status;
  if (::fstatat(entry.folder.get(), entry.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0 ||
      !S_ISREG(status.st_mode))
    return std::nullopt;
  return status.st_mode & kPermissions;
}

}  // namespace

LinuxFileManager::LinuxFileManager(const std::string& root, PathLookup lookup)
    : root_(root, lookup) {}

bool LinuxFileManager::fileExistsAtPath(std::string_view path) const {
  return static_cast<bool>(root_.open(path, O_PATH));
}

bool LinuxFileManager::directoryExistsAtPath(std::string_view path) const {
  return static_cast<bool>(root_.open(path, O_PATH | O_DIRECTORY));
}

std::optional<std::vector<std::string>> LinuxFileManager::contentsOfDirectoryAtPath(
    std::string_view path) const {
  const FileDescriptor folder = root_.open(path, O_PATH | O_DIRECTORY);
  if (!folder) return std::nullopt;
  return namesInFolder(folder);
}

std::optional<std::uint64_t> LinuxFileManager::fileSizeAtPath(std::string_view path) const {
  const auto file = openRegularFile(root_, path, O_PATH);
  return file ? std::optional(file->size) : std::nullopt;
}

std::optional<FileStamp> LinuxFileManager::fileStampAtPath(std::string_view path) const {
  const auto file = openRegularFile(root_, path, O_PATH);
  struct stat status;
  if (!file || ::fstat(file->descriptor.get(), &status) != 0) return std::nullopt;
  return FileStamp{status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
                   nanoseconds(status.st_mtim), nanoseconds(status.st_ctim)};
}

std::optional<std::string> LinuxFileManager::contentsAtPath(std::string_view path,
                                                            std::uint64_t maximumBytes) const {
  const auto file = openForReading(root_, path);
  if (!file) return std::nullopt;
  if (file->size > maximumBytes) {
    errno = EFBIG;
    return std::nullopt;
  }
  try {
    return readWhole(*file, maximumBytes);
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  } catch (const std::length_error&) {
    return std::nullopt;
  }
}

bool LinuxFileManager::createDirectoryAtPath(std::string_view path) {
  if (directoryExistsAtPath(path)) return true;
  for (std::size_t end = 0; end < path.size();) {
    end = std::min(path.find('/', end + 1), path.size());
    const std::string_view part = path.substr(0, end);
    if (directoryExistsAtPath(part)) continue;
    const auto entry = root_.entry(part, O_PATH);
    if (!entry) break;
    const int made = ::mkdirat(entry->folder.get(), entry->name.c_str(), kNewFolder);
    if (made != 0 && errno != EEXIST) break;
  }
  return directoryExistsAtPath(path);
}

bool LinuxFileManager::removeItemAtPath(std::string_view path) {
  const auto entry = root_.entry(path, O_PATH);
  return entry && removeTree(entry->folder, entry->name);
}

bool LinuxFileManager::copyItemAtPath(std::string_view from, std::string_view to) {
  const auto source = openForReading(root_, from);
  if (!source) return false;
  const auto entry = root_.entry(to, O_RDONLY);
  if (!entry) return false;
  auto file = TemporaryFile::createIn(entry->folder, source->permissions);
  return file && file->setPermissions(source->permissions) && copyBytes(*source, *file) &&
         file->replace(entry->name);
}

bool LinuxFileManager::writeAtomically(std::string_view path, std::string_view bytes) {
  const auto entry = root_.entry(path, O_RDONLY);
  if (!entry) return false;
  const auto permissions = permissionsOf(*entry);
  auto file = TemporaryFile::createIn(entry->folder, permissions.value_or(kNewFile));
  return file && (!permissions || file->setPermissions(*permissions)) && file->append(bytes) &&
         file->replace(entry->name);
}

void LinuxFileManager::sweepDirectoryAtPath(std::string_view path) {
  if (const FileDescriptor folder = root_.open(path, O_RDONLY | O_DIRECTORY))
    TemporaryFile::sweep(folder);
}

}  // namespace frelta
