#pragma once

#include "device/StyleKinds.h"
#include "styles/FreltaSortedItem.h"

namespace frelta {

/// One style's folder, shown as one row. Its state is set from outside only.
class FreltaSortedStyle : public FreltaSortedItem {
 public:
  void updateEnabledState() override {}
  /// The style's logo, made anew; null when its file is no picture.
  std::shared_ptr<const UIImage> generateIcon() override { return styleLogo(); }
  /// The logo's file in the folder, else the bundle's placeholder, masked and padded.
  std::shared_ptr<const UIImage> styleLogo() const;

  /// A FreltaStyleMode.
  std::int32_t styleMode() const { return styleMode_; }
  void setStyleMode(std::int32_t mode) { styleMode_ = mode; }
  /// The folder's name without its extension.
  const std::optional<std::string>& displayName() const { return displayName_; }
  void setDisplayName(std::optional<std::string> name) { displayName_ = std::move(name); }
  /// The folder's device path.
  const std::optional<std::string>& fullPath() const { return fullPath_; }
  void setFullPath(std::optional<std::string> path) { fullPath_ = std::move(path); }

 private:
  std::int32_t styleMode_ = FreltaStyleModeImages;
  std::optional<std::string> displayName_;
  std::optional<std::string> fullPath_;
};

}  // namespace frelta
