#include "installer/ZipStyleSource.h"

#include <sys/stat.h>
#include <zip.h>

#include <array>
#include <string_view>
#include <utility>

#include "installer/ZipView.h"

namespace frelta {

namespace {

using Reason = StyleRefusalReason;

struct CloseFile {
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};

/// Of an archive that cannot be opened.
StyleRefusalReason reasonOf(int error) {
  switch (error) {
    case ZIP_ER_EXISTS:
      return Reason::Duplicate;
    default:
      return Reason::Damaged;
  }
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
  auto found = findZipDirectory(descriptor, limits);
  if (auto* refusal = std::get_if<StyleRefusal>(&found)) return *refusal;
  auto& directory = std::get<ZipDirectory>(found);
  const std::size_t count = directory.entries;
  zip_source_t* view = ZipView::source(std::make_unique<ZipView>(descriptor, std::move(directory)));
  zip_error_t error;
  zip_error_init(&error);
  zip_t* archive = view ? zip_open_from_source(view, ZIP_RDONLY | ZIP_CHECKCONS, &error) : nullptr;
  if (!archive) {
    zip_source_free(view);
    return StyleRefusal{reasonOf(zip_error_code_zip(&error)), {}};
  }
  std::unique_ptr<ZipStyleSource> source(new ZipStyleSource(archive, std::move(name)));
  for (std::size_t i = 0; i < count; ++i) {
    if (auto refusal = source->listEntry(i)) return *refusal;
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
