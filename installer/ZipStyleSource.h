#pragma once

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "installer/StyleSource.h"

struct zip;

namespace frelta {

/// A zip file. Nothing of it is unpacked before it is read.
class ZipStyleSource : public StyleSource {
 public:
  /// The descriptor is the opened file's; it stays the caller's. A refusal when the file is no zip
  /// file, is damaged or encrypted, or has more entries than the limit.
  static std::variant<std::unique_ptr<StyleSource>, StyleRefusal> open(int descriptor,
                                                                       std::string name,
                                                                       const StyleLimits& limits);

  const std::string& name() const override { return name_; }
  const std::vector<StyleEntry>& entries() const override { return entries_; }
  std::optional<StyleRefusal> read(std::size_t entry,
                                   const std::function<bool(std::string_view)>& take) override;

 private:
  struct Close {
    void operator()(zip* archive) const;
  };

  ZipStyleSource(zip* archive, std::string name) : archive_(archive), name_(std::move(name)) {}
  std::optional<StyleRefusal> listEntry(std::uint64_t index);

  std::unique_ptr<zip, Close> archive_;
  std::string name_;
  std::vector<StyleEntry> entries_;
};

}  // namespace frelta
