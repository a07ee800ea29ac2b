#pragma once

#include "preferences/PSTableCell.h"

namespace frelta {

/// A label at the leading edge and a control, which speaks for itself, in the rest of the row.
class PSControlTableCell : public PSTableCell {
 public:
  PSControlTableCell(std::string reuseIdentifier, std::shared_ptr<PSSpecifier> specifier);

  std::optional<double> preferredHeightForWidth(double width) const override;
  void layoutSubviews() override;
  UIAccessibility accessibility() const override { return {}; }

 protected:
  /// The subview to lay out; its height is what its sizeThatFits() says.
  virtual UIView& controlView() = 0;

 private:
  CGSize labelSize(double width) const;
};

}  // namespace frelta
