#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "graphics/UIImage.h"

namespace frelta {

/// Takes a picture; null for none.
using IconHandler = std::function<void(std::shared_ptr<const UIImage>)>;

/// One style within a group. To be held by a shared pointer where loadIcon() is used.
class FreltaStyleItem : public std::enable_shared_from_this<FreltaStyleItem> {
 public:
  bool isEnabled() const { return isEnabled_; }
  void setIsEnabled(bool enabled) { isEnabled_ = enabled; }

  /// The short name, on the style's row.
  const std::optional<std::string>& title() const { return title_; }
  void setTitle(std::optional<std::string> title) { title_ = std::move(title); }
  /// The full name, in the style's information.
  const std::optional<std::string>& fulltitle() const { return fulltitle_; }
  void setFulltitle(std::optional<std::string> title) { fulltitle_ = std::move(title); }
  const std::optional<std::string>& identifier() const { return identifier_; }
  void setIdentifier(std::optional<std::string> identifier) { identifier_ = std::move(identifier); }
  /// The style's folder.
  const std::optional<std::string>& path() const { return path_; }
  void setPath(std::optional<std::string> path) { path_ = std::move(path); }

  /// Paths of the style's icon files, one for each icon: the largest of its variants. Remembered
  /// once there is one.
  std::vector<std::string> imagesForStyle();
  const std::optional<std::vector<std::string>>& cachedStyleImages() const {
    return cachedStyleImages_;
  }
  void setCachedStyleImages(std::optional<std::vector<std::string>> paths) {
    cachedStyleImages_ = std::move(paths);
  }

  /// The style's picture: its icon, or a stack of three random ones. Null when none can be made,
  /// which the next call tries again; a picture is remembered.
  std::shared_ptr<const UIImage> generateIcon();
  /// The same beside the main thread: hands the picture over, at once if it is remembered, unless
  /// `wanted` has expired by then.
  void loadIcon(std::weak_ptr<const void> wanted, IconHandler done);

 private:
  struct MadeIcon {
    std::shared_ptr<const UIImage> image;
    std::optional<std::string> failure;
  };

  /// Touches nothing of the main thread's.
  static MadeIcon makeIcon(const std::vector<std::string>& paths, double scale);
  std::vector<std::string> imagesOrNone();
  std::shared_ptr<const UIImage> keepIcon(MadeIcon made);

  bool isEnabled_ = false;
  std::optional<std::string> title_;
  std::optional<std::string> fulltitle_;
  std::optional<std::string> identifier_;
  std::optional<std::string> path_;
  std::optional<std::vector<std::string>> cachedStyleImages_;
  std::shared_ptr<const UIImage> cachedImage_;
};

}  // namespace frelta
