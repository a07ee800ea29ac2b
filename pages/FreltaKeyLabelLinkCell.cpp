#include "pages/FreltaKeyLabelLinkCell.h"

#include <string_view>
#include <utility>

#include "foundation/Platform.h"
#include "foundation/StringPaths.h"
#include "settings/FreltaPreferencesManager.h"

namespace frelta {

namespace {

std::string nameOfFileAt(const PropertyListValue* path) {
  const std::string* text = path ? path->string() : nullptr;
  if (!text || !Platform::current().fileManager->fileExistsAtPath(*text)) return "None";
  return std::string(stringByDeletingPathExtension(lastPathComponent(*text)));
}

}  // namespace

FreltaKeyLabelLinkCell::FreltaKeyLabelLinkCell(UITableViewCellStyle style,
                                               std::string reuseIdentifier,
                                               std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(style, std::move(reuseIdentifier), std::move(specifier)) {
  const std::string* key = this->specifier()->stringForKey("key");
  const PropertyListValue* path = key ? FreltaPreferencesManager::getPrefForKey(*key) : nullptr;
  detailTextLabel()->setText(
      nameOfFileAt(path ? path : this->specifier()->propertyForKey("default")));
}

}  // namespace frelta
