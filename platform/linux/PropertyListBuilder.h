#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// Puts a document's single value together from a reader's events, outermost first, and holds the
/// limits. Every operation returns false when the event does not fit there or goes over a limit;
/// the document is then to be refused.
class PropertyListBuilder {
 public:
  PropertyListBuilder(int maximumDepth, std::size_t maximumNodes);

  /// The key of the value that comes next in the innermost container, a dictionary.
  bool setKey(std::string key);
  /// A value that is whole. Of duplicate keys the last wins.
  bool add(PropertyListValue&& value);
  bool openArray() { return open(Array()); }
  bool openDictionary() { return open(Dictionary()); }
  /// Ends the innermost container.
  bool close();
  bool insideContainer() const { return !containers_.empty(); }

  /// Takes the document's value; nothing when there was none or a container is still open.
  std::optional<PropertyListValue> takeValue();

 private:
  struct Container {
    PropertyListValue value;
    std::optional<std::string> key;
  };

  bool open(PropertyListValue&& emptyContainer);
  bool countNode();
  bool place(PropertyListValue&& value);

  std::size_t depthLeft_;
  std::size_t nodesLeft_;
  std::vector<Container> containers_;  // outermost first
  std::optional<PropertyListValue> result_;
};

}  // namespace frelta
