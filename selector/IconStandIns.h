#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <utility>

#include "graphics/UIImage.h"

namespace frelta {

/// What a selector's cards show until their own icons are there.
class IconStandIns {
 public:
  using Image = std::shared_ptr<const UIImage>;

  /// Has the placeholder made beside the main thread, before whatever is asked for after it, and
  /// tells when it is there; never once this is gone. Nothing where all is done at once: then no
  /// icon is awaited.
  void loadPlaceholder(std::function<void()> whenThere);
  /// Null until it is there.
  const Image& placeholder() const { return placeholder_; }

  /// The icon that the style of that path had when it was last shown, else the placeholder.
  const Image& standIn(const std::string& path) const;
  /// Keeps the icon as the style's last one, in place of the one shown longest ago where there are
  /// too many; null for none.
  void keep(const std::string& path, Image icon);

 private:
  /// More cards than a screen shows; each icon takes 230 KB on the finest screen.
  static constexpr std::size_t kMostIcons = 32;

  Image placeholder_;
  std::list<std::pair<std::string, Image>> icons_;  // the last one shown first
  std::shared_ptr<const void> wanted_ = std::make_shared<const bool>();
};

}  // namespace frelta
