#pragma once

#include "styles/FreltaSortedItem.h"

namespace frelta {

/// Writes the path of the group's folder to the system log, nothing else; "(null)" where there is
/// no group or it has no folder.
void logFullPath(const FreltaSortedItem* group);

}  // namespace frelta
