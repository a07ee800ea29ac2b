#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "styles/FreltaEnabledState.h"
#include "styles/FreltaStyleItem.h"

namespace frelta {

/// A group of styles, shown as one row. Shared by the lists and the cells, and compared by
/// identity.
class FreltaSortedItem {
 public:
  /// Styles in the order in which they are shown; null for no list at all.
  using Items = std::shared_ptr<std::vector<std::shared_ptr<FreltaStyleItem>>>;

  FreltaSortedItem() = default;
  virtual ~FreltaSortedItem() = default;
  FreltaSortedItem(const FreltaSortedItem&) = delete;
  FreltaSortedItem& operator=(const FreltaSortedItem&) = delete;

  /// Sets the enabled state by the items. A group without items counts as all enabled.
  virtual void updateEnabledState();
  /// The row's picture, never null; here one without content.
  virtual std::shared_ptr<const UIImage> generateIcon();
  /// The same, beside the main thread where it takes long: hands the picture over unless `wanted`
  /// has expired by then.
  virtual void loadIcon(std::weak_ptr<const void> wanted, IconHandler done);

  /// Whether the row is opened into one row for each item.
  bool isExpanded() const { return isExpanded_; }
  void setIsExpanded(bool expanded) { isExpanded_ = expanded; }
  /// A FreltaEnabledState.
  std::int32_t enabledState() const { return enabledState_; }
  virtual void setEnabledState(std::int32_t state) { enabledState_ = state; }
  const std::optional<std::string>& title() const { return title_; }
  void setTitle(std::optional<std::string> title) { title_ = std::move(title); }
  const std::optional<std::string>& subtitle() const { return subtitle_; }
  void setSubtitle(std::optional<std::string> subtitle) { subtitle_ = std::move(subtitle); }
  const Items& items() const { return items_; }
  void setItems(Items items) { items_ = std::move(items); }
  /// The item whose pictures stand for the group.
  const std::shared_ptr<FreltaStyleItem>& iconsStyle() const { return iconsStyle_; }
  void setIconsStyle(std::shared_ptr<FreltaStyleItem> item) { iconsStyle_ = std::move(item); }
  const std::shared_ptr<const UIImage>& cachedStyleLogo() const { return cachedStyleLogo_; }
  void setCachedStyleLogo(std::shared_ptr<const UIImage> logo) {
    cachedStyleLogo_ = std::move(logo);
  }

 private:
  bool isExpanded_ = false;
  std::int32_t enabledState_ = FreltaEnabledStateNone;
  std::optional<std::string> title_;
  std::optional<std::string> subtitle_;
  Items items_;
  std::shared_ptr<FreltaStyleItem> iconsStyle_;
  std::shared_ptr<const UIImage> cachedStyleLogo_;
};

}  // namespace frelta
