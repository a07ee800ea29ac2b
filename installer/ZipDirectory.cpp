#include "installer/ZipDirectory.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <string_view>
#include <vector>

namespace frelta {

namespace {

using Reason = StyleRefusalReason;

// Sizes and places of fields are those of the zip file format, section 4.3.
constexpr std::string_view kHeader = "PK\1\2";
constexpr std::size_t kHeaderSize = 46;
constexpr std::string_view kEnd = "PK\5\6";
constexpr std::size_t kEndSize = 22;
constexpr std::size_t kMaximumComment = 0xffff;
constexpr std::string_view kLargeLocator = "PK\6\7";
constexpr std::size_t kLargeLocatorSize = 20;
constexpr std::string_view kLargeEnd = "PK\6\6";
constexpr std::size_t kLargeEndSize = 56;

/// Bytes of the file from the offset on, as many as there are up to the size.
std::string bytesAt(int descriptor, std::uint64_t offset, std::uint64_t size) {
  std::string bytes(size, '\0');
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = ::pread(descriptor, bytes.data() + done, bytes.size() - done,
                                  static_cast<off_t>(offset + done));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    done += static_cast<std::size_t>(count);
  }
  bytes.resize(done);
  return bytes;
}

/// A little-endian number of that many bytes.
std::uint64_t number(std::string_view bytes, std::size_t at, int length) {
  std::uint64_t value = 0;
  for (int i = length; i-- > 0;)
    value = value << 8 | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
  return value;
}

bool isAt(std::string_view bytes, std::size_t at, std::string_view mark) {
  return bytes.substr(std::min(at, bytes.size())).starts_with(mark);
}

/// What an end record says of the list.
struct End {
  std::uint64_t disk, firstDisk, entriesHere, entries, bytes, offset;
};

End endAt(std::string_view bytes, std::size_t at) {
  return {number(bytes, at + 4, 2),  number(bytes, at + 6, 2),  number(bytes, at + 8, 2),
          number(bytes, at + 10, 2), number(bytes, at + 12, 4), number(bytes, at + 16, 4)};
}

End largeEndAt(std::string_view bytes, std::size_t at) {
  return {number(bytes, at + 16, 4), number(bytes, at + 20, 4), number(bytes, at + 24, 8),
          number(bytes, at + 32, 8), number(bytes, at + 40, 8), number(bytes, at + 48, 8)};
}

/// A field that is too small for its value is all ones and leaves it to the large record.
bool agree(const End& small, const End& large) {
  const auto agrees = [](std::uint64_t field, std::uint64_t value, std::uint64_t allOnes) {
    return field == value || field == allOnes;
  };
  return agrees(small.entriesHere, large.entriesHere, 0xffff) &&
         agrees(small.entries, large.entries, 0xffff) &&
         agrees(small.bytes, large.bytes, 0xffffffff) &&
         agrees(small.offset, large.offset, 0xffffffff);
}

/// Where each end record is that reaches to the end of the bytes.
std::vector<std::size_t> endsOf(std::string_view bytes) {
  std::vector<std::size_t> ends;
  for (std::size_t at = bytes.find(kEnd); at != bytes.npos; at = bytes.find(kEnd, at + 1)) {
    if (at + kEndSize > bytes.size()) break;
    if (at + kEndSize + number(bytes, at + 20, 2) == bytes.size()) ends.push_back(at);
  }
  return ends;
}

/// How many headers the list is made of, none if it does not end with one or a name ends before its
/// length says so: libzip would take it for another. It stops beyond the limit.
std::optional<std::size_t> countOf(std::string_view list, std::size_t limit) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < list.size() && count <= limit; ++count) {
    if (!isAt(list, at, kHeader) || list.size() - at < kHeaderSize) return std::nullopt;
    const std::string_view name = list.substr(at + kHeaderSize, number(list, at + 28, 2));
    if (name.find('\0') != name.npos) return std::nullopt;
    at += kHeaderSize + number(list, at + 28, 2) + number(list, at + 30, 2) +
          number(list, at + 32, 2);
    if (at > list.size()) return std::nullopt;
  }
  return count;
}

}  // namespace

std::variant<ZipDirectory, StyleRefusal> findZipDirectory(int descriptor,
                                                          const StyleLimits& limits) {
  const StyleRefusal damaged{Reason::Damaged, {}};
  const StyleRefusal tooMany{Reason::TooManyEntries, {}};
  struct stat status;
  if (::fstat(descriptor, &status) != 0) return damaged;
  const auto size = static_cast<std::uint64_t>(status.st_size);
  const std::uint64_t window =
      std::min<std::uint64_t>(size, kLargeLocatorSize + kEndSize + kMaximumComment);
  const std::string tail = bytesAt(descriptor, size - window, window);
  const std::vector<std::size_t> ends = endsOf(tail);
  if (ends.empty())
    return tail.find(kEnd) == tail.npos ? StyleRefusal{Reason::NotAFolderOrZip, {}} : damaged;
  // Readers would take one or the other.
  if (ends.size() > 1) return damaged;

  End end = endAt(tail, ends.front());
  std::uint64_t place = size - window + ends.front();
  if (ends.front() >= kLargeLocatorSize &&
      isAt(tail, ends.front() - kLargeLocatorSize, kLargeLocator)) {
    place = number(tail, ends.front() - kLargeLocatorSize + 8, 8);
    const std::string record = bytesAt(descriptor, place, kLargeEndSize);
    if (record.size() < kLargeEndSize || !isAt(record, 0, kLargeEnd)) return damaged;
    const End large = largeEndAt(record, 0);
    if (!agree(end, large)) return damaged;
    end = large;
  }
  if (end.disk != 0 || end.firstDisk != 0 || end.entriesHere != end.entries) return damaged;
  if (end.entries > limits.entries || end.bytes > limits.listBytes) return tooMany;
  if (end.bytes > place || end.offset > place - end.bytes) return damaged;
  ZipDirectory directory{end.offset, bytesAt(descriptor, end.offset, end.bytes), end.entries};
  const auto count = countOf(directory.list, limits.entries);
  if (directory.list.size() != end.bytes || count != end.entries) return damaged;
  return directory;
}

}  // namespace frelta
