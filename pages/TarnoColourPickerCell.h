#pragma once

#include <optional>
#include <string>

#include "graphics/UIColor.h"
#include "preferences/PSTableCell.h"

namespace frelta {

/// A row that shows the colour stored under its key, which it asks of its page, and lets the user
/// choose another: a pick is handed to the page once, as one string, when the dialogue is done.
class TarnoColourPickerCell : public PSTableCell {
 public:
  TarnoColourPickerCell(UITableViewCellStyle style, std::string reuseIdentifier,
                        std::shared_ptr<PSSpecifier> specifier);

  /// Nothing when none is stored, or a string that is no colour.
  std::optional<UIColor::Components> colour() const;
  /// Opens the colour dialogue over the page.
  void openColourPicker();

  PSSpecifier::Action cellAction() override {
    return [this] { openColourPicker(); };
  }
  void refreshCellContents() override;
};

}  // namespace frelta
