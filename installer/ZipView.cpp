#include "installer/ZipView.h"

#include <fcntl.h>
#include <unistd.h>
#include <zip.h>

#include <algorithm>
#include <cerrno>
#include <string_view>

namespace frelta {

namespace {

/// As long as a comment can be, so that of the file itself nothing is left where libzip looks.
constexpr std::size_t kComment = 0xffff;
/// Where the record of a file beyond 4 GiB would be told of.
constexpr std::size_t kNoLocator = 20;

void append(std::string& bytes, std::uint64_t value, int length) {
  for (int i = 0; i < length; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xff);
}

/// What libzip keeps between its calls.
struct Reading {
  std::unique_ptr<ZipView> view;
  std::uint64_t at = 0;
  zip_error_t error{};
};

zip_int64_t answer(void* state, void* data, zip_uint64_t length, zip_source_cmd_t command) {
  auto& reading = *static_cast<Reading*>(state);
  switch (command) {
    case ZIP_SOURCE_OPEN:
      reading.at = 0;
      return 0;
    case ZIP_SOURCE_READ: {
      const std::int64_t count = reading.view->read(reading.at, static_cast<char*>(data), length);
      if (count < 0) {
        zip_error_set(&reading.error, ZIP_ER_READ, errno);
        return -1;
      }
      reading.at += static_cast<std::uint64_t>(count);
      return count;
    }
    case ZIP_SOURCE_CLOSE:
      return 0;
    case ZIP_SOURCE_STAT: {
      auto* status = ZIP_SOURCE_GET_ARGS(zip_stat_t, data, length, &reading.error);
      if (!status) return -1;
      zip_stat_init(status);
      status->valid = ZIP_STAT_SIZE;
      status->size = reading.view->size();
      return sizeof *status;
    }
    case ZIP_SOURCE_SEEK: {
      const zip_int64_t at = zip_source_seek_compute_offset(reading.at, reading.view->size(), data,
                                                            length, &reading.error);
      if (at < 0) return -1;
      reading.at = static_cast<std::uint64_t>(at);
      return 0;
    }
    case ZIP_SOURCE_TELL:
      return static_cast<zip_int64_t>(reading.at);
    case ZIP_SOURCE_ERROR:
      return zip_error_to_data(&reading.error, data, length);
    case ZIP_SOURCE_FREE:
      delete &reading;
      return 0;
    case ZIP_SOURCE_SUPPORTS:
      return ZIP_SOURCE_SUPPORTS_SEEKABLE;
    default:
      zip_error_set(&reading.error, ZIP_ER_OPNOTSUPP, 0);
      return -1;
  }
}

}  // namespace

ZipView::ZipView(int descriptor, ZipDirectory directory)
    : file_(::fcntl(descriptor, F_DUPFD_CLOEXEC, 0)), directory_(std::move(directory)) {
  end_ = std::move(directory_.list);
  const std::size_t list = end_.size();
  end_.append(kNoLocator, '\0').append("PK\5\6");
  append(end_, 0, 2 + 2);
  append(end_, directory_.entries, 2);
  append(end_, directory_.entries, 2);
  append(end_, list, 4);
  append(end_, directory_.offset, 4);
  append(end_, kComment, 2);
  end_.append(kComment, '\0');
}

std::int64_t ZipView::read(std::uint64_t at, char* buffer, std::uint64_t bytes) const {
  if (at >= directory_.offset) {
    const std::size_t start = std::min<std::uint64_t>(at - directory_.offset, end_.size());
    return static_cast<std::int64_t>(end_.copy(buffer, bytes, start));
  }
  const std::size_t count = std::min(bytes, directory_.offset - at);
  ssize_t result;
  do result = ::pread(file_.get(), buffer, count, static_cast<off_t>(at));
  while (result < 0 && errno == EINTR);
  return result;
}

zip_source* ZipView::source(std::unique_ptr<ZipView> view) {
  auto reading = std::make_unique<Reading>();
  reading->view = std::move(view);
  zip_source_t* source = zip_source_function_create(answer, reading.get(), nullptr);
  if (source) static_cast<void>(reading.release());
  return source;
}

}  // namespace frelta
