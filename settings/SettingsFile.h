#pragma once

#include <string_view>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// The settings file as its writers handle it: past every cache, whole, the last writer wins.
/// Nothing here reports failure. Main thread only.

/// The file as it is on disk now; empty when it is missing or unreadable.
Dictionary settingsOnDisk();

/// Replaces the whole file, atomically, making its folder first where there is none. A failed write
/// leaves the old file.
void writeSettings(const Dictionary& settings);

/// Sets one key in the file and keeps every other entry that it holds now.
void writeSetting(std::string_view key, PropertyListValue value);

}  // namespace frelta
