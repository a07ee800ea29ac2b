#include "selector/FullPathLog.h"

#include "foundation/Platform.h"
#include "styles/FreltaSortedStyle.h"

namespace frelta {

void logFullPath(const FreltaSortedItem* group) {
  const auto* style = dynamic_cast<const FreltaSortedStyle*>(group);
  Platform::current().log->log(style && style->fullPath() ? *style->fullPath() : "(null)");
}

}  // namespace frelta
