#include "device/StyleKinds.h"

#include <algorithm>

#include "device/Paths.h"
#include "device/SettingsKeys.h"

namespace frelta {

namespace {

constexpr StyleKind kKinds[] = {
    {.mode = FreltaStyleModeWidget,
     .suffix = ".bundle",
     .folder = {},
     .enabledPathKey = keys::kEnabledWidgetPath,
     .examplePath = kExampleWidget,
     .exampleIsActiveAtFirst = true,
     .title = "Widgets",
     .subtitle = "Widget",
     .rowKey = "FreltaWidgetCell",
     .firstBackgroundMode = 4,
     .lastBackgroundMode = INT32_MAX},
    {.mode = FreltaStyleModeImages,
     .suffix = {},
     .folder = "Images",
     .enabledPathKey = keys::kEnabledThemePath,
     .examplePath = kExampleImagesTheme,
     // Deliberately none of the images themes.
     .exampleIsActiveAtFirst = false,
     .title = "Image Themes",
     .subtitle = "Images Theme",
     .rowKey = "FreltaThemesCell",
     .firstBackgroundMode = 3,
     .lastBackgroundMode = 3},
    {.mode = FreltaStyleModeHTML,
     .suffix = {},
     .folder = "HTML",
     .enabledPathKey = keys::kEnabledHTMLThemesPath,
     .examplePath = kExampleHTMLTheme,
     .exampleIsActiveAtFirst = true,
     .title = "HTML Themes",
     .subtitle = "HTML Theme",
     .rowKey = "FreltaHTMLCell",
     .firstBackgroundMode = 1,
     .lastBackgroundMode = 1},
};

/// Makes no ASCII letter out of any other character.
char lowered(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::span<const StyleKind> styleKinds() {
  return kKinds;
}

const StyleKind& styleKind(std::int32_t mode) {
  const auto found = std::ranges::find(kKinds, mode, &StyleKind::mode);
  return found != std::end(kKinds)
             ? *found
             : *std::ranges::find(kKinds, FreltaStyleModeImages, &StyleKind::mode);
}

bool isNamedAsKind(std::string_view name, const StyleKind& kind) {
  const std::string_view suffix = kind.suffix;
  if (suffix.empty() || name.size() < suffix.size()) return false;
  return std::ranges::equal(name.substr(name.size() - suffix.size()), suffix, {}, lowered);
}

}  // namespace frelta
