#pragma once

#include <string>

#include "preferences/PSControlTableCell.h"
#include "uikit/UITextField.h"

namespace frelta {

/// A line of text; it is stored when editing ends, if it is another by then.
class PSEditableTableCell : public PSControlTableCell {
 public:
  PSEditableTableCell(std::string reuseIdentifier, std::shared_ptr<PSSpecifier> specifier);

  UITextField* textField() const { return textField_; }

  void refreshCellContents() override;

 protected:
  UIView& controlView() override { return *textField_; }

 private:
  void editingDidEnd();

  UITextField* textField_;  // owned as a subview
  std::string storedText_;
};

}  // namespace frelta
