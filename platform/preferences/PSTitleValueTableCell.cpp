#include "preferences/PSTitleValueTableCell.h"

#include <utility>

#include "preferences/PSValidValues.h"

namespace frelta {

PSTitleValueTableCell::PSTitleValueTableCell(std::string reuseIdentifier,
                                             std::shared_ptr<PSSpecifier> specifier)
    : PSTableCell(UITableViewCellStyle::Value1, std::move(reuseIdentifier), std::move(specifier)) {}

void PSTitleValueTableCell::refreshCellContents() {
  PSTableCell::refreshCellContents();
  detailTextLabel()->setText(titleForValue(*specifier(), readValue()));
}

}  // namespace frelta
