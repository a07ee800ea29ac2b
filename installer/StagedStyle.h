#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "installer/StyleRefusal.h"
#include "linux/DeviceRoot.h"

namespace frelta {

/// A style's folder while it is made, out of sight beside the styles folder; it takes its place
/// whole or not at all. It lies in a folder of a random name that only this user can enter, so
/// whoever else may write around it can move that folder away but neither reach into it nor lock
/// it. Any number can be made at a time; what a process that died has left is removed by the next.
class StagedStyle {
 public:
  /// Makes an empty one. The styles folder must exist.
  static std::variant<std::unique_ptr<StagedStyle>, StyleRefusal> begin(const DeviceRoot& root);
  /// Removes what processes that died have left; what is being made stays.
  static void sweep(const DeviceRoot& root);

  StagedStyle(const StagedStyle&) = delete;
  StagedStyle& operator=(const StagedStyle&) = delete;
  /// Removes it unless it has taken its place.
  ~StagedStyle();

  // Paths are relative to the style's folder and have been checked; each is new and what holds it
  // is there. False, or no descriptor, leaves the reason in errno.
  bool makeFolder(const std::string& path);
  FileDescriptor makeFile(const std::string& path);
  static bool write(const FileDescriptor& file, std::string_view bytes);

  /// Brings everything to the disk. False leaves the reason in errno.
  bool flush();
  /// Gives it the name in the styles folder. What has the name is kept, as a refusal, or goes when
  /// it is to be replaced: in one step, so that a reader finds the old style or the new one.
  std::optional<StyleRefusal> takePlace(const std::string& name, bool replace);

 private:
  StagedStyle(FileDescriptor parent, FileDescriptor styles)
      : parent_(std::move(parent)), styles_(std::move(styles)) {}
  /// False when somebody was faster, or the folder is not to be trusted.
  bool makeUnder(const std::string& name);

  FileDescriptor parent_;
  FileDescriptor styles_;
  std::string name_;        // in the parent
  FileDescriptor private_;  // locked
  FileDescriptor folder_;   // in it, the style
};

}  // namespace frelta
