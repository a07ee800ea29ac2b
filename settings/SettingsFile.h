#pragma once

#include <string>
#include <string_view>

#include "foundation/PropertyListValue.h"

namespace frelta {

/// The settings file as its writers handle it: past every cache, whole, the last writer wins. No
/// failure loses what is stored: the file is then as it was. Main thread only.

/// The file as it is on disk now; empty when it is missing or unreadable.
Dictionary settingsOnDisk();

/// Replaces the whole file, atomically, making its folder first where there is none. What cannot be
/// read is copied to its path with ".unreadable" appended first, unless a copy at least as long
/// stands there already; a line in the log says so. False when the settings cannot be stored in a
/// property list, or the copy or the write failed; the old file is then untouched.
bool writeSettings(const Dictionary& settings);

/// The same for a caller that has just read the file, or found none: there is nothing to keep
/// aside, and the file is not read again.
bool replaceReadSettings(const Dictionary& settings);

/// As writeSettings(), but before the new file takes its place, a copy of the old one replaces what
/// has the backup's path. A copy that fails stops nothing. Settings that cannot be stored touch no
/// file.
bool writeSettingsWithBackup(const Dictionary& settings, const std::string& backupPath);

/// Sets one key in the file and keeps every other entry that it holds now. False as
/// writeSettings().
bool writeSetting(std::string_view key, PropertyListValue value);

}  // namespace frelta
