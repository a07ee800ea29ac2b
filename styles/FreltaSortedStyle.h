#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

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
  // The same beside the main thread: handed over unless `wanted` has expired by then.
  void loadIcon(std::weak_ptr<const void> wanted, IconHandler done) override;
  void loadStyleLogo(std::weak_ptr<const void> wanted, IconHandler done) const;
  /// The bundle's placeholder as a logo.
  static void loadPlaceholder(std::weak_ptr<const void> wanted, IconHandler done);

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
  /// Finds the logo's file; what it returns makes the logo of it, on any thread.
  std::function<std::shared_ptr<const UIImage>()> logoMaker() const;

  std::int32_t styleMode_ = FreltaStyleModeImages;
  std::optional<std::string> displayName_;
  std::optional<std::string> fullPath_;
};

}  // namespace frelta
