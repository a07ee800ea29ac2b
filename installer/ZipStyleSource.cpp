#include "installer/ZipStyleSource.h"

#include <sys/stat.h>
#include <unistd.h>
#include <zip.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace frelta {

namespace {

using Reason = StyleRefusalReason;

struct CloseFile {
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};

/// Of an archive that cannot be opened.
StyleRefusalReason reasonOf(int error) {
  switch (error) {
    case ZIP_ER_NOZIP:
      return Reason::NotAFolderOrZip;
    case ZIP_ER_EXISTS:
      return Reason::Duplicate;
    default:
      return Reason::Damaged;
  }
}

/// What the end of the file says, so that a list of a million entries need not be read to know. The
/// list itself decides.
bool tellsOfMoreThan(std::size_t limit, int descriptor) {
  constexpr std::string_view kMark = "PK\5\6";
  constexpr std::size_t kRecord = 22;
  constexpr std::size_t kCount = 10;
  std::string end(kRecord + 0xffff, '\0');
  struct stat status;
  if (::fstat(descriptor, &status) != 0) return false;
  const auto start = std::max<off_t>(status.st_size - static_cast<off_t>(end.size()), 0);
  const ssize_t read = ::pread(descriptor, end.data(), end.size(), start);
  end.resize(static_cast<std::size_t>(std::max<ssize_t>(read, 0)));
  const std::size_t record = end.rfind(kMark);
  if (record == std::string::npos || end.size() - record < kRecord) return false;
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(end[record + i]); };
  return (byte(kCount) | (std::size_t{byte(kCount + 1)} << 8)) > limit;
}

/// Archives made on systems without these bits leave them 0, which says a plain file or folder.
StyleEntry::Kind kindOf(zip_t* archive, std::uint64_t index, const std::string& path) {
  const bool folder = path.ends_with('/');
  const auto plain = folder ? StyleEntry::Kind::Folder : StyleEntry::Kind::File;
  zip_uint8_t system = 0;
  zip_uint32_t attributes = 0;
  if (zip_file_get_external_attributes(archive, index, 0, &system, &attributes) != 0) return plain;
  constexpr unsigned kUnixBits = 16;
  switch ((attributes >> kUnixBits) & S_IFMT) {
    case 0:
    case S_IFREG:
      return plain;
    case S_IFDIR:
      return StyleEntry::Kind::Folder;
    case S_IFLNK:
      return StyleEntry::Kind::Link;
    default:
      return StyleEntry::Kind::Device;
  }
}

}  // namespace

void ZipStyleSource::Close::operator()(zip* archive) const {
  zip_discard(archive);
}

std::variant<std::unique_ptr<StyleSource>, StyleRefusal> ZipStyleSource::open(
    int descriptor, std::string name, const StyleLimits& limits) {
  if (tellsOfMoreThan(limits.entries, descriptor)) return StyleRefusal{Reason::TooManyEntries, {}};
  // The archive closes the descriptor that it is given.
  const int own = ::dup(descriptor);
  int error = 0;
  zip_t* archive = own < 0 ? nullptr : zip_fdopen(own, ZIP_CHECKCONS, &error);
  if (!archive) {
    if (own >= 0) ::close(own);
    return StyleRefusal{reasonOf(error), {}};
  }
  std::unique_ptr<ZipStyleSource> source(new ZipStyleSource(archive, std::move(name)));
  const zip_int64_t count = zip_get_num_entries(archive, 0);
  if (count > static_cast<zip_int64_t>(limits.entries))
    return StyleRefusal{Reason::TooManyEntries, {}};
  for (zip_int64_t i = 0; i < count; ++i) {
    if (auto refusal = source->listEntry(static_cast<std::uint64_t>(i))) return *refusal;
  }
  return std::unique_ptr<StyleSource>(std::move(source));
}

std::optional<StyleRefusal> ZipStyleSource::listEntry(std::uint64_t index) {
  // Names as they are in the file: whether they are text is for the plan to check.
  zip_stat_t status;
  const char* path = zip_get_name(archive_.get(), index, ZIP_FL_ENC_RAW);
  if (!path || zip_stat_index(archive_.get(), index, ZIP_FL_ENC_RAW, &status) != 0 ||
      !(status.valid & ZIP_STAT_SIZE))
    return StyleRefusal{Reason::Damaged, {}};
  StyleEntry entry;
  entry.path = path;
  if (status.encryption_method != ZIP_EM_NONE) return StyleRefusal{Reason::Encrypted, entry.path};
  // Others may grow without bound while they are unpacked, and no desktop writes them.
  if (status.comp_method != ZIP_CM_STORE && status.comp_method != ZIP_CM_DEFLATE)
    return StyleRefusal{Reason::UnknownCompression, entry.path};
  entry.kind = kindOf(archive_.get(), index, entry.path);
  entry.size = status.size;
  entries_.push_back(std::move(entry));
  return std::nullopt;
}

std::optional<StyleRefusal> ZipStyleSource::read(
    std::size_t entry, const std::function<bool(std::string_view)>& take) {
  const StyleRefusal damaged{Reason::Damaged, entries_[entry].path};
  const std::unique_ptr<zip_file_t, CloseFile> file(zip_fopen_index(archive_.get(), entry, 0));
  if (!file) return damaged;
  std::array<char, std::size_t{64} << 10> buffer;
  for (std::uint64_t left = entries_[entry].size;;) {
    const zip_int64_t count = zip_fread(file.get(), buffer.data(), buffer.size());
    if (count < 0 || static_cast<std::uint64_t>(count) > left) return damaged;
    if (count == 0) return left == 0 ? std::nullopt : std::optional(damaged);
    left -= static_cast<std::uint64_t>(count);
    if (!take({buffer.data(), static_cast<std::size_t>(count)})) return std::nullopt;
  }
}

}  // namespace frelta
