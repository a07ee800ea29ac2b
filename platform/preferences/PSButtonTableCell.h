#pragma once

#include "preferences/PSTableCell.h"

namespace frelta {

/// A row whose tap does something at once.
class PSButtonTableCell : public PSTableCell {
 public:
  PSButtonTableCell(std::string reuseIdentifier, std::shared_ptr<PSSpecifier> specifier);

  void refreshCellContents() override;
};

}  // namespace frelta
