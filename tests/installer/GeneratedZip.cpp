#include "tests/installer/GeneratedZip.h"

#include <zlib.h>

#include <stdexcept>

namespace frelta {

namespace {

constexpr std::uint32_t kInZip64 = 0xffffffff;

void append(std::string& bytes, std::uint64_t value, int length) {
  for (int i = 0; i < length; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xff);
}

std::string deflated(std::string_view bytes) {
  z_stream stream{};
  if (deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -MAX_WBITS, MAX_MEM_LEVEL,
                   Z_DEFAULT_STRATEGY) != Z_OK)
    throw std::runtime_error("deflateInit2");
  std::string packed(deflateBound(&stream, bytes.size()), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  stream.avail_in = static_cast<uInt>(bytes.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

std::string zip64Size(std::uint64_t size) {
  std::string field;
  append(field, 1, 2);
  append(field, 8, 2);
  append(field, size, 8);
  return field;
}

}  // namespace

GeneratedZip& GeneratedZip::add(std::string_view name, std::string_view bytes,
                                const Claims& claims) {
  const std::string packed = claims.method == kDeflated ? deflated(bytes) : std::string(bytes);
  const uLong crc =
      ::crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size()));
  last_ = {{},           claims.size.value_or(bytes.size()),
           claims.mode,  files_.size(),
           claims.extra, claims.comment};
  append(last_.fields, 45, 2);
  append(last_.fields, claims.flags, 2);
  append(last_.fields, claims.method, 2);
  append(last_.fields, 0, 2);
  append(last_.fields, 0x21, 2);
  append(last_.fields, crc, 4);
  append(last_.fields, packed.size(), 4);
  append(last_.fields, last_.size < kInZip64 ? last_.size : kInZip64, 4);

  const std::string extra = last_.size < kInZip64 ? std::string() : zip64Size(last_.size);
  append(files_, 0x04034b50, 4);
  files_ += last_.fields;
  append(files_, name.size(), 2);
  append(files_, extra.size(), 2);
  files_.append(name).append(extra).append(packed);
  addToDirectory(name, last_);
  return *this;
}

GeneratedZip& GeneratedZip::addFolder(std::string_view name) {
  return add(std::string(name) + '/', {}, {.mode = 040755, .size = {}});
}

GeneratedZip& GeneratedZip::addLastAgain(std::string_view name) {
  addToDirectory(name, last_);
  return *this;
}

void GeneratedZip::addToDirectory(std::string_view name, const Entry& entry) {
  const std::string extra =
      (entry.size < kInZip64 ? std::string() : zip64Size(entry.size)) + entry.extra;
  append(directory_, 0x02014b50, 4);
  append(directory_, (3 << 8) | 45, 2);  // made on Unix
  directory_ += entry.fields;
  append(directory_, name.size(), 2);
  append(directory_, extra.size(), 2);
  append(directory_, entry.comment.size(), 2);
  append(directory_, 0, 2 + 2);
  append(directory_, std::uint64_t{entry.mode} << 16, 4);
  append(directory_, entry.offset, 4);
  directory_.append(name).append(extra).append(entry.comment);
  ++count_;
}

std::string GeneratedZip::bytes(const EndClaims& claims) const {
  std::string bytes = files_ + directory_;
  constexpr std::uint64_t kMany = 0xffff;
  const std::uint64_t here = claims.entriesHere.value_or(count_);
  const std::uint64_t entries = claims.entries.value_or(count_);
  const std::uint64_t listBytes = claims.listBytes.value_or(directory_.size());
  const std::uint64_t listOffset = claims.listOffset.value_or(files_.size());
  const bool large = claims.large || count_ >= kMany;
  if (large) {
    const std::uint64_t record = bytes.size();
    append(bytes, 0x06064b50, 4);
    append(bytes, 44, 8);
    append(bytes, (3 << 8) | 45, 2);
    append(bytes, 45, 2);
    append(bytes, claims.disk, 4);
    append(bytes, claims.firstDisk, 4);
    append(bytes, here, 8);
    append(bytes, entries, 8);
    append(bytes, listBytes, 8);
    append(bytes, listOffset, 8);
    append(bytes, 0x07064b50, 4);
    append(bytes, 0, 4);
    append(bytes, record, 8);
    append(bytes, 1, 4);
  }
  append(bytes, 0x06054b50, 4);
  append(bytes, large ? 0 : claims.disk, 2);
  append(bytes, large ? 0 : claims.firstDisk, 2);
  append(bytes, large ? claims.plainEntries.value_or(kMany) : here, 2);
  append(bytes, large ? claims.plainEntries.value_or(kMany) : entries, 2);
  append(bytes, large ? claims.plainListBytes.value_or(kInZip64) : listBytes, 4);
  append(bytes, large ? claims.plainListOffset.value_or(kInZip64) : listOffset, 4);
  append(bytes, claims.comment.size(), 2);
  return bytes + claims.comment;
}

}  // namespace frelta
