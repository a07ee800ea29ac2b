#include "preferences/PSEditableTableCell.h"

#include <utility>

#include "preferences/PSValidValues.h"

namespace frelta {

PSEditableTableCell::PSEditableTableCell(std::string reuseIdentifier,
                                         std::shared_ptr<PSSpecifier> specifier)
    : PSControlTableCell(std::move(reuseIdentifier), std::move(specifier)) {
  textField_ = addSubview(std::make_unique<UITextField>());
  textField_->setClearButtonMode(UITextFieldViewMode::WhileEditing);
  textField_->addTarget(
      this, "editingDidEnd", [this](UIControl&) { editingDidEnd(); }, UIControlEventEditingDidEnd);
}

void PSEditableTableCell::refreshCellContents() {
  PSControlTableCell::refreshCellContents();
  const std::string* placeholder = specifier()->stringForKey("placeholder");
  textField_->setPlaceholder(placeholder ? *placeholder : std::string());
  textField_->setAccessibility({.isElement = true, .label = specifier()->name()});
  const std::string text = textForValue(readValue());
  // What the user is typing is not taken away.
  if (textField_->isFirstResponder()) return;
  storedText_ = text;
  textField_->setText(text);
}

void PSEditableTableCell::editingDidEnd() {
  if (textField_->text() == storedText_) return;
  storedText_ = textField_->text();
  writeValue(storedText_);
}

}  // namespace frelta
