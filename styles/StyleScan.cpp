#include "styles/StyleScan.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "foundation/Platform.h"
#include "foundation/StringPaths.h"
#include "settings/SettingsKeys.h"

namespace frelta {

namespace {

/// Lower-casing makes no ASCII letter of the suffix out of any other character.
bool isWidgetPath(std::string_view path) {
  constexpr std::string_view kSuffix = ".bundle";
  if (path.size() < kSuffix.size()) return false;
  return std::ranges::equal(path.substr(path.size() - kSuffix.size()), kSuffix, {}, [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
}

std::optional<std::int32_t> kindOf(const std::string& path) {
  if (isWidgetPath(path)) return FreltaStyleModeWidget;
  const FileManager& files = *Platform::current().fileManager;
  if (files.fileExistsAtPath(stringByAppendingPathComponent(path, "Images")))
    return FreltaStyleModeImages;
  if (files.fileExistsAtPath(stringByAppendingPathComponent(path, "HTML")))
    return FreltaStyleModeHTML;
  return std::nullopt;
}

/// Images themes deliberately have none.
std::optional<std::string_view> defaultPath(std::int32_t kind) {
  switch (kind) {
    case FreltaStyleModeHTML:
      return "/Library/Frelta/Themes/Example HTML.theme";
    case FreltaStyleModeWidget:
      return "/Library/Frelta/Themes/Example Widget.bundle";
    default:
      return std::nullopt;
  }
}

}  // namespace

std::string_view enabledPathKey(std::int32_t kind) {
  switch (kind) {
    case FreltaStyleModeHTML:
      return "EnabledHTMLThemesPath";
    case FreltaStyleModeWidget:
      return "EnabledWidgetPath";
    default:
      return "EnabledThemePath";
  }
}

bool isPathEnabled(std::string_view path, std::int32_t kind, const Dictionary& settings) {
  const PropertyListValue* stored = valueForKey(settings, enabledPathKey(kind));
  if (!stored) return defaultPath(kind) == path;
  return stored->string() && *stored->string() == path;
}

std::vector<std::shared_ptr<FreltaSortedItem>> stylesOfKind(std::int32_t kind,
                                                            const Dictionary& settings) {
  const FileManager& files = *Platform::current().fileManager;
  std::vector<std::shared_ptr<FreltaSortedItem>> styles;
  for (const std::string& name :
       files.contentsOfDirectoryAtPath(kThemesFolder).value_or(std::vector<std::string>())) {
    std::string path = stringByAppendingPathComponent(kThemesFolder, name);
    if (kindOf(path) != kind) continue;
    const std::string displayName(stringByDeletingPathExtension(name));
    auto style = std::make_shared<FreltaSortedStyle>();
    style->setDisplayName(displayName);
    style->setTitle(displayName);
    style->setEnabledState(isPathEnabled(path, kind, settings) ? FreltaEnabledStateAll
                                                               : FreltaEnabledStateNone);
    style->setFullPath(std::move(path));
    style->setStyleMode(kind);
    styles.push_back(std::move(style));
  }
  return styles;
}

}  // namespace frelta
