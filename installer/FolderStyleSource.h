#pragma once

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "installer/StyleSource.h"
#include "linux/FileDescriptor.h"

namespace frelta {

/// A folder of the host. No link in it is followed.
class FolderStyleSource : public StyleSource {
 public:
  /// A refusal when the folder cannot be listed or has more entries, or goes deeper, than the
  /// limits.
  static std::variant<std::unique_ptr<StyleSource>, StyleRefusal> open(FileDescriptor folder,
                                                                       std::string name,
                                                                       const StyleLimits& limits);

  const std::string& name() const override { return name_; }
  const std::vector<StyleEntry>& entries() const override { return entries_; }
  std::optional<StyleRefusal> read(std::size_t entry,
                                   const std::function<bool(std::string_view)>& take) override;

 private:
  FolderStyleSource(FileDescriptor folder, std::string name)
      : folder_(std::move(folder)), name_(std::move(name)) {}
  std::optional<StyleRefusal> list(const FileDescriptor& folder, const std::string& prefix,
                                   std::size_t depth, const StyleLimits& limits);

  FileDescriptor folder_;
  std::string name_;
  std::vector<StyleEntry> entries_;
};

}  // namespace frelta
