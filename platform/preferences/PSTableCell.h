#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "foundation/PropertyListValue.h"
#include "preferences/PSSpecifier.h"
#include "uikit/UITableViewCell.h"

namespace frelta {

/// The cell of a list page's row: shows the row's label and whether it leads somewhere.
/// A registered class of cell is made anew whenever its row is loaded; the framework's own are
/// given the new specifier instead.
class PSTableCell : public UITableViewCell {
 public:
  PSTableCell(UITableViewCellStyle style, std::string reuseIdentifier,
              std::shared_ptr<PSSpecifier> specifier);

  const std::shared_ptr<PSSpecifier>& specifier() const { return specifier_; }
  void setSpecifier(std::shared_ptr<PSSpecifier> specifier);

  /// Shows the specifier and its value as they are now. Called after construction, too.
  virtual void refreshCellContents();

  /// Height in points of a row of that width; the page's usual height when there is none. The
  /// specifier's "height" if it has one, else what the texts need.
  virtual std::optional<double> preferredHeightForWidth(double width) const;

  /// What a tap does in place of the row's own action; empty for nothing special.
  virtual PSSpecifier::Action cellAction() { return {}; }

 protected:
  /// The row's value, read through its page.
  std::optional<PropertyListValue> readValue() const;
  /// Hands the row's new value to its page.
  void writeValue(PropertyListValue value);

 private:
  std::shared_ptr<PSSpecifier> specifier_;
};

}  // namespace frelta
