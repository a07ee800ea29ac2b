#pragma once

#include <memory>
#include <string>

#include "installer/ZipDirectory.h"
#include "linux/FileDescriptor.h"

struct zip_source;

namespace frelta {

/// A zip file as libzip is to see it: what comes before the list in the file, the list that was
/// found, and one end record that tells of it. libzip considers every end record in the last 64 KiB
/// and reads what each tells of; here there is only this one.
class ZipView {
 public:
  /// The file's descriptor is duplicated.
  ZipView(int descriptor, ZipDirectory directory);

  std::uint64_t size() const { return directory_.offset + end_.size(); }
  /// Reads up to that many bytes from that place on and returns how many: 0 at the end only, -1 on
  /// failure, which errno tells.
  std::int64_t read(std::uint64_t at, char* buffer, std::uint64_t bytes) const;

  /// A source for libzip, which owns the view from then on; null when there is no memory.
  static zip_source* source(std::unique_ptr<ZipView> view);

 private:
  FileDescriptor file_;
  ZipDirectory directory_;
  std::string end_;  // the list, and what stands behind it
};

}  // namespace frelta
