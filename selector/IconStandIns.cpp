#include "selector/IconStandIns.h"

#include <algorithm>

#include "foundation/Platform.h"
#include "styles/FreltaSortedStyle.h"

namespace frelta {

void IconStandIns::loadPlaceholder(std::function<void()> whenThere) {
  if (!Platform::current().workQueue) return;
  FreltaSortedStyle::loadPlaceholder(wanted_, [this, whenThere = std::move(whenThere)](Image it) {
    placeholder_ = std::move(it);
    whenThere();
  });
}

const IconStandIns::Image& IconStandIns::standIn(const std::string& path) const {
  const auto icon = std::ranges::find(icons_, path, &std::pair<std::string, Image>::first);
  return icon == icons_.end() ? placeholder_ : icon->second;
}

void IconStandIns::keep(const std::string& path, Image icon) {
  std::erase_if(icons_, [&](const auto& kept) { return kept.first == path; });
  if (!icon) return;
  icons_.emplace_front(path, std::move(icon));
  if (icons_.size() > kMostIcons) icons_.pop_back();
}

}  // namespace frelta
