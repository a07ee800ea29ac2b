#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace frelta {

/// Which kind of style a folder holds, and which kind a selector serves. Any other number counts as
/// an images theme wherever a text or a key is chosen.
enum FreltaStyleMode : std::int32_t {
  FreltaStyleModeImages = 0,
  FreltaStyleModeHTML = 1,
  FreltaStyleModeWidget = 2
};

/// All that tells one kind of style from the others.
struct StyleKind {
  FreltaStyleMode mode;
  /// Ends the name of every style of the kind, ASCII letters in any case; empty when names tell
  /// nothing.
  std::string_view suffix;
  /// What stands in every style of the kind; empty when the name alone tells.
  std::string_view folder;
  /// The settings key that holds the path of the active style.
  std::string_view enabledPathKey;
  /// The path of the style that comes with the bundle, and whether that one counts as active where
  /// the key is absent.
  std::string_view examplePath;
  bool exampleIsActiveAtFirst;
  /// The title of the selector.
  std::string_view title;
  /// What a card says below the style's name.
  std::string_view subtitle;
  /// The root page's row that opens the selector, and the values of "BackgroundMode" that show it.
  std::string_view rowKey;
  std::int32_t firstBackgroundMode;
  std::int32_t lastBackgroundMode;
};

/// Every kind, in the order in which a folder is tried for them. Lives as long as the process.
std::span<const StyleKind> styleKinds();

/// The kind of that mode; that of images themes for any other number.
const StyleKind& styleKind(std::int32_t mode);

/// Whether the name, or the path that ends with it, ends as every style of the kind does. False for
/// a kind whose names tell nothing.
bool isNamedAsKind(std::string_view name, const StyleKind& kind);

}  // namespace frelta
