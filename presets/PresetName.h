#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace frelta {

/// What became of a name that the user typed.
struct PresetName {
  /// The name to use; nothing when there is none to be had.
  std::optional<std::string> name;
  /// Then this says why, for the user.
  std::string problem = {};
};

/// Takes out what a file name must not hold, every ".plist" too, and checks what is left: not only
/// blanks, and at most 32 UTF-16 units. Blanks at the ends stay and count.
PresetName presetNameFromText(std::string_view text);

/// The file of the preset with that name, and the name of the preset in a file.
std::string presetPathForName(std::string_view name);
std::string presetNameAtPath(std::string_view path);

}  // namespace frelta
