#include "preferences/PSListItemTableCell.h"

#include <utility>

namespace frelta {

PSListItemTableCell::PSListItemTableCell(std::string reuseIdentifier,
                                         std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(UITableViewCellStyle::Default, std::move(reuseIdentifier), std::move(specifier)) {
}

void PSListItemTableCell::refreshCellContents() {
  PSTableCell::refreshCellContents();
  const PropertyListValue* checked = specifier()->propertyForKey("checked");
  setAccessoryType(checked && checked->boolValue() ? UITableViewCellAccessoryType::Checkmark
                                                   : UITableViewCellAccessoryType::None);
}

}  // namespace frelta
