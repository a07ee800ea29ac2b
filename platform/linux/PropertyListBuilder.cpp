#include "linux/PropertyListBuilder.h"

#include <utility>

namespace frelta {

PropertyListBuilder::PropertyListBuilder(int maximumDepth, std::size_t maximumNodes)
    : depthLeft_(static_cast<std::size_t>(maximumDepth)), nodesLeft_(maximumNodes) {}

bool PropertyListBuilder::setKey(std::string key) {
  if (containers_.empty()) return false;
  Container& container = containers_.back();
  if (!container.value.dictionary() || container.key) return false;
  container.key = std::move(key);
  return true;
}

bool PropertyListBuilder::add(PropertyListValue&& value) {
  return countNode() && place(std::move(value));
}

bool PropertyListBuilder::open(PropertyListValue&& emptyContainer) {
  if (depthLeft_ == 0 || !countNode()) return false;
  --depthLeft_;
  containers_.push_back({std::move(emptyContainer), std::nullopt});
  return true;
}

bool PropertyListBuilder::close() {
  if (containers_.empty() || containers_.back().key) return false;
  PropertyListValue value = std::move(containers_.back().value);
  containers_.pop_back();
  ++depthLeft_;
  return place(std::move(value));
}

std::optional<PropertyListValue> PropertyListBuilder::takeValue() {
  if (insideContainer()) return std::nullopt;
  return std::exchange(result_, std::nullopt);
}

bool PropertyListBuilder::countNode() {
  if (nodesLeft_ == 0) return false;
  --nodesLeft_;
  return true;
}

bool PropertyListBuilder::place(PropertyListValue&& value) {
  if (containers_.empty()) {
    if (result_) return false;
    result_ = std::move(value);
    return true;
  }
  Container& container = containers_.back();
  if (Array* array = container.value.array()) {
    array->push_back(std::move(value));
    return true;
  }
  if (!container.key) return false;
  // The files written here have their keys in order, so the end is where most of them go.
  Dictionary& dictionary = *container.value.dictionary();
  dictionary.insert_or_assign(dictionary.end(), std::move(*container.key), std::move(value));
  container.key.reset();
  return true;
}

}  // namespace frelta
