#include "foundation/DarwinNotificationCenter.h"

#include <utility>

#include "foundation/Platform.h"

namespace frelta {

void DarwinNotificationCenter::addObserver(std::string name, Observer observer) {
  observers_.emplace(std::move(name), std::move(observer));
}

void DarwinNotificationCenter::deliver(std::string_view name) const {
  const auto [first, last] = observers_.equal_range(name);
  for (auto entry = first; entry != last; ++entry)
    Platform::current().mainQueue->async(entry->second);
}

}  // namespace frelta
