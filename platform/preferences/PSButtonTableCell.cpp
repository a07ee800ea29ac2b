#include "preferences/PSButtonTableCell.h"

#include <utility>

namespace frelta {

PSButtonTableCell::PSButtonTableCell(std::string reuseIdentifier,
                                     std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(UITableViewCellStyle::Default, std::move(reuseIdentifier), std::move(specifier)) {
}

void PSButtonTableCell::refreshCellContents() {
  PSTableCell::refreshCellContents();
  textLabel()->setTextColor(specifier()->isPressable() ? UIColor::systemBlueColor()
                                                       : UIColor::labelColor());
}

}  // namespace frelta
