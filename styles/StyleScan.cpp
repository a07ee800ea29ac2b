#include "styles/StyleScan.h"

#include <string>
#include <utility>

#include "device/Paths.h"
#include "device/StyleKinds.h"
#include "foundation/Platform.h"
#include "foundation/StringPaths.h"

namespace frelta {

namespace {

const StyleKind* kindOf(const std::string& path) {
  const FileManager& files = *Platform::current().fileManager;
  for (const StyleKind& kind : styleKinds()) {
    if (kind.folder.empty()
            ? isNamedAsKind(path, kind)
            : files.fileExistsAtPath(stringByAppendingPathComponent(path, kind.folder)))
      return &kind;
  }
  return nullptr;
}

}  // namespace

bool isPathEnabled(std::string_view path, std::int32_t kind, const Dictionary& settings) {
  const StyleKind& served = styleKind(kind);
  const PropertyListValue* stored = valueForKey(settings, served.enabledPathKey);
  if (!stored) return served.exampleIsActiveAtFirst && path == served.examplePath;
  return stored->string() && *stored->string() == path;
}

std::vector<std::shared_ptr<FreltaSortedItem>> stylesOfKind(std::int32_t kind,
                                                            const Dictionary& settings) {
  const FileManager& files = *Platform::current().fileManager;
  std::vector<std::shared_ptr<FreltaSortedItem>> styles;
  for (const std::string& name :
       files.contentsOfDirectoryAtPath(kThemesFolder).value_or(std::vector<std::string>())) {
    std::string path = stringByAppendingPathComponent(kThemesFolder, name);
    const StyleKind* found = kindOf(path);
    if (!found || found->mode != kind) continue;
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
