#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace frelta {

/// The preset files, and the settings file as saving and applying change it. Paths are device
/// paths. No failure loses what is stored: the files then stay as they are. Main thread only.

/// The preset files in the order in which the folder lists them, after making the folder where
/// there is none.
std::vector<std::string> presetPaths();

bool presetExistsAtPath(std::string_view path);
/// Removes what has the path. Settings that name it go on naming it.
void removePreset(std::string_view path);

/// Writes the settings, over those of the preset in force, to the file in place of what was there.
/// What says which preset is in force is left out. False when that failed; a preset that was there
/// is then untouched.
bool savePreset(std::string_view path);

/// Leaves nothing in the settings file but the preset's path and the choice for light and dark
/// appearance; the file as it was goes to its path with ".bak" appended. Then drops the preferences
/// manager's cache and posts the refresh notification, also when the file could not be written and
/// is as it was. Does nothing when no file has the path.
void applyPreset(std::string_view path);

}  // namespace frelta
