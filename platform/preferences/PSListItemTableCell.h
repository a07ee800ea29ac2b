#pragma once

#include "preferences/PSTableCell.h"

namespace frelta {

/// One of the values of a link list, with a checkmark while its "checked" is true.
class PSListItemTableCell : public PSTableCell {
 public:
  PSListItemTableCell(std::string reuseIdentifier, std::shared_ptr<PSSpecifier> specifier);

  void refreshCellContents() override;
};

}  // namespace frelta
