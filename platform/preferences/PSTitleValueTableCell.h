#pragma once

#include "preferences/PSTableCell.h"

namespace frelta {

/// A label and the row's value, to look at.
class PSTitleValueTableCell : public PSTableCell {
 public:
  PSTitleValueTableCell(std::string reuseIdentifier, std::shared_ptr<PSSpecifier> specifier);

  void refreshCellContents() override;
};

}  // namespace frelta
