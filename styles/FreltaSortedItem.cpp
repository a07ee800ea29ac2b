#include "styles/FreltaSortedItem.h"

#include <algorithm>
#include <utility>

namespace frelta {

void FreltaSortedItem::updateEnabledState() {
  const std::ptrdiff_t count = items_ ? std::ssize(*items_) : 0;
  const std::ptrdiff_t enabled =
      items_ ? std::ranges::count_if(*items_, [](const auto& item) { return item->isEnabled(); })
             : 0;
  if (enabled == count)
    setEnabledState(FreltaEnabledStateAll);
  else
    setEnabledState(enabled < 1 ? FreltaEnabledStateNone : FreltaEnabledStatePartial);
}

std::shared_ptr<const UIImage> FreltaSortedItem::generateIcon() {
  return std::make_shared<const UIImage>();
}

void FreltaSortedItem::loadIcon(std::weak_ptr<const void>, IconHandler done) {
  const IconHandler handler = std::move(done);
  handler(generateIcon());
}

}  // namespace frelta
