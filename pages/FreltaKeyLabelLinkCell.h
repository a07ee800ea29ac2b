#pragma once

#include "preferences/PSTableCell.h"

namespace frelta {

/// A row whose setting is the path of a file: shows the file's name without folder and extension,
/// or "None" when nothing is set, nor the row has a "default", or the file is not there. Reads the
/// setting once, when it is made.
class FreltaKeyLabelLinkCell : public PSTableCell {
 public:
  FreltaKeyLabelLinkCell(UITableViewCellStyle style, std::string reuseIdentifier,
                         std::shared_ptr<PSSpecifier> specifier);
};

}  // namespace frelta
