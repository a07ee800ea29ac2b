#pragma once

#include "preferences/PSTableCell.h"

namespace frelta {

/// A row that explains: smaller and quieter than those that can be set.
class PSStaticTextTableCell : public PSTableCell {
 public:
  PSStaticTextTableCell(std::string reuseIdentifier, std::shared_ptr<PSSpecifier> specifier);
};

}  // namespace frelta
